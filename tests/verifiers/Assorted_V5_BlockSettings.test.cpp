#include <gtest/gtest.h>

#include "tests/support/DataFile.h"
#include "tests/support/FrameFailures.h"
#include "tests/support/VerbatimFailures.h"

namespace Tests {
namespace {

const char* const EXPERIMENT = "2013-01_assorted_new_block_options.om5";
const char* const EVENT = "Event\nName";
const char* const BLOCK = "Block\nName";

const std::string MISBEHAVED = Fail(
    "TEST_MISBEHAVING", "this loop should ALWAYS find vehicle or animal each time", EXPERIMENT, 229,
    "as we loop over the events in the first block, each event MUST MATCH ONE OF: vehicle or "
    "animal");
const std::string BLOCK_ONE_FAILED =
    Fail("Block_One_Is_V4_Jumbled",
         "first block may not have been jumble-randomized -- this OCCASIONALLY FAILS PERMISSIBLY. "
         "ALLOW THIS TO HAPPEN RARELY",
         EXPERIMENT, 244,
         "unexpectedly found that all the vehicle-events were together instead of jumbled with the "
         "animals. -- this OCCASIONALLY FAILS PERMISSIBLY. ALLOW THIS TO HAPPEN RARELY");
const std::string BLOCK_TWO_FAILED =
    Fail("Block_Two_Is_V5_Random", "block does not display the expected v5 randomization",
         EXPERIMENT, 326,
         "we thought that only the CHOICE OF STIMLIST was random. either start with vehicles or "
         "start with animals, but then do 4 of one followed by 4 of the other");
const std::string BLOCK_THREE_FAILED =
    Fail("Block_Three_Is_V5_Random", "block does not display the expected v5 randomization",
         EXPERIMENT, 326,
         "we thought that only the CHOICE OF STIMLIST was random. either start with vehicles or "
         "start with animals, but then do 4 of one followed by 4 of the other");
const std::string REPEAT_FAILED =
    Fail("Block_Three_Repeats_Twice_Verbatim",
         "the third block was supposed to loop twice verbatim", EXPERIMENT, 363,
         "the third block should show the EXACT SAME SEQUENCE of events twice in a row, verbatim");
const std::string BLOCK_FOUR_FAILED = Fail(
    "Block_Four_Runs_As_Intended",
    "the fourth block is supposed to use two extra-actions and one looping option", EXPERIMENT, 420,
    "for the fourth block, we expect four of vehicle-or-animal, break, four of the other, "
    "break, then two more of the FIRST thing");

// Events for the stimulus rows of a block of eight trials, one letter each: v for a vehicle, a for
// an animal, anything else for neither.
DataFile& SetStimuli(DataFile& file, std::size_t firstRow, const std::string& kinds) {
  const std::vector<std::string> vehicles = {"show Car", "show Truck", "show Bus",
                                             "show Motorcycle"};
  const std::vector<std::string> animals = {"show Bird", "show Dog", "show Cat", "show Snake"};
  for (std::size_t i = 0; i < kinds.size(); ++i) {
    const std::string event = kinds[i] == 'v'   ? vehicles[i % 4]
                              : kinds[i] == 'a' ? animals[i % 4]
                                                : "show House";
    file.Set(firstRow + 2 * i, EVENT, event);
  }
  return file;
}

Lines FailuresWithBlockOne(const std::string& kinds) {
  DataFile file = DataFile::Sample(EXPERIMENT);
  return SetStimuli(file, 1, kinds).Failures();
}
Lines FailuresWithBlockTwo(const std::string& kinds) {
  DataFile file = DataFile::Sample(EXPERIMENT);
  return SetStimuli(file, 17, kinds).Failures();
}
Lines FailuresWithBlockThreeTwice(const std::string& kinds) {
  DataFile file = DataFile::Sample(EXPERIMENT);
  SetStimuli(file, 33, kinds);
  return SetStimuli(file, 49, kinds).Failures();
}

// The rows of block four that hold a stimulus.
const std::vector<std::size_t> BLOCK_FOUR_ROWS = {65, 67, 69, 71, 74, 76, 78, 80, 83, 85};

Lines FailuresWithBlockFour(const std::string& kinds) {
  DataFile file = DataFile::Sample(EXPERIMENT);
  for (std::size_t i = 0; i < kinds.size(); ++i) {
    file.Set(BLOCK_FOUR_ROWS[i], EVENT,
             kinds[i] == 'v'   ? "show Bus"
             : kinds[i] == 'a' ? "show Dog"
                               : "show House");
  }
  return file.Failures();
}

TEST(Assorted_V5_BlockSettings, PassesItsSample) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Verify(),
            (Lines{"suite 2013-01_assorted_new_block_options.om5",
                   "pass VerifyDatafile_was_called_for_2013-01_assorted_new_block_options.om5",
                   "pass Data_appears_completely_and_in_order", "pass Block_One_Is_V4_Jumbled",
                   "pass Block_Two_Is_V5_Random", "pass Block_Three_Is_V5_Random",
                   "pass Block_Three_Repeats_Twice_Verbatim", "pass Block_Four_Runs_As_Intended",
                   "pass Experiment_duration_2013-01_assorted_new_block_options.om5",
                   "pass Expansion_duration_2013-01_assorted_new_block_options.om5",
                   "pass __TIMING__TRACKING__2013-01_assorted_new_block_options.om5__2684_ms",
                   "pass __EXPANSION__TRACKING__2013-01_assorted_new_block_options.om5__44_ms"}));
}

