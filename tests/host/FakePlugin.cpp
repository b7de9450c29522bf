// A data-hook plug-in for the tests of the host's stand-in. Environment variables choose what it does:
//
//   FAKE_CALLS         file to which each call adds a line with its arguments
//   FAKE_PIDS          file to which each process adds a line with its number: that of the plug-in when it is
//                      loaded, and one that is left behind
//   FAKE_REPORT        file that the flush copies to where the report belongs; "own": a report of what was
//                      processed, two tests for each data file; none: no report
//   FAKE_STALE_REPORT  file that loading copies to where the report belongs
//   FAKE_ASSERTION     set: loading and processing fail an assertion each
//   FAKE_NULL          set: the library gives no object
//   FAKE_EXCEPTION     set: processing throws
//   FAKE_LOAD          a deed that loading does
//   FAKE_UNLOAD        a deed that unloading does
//
// A data file whose name holds the word of a deed, between hyphens as in "3-crash-.txt", has it done when
// it is processed; with "flush" before it, as in "3-flush-crash-.txt", when the report is to be written.
#include <sys/types.h>
#include <unistd.h>
#include <wx/debug.h>

#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "framework/StimAreaData.h"
#include "plugin/Interface_DataHookPlugin.h"

namespace {

void AddLine(const char* variable, const std::string& line) {
  if (const char* file = std::getenv(variable)) {
    std::ofstream(file, std::ios::app) << line << "\n";
  }
}

void Tell(const std::string& call) { AddLine("FAKE_CALLS", call); }

std::string ReportPath() {
  return "scons-out/opt/tests/auto_experiment_tests/FakeUnitTestsDataHookExperimentRunning_" +
         std::to_string(getpid()) + ".xml";
}

void CopyToReport(const char* variable) {
  const char* const source = std::getenv(variable);
  if (source == nullptr) return;
  std::filesystem::copy_file(source, ReportPath(),
                             std::filesystem::copy_options::overwrite_existing);
}

[[noreturn]] void SleepForEver() {
  for (;;) std::this_thread::sleep_for(std::chrono::hours(1));
}

// A process that only the end of its group, or its own, ends.
void LeaveAProcessBehind() {
  const pid_t left = fork();
  if (left == 0) SleepForEver();
  AddLine("FAKE_PIDS", std::to_string(left));
}

void PrintAMegabyte() {
  for (int i = 0; i < 16384; ++i) std::cerr << std::string(63, 'x') << "\n";
  std::cerr << "the last line" << std::endl;
}

void DoTheDeed(const std::string& deed) {
  if (deed == "crash") std::abort();
  if (deed == "exit") std::exit(3);
  if (deed == "hang") SleepForEver();
  if (deed == "sleep") std::this_thread::sleep_for(std::chrono::milliseconds(300));
  if (deed == "throw") throw std::runtime_error("thrown by the plug-in");
  if (deed == "megabyte") PrintAMegabyte();
  if (deed == "leave") LeaveAProcessBehind();
}

// What ends the process comes last, so that it may do something else before.
constexpr std::array<const char*, 7> DEEDS = {"megabyte", "leave", "sleep", "crash",
                                              "exit",     "hang",  "throw"};

// Each deed whose word stands in the name behind these words.
void DoTheDeedsOf(const std::string& name, const std::string& before) {
  for (const char* const deed : DEEDS) {
    if (name.find(before + "-" + deed + "-") != std::string::npos) DoTheDeed(deed);
  }
}

void DoTheDeedIn(const char* variable) {
  if (const char* const deed = std::getenv(variable)) DoTheDeed(deed);
}

bool IsSet(const char* variable, const std::string& value) {
  const char* const text = std::getenv(variable);
  return text != nullptr && text == value;
}

class FakePlugin : public Ombrelia::Interface_DataHookPlugin {
 public:
  FakePlugin() {
    AddLine("FAKE_PIDS", std::to_string(getpid()));
    CopyToReport("FAKE_STALE_REPORT");
    if (std::getenv("FAKE_ASSERTION")) wxASSERT_MSG(false, wxT("while loading"));
    DoTheDeedIn("FAKE_LOAD");
  }
  ~FakePlugin() override { DoTheDeedIn("FAKE_UNLOAD"); }
  int GetPlugInID() const override { return 0; }
  void GetString(int, wxString&) const override {}

  void PerformPostProcessing(const wxString& dataFilePath,
                             const std::vector<Ombrelia::StimAreaData>& stimAreas) override {
    std::string call = "process " + dataFilePath.utf8_string();
    for (const Ombrelia::StimAreaData& area : stimAreas) {
      call += " [" + std::to_string(area.x) + "," + std::to_string(area.y) + "," +
              std::to_string(area.width) + "," + std::to_string(area.height) + "," +
              std::to_string(area.response_id) + "," + area.area_name.utf8_string() + "]";
    }
    Tell(call);
    if (std::getenv("FAKE_ASSERTION")) wxASSERT_MSG(false, wxT("while processing"));
    if (std::getenv("FAKE_EXCEPTION")) throw std::runtime_error("thrown by the plug-in");
    m_names.push_back(std::filesystem::path(dataFilePath.utf8_string()).filename().string());
    if (m_names.back().find("-flush-") == std::string::npos) DoTheDeedsOf(m_names.back(), "");
  }
  bool LogAssertionFailureAsTestFailure(const wxString& assertionText) override {
    Tell("assertion " + assertionText.utf8_string());
    // Must not come back here.
    if (std::getenv("FAKE_ASSERTION")) wxASSERT_MSG(false, wxT("while recording an assertion"));
    return true;
  }
  void FlushTestOutput() override {
    Tell("flush");
    for (const std::string& name : m_names) DoTheDeedsOf(name, "-flush");
    if (IsSet("FAKE_REPORT", "own")) {
      WriteReport();
    } else {
      CopyToReport("FAKE_REPORT");
    }
  }

 private:
  bool WasAskedFor(const std::string& word) const {
    for (const std::string& name : m_names) {
      if (name.find("-" + word + "-") != std::string::npos) return true;
    }
    return false;
  }

  // A data file named "-nothing-" suppresses the report, one named "-half-" cuts it off.
  void WriteReport() {
    if (WasAskedFor("nothing")) return;
    std::string entries;
    std::size_t number = 0;
    const auto add = [&](const std::string& name) {
      std::array<char, 32> digits{};
      std::snprintf(digits.data(), digits.size(), "%03zu", ++number);
      entries += "        <testcase name=\"test" + std::string(digits.data()) + name +
                 "\" status=\"run\" time=\"999\" />\n";
    };
    add("SingleDummyPassingTest");
    for (std::size_t i = 0; i < m_names.size(); ++i) {
      add("DataHookOutputTestingPlugin_PerformPostProcessing_was_called");
      add("Fine");
    }
    const std::string counts = "tests=\"" + std::to_string(number) + "\" failures=\"0\"";
    const std::string report = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<testsuites " + counts +
                               " name=\"AllTests\">\n    <testsuite name=\"s\" " + counts + ">\n" +
                               entries + "    </testsuite>\n</testsuites>\n";
    std::ofstream(ReportPath()) << report.substr(
        0, WasAskedFor("half") ? report.size() / 2 : report.size());
  }

  std::vector<std::string> m_names;
};

FakePlugin object;

}  // namespace

extern "C" __attribute__((visibility("default"))) void* OMSdkGetObjectPtr() {
  if (std::getenv("FAKE_NULL")) return nullptr;
  return static_cast<OmbreliaSDK::OMSdkBase*>(&object);
}
