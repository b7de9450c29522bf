#include "host/run/PluginWork.h"

#include <utility>

#include "host/results/ExitStatus.h"
#include "host/results/WideText.h"
#include "host/run/AssertionForwarder.h"
#include "host/run/PluginLibrary.h"
#include "host/run/ReportFile.h"

namespace OmbreliaHost {

namespace {

class Steps {
 public:
  explicit Steps(const ChildProcess::Tell& tell) : m_tell(tell) {}
  void Tell(nlohmann::json step) const {
    step["at"] = ChildProcess::Now();
    m_tell(step);
  }

 private:
  const ChildProcess::Tell& m_tell;
};

class Verification {
 public:
  Verification(const PluginWork& work, const Steps& steps)
      : m_work(work), m_steps(steps), m_library(work.library) {
    m_assertions.ForwardTo(&m_library.Plugin());
    m_steps.Tell({{"event", "loaded"}, {"assertions", NewAssertions()}});
  }

  void VerifyAll() {
    if (m_work.queue != nullptr) {
      for (std::size_t i = 0; (i = m_work.queue->Take()) < m_work.datafiles->size();) Verify(i);
    }
    for (const std::size_t i : m_work.further) Verify(i);
  }

  void WriteReport(ReportFile& report) {
    // A result after the flush would start a report that replaces this one.
    m_assertions.ForwardTo(nullptr);
    report.RememberStateBeforeWriting();
    m_steps.Tell({{"event", "flush"}});
    m_library.Plugin().FlushTestOutput();
    m_steps.Tell({{"event", report.IsWritten() ? "report" : "no report"}});
  }

 private:
  void Verify(std::size_t index) {
    const Datafile& datafile = (*m_work.datafiles)[index];
    m_steps.Tell({{"event", "begin"}, {"datafile", index}});
    m_library.Plugin().PerformPostProcessing(TextOfPath(datafile.path), datafile.areas);
    m_steps.Tell({{"event", "end"}, {"datafile", index}, {"assertions", NewAssertions()}});
  }

  std::size_t NewAssertions() {
    const std::size_t before = std::exchange(m_assertionsTold, m_assertions.Forwarded());
    return m_assertionsTold - before;
  }

  const PluginWork& m_work;
  const Steps& m_steps;
  AssertionForwarder m_assertions;
  PluginLibrary m_library;
  std::size_t m_assertionsTold = 0;
};

}  // namespace

void VerifyWithPlugin(const PluginWork& work, const ChildProcess::Tell& tell) {
  const Steps steps(tell);
  try {
    ReportFile report;
    Verification verification(work, steps);
    verification.VerifyAll();
    verification.WriteReport(report);
  } catch (const RunError& error) {
    steps.Tell(
        {{"event", "fault"}, {"status", static_cast<int>(error.Status())}, {"why", error.what()}});
  }
}

}  // namespace OmbreliaHost
