#include "tests/host/VerifyDatafiles.h"

#include <algorithm>

#include "tests/BuildPaths.h"

namespace Tests {

Finished VerifyDatafilesTest::Verify(const Arguments& arguments, const Arguments& environment) {
  Arguments command = {std::string(OMBRELIA_BIN_DIR) + "/verify-datafiles"};
  command.insert(command.end(), arguments.begin(), arguments.end());
  ProcessSetup setup;
  setup.workingDirectory = m_folder.Path();
  setup.environment = environment;
  // The program must never ask for a display.
  setup.environment.push_back("DISPLAY");
  setup.environment.push_back("WAYLAND_DISPLAY");
  // Nor do these tests run in a job of GitHub Actions, whatever runs them.
  for (const char* variable : {"GITHUB_ACTIONS", "GITHUB_STEP_SUMMARY"}) {
    const std::string set = variable + std::string("=");
    const bool chosen = std::any_of(environment.begin(), environment.end(), [&](const auto& one) {
      return one.compare(0, set.size(), set) == 0;
    });
    if (!chosen) setup.environment.push_back(variable);
  }
  return RunProgram(command, setup);
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

std::string VerifyDatafilesTest::File(const std::string& name, const std::string& content) {
  WriteFile(m_folder / name, content);
  return name;
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
