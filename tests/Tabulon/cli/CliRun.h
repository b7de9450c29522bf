// What the tests of tabulon-cli share.
#ifndef OMBRELIA_TESTS_TABULON_CLI_CLIRUN_H
#define OMBRELIA_TESTS_TABULON_CLI_CLIRUN_H

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/BuildPaths.h"
#include "tests/support/Files.h"
#include "tests/support/Process.h"

namespace Tests {

using Arguments = std::vector<std::string>;

// tabulon-cli as a user meets it: the program is run in a folder with three files, two of them data files, and what it
// says is compared whole.
class CliRun : public testing::Test {
 protected:
  void SetUp() override {
    WriteFile(m_folder / "a.txt",
              "Ann\nFirst experiment\nMon Apr 02 2012\n\n"
              "Event\tReaction\tNote\tFont\n"
              "Name\tTime\t\t(Trial Variable)\n"
              "go\t12\t\tred\n"
              "stop\t5\t \tblue\n"
              "go\t300\t\tred\n");
    WriteFile(m_folder / "b.txt",
              "B\xC3\xA9n\xC3\xA9\nSecond\nTue\n\nEvent\tKey\nName\t\tCode\nw\xC3\xA4it\tk\t7\n");
    WriteFile(m_folder / "bad.txt", "one\ntwo\n");
  }

  Finished Run(Arguments arguments, Arguments environment = {}) {
    arguments.insert(arguments.begin(), OMBRELIA_TABULON_CLI);
    Tests::ProcessSetup setup;
    setup.workingDirectory = m_folder.Path();
    setup.environment = environment;
    return Tests::RunProgram(arguments, setup);
  }
  // What a run without any trouble prints.
  std::string Output(const Arguments& arguments, const Arguments& environment = {}) {
    const Finished finished = Run(arguments, environment);
    EXPECT_EQ(finished.status, 0) << finished.err;
    EXPECT_EQ(finished.err, "");
    return finished.out;
  }
  // What a run that ends as wrong use says on standard error; it must print nothing else.
  std::string Complaint(const Arguments& arguments) {
    const Finished finished = Run(arguments);
    EXPECT_EQ(finished.status, 2);
    EXPECT_EQ(finished.out, "");
    return finished.err;
  }

  ScratchFolder m_folder;
};

}  // namespace Tests

#endif
