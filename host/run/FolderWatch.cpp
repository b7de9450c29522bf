#include "host/run/FolderWatch.h"

#include <wx/evtloopsrc.h>
#include <wx/filename.h>
#include <wx/log.h>

#include <algorithm>
#include <cmath>

#include "host/results/WideText.h"
#include "host/run/ChildProcess.h"

namespace OmbreliaHost {

// Only the end of the wait counts.
class FolderWatch::WakeHandler : public wxEventLoopSourceHandler {
 public:
  explicit WakeHandler(bool& happened) : m_happened(happened) {}
  void OnReadWaiting() override { m_happened = true; }
  void OnWriteWaiting() override {}
  void OnExceptionWaiting() override { m_happened = true; }

 private:
  bool& m_happened;
};

FolderWatch::FolderWatch(const std::filesystem::path& folder, int wake)
    : m_active(&m_loop), m_wakeHandler(std::make_unique<WakeHandler>(m_somethingHappened)) {
  m_watcher.SetOwner(&m_watcher);
  m_watcher.Bind(wxEVT_FSWATCHER,
                 [this](wxFileSystemWatcherEvent&) { m_somethingHappened = true; });
  m_wakeSource.reset(
      wxEventLoopBase::AddSourceForFD(wake, m_wakeHandler.get(), wxEVENT_SOURCE_INPUT));
  // Where the system does not watch it, looks alone find what is new.
  const wxLogNull silence;
  m_watcher.Add(wxFileName::DirName(TextOfPath(folder)),
                wxFSW_EVENT_CREATE | wxFSW_EVENT_DELETE | wxFSW_EVENT_RENAME | wxFSW_EVENT_MODIFY);
}

FolderWatch::~FolderWatch() {
  const wxLogNull silence;
  m_watcher.RemoveAll();
}

void FolderWatch::Wait(double seconds) {
  const double end = ChildProcess::Now() + seconds;
  for (double left = seconds; !m_somethingHappened && left > 0; left = end - ChildProcess::Now())
    m_loop.DispatchTimeout(static_cast<unsigned long>(std::ceil(left * 1000)));
  m_somethingHappened = false;
}

}  // namespace OmbreliaHost
