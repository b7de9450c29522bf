// Runs verify-datafiles in a scratch folder.
#ifndef OMBRELIA_TESTS_HOST_VERIFYDATAFILES_H
#define OMBRELIA_TESTS_HOST_VERIFYDATAFILES_H

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "tests/support/Files.h"
#include "tests/support/Process.h"

namespace Tests {

class VerifyDatafilesTest : public testing::Test {
 protected:
  using Arguments = std::vector<std::string>;

  // The command and what it is started with, for the real plug-in.
  Arguments Command(const Arguments& arguments) const;
  ProcessSetup SetupWith(const Arguments& environment) const;

  // The program with the real plug-in; the working directory is the scratch folder. In what it says, the
  // name of a report holds PID where the number of the process is that wrote it.
  Finished Verify(const Arguments& arguments, const Arguments& environment = {});
  // With the fake plug-in, which answers the flush with this report, ids and all as it stands.
  Finished VerifyWithReport(const std::string& report, const Arguments& arguments);
  Finished VerifyWithFake(const Arguments& arguments, const Arguments& environment);
  // With the fake plug-in, whose report has two passing tests for each data file.
  Finished VerifyWithOwnReport(const Arguments& arguments, const Arguments& environment = {});
  // The same, but it is not waited for.
  std::unique_ptr<Process> StartWithOwnReport(const Arguments& arguments);

  // Writes a file into the scratch folder and gives its name there.
  std::string File(const std::string& name, const std::string& content = "not a data file\n");
  // The processes that loaded the fake plug-in or were left behind by it, in their order.
  std::vector<pid_t> Processes() const;
  // The calls that the fake plug-in got, one a line.
  std::string Calls() const { return ReadFile(m_folder / "calls"); }
  bool AnythingRan() const { return Exists(m_folder / "scons-out"); }
  static Finished WithoutProcess(Finished finished);
  // The report's path as the program says it, with PID.
  std::string ReportPath() const { return ReportPath(m_folder); }
  static std::string ReportPath(const ScratchFolder& folder);
  // The texts of all reports in the folder.
  std::vector<std::string> Reports() const { return Reports(m_folder); }
  static std::vector<std::string> Reports(const ScratchFolder& folder);

  ScratchFolder m_folder;
};

// The start of a report's text, and its end.
std::string ReportWith(int tests, int failures, const std::string& entries);
std::string Passing(const std::string& name);
std::string Failing(const std::string& name, const std::string& subject,
                    const std::string& location, const std::string& message);
// The two results that come before everything else of a first data file.
std::string FirstResults();

}  // namespace Tests

#endif
