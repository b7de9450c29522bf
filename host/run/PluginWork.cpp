#include "host/run/PluginWork.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <utility>

#include "host/results/ExitStatus.h"
#include "host/results/WideText.h"
#include "host/run/AssertionForwarder.h"
#include "host/run/PluginLibrary.h"
#include "host/run/ReportFile.h"
#include "host/run/SignalWatch.h"

namespace OmbreliaHost {

namespace {

class Steps {
 public:
  explicit Steps(const ChildProcess::Tell& tell) : m_tell(tell) {}
  void Tell(const char* event, std::size_t number = 0, std::size_t assertions = 0,
            const std::string& why = std::string()) const {
    m_tell(PluginStep{event, ChildProcess::Now(), number, assertions, why}.Line());
  }

 private:
  const ChildProcess::Tell& m_tell;
};

class Verification {
 public:
  Verification(const PluginWork& work, const Steps& steps)
      : m_work(work), m_steps(steps), m_library(work.library) {
    m_assertions.ForwardTo(&m_library.Plugin());
    m_steps.Tell("loaded", 0, NewAssertions());
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
    m_steps.Tell("flush");
    m_library.Plugin().FlushTestOutput();
    m_steps.Tell(report.IsWritten() ? "report" : "no-report");
    // So that the report is read while the plug-in is unloaded.
    SignalWatch::WakeParent();
  }

 private:
  void Verify(std::size_t index) {
    const Datafile& datafile = (*m_work.datafiles)[index];
    m_steps.Tell("begin", index);
    m_library.Plugin().PerformPostProcessing(TextOfPath(datafile.path), datafile.areas);
    m_steps.Tell("end", index, NewAssertions());
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

std::string PluginStep::Line() const {
  std::array<char, 96> start{};
  std::snprintf(start.data(), start.size(), "%s %.6f %zu %zu ", event.c_str(), at, number,
                assertions);
  std::string line = start.data() + why;
  std::replace(line.begin(), line.end(), '\n', ' ');
  return line;
}

std::optional<PluginStep> PluginStep::OfLine(const std::string& line) {
  std::array<char, 16> event{};
  PluginStep step;
  int length = 0;
  const int fields = std::sscanf(line.c_str(), "%15s %lf %zu %zu %n", event.data(), &step.at,
                                 &step.number, &step.assertions, &length);
  if (fields != 4) return std::nullopt;
  step.event = event.data();
  step.why = line.substr(static_cast<std::size_t>(length));
  return step;
}

void VerifyWithPlugin(const PluginWork& work, const ChildProcess::Tell& tell) {
  const Steps steps(tell);
  try {
    ReportFile report;
    Verification verification(work, steps);
    verification.VerifyAll();
    verification.WriteReport(report);
  } catch (const RunError& error) {
    steps.Tell("fault", static_cast<std::size_t>(error.Status()), 0, error.what());
  }
}

}  // namespace OmbreliaHost