TEST(Assorted_V5_BlockSettings, HoldsEachBlockName) {
  ASSERT_EQ(DataFile::Sample(EXPERIMENT).RowCount(), 93U);
  ExpectEachCellIsCompared(EXPERIMENT, BLOCK);
}

TEST(Assorted_V5_BlockSettings, HoldsTheBlankAtTheEndOfTheLongNames) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT)
          .Set(86, BLOCK, "V4 Random. extra-action versus block-end macro. BOTH should work")
          .Failures(),
      Lines{CellDiffers(EXPERIMENT, 86,
                        "V4 Random. extra-action versus block-end macro. BOTH should work ")});
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT)
          .Set(91, BLOCK, "V5 Random. extra-action versus block-end macro. BOTH should work")
          .Failures(),
      Lines{CellDiffers(EXPERIMENT, 91,
                        "V5 Random. extra-action versus block-end macro. BOTH should work ")});
}

TEST(Assorted_V5_BlockSettings, FailsOnOneRowTooMany) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RepeatLastRow().Failures(),
            Lines{TooManyCells(EXPERIMENT)});
}

TEST(Assorted_V5_BlockSettings, FailsOnOneRowTooFew) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).KeepRows(92).SetDuration("2684").Failures(),
            Lines{TooFewCells(EXPERIMENT)});
}

TEST(Assorted_V5_BlockSettings, FailsWithoutTheBlockNames) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveColumn(BLOCK).Failures(),
            Lines{CellDiffers(EXPERIMENT, 0, "V4 Random")});
}

TEST(Assorted_V5_BlockSettings, TakesFourVehiclesInARowForNoJumble) {
  for (const char* kinds : {"vvvvaaaa", "avvvvaaa", "aavvvvaa", "aaavvvva", "aaaavvvv"}) {
    EXPECT_EQ(FailuresWithBlockOne(kinds), Lines{BLOCK_ONE_FAILED}) << kinds;
  }
  EXPECT_EQ(FailuresWithBlockOne("vvvvvvvv"), Lines{BLOCK_ONE_FAILED});
}

TEST(Assorted_V5_BlockSettings, TakesThreeVehiclesInARowForAJumble) {
  EXPECT_EQ(FailuresWithBlockOne("vvvavaaa"), Lines{});
  EXPECT_EQ(FailuresWithBlockOne("vvvavvva"), Lines{});
}

TEST(Assorted_V5_BlockSettings, LetsFourAnimalsInARowThrough) {
  EXPECT_EQ(FailuresWithBlockOne("aaaavvva"), Lines{});
  EXPECT_EQ(FailuresWithBlockOne("aaaaaaaa"), Lines{});
}

