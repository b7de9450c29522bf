#include <gtest/gtest.h>

#include "tests/support/DataFile.h"
#include "tests/support/FrameFailures.h"
#include "tests/support/VerbatimFailures.h"

namespace Tests {
namespace {

const char* const EXPERIMENT = "2013-10-21_randomize_opts_TrialVars_RSVP_SPR.om5";

// The compared columns in the order of their comparisons. What each of the 318 cells must hold stands
// written out in the sample.
const char* const COLUMNS[] = {"ten colors 1\n(Trial Variable)",
                               "ten colors 2\n(Trial Variable)",
                               "ten colors 3. sequential. restart each trial\n(Trial Variable)",
                               "NOT FOR TEST VERIFICATION. for convenience.\n(Trial Variable)",
                               "anti-lockstep group no-repl 1. LOC\n(Trial Variable)",
                               "anti-lockstep group no-repl 2. LOC\n(Trial Variable)",
                               "anti-lockstep group with-repl 1. LOC\n(Trial Variable)",
                               "anti-lockstep group with-repl 2. COLOR\n(Trial Variable)",
                               "anti-lockstep group manual 1. COLOR\n(Trial Variable)",
                               "anti-lockstep group manual 2. LOC\n(Trial Variable)",
                               "EMPTY location\n(Trial Variable)",
                               "EMPTY color\n(Trial Variable)"};
const char* const NO_REPL_1 = COLUMNS[4];
const char* const NO_REPL_2 = COLUMNS[5];

TEST(TestRandomLevelsAndCountersAndRSVP, PassesItsSample) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT).Verify(),
      (Lines{
          "suite 2013-10-21_randomize_opts_TrialVars_RSVP_SPR.om5",
          "pass VerifyDatafile_was_called_for_2013-10-21_randomize_opts_TrialVars_RSVP_SPR.om5",
          "pass Data_appears_completely_and_in_order", "pass Data_appears_completely_and_in_order",
          "pass Data_appears_completely_and_in_order", "pass Data_appears_completely_and_in_order",
          "pass Data_appears_completely_and_in_order", "pass Data_appears_completely_and_in_order",
          "pass Data_appears_completely_and_in_order", "pass Data_appears_completely_and_in_order",
          "pass Data_appears_completely_and_in_order", "pass Data_appears_completely_and_in_order",
          "pass Data_appears_completely_and_in_order", "pass Data_appears_completely_and_in_order",
          "pass Experiment_duration_2013-10-21_randomize_opts_TrialVars_RSVP_SPR.om5",
          "pass Expansion_duration_2013-10-21_randomize_opts_TrialVars_RSVP_SPR.om5",
          "pass __TIMING__TRACKING__2013-10-21_randomize_opts_TrialVars_RSVP_SPR.om5__2714_ms",
          "pass "
          "__EXPANSION__TRACKING__2013-10-21_randomize_opts_TrialVars_RSVP_SPR.om5__96_ms"}));
}

// One row at a time, in all twelve columns at once: each comparison must stop at that very row.
TEST(TestRandomLevelsAndCountersAndRSVP, FailsOnEachWrongCellOfEachColumn) {
  const DataFile sample = DataFile::Sample(EXPERIMENT);
  ASSERT_EQ(sample.RowCount(), 318u);
  for (std::size_t row = 0; row < sample.RowCount(); ++row) {
    DataFile file = sample;
    Lines failures;
    for (const char* const column : COLUMNS) {
      file.Set(row, column, "violet");
      failures.push_back(CellDiffers(EXPERIMENT, row, sample.Cell(row, column)));
    }
    EXPECT_EQ(file.Failures(), failures);
  }
}

TEST(TestRandomLevelsAndCountersAndRSVP, FailsOnOneWrongCellInOneColumnAlone) {
  const DataFile sample = DataFile::Sample(EXPERIMENT);
  for (const char* const column : COLUMNS) {
    EXPECT_EQ(DataFile(sample).Set(238, column, "violet").Failures(),
              Lines{CellDiffers(EXPERIMENT, 238, sample.Cell(238, column))})
        << column;
  }
}

