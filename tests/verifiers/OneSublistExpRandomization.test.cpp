#include <gtest/gtest.h>

#include "tests/support/DataFile.h"
#include "tests/support/FrameFailures.h"

namespace Tests {
namespace {

const char* const EXPERIMENT = "one_sublist_exp_randomization.om5";

std::string MatchedOnly(int matches) {
  return Fail("Test_Correct_Amt_of_Sublist_Items_and_in_Order",
              "Mismatch in data cells in datafile.", EXPERIMENT, 106,
              "The column contents weren't an ordered subset of the given items. We matched " +
                  std::to_string(matches) +
                  "/4 items. Either they were our of order or there were too few or too many or "
                  "something else went wrong.");
}

// A data file whose events have these names.
DataFile Presenting(const std::vector<std::string>& events) {
  DataFile file = DataFile::Sample(EXPERIMENT);
  while (file.RowCount() < events.size()) file.RepeatLastRow();
  file.KeepRows(events.size());
  return file.SetColumn("Event\nName", events).SetDuration("415");
}

TEST(OneSublistExpRandomization, PassesItsSample) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Verify(),
            (Lines{"suite one_sublist_exp_randomization.om5",
                   "pass VerifyDatafile_was_called_for_one_sublist_exp_randomization.om5",
                   "pass Test_Correct_Amt_of_Sublist_Items_and_in_Order",
                   "pass Experiment_duration_one_sublist_exp_randomization.om5",
                   "pass Expansion_duration_one_sublist_exp_randomization.om5",
                   "pass __TIMING__TRACKING__one_sublist_exp_randomization.om5__415_ms",
                   "pass __EXPANSION__TRACKING__one_sublist_exp_randomization.om5__64_ms"}));
}

TEST(OneSublistExpRandomization, PassesWhicheverItemIsLeftOut) {
  EXPECT_EQ(Presenting({"e (2, 2)", "e (3, 3)", "e (4, 4)", "e (5, 5)"}).Failures(), Lines{});
  EXPECT_EQ(Presenting({"e (1, 1)", "e (3, 3)", "e (4, 4)", "e (5, 5)"}).Failures(), Lines{});
  EXPECT_EQ(Presenting({"e (1, 1)", "e (2, 2)", "e (4, 4)", "e (5, 5)"}).Failures(), Lines{});
  EXPECT_EQ(Presenting({"e (1, 1)", "e (2, 2)", "e (3, 3)", "e (5, 5)"}).Failures(), Lines{});
  EXPECT_EQ(Presenting({"e (1, 1)", "e (2, 2)", "e (3, 3)", "e (4, 4)"}).Failures(), Lines{});
}

TEST(OneSublistExpRandomization, FailsOnFourItemsOutOfOrder) {
  EXPECT_EQ(Presenting({"e (2, 2)", "e (1, 1)", "e (4, 4)", "e (5, 5)"}).Failures(),
            Lines{MatchedOnly(1)});
  EXPECT_EQ(Presenting({"e (1, 1)", "e (2, 2)", "e (5, 5)", "e (4, 4)"}).Failures(),
            Lines{MatchedOnly(3)});
  EXPECT_EQ(Presenting({"e (5, 5)", "e (4, 4)", "e (2, 2)", "e (1, 1)"}).Failures(),
            Lines{MatchedOnly(1)});
}

TEST(OneSublistExpRandomization, FailsOnAllFiveItemsInOrder) {
  EXPECT_EQ(Presenting({"e (1, 1)", "e (2, 2)", "e (3, 3)", "e (4, 4)", "e (5, 5)"}).Failures(),
            Lines{MatchedOnly(5)});
}

TEST(OneSublistExpRandomization, FailsOnThreeItems) {
  EXPECT_EQ(Presenting({"e (1, 1)", "e (2, 2)", "e (5, 5)"}).Failures(), Lines{MatchedOnly(3)});
}

TEST(OneSublistExpRandomization, FailsOnAnItemThatComesTwice) {
  EXPECT_EQ(Presenting({"e (1, 1)", "e (1, 1)", "e (4, 4)", "e (5, 5)"}).Failures(),
            Lines{MatchedOnly(1)});
}

TEST(OneSublistExpRandomization, MatchesNothingBehindAStrangerInTheFirstRow) {
  EXPECT_EQ(Presenting({"welcome", "e (1, 1)", "e (2, 2)", "e (4, 4)", "e (5, 5)"}).Failures(),
            Lines{MatchedOnly(0)});
}

TEST(OneSublistExpRandomization, MatchesNothingBehindAStrangerBetweenItems) {
  EXPECT_EQ(Presenting({"e (1, 1)", "e (2, 2)", "pause", "e (4, 4)", "e (5, 5)"}).Failures(),
            Lines{MatchedOnly(2)});
}

TEST(OneSublistExpRandomization, DoesNotLookAtRowsBehindTheFourthMatch) {
  EXPECT_EQ(Presenting({"e (1, 1)", "e (2, 2)", "e (3, 3)", "e (4, 4)", "goodbye"}).Failures(),
            Lines{});
  EXPECT_EQ(Presenting({"e (2, 2)", "e (3, 3)", "e (4, 4)", "e (5, 5)", "e (1, 1)"}).Failures(),
            Lines{});
}

TEST(OneSublistExpRandomization, MatchesNothingWithoutItsColumn) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveColumn("Event\nName").Failures(),
            Lines{MatchedOnly(0)});
}

TEST(OneSublistExpRandomization, ChecksTheBoundsAfterAFailure) {
  EXPECT_EQ(Presenting({"e (1, 1)", "e (2, 2)"}).SetDuration("399").SetExpansion("401").Failures(),
            (Lines{MatchedOnly(2), DurationOutOfBounds(EXPERIMENT, 400, 5200, "399"),
                   ExpansionOutOfBounds(EXPERIMENT, 0, 400, "401")}));
}

TEST(OneSublistExpRandomization, AsksTheTwoMachinesBoundsInOrder) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).SetDuration("399").Failures(BOTH_MACHINES),
            (Lines{DurationOutOfBounds(EXPERIMENT, 410, 500, "399"),
                   DurationOutOfBounds(EXPERIMENT, 400, 11600, "399"),
                   ExpansionOutOfBounds(EXPERIMENT, 200, 300, "64")}));
}

TEST(OneSublistExpRandomization, WalksTheListAnewForEachFile) {
  EXPECT_EQ(Presenting({"welcome"}).Failures(), Lines{MatchedOnly(0)});
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Failures(), Lines{});
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Failures(), Lines{});
}

}  // namespace
}  // namespace Tests