TEST(Assorted_V5_BlockSettings, ReportsEachEventOfBlockOneThatIsNeitherKind) {
  for (std::size_t row = 1; row <= 15; row += 2) {
    EXPECT_EQ(DataFile::Sample(EXPERIMENT).Set(row, EVENT, "show House").Failures(),
              Lines{MISBEHAVED})
        << "row " << row;
  }
  EXPECT_EQ(FailuresWithBlockOne("vv-vvaa-"), (Lines{MISBEHAVED, MISBEHAVED}));
}

TEST(Assorted_V5_BlockSettings, ReportsBothAMisbehavingEventAndAMissingJumble) {
  EXPECT_EQ(FailuresWithBlockOne("vvvvaaa-"), (Lines{MISBEHAVED, BLOCK_ONE_FAILED}));
}

TEST(Assorted_V5_BlockSettings, KnowsEachWordAnywhereInAnEventAndByItsCase) {
  for (const char* word : {"Car", "Truck", "Bus", "Motorcycle", "Bird", "Dog", "Cat", "Snake"}) {
    EXPECT_EQ(DataFile::Sample(EXPERIMENT).Set(1, EVENT, std::string("a") + word + "s").Failures(),
              Lines{})
        << word;
  }
  for (const char* word : {"car", "truck", "bus", "motorcycle", "bird", "dog", "cat", "snake"}) {
    EXPECT_EQ(DataFile::Sample(EXPERIMENT).Set(1, EVENT, word).Failures(), Lines{MISBEHAVED})
        << word;
  }
}

// A word's kind shows in block two, where kinds must not mix.
TEST(Assorted_V5_BlockSettings, KnowsTheKindOfEachWord) {
  for (const char* word : {"Car", "Truck", "Bus", "Motorcycle"}) {
    EXPECT_EQ(DataFile::Sample(EXPERIMENT).Set(17, EVENT, word).Failures(), Lines{}) << word;
    EXPECT_EQ(DataFile::Sample(EXPERIMENT).Set(31, EVENT, word).Failures(), Lines{BLOCK_TWO_FAILED})
        << word;
  }
  for (const char* word : {"Bird", "Dog", "Cat", "Snake"}) {
    EXPECT_EQ(DataFile::Sample(EXPERIMENT).Set(31, EVENT, word).Failures(), Lines{}) << word;
    EXPECT_EQ(DataFile::Sample(EXPERIMENT).Set(17, EVENT, word).Failures(), Lines{BLOCK_TWO_FAILED})
        << word;
  }
}

TEST(Assorted_V5_BlockSettings, TakesEitherListFirst) {
  for (const char* kinds : {"aaaavvvv", "vvvvaaaa"}) {
    EXPECT_EQ(FailuresWithBlockTwo(kinds), Lines{}) << kinds;
    EXPECT_EQ(FailuresWithBlockThreeTwice(kinds), Lines{}) << kinds;
  }
}

TEST(Assorted_V5_BlockSettings, TakesNoMixtureOfTheLists) {
  for (const char* kinds : {"aaaaavvv", "vvvvvaaa", "aaavvvvv", "vvvaaaaa", "aavvvvaa", "vvaaaavv",
                            "vvvvaaav", "aaaavvva", "avavavav", "vavavava", "aaaaaaaa", "vvvvvvvv",
                            "-aaavvvv", "aaaavvv-", "vvvv-aaa"}) {
    EXPECT_EQ(FailuresWithBlockTwo(kinds), Lines{BLOCK_TWO_FAILED}) << kinds;
    EXPECT_EQ(FailuresWithBlockThreeTwice(kinds), Lines{BLOCK_THREE_FAILED}) << kinds;
  }
}

TEST(Assorted_V5_BlockSettings, LooksOnlyAtTheOddRowsOfTheFirstThreeBlocks) {
  DataFile file = DataFile::Sample(EXPERIMENT);
  for (std::size_t row = 0; row < 64; row += 2) file.Set(row, EVENT, "another event");
  EXPECT_EQ(file.Failures(), Lines{});
}

// Rows beyond the end read as undefined, so block two has three rows of one kind and block three
// none; two undefined rows repeat each other.
TEST(Assorted_V5_BlockSettings, FailsOnThreeRowsOfOneKindOnly) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT).KeepRows(22).SetDuration("2684").Failures(),
      (Lines{TooFewCells(EXPERIMENT), BLOCK_TWO_FAILED, BLOCK_THREE_FAILED, BLOCK_FOUR_FAILED}));
}

