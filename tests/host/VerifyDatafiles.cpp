#include "tests/host/VerifyDatafiles.h"

#include <algorithm>
#include <iterator>
#include <sstream>

#include "tests/BuildPaths.h"

namespace Tests {

namespace {

// The text with "PID" in place of the process id in each report's name.
std::string WithoutProcess(std::string text) {
  const std::string name = "FakeUnitTestsDataHookExperimentRunning_";
  for (std::size_t at = text.find(name); at != std::string::npos; at = text.find(name, at + 1)) {
    const std::size_t first = at + name.size();
    const std::size_t end = std::min(text.find_first_not_of("0123456789", first), text.size());
    if (end > first) text.replace(first, end - first, "PID");
  }
  return text;
}

}  // namespace

VerifyDatafilesTest::Arguments VerifyDatafilesTest::Command(const Arguments& arguments) const {
  Arguments command = {std::string(OMBRELIA_BIN_DIR) + "/verify-datafiles"};
  command.insert(command.end(), arguments.begin(), arguments.end());
  return command;
}

ProcessSetup VerifyDatafilesTest::SetupWith(const Arguments& environment) const {
  ProcessSetup setup;
  setup.workingDirectory = m_folder.Path();
  // The program must never ask for a display. Whatever runs these tests, they are no share of a run and no
  // job of GitHub Actions unless a test says so.
  setup.environment = {"DISPLAY",
                       "WAYLAND_DISPLAY",
                       "TEST_TOTAL_SHARDS",
                       "TEST_SHARD_INDEX",
                       "GTEST_TOTAL_SHARDS",
                       "GTEST_SHARD_INDEX",
                       "TEST_SHARD_STATUS_FILE",
                       "GITHUB_ACTIONS",
                       "GITHUB_STEP_SUMMARY"};
  setup.environment.insert(setup.environment.end(), environment.begin(), environment.end());
  return setup;
}

Finished VerifyDatafilesTest::Verify(const Arguments& arguments, const Arguments& environment) {
  return WithoutProcess(RunProgram(Command(arguments), SetupWith(environment)));
}

Finished VerifyDatafilesTest::WithoutProcess(Finished finished) {
  finished.out = Tests::WithoutProcess(finished.out);
  finished.err = Tests::WithoutProcess(finished.err);
  return finished;
}

Finished VerifyDatafilesTest::VerifyWithFake(const Arguments& arguments,
                                             const Arguments& environment) {
  Arguments all = {"--plugin", OMBRELIA_FAKE_PLUGIN};
  all.insert(all.end(), arguments.begin(), arguments.end());
  Arguments variables = environment;
  variables.push_back("FAKE_CALLS=" + (m_folder / "calls"));
  return Verify(all, variables);
}

Finished VerifyDatafilesTest::VerifyWithReport(const std::string& report,
                                               const Arguments& arguments) {
  WriteFile(m_folder / "report-to-write", report);
  return VerifyWithFake(arguments, {"FAKE_REPORT=" + (m_folder / "report-to-write")});
}

Finished VerifyDatafilesTest::VerifyWithOwnReport(const Arguments& arguments,
                                                  const Arguments& environment) {
  Arguments variables = environment;
  variables.push_back("FAKE_REPORT=own");
  variables.push_back("FAKE_PIDS=" + (m_folder / "processes"));
  return VerifyWithFake(arguments, variables);
}

std::unique_ptr<Process> VerifyDatafilesTest::StartWithOwnReport(const Arguments& arguments) {
  Arguments all = {"--plugin", OMBRELIA_FAKE_PLUGIN};
  all.insert(all.end(), arguments.begin(), arguments.end());
  return std::make_unique<Process>(
      Command(all), SetupWith({"FAKE_REPORT=own", "FAKE_CALLS=" + (m_folder / "calls"),
                               "FAKE_PIDS=" + (m_folder / "processes")}));
}

std::vector<pid_t> VerifyDatafilesTest::Processes() const {
  if (!Exists(m_folder / "processes")) return {};
  std::istringstream numbers(ReadFile(m_folder / "processes"));
  return {std::istream_iterator<pid_t>(numbers), std::istream_iterator<pid_t>()};
}

std::string VerifyDatafilesTest::File(const std::string& name, const std::string& content) {
  WriteFile(m_folder / name, content);
  return name;
}

std::string VerifyDatafilesTest::ReportPath(const ScratchFolder& folder) {
  return folder.ReportFolder() + "/FakeUnitTestsDataHookExperimentRunning_PID.xml";
}

std::vector<std::string> VerifyDatafilesTest::Reports(const ScratchFolder& folder) {
  std::vector<std::string> reports;
  for (const std::string& name : NamesIn(folder.ReportFolder())) {
    if (Tests::WithoutProcess(name) != "FakeUnitTestsDataHookExperimentRunning_PID.xml") continue;
    reports.push_back(ReadFile(folder.ReportFolder() + "/" + name));
  }
  return reports;
}

std::string ReportWith(int tests, int failures, const std::string& entries) {
  const std::string counts = "tests=\"" + std::to_string(tests) + "\" failures=\"" +
                             std::to_string(failures) + "\" disabled=\"0\" errors=\"0\" time=\"0\"";
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<testsuites " + counts +
         " name=\"AllTests\">\n    <testsuite name=\"s\" " + counts + ">\n" + entries +
         "    </testsuite>\n</testsuites>\n";
}

std::string Passing(const std::string& name) {
  return "        <testcase name=\"" + name + "\" status=\"run\" time=\"999\" />\n";
}

std::string Failing(const std::string& name, const std::string& subject,
                    const std::string& location, const std::string& message) {
  return "        <testcase name=\"" + name +
         "\" status=\"run\" time=\"999\" >\n        <failure message=\"" + subject +
         "\" type=\"\">\n\n <![CDATA[" + location + "\n" + message +
         "]]>\n\n</failure>\n</testcase>\n";
}

std::string FirstResults() {
  return Passing("test001SingleDummyPassingTest") +
         Passing("test002DataHookOutputTestingPlugin_PerformPostProcessing_was_called");
}

}  // namespace Tests
