// Waits until something happens in a folder.
#ifndef OMBRELIA_HOST_RUN_FOLDERWATCH_H
#define OMBRELIA_HOST_RUN_FOLDERWATCH_H

#include <wx/evtloop.h>
#include <wx/fswatcher.h>

#include <filesystem>
#include <memory>

namespace OmbreliaHost {

// What happened is found by a look at the folder: the system may tell of changes late, twice, or, on file systems
// of the network, not at all. One at a time, in the thread that initialised wx.
class FolderWatch {
 public:
  // wake: a descriptor that ends a wait when it becomes readable. It stays so until somebody reads it.
  FolderWatch(const std::filesystem::path& folder, int wake);
  ~FolderWatch();
  FolderWatch(const FolderWatch&) = delete;
  FolderWatch& operator=(const FolderWatch&) = delete;

  // Returns when something happened since the last call, or after the given number of seconds.
  void Wait(double seconds);

 private:
  class WakeHandler;

  wxConsoleEventLoop m_loop;
  wxEventLoopActivator m_active;
  wxFileSystemWatcher m_watcher;
  std::unique_ptr<WakeHandler> m_wakeHandler;
  std::unique_ptr<wxEventLoopSource> m_wakeSource;
  bool m_somethingHappened = false;
};

}  // namespace OmbreliaHost

#endif