TEST(TestRandomLevelsAndCountersAndRSVP, ComparesTheColumnsInOrderWhateverTheEarlierOnesFound) {
  DataFile file = DataFile::Sample(EXPERIMENT);
  std::size_t row = 188;
  for (const char* const column : COLUMNS) file.Set(row++, column, "violet");
  EXPECT_EQ(file.Failures(),
            (Lines{CellDiffers(EXPERIMENT, 188, ""), CellDiffers(EXPERIMENT, 189, ""),
                   CellDiffers(EXPERIMENT, 190, ""), CellDiffers(EXPERIMENT, 191, "10"),
                   CellDiffers(EXPERIMENT, 192, "06"), CellDiffers(EXPERIMENT, 193, "03"),
                   CellDiffers(EXPERIMENT, 194, "01"), CellDiffers(EXPERIMENT, 195, "06"),
                   CellDiffers(EXPERIMENT, 196, ""), CellDiffers(EXPERIMENT, 197, ""),
                   CellDiffers(EXPERIMENT, 198, ""), CellDiffers(EXPERIMENT, 199, "")}));
}

// Cells that tell of the shape of the run, each typed by hand.
TEST(TestRandomLevelsAndCountersAndRSVP, ItsSampleHoldsTheLandmarksOfTheRun) {
  const DataFile sample = DataFile::Sample(EXPERIMENT);
  const auto cells = [&sample](std::size_t column, std::size_t first, std::size_t last) {
    std::vector<std::string> found;
    for (std::size_t row = first; row <= last; ++row)
      found.push_back(sample.Cell(row, COLUMNS[column]));
    return found;
  };
  using Cells = std::vector<std::string>;
  EXPECT_EQ(cells(0, 0, 8), (Cells{"", "red", "yellow", "", "green", "blue", "", "grey", "black"}));
  EXPECT_EQ(cells(0, 32, 41), (Cells{"yellow", "", "green", "blue", "yellow", "grey", "black",
                                     "blue", "white", "purple"}));
  EXPECT_EQ(cells(0, 105, 109), (Cells{"purple", "red", "yellow", "", ""}));
  EXPECT_EQ(cells(2, 235, 258),
            (Cells{"",       "red",  "red",    "red",   "red",    "red",  "yellow", "green",
                   "blue",   "grey", "black",  "white", "purple", "pink", "orange", "orange",
                   "orange", "red",  "yellow", "green", "blue",   "grey", "black",  ""}));
  EXPECT_EQ(cells(3, 32, 37), (Cells{"10", "", "", "10", "10", "10"}));
  EXPECT_EQ(cells(3, 186, 196), (Cells{"10", "10", "", "", "", "10", "", "", "", "10", ""}));
  EXPECT_EQ(cells(3, 234, 237), (Cells{"", "10", "10", "10"}));
  EXPECT_EQ(cells(4, 187, 193), (Cells{"", "02", "02", "02", "02", "06", "06"}));
  EXPECT_EQ(cells(4, 231, 240), (Cells{"07", "02", "02", "02", "02", "03", "03", "01", "01", ""}));
  EXPECT_EQ(cells(5, 231, 237), (Cells{"04", "", "05", "05", "05", "", ""}));
  EXPECT_EQ(cells(6, 232, 240), (Cells{"", "", "05", "05", "", "06", "", "05", ""}));
  EXPECT_EQ(cells(7, 188, 193), (Cells{"02", "02", "01", "01", "02", "02"}));
  EXPECT_EQ(cells(7, 232, 240), (Cells{"04", "04", "06", "06", "", "04", "", "06", ""}));
  EXPECT_EQ(cells(8, 231, 237), (Cells{"05", "", "04", "04", "04", "", ""}));
  EXPECT_EQ(cells(8, 257, 260), (Cells{"", "05", "05", "06"}));
  EXPECT_EQ(cells(8, 314, 317), (Cells{"04", "05", "07", "04"}));
  EXPECT_EQ(cells(9, 231, 236), (Cells{"07", "", "", "", "03", ""}));
}

