// What the guard says when a work's count of instructions differs from the one that is kept.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/BuildPaths.h"
#include "tests/support/Files.h"
#include "tests/support/Process.h"

namespace Tests {
namespace {

class InstructionGuard : public testing::Test {
 protected:
  Finished Check(const std::string& kept, const std::string& measured,
                 const std::vector<std::string>& more = {}) {
    WriteFile(m_folder / "kept.tsv", kept);
    WriteFile(m_folder / "measured.tsv", measured);
    std::vector<std::string> command = {
        "/usr/bin/python3", std::string(OMBRELIA_SOURCE_DIR) + "/benchmarks/check_instructions.py",
        m_folder / "kept.tsv", m_folder / "measured.tsv", "compiler 2, library 3.2"};
    command.insert(command.end(), more.begin(), more.end());
    return RunProgram(command);
  }
  static bool Says(const std::string& text, const std::string& words) {
    return text.find(words) != std::string::npos;
  }

  ScratchFolder m_folder;
};

TEST_F(InstructionGuard, CountsThatAreTheSameOrALittleLargerPass) {
  const Finished finished = Check("load\t1000\nsort\t1000\n", "load\t1000\nsort\t1050\n");
  EXPECT_EQ(finished.status, 0);
  EXPECT_EQ(finished.err, "");
}

TEST_F(InstructionGuard, AWorkThatGrewFailsAndIsNamedWithTheWayToRenew) {
  const Finished finished = Check("load\t1000\nsort\t1000\n", "load\t1000\nsort\t1051\n");
  EXPECT_EQ(finished.status, 1);
  EXPECT_TRUE(Says(finished.err, "sort: 1,000 instructions before, 1,051 now (+5.1%)"))
      << finished.err;
  EXPECT_TRUE(Says(finished.err, "scripts/bench --guard --renew")) << finished.err;
  EXPECT_FALSE(Says(finished.err, "load")) << finished.err;
}

TEST_F(InstructionGuard, AWorkThatWasNotCountedFails) {
  const Finished finished = Check("load\t1000\nsort\t1000\n", "load\t1000\n");
  EXPECT_EQ(finished.status, 1);
  EXPECT_TRUE(Says(finished.err, "sort: was not counted")) << finished.err;
}

TEST_F(InstructionGuard, AWorkWithoutAKeptCountFails) {
  const Finished finished = Check("load\t1000\n", "load\t1000\nsort\t1000\n");
  EXPECT_EQ(finished.status, 1);
  EXPECT_TRUE(Says(finished.err, "sort: has no kept count")) << finished.err;
}

TEST_F(InstructionGuard, NoCountAtAllFails) {
  const Finished finished = Check("load\t1000\n", "");
  EXPECT_EQ(finished.status, 1);
  EXPECT_TRUE(Says(finished.err, "No work was counted.")) << finished.err;
}

TEST_F(InstructionGuard, AWorkThatShrankIsToldAndPasses) {
  const Finished finished = Check("load\t1000\n", "load\t940\n");
  EXPECT_EQ(finished.status, 0);
  EXPECT_TRUE(Says(finished.out, "Shrunk by more than 5 per cent:\n  load: 1,000")) << finished.out;
}

TEST_F(InstructionGuard, AFailureTellsWhenTheCountsAreOfOtherTools) {
  EXPECT_TRUE(Says(Check("# compiler 1, library 3.2\nload\t1000\n", "load\t2000\n").err,
                   "The kept counts are of compiler 1, library 3.2; these are of compiler 2"));
  EXPECT_FALSE(Says(Check("# compiler 2, library 3.2\nload\t1000\n", "load\t2000\n").err,
                    "The kept counts are of"));
}

TEST_F(InstructionGuard, RenewingKeepsWhatWasMeasuredAndWithWhat) {
  EXPECT_EQ(Check("load\t1000\n", "sort\t7\nload\t2000\n", {"--renew"}).status, 0);
  EXPECT_EQ(ReadFile(m_folder / "kept.tsv"), "# compiler 2, library 3.2\nload\t2000\nsort\t7\n");
}

TEST_F(InstructionGuard, RenewingWithoutACountLeavesTheFile) {
  EXPECT_EQ(Check("load\t1000\n", "", {"--renew"}).status, 1);
  EXPECT_EQ(ReadFile(m_folder / "kept.tsv"), "load\t1000\n");
}

}  // namespace
}  // namespace Tests
