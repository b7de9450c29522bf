#include <gtest/gtest.h>

#include "tests/support/DataFile.h"
#include "tests/support/VerbatimFailures.h"

namespace Tests {
namespace {

const char* const EXPERIMENT = "2015-01-30_OMException_thrown_and_caught.om5";

DataFile Sample() { return DataFile::Sample(EXPERIMENT); }

TEST(TestOMExceptionThrownAndCaught, PassesItsSampleWithoutBounds) {
  EXPECT_EQ(
      Sample().Verify(),
      (Lines{"suite 2015-01-30_OMException_thrown_and_caught.om5",
             "pass VerifyDatafile_was_called_for_2015-01-30_OMException_thrown_and_caught.om5",
             "pass Data_appears_completely_and_in_order",
             "pass __TIMING__TRACKING__2015-01-30_OMException_thrown_and_caught.om5__642_ms",
             "pass __EXPANSION__TRACKING__2015-01-30_OMException_thrown_and_caught.om5__44_ms"}));
  for (const char* machine : {ORDINARY_MACHINE, SERVER_MACHINE, TESTBOX_MACHINE, BOTH_MACHINES}) {
    EXPECT_EQ(Sample().SetDuration("0").SetExpansion("999999").Failures(machine), Lines{});
  }
}

TEST(TestOMExceptionThrownAndCaught, ComparesTheAwkwardNamesExactly) {
  const std::string a = R"(a\a/a:a*a?a"a<a>a|)" + std::string(31, 'a');
  const std::string b(40, 'b');
  const std::string c = std::string(40, 'c') + ", 1";
  const std::vector<std::string> names = {a, b, c, c, c, c};
  ASSERT_EQ(a.size(), 49u);
  EXPECT_EQ(Sample().SetColumn("Trial\nName", names).Failures(), Lines{});
  for (std::size_t row = 0; row < names.size(); ++row) {
    for (const std::string& text :
         {names[row] + names[row].back(), names[row].substr(1), std::string()}) {
      EXPECT_EQ(Sample().Set(row, "Trial\nName", text).Failures(),
                Lines{CellDiffers(EXPERIMENT, row, names[row])});
    }
  }
}

TEST(TestOMExceptionThrownAndCaught, FailsOnAChangeOfAnyComparedCell) {
  ExpectEachCellIsCompared(
      EXPERIMENT, "Trial\nName",
      {"a\\a/a:a*a?a\"a<a>a|aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa",
       "bbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbb", "cccccccccccccccccccccccccccccccccccccccc, 1",
       "cccccccccccccccccccccccccccccccccccccccc, 1", "cccccccccccccccccccccccccccccccccccccccc, 1",
       "cccccccccccccccccccccccccccccccccccccccc, 1"});
}

TEST(TestOMExceptionThrownAndCaught, FailsOnAWrongNumberOfRows) {
  EXPECT_EQ(Sample().RepeatLastRow().Failures(), Lines{TooManyCells(EXPERIMENT)});
  EXPECT_EQ(Sample().KeepRows(5).Failures(), Lines{TooFewCells(EXPERIMENT)});
}

TEST(TestOMExceptionThrownAndCaught, FailsWithoutItsColumn) {
  EXPECT_EQ(
      Sample().RemoveColumn("Trial\nName").Failures(),
      Lines{CellDiffers(EXPERIMENT, 0, "a\\a/a:a*a?a\"a<a>a|aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa")});
}

}  // namespace
}  // namespace Tests
