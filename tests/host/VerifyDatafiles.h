// Runs verify-datafiles in a scratch folder.
#ifndef OMBRELIA_TESTS_HOST_VERIFYDATAFILES_H
#define OMBRELIA_TESTS_HOST_VERIFYDATAFILES_H

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/Files.h"
#include "tests/support/Process.h"

namespace Tests {

class VerifyDatafilesTest : public testing::Test {
 protected:
  using Arguments = std::vector<std::string>;

  // The program with the real plug-in; the working directory is the scratch folder.
  Finished Verify(const Arguments& arguments, const Arguments& environment = {});
  // With the fake plug-in, which answers the flush with this report, ids and all as it stands.
  Finished VerifyWithReport(const std::string& report, const Arguments& arguments);
  Finished VerifyWithFake(const Arguments& arguments, const Arguments& environment);

  // Writes a file into the scratch folder and gives its name there.
  std::string File(const std::string& name, const std::string& content = "not a data file\n");
  // The calls that the fake plug-in got, one a line.
  std::string Calls() const { return ReadFile(m_folder / "calls"); }
  bool AnythingRan() const { return Exists(m_folder / "scons-out"); }
  std::string ReportPath(const Finished& finished) const {
    return m_folder.ReportFolder() + "/" + ReportName(finished.pid);
  }

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