TEST(TestRandomLevelsAndCountersAndRSVP, FailsTwelveTimesByTheLengthWithARowTooFew) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).KeepRows(317).Failures(),
            Lines(12, TooFewCells(EXPERIMENT)));
}

TEST(TestRandomLevelsAndCountersAndRSVP, FailsTwelveTimesByTheLengthWithARowTooMany) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RepeatLastRow().Failures(),
            Lines(12, TooManyCells(EXPERIMENT)));
}

TEST(TestRandomLevelsAndCountersAndRSVP, LeavesNoContentTestAfterAWrongLength) {
  for (const std::string& line : DataFile::Sample(EXPERIMENT).KeepRows(317).Verify()) {
    EXPECT_EQ(line.find("Data_appears_completely_and_in_order"), std::string::npos);
  }
}

// The levels come in the right order, but each begins with the group and not one event after it.
TEST(TestRandomLevelsAndCountersAndRSVP, FailsOnALevelThatIsAppliedOneEventTooEarly) {
  DataFile file = DataFile::Sample(EXPERIMENT);
  for (std::size_t group = 188; group < 236; group += 4) {
    file.Set(group, NO_REPL_2, file.Cell(group + 1, NO_REPL_2));
  }
  EXPECT_EQ(file.Failures(), Lines{CellDiffers(EXPERIMENT, 188, "")});
}

TEST(TestRandomLevelsAndCountersAndRSVP, FailsOnAVariableInLockstepWithItsPartner) {
  DataFile file = DataFile::Sample(EXPERIMENT);
  file.SetColumn(NO_REPL_1, file.Column(NO_REPL_2));
  EXPECT_EQ(file.Failures(), Lines{CellDiffers(EXPERIMENT, 188, "02")});
}

TEST(TestRandomLevelsAndCountersAndRSVP, SeesTheEmptyTableUnchangedInAllItsUses) {
  DataFile wrong = DataFile::Sample(EXPERIMENT);
  wrong.Set(0, COLUMNS[1], "red").Set(100, COLUMNS[10], "01").Set(317, COLUMNS[11], "blue");
  const Lines failures = {CellDiffers(EXPERIMENT, 0, ""), CellDiffers(EXPERIMENT, 100, ""),
                          CellDiffers(EXPERIMENT, 317, "")};
  EXPECT_EQ(wrong.Failures(), failures);
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Failures(), Lines{});
  EXPECT_EQ(wrong.Failures(), failures);
}

TEST(TestRandomLevelsAndCountersAndRSVP, FailsWithoutAnyOfItsColumns) {
  const DataFile sample = DataFile::Sample(EXPERIMENT);
  for (const char* const column : COLUMNS) {
    EXPECT_EQ(DataFile(sample).RemoveColumn(column).Failures(),
              Lines{CellDiffers(EXPERIMENT, 0, sample.Cell(0, column))})
        << column;
  }
}

TEST(TestRandomLevelsAndCountersAndRSVP, ChecksTheBoundsAfterAFailure) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT)
                .Set(107, COLUMNS[0], "red")
                .SetDuration("3201")
                .SetExpansion("49")
                .Failures(),
            (Lines{CellDiffers(EXPERIMENT, 107, "yellow"),
                   DurationOutOfBounds(EXPERIMENT, 2200, 3200, "3201"),
                   ExpansionOutOfBounds(EXPERIMENT, 50, 150, "49")}));
}

TEST(TestRandomLevelsAndCountersAndRSVP, AsksTheTwoMachinesBoundsInOrder) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).SetDuration("2250").Failures(BOTH_MACHINES),
            (Lines{DurationOutOfBounds(EXPERIMENT, 2300, 18000, "2250"),
                   DurationOutOfBounds(EXPERIMENT, 3000, 3700, "2250"),
                   ExpansionOutOfBounds(EXPERIMENT, 700, 900, "96")}));
}

}  // namespace
}  // namespace Tests