TEST(Assorted_V5_BlockSettings, HoldsEachRowOfTheRepeatOfBlockThree) {
  for (std::size_t row = 49; row <= 63; row += 2) {
    EXPECT_EQ(DataFile::Sample(EXPERIMENT).Set(row, EVENT, "show House").Failures(),
              Lines{REPEAT_FAILED})
        << "row " << row;
  }
  DataFile otherFirst = DataFile::Sample(EXPERIMENT);
  SetStimuli(otherFirst, 33, "vvvvaaaa");
  EXPECT_EQ(SetStimuli(otherFirst, 49, "aaaavvvv").Failures(), Lines{REPEAT_FAILED});
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).SwapRows(33, 35).Failures(), Lines{REPEAT_FAILED});
}

TEST(Assorted_V5_BlockSettings, TakesEitherKindFirstInBlockFour) {
  EXPECT_EQ(FailuresWithBlockFour("aaaavvvvaa"), Lines{});
  EXPECT_EQ(FailuresWithBlockFour("vvvvaaaavv"), Lines{});
}

TEST(Assorted_V5_BlockSettings, HoldsEachRowOfBlockFour) {
  for (const std::string intended : {"aaaavvvvaa", "vvvvaaaavv"}) {
    for (std::size_t i = 0; i < intended.size(); ++i) {
      std::string kinds = intended;
      kinds[i] = '-';
      EXPECT_EQ(FailuresWithBlockFour(kinds), Lines{BLOCK_FOUR_FAILED}) << kinds;
      kinds[i] = intended[i] == 'a' ? 'v' : 'a';
      EXPECT_EQ(FailuresWithBlockFour(kinds), Lines{BLOCK_FOUR_FAILED}) << kinds;
    }
  }
}

TEST(Assorted_V5_BlockSettings, LooksAtNoOtherRowsFromBlockFourOn) {
  DataFile file = DataFile::Sample(EXPERIMENT);
  for (const std::size_t row :
       {64U, 66U, 68U, 70U, 72U, 73U, 75U, 77U, 79U, 81U, 82U, 84U, 86U, 92U}) {
    file.Set(row, EVENT, "another event");
  }
  EXPECT_EQ(file.Failures(), Lines{});
}

TEST(Assorted_V5_BlockSettings, FailsWithoutTheEventNames) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT).RemoveColumn(EVENT).Failures(),
      (Lines{MISBEHAVED, MISBEHAVED, MISBEHAVED, MISBEHAVED, MISBEHAVED, MISBEHAVED, MISBEHAVED,
             MISBEHAVED, BLOCK_TWO_FAILED, BLOCK_THREE_FAILED, BLOCK_FOUR_FAILED}));
}

TEST(Assorted_V5_BlockSettings, ChecksTheBoundsAfterAllFailures) {
  DataFile file = DataFile::Sample(EXPERIMENT);
  SetStimuli(file, 1, "vvvvaaaa");
  for (const std::size_t row : {17U, 33U, 65U}) file.Set(row, EVENT, "show House");
  EXPECT_EQ(file.Set(2, BLOCK, "another block").SetDuration("2901").SetExpansion("101").Failures(),
            (Lines{CellDiffers(EXPERIMENT, 2, "V4 Random"), BLOCK_ONE_FAILED, BLOCK_TWO_FAILED,
                   BLOCK_THREE_FAILED, REPEAT_FAILED, BLOCK_FOUR_FAILED,
                   DurationOutOfBounds(EXPERIMENT, 2500, 2900, "2901"),
                   ExpansionOutOfBounds(EXPERIMENT, 10, 100, "101")}));
}

TEST(Assorted_V5_BlockSettings, KeepsNothingFromOneFileForTheNext) {
  const DataFile sample = DataFile::Sample(EXPERIMENT);
  DataFile moved = sample;
  EXPECT_EQ(sample.Failures(), Lines{});
  EXPECT_EQ(FailuresWithBlockOne("aaaavvvv"), Lines{BLOCK_ONE_FAILED});
  EXPECT_EQ(moved.MoveColumnToFront(EVENT).Failures(), Lines{});
  EXPECT_EQ(sample.Failures(), Lines{});
}

}  // namespace
}  // namespace Tests
