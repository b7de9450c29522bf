#include <gtest/gtest.h>

#include "tests/support/DataFile.h"
#include "tests/support/FrameFailures.h"
#include "tests/support/VerbatimFailures.h"

namespace Tests {
namespace {

const char* const EXPERIMENT = "2014-07-24_timer_parameters.om5";

// The places of the timers in the sample.
const int TIMER_1 = 9;
const int TIMER_2 = 10;

const std::string COLUMNS_ARE_WRONG =
    Fail("Option_to_NOT_save_is_working",
         "Datafile columns are NOT as expected. can fail when you set "
         "HALVEX_OBTRUSIVE_DIAGNOSTIC_LOGGING.",
         EXPERIMENT, 269,
         "we wanted to FIND some columns and NOT find others. note that "
         "HALVEX_OBTRUSIVE_DIAGNOSTIC_LOGGING causes all params to get a column despite experiment "
         "settings. you may get a spurious failure due to that environment var");

const char* const NOT_ZERO = "not 0 during first event. ";
const char* const FIRST_PAUSE = "first pause action malfunctioned. ";
const char* const SECOND_PAUSE = "second pause action malfunctioned. ";
const char* const THIRD_PAUSE = "third pause action malfunctioned. ";
const char* const TIMER_1_AT_25 = "at row 25 timer_1 needs to be approx 2500 ms. ";
// Both zero states of timer 2 have these words.
const char* const ZERO_STATE = "first starting zero state malfunctioned. ";
const char* const TIMER_2_AT_13 = "at row 13 timer_2 needs to be approx 2000 ms. ";
const char* const TIMER_2_AT_25 = "at row 25 timer_2 needs to be approx 2000 ms. ";

std::string Timer1Failed(const std::string& message) {
  return Fail("Timer_1_behaved_properly", "Timer 1 is malfunctioning.", EXPERIMENT, 385, message);
}

std::string Timer2Failed(const std::string& message) {
  return Fail("Timer_2_behaved_properly", "Timer 2 is malfunctioning.", EXPERIMENT, 470, message);
}

std::string NotNumeric(int row, int column) {
  return Fail("NON_NUMERIC_VALUE_" + std::to_string(row) + "_" + std::to_string(column),
              "Data cell string should always be convertible to a number here", EXPERIMENT, 485,
              "we called the wx function ToLong on a string, and it failed to produce a number");
}

DataFile Sample() { return DataFile::Sample(EXPERIMENT); }

// The failures of the sample with the timer's cells of rows first to last set to text.
Lines WithTimer(const char* timer, std::size_t first, std::size_t last, const char* text) {
  DataFile file = Sample();
  for (std::size_t row = first; row <= last; ++row) file.Set(row, timer, text);
  return file.Failures();
}

TEST(TestTimerActionsAndCriteria, PassesItsSample) {
  EXPECT_EQ(
      Sample().Verify(),
      (Lines{"suite 2014-07-24_timer_parameters.om5",
             "pass VerifyDatafile_was_called_for_2014-07-24_timer_parameters.om5",
             "pass Option_to_NOT_save_is_working", "pass Data_appears_completely_and_in_order",
             "pass Data_appears_completely_and_in_order",
             "pass Data_appears_completely_and_in_order",
             "pass Data_appears_completely_and_in_order", "pass Timer_1_behaved_properly",
             "pass Timer_2_behaved_properly",
             "pass Experiment_duration_2014-07-24_timer_parameters.om5",
             "pass Expansion_duration_2014-07-24_timer_parameters.om5",
             "pass __TIMING__TRACKING__2014-07-24_timer_parameters.om5__6076_ms",
             "pass __EXPANSION__TRACKING__2014-07-24_timer_parameters.om5__24_ms"}));
}

TEST(TestTimerActionsAndCriteria, FailsOnAChangeOfAnyComparedCell) {
  ExpectEachCellIsCompared(EXPERIMENT, "Trial\nName",
                           Cells({{1, "intro"},
                                  {4, "trial 1"},
                                  {1, "trial 2"},
                                  {2, "trial 3 (500, 100)"},
                                  {4, "trial 4 (200, 300)"},
                                  {2, "trial 5 (400, 500)"},
                                  {2, "trial 6"},
                                  {2, "trial 7"},
                                  {2, "trial 8"},
                                  {3, "trial 9"},
                                  {3, "trial 10"}}));
  ExpectEachCellIsCompared(EXPERIMENT, "Event\nName",
                           {"intro",
                            "isi 1",
                            "isi 2",
                            "isi 3",
                            "action: timer greater than N millis",
                            "isi 2",
                            "isi 1",
                            "isi 3",
                            "isi 4",
                            "isi 5",
                            "action: timer greater than N seconds",
                            "action: timer2 greater than timer1",
                            "isi 1",
                            "isi 5",
                            "isi 1",
                            "isi 2",
                            "isi 1",
                            "isi 2",
                            "isi 2",
                            "isi 3",
                            "isi 3",
                            "isi 4",
                            "action: timer3 less than 1 minute",
                            "isi 4",
                            "isi 5",
                            "action: timer3 less than 1 minute"});
  ExpectEachCellIsCompared(EXPERIMENT, "flag_a", Cells({{4, "0"}, {22, "1"}}));
  ExpectEachCellIsCompared(EXPERIMENT, "flag_c", Cells({{11, "0"}, {15, "1"}}));
}

TEST(TestTimerActionsAndCriteria, WantsTheSavedColumns) {
  EXPECT_EQ(Sample().RemoveColumn("timer_4").Failures(), Lines{COLUMNS_ARE_WRONG});
  EXPECT_EQ(Sample().RemoveColumn("flag_a").Failures(),
            (Lines{COLUMNS_ARE_WRONG, CellDiffers(EXPERIMENT, 0, "0")}));
}

TEST(TestTimerActionsAndCriteria, DoesNotWantTheOthers) {
  EXPECT_EQ(Sample().RenameColumn("Error\nCode", "timer_not_saved").Failures(),
            Lines{COLUMNS_ARE_WRONG});
  EXPECT_EQ(Sample().RenameColumn("Error\nCode", "flag_b").Failures(), Lines{COLUMNS_ARE_WRONG});
  // Also not in the first place.
  EXPECT_EQ(Sample().RenameColumn("Participant\nName", "flag_b").Failures(),
            Lines{COLUMNS_ARE_WRONG});
  EXPECT_EQ(Sample().RenameColumn("Participant\nName", "timer_not_saved").Failures(),
            Lines{COLUMNS_ARE_WRONG});
}

TEST(TestTimerActionsAndCriteria, ASavedColumnInTheFirstPlaceDoesNotCount) {
  EXPECT_EQ(Sample().MoveColumnToFront("timer_4").Failures(), Lines{COLUMNS_ARE_WRONG});
  EXPECT_EQ(Sample().MoveColumnToFront("flag_a").Failures(), Lines{COLUMNS_ARE_WRONG});
  EXPECT_EQ(Sample().MoveColumnToFront("timer_4").MoveColumnToFront("Block\nName").Failures(),
            Lines{});
}

TEST(TestTimerActionsAndCriteria, Timer1ReadsZeroAtFirst) {
  // The text is compared, not the number.
  for (const char* text : {"1", "", "00", " 0", "-1", "zero"}) {
    EXPECT_EQ(WithTimer("timer_1", 0, 0, text), Lines{Timer1Failed(NOT_ZERO)});
  }
}

TEST(TestTimerActionsAndCriteria, Timer1RunsOnForAtMost12MsIntoAPause) {
  // Row 5 stands at 1010 in the sample; the pause is rows 6 to 11, and 1418 follows.
  EXPECT_EQ(WithTimer("timer_1", 5, 5, "1002"), Lines{});
  EXPECT_EQ(WithTimer("timer_1", 5, 5, "1001"), Lines{Timer1Failed(FIRST_PAUSE)});
  EXPECT_EQ(WithTimer("timer_1", 5, 5, "1014"), Lines{});
  EXPECT_EQ(WithTimer("timer_1", 5, 5, "1015"), Lines{Timer1Failed(FIRST_PAUSE)});
  // The second pause is rows 14 to 17 at 1924, the third rows 20 to 25 at 2640. No jump is checked into
  // rows 13 and 19.
  EXPECT_EQ(WithTimer("timer_1", 13, 13, "1912"), Lines{});
  EXPECT_EQ(WithTimer("timer_1", 13, 13, "1911"), Lines{Timer1Failed(SECOND_PAUSE)});
  EXPECT_EQ(WithTimer("timer_1", 13, 13, "1925"), Lines{Timer1Failed(SECOND_PAUSE)});
  EXPECT_EQ(WithTimer("timer_1", 19, 19, "2628"), Lines{});
  EXPECT_EQ(WithTimer("timer_1", 19, 19, "2627"), Lines{Timer1Failed(THIRD_PAUSE)});
  EXPECT_EQ(WithTimer("timer_1", 19, 19, "2641"), Lines{Timer1Failed(THIRD_PAUSE)});
}

TEST(TestTimerActionsAndCriteria, Timer1HoldsStillInAPause) {
  for (std::size_t row = 7; row <= 11; ++row) {
    EXPECT_EQ(WithTimer("timer_1", row, row, "1013"), Lines{Timer1Failed(FIRST_PAUSE)});
    EXPECT_EQ(WithTimer("timer_1", row, row, "1015"), Lines{Timer1Failed(FIRST_PAUSE)});
  }
  for (std::size_t row = 15; row <= 17; ++row) {
    EXPECT_EQ(WithTimer("timer_1", row, row, "1925"), Lines{Timer1Failed(SECOND_PAUSE)});
  }
  for (std::size_t row = 21; row <= 25; ++row) {
    EXPECT_EQ(WithTimer("timer_1", row, row, "2641"), Lines{Timer1Failed(THIRD_PAUSE)});
  }
}

TEST(TestTimerActionsAndCriteria, Timer1ComparesNumbersInAPause) {
  EXPECT_EQ(WithTimer("timer_1", 8, 8, " 01014"), Lines{});
}

TEST(TestTimerActionsAndCriteria, Timer1GoesOnBehindAPause) {
  // The first pause holds 1014 and is to be followed by 400 ms more, the second 1924 by 500.
  EXPECT_EQ(WithTimer("timer_1", 12, 12, "1414"), Lines{});
  EXPECT_EQ(WithTimer("timer_1", 12, 12, "1413"), Lines{Timer1Failed(FIRST_PAUSE)});
  EXPECT_EQ(WithTimer("timer_1", 12, 12, "1464"), Lines{});
  EXPECT_EQ(WithTimer("timer_1", 12, 12, "1465"), Lines{Timer1Failed(FIRST_PAUSE)});
  EXPECT_EQ(WithTimer("timer_1", 18, 18, "2424"), Lines{});
  EXPECT_EQ(WithTimer("timer_1", 18, 18, "2423"), Lines{Timer1Failed(SECOND_PAUSE)});
  EXPECT_EQ(WithTimer("timer_1", 18, 18, "2474"), Lines{});
  EXPECT_EQ(WithTimer("timer_1", 18, 18, "2475"), Lines{Timer1Failed(SECOND_PAUSE)});
}

TEST(TestTimerActionsAndCriteria, Timer1StandsNear2500MsInTheEnd) {
  const auto ending = [](const char* before, const char* text) {
    DataFile file = Sample().Set(19, "timer_1", before);
    for (std::size_t row = 20; row <= 25; ++row) file.Set(row, "timer_1", text);
    return file.Failures();
  };
  EXPECT_EQ(ending("2500", "2500"), Lines{});
  EXPECT_EQ(ending("2499", "2499"), Lines{Timer1Failed(TIMER_1_AT_25)});
  EXPECT_EQ(ending("2700", "2700"), Lines{});
  EXPECT_EQ(ending("2701", "2701"), Lines{Timer1Failed(TIMER_1_AT_25)});
}

TEST(TestTimerActionsAndCriteria, Timer1TellsOfAllItsFailuresInOneMessage) {
  EXPECT_EQ(Sample()
                .Set(0, "timer_1", "5")
                .Set(7, "timer_1", "1015")
                .Set(15, "timer_1", "1925")
                .Set(25, "timer_1", "9999")
                .Failures(),
            Lines{Timer1Failed("not 0 during first event. first pause action malfunctioned. second "
                               "pause action malfunctioned. third pause action malfunctioned. at "
                               "row 25 timer_1 needs to be approx 2500 ms. ")});
}

TEST(TestTimerActionsAndCriteria, Timer2ReadsZeroAtFirstAndAgainLater) {
  for (std::size_t row = 0; row <= 5; ++row) {
    EXPECT_EQ(WithTimer("timer_2", row, row, "1"), Lines{Timer2Failed(ZERO_STATE)});
    EXPECT_EQ(WithTimer("timer_2", row, row, "00"), Lines{Timer2Failed(ZERO_STATE)});
  }
  for (std::size_t row = 14; row <= 17; ++row) {
    EXPECT_EQ(WithTimer("timer_2", row, row, "1"), Lines{Timer2Failed(ZERO_STATE)});
  }
  EXPECT_EQ(Sample().Set(3, "timer_2", "1").Set(16, "timer_2", "").Failures(),
            Lines{Timer2Failed("first starting zero state malfunctioned. first starting zero state "
                               "malfunctioned. ")});
}

TEST(TestTimerActionsAndCriteria, Timer2StandsNear500MsBehindAZeroState) {
  for (const std::size_t row : {std::size_t{6}, std::size_t{18}}) {
    EXPECT_EQ(WithTimer("timer_2", row, row, "500"), Lines{});
    EXPECT_EQ(WithTimer("timer_2", row, row, "499"), Lines{Timer2Failed(ZERO_STATE)});
    EXPECT_EQ(WithTimer("timer_2", row, row, "550"), Lines{});
    EXPECT_EQ(WithTimer("timer_2", row, row, "551"), Lines{Timer2Failed(ZERO_STATE)});
    EXPECT_EQ(WithTimer("timer_2", row, row, "-500"), Lines{Timer2Failed(ZERO_STATE)});
  }
}

TEST(TestTimerActionsAndCriteria, Timer2StandsNear2000MsTwice) {
  EXPECT_EQ(WithTimer("timer_2", 13, 13, "2000"), Lines{});
  EXPECT_EQ(WithTimer("timer_2", 13, 13, "1999"), Lines{Timer2Failed(TIMER_2_AT_13)});
  EXPECT_EQ(WithTimer("timer_2", 13, 13, "2200"), Lines{});
  EXPECT_EQ(WithTimer("timer_2", 13, 13, "2201"), Lines{Timer2Failed(TIMER_2_AT_13)});
  EXPECT_EQ(WithTimer("timer_2", 25, 25, "2000"), Lines{});
  EXPECT_EQ(WithTimer("timer_2", 25, 25, "1999"), Lines{Timer2Failed(TIMER_2_AT_25)});
  EXPECT_EQ(WithTimer("timer_2", 25, 25, "2200"), Lines{});
  EXPECT_EQ(WithTimer("timer_2", 25, 25, "2201"), Lines{Timer2Failed(TIMER_2_AT_25)});
}

TEST(TestTimerActionsAndCriteria, Timer2TellsOfAllItsFailuresInOneMessage) {
  EXPECT_EQ(
      WithTimer("timer_2", 0, 25, "7"),
      Lines{Timer2Failed("first starting zero state malfunctioned. first starting zero state "
                         "malfunctioned. at row 13 timer_2 needs to be approx 2000 ms. at row "
                         "25 timer_2 needs to be approx 2000 ms. ")});
}

TEST(TestTimerActionsAndCriteria, ACellThatIsNoNumberFailsByItselfAndInItsTimersCheck) {
  const auto timer1 = [](std::size_t row) { return WithTimer("timer_1", row, row, "n/a"); };
  for (const int row : {5, 6, 9, 12}) {
    EXPECT_EQ(timer1(static_cast<std::size_t>(row)),
              (Lines{NotNumeric(row, TIMER_1), Timer1Failed(FIRST_PAUSE)}));
  }
  for (const int row : {13, 14, 17, 18}) {
    EXPECT_EQ(timer1(static_cast<std::size_t>(row)),
              (Lines{NotNumeric(row, TIMER_1), Timer1Failed(SECOND_PAUSE)}));
  }
  for (const int row : {19, 20, 24}) {
    EXPECT_EQ(timer1(static_cast<std::size_t>(row)),
              (Lines{NotNumeric(row, TIMER_1), Timer1Failed(THIRD_PAUSE)}));
  }
  for (const int row : {6, 18}) {
    EXPECT_EQ(WithTimer("timer_2", static_cast<std::size_t>(row), static_cast<std::size_t>(row),
                        "506 ms"),
              (Lines{NotNumeric(row, TIMER_2), Timer2Failed(ZERO_STATE)}));
  }
  EXPECT_EQ(WithTimer("timer_2", 13, 13, ""),
            (Lines{NotNumeric(13, TIMER_2), Timer2Failed(TIMER_2_AT_13)}));
  EXPECT_EQ(WithTimer("timer_2", 25, 25, "?"),
            (Lines{NotNumeric(25, TIMER_2), Timer2Failed(TIMER_2_AT_25)}));
}

TEST(TestTimerActionsAndCriteria, TheLastCellOfTimer1IsReadTwice) {
  EXPECT_EQ(WithTimer("timer_1", 25, 25, "n/a"),
            (Lines{NotNumeric(25, TIMER_1), NotNumeric(25, TIMER_1),
                   Timer1Failed("third pause action malfunctioned. at row 25 timer_1 needs to be "
                                "approx 2500 ms. ")}));
}

TEST(TestTimerActionsAndCriteria, TheWalkThroughAPauseStopsAtItsFirstDifference) {
  // Row 8 differs, so the bad cell of row 9 is never read; those on either side of the pause are.
  EXPECT_EQ(Sample().Set(8, "timer_1", "1").Set(9, "timer_1", "n/a").Failures(),
            Lines{Timer1Failed(FIRST_PAUSE)});
  EXPECT_EQ(
      Sample().Set(7, "timer_1", "1").Set(5, "timer_1", "n/a").Set(12, "timer_1", "n/a").Failures(),
      (Lines{NotNumeric(5, TIMER_1), NotNumeric(12, TIMER_1), Timer1Failed(FIRST_PAUSE)}));
}

TEST(TestTimerActionsAndCriteria, TheCellBehindAZeroStateIsReadInAnyCase) {
  EXPECT_EQ(Sample().Set(0, "timer_2", "1").Set(6, "timer_2", "n/a").Failures(),
            (Lines{NotNumeric(6, TIMER_2), Timer2Failed(ZERO_STATE)}));
}

TEST(TestTimerActionsAndCriteria, BearsTheEndsOfTheRange) {
  const char* const greatest = "9223372036854775807";
  const char* const least = "-9223372036854775808";
  EXPECT_EQ(Sample().Set(5, "timer_1", greatest).Set(6, "timer_1", least).Failures(),
            Lines{Timer1Failed(FIRST_PAUSE)});
  EXPECT_EQ(Sample().Set(5, "timer_1", least).Set(6, "timer_1", greatest).Failures(),
            Lines{Timer1Failed(FIRST_PAUSE)});
  EXPECT_EQ(WithTimer("timer_1", 12, 12, greatest), Lines{Timer1Failed(FIRST_PAUSE)});
  // 500 and 2000 once more, if the number were cut to 32 bits.
  EXPECT_EQ(WithTimer("timer_2", 6, 6, "4294967796"), Lines{Timer2Failed(ZERO_STATE)});
  EXPECT_EQ(WithTimer("timer_2", 13, 13, "4294969296"), Lines{Timer2Failed(TIMER_2_AT_13)});
  EXPECT_EQ(WithTimer("timer_2", 13, 13, least), Lines{Timer2Failed(TIMER_2_AT_13)});
}

TEST(TestTimerActionsAndCriteria, AMissingTimer1ShowsTheOrderOfReads) {
  // All cells of a pause read alike, so the walk through it goes to its end.
  Lines expected;
  for (const int row :
       {6, 7, 8, 9, 10, 11, 5, 12, 14, 15, 16, 17, 13, 18, 20, 21, 22, 23, 24, 25, 19, 25}) {
    expected.push_back(NotNumeric(row, -1));
  }
  expected.push_back(
      Timer1Failed("not 0 during first event. first pause action malfunctioned. second pause "
                   "action malfunctioned. at row 25 timer_1 needs to be approx 2500 ms. "));
  EXPECT_EQ(Sample().RemoveColumn("timer_1").Failures(), expected);
}

TEST(TestTimerActionsAndCriteria, AMissingTimer2ReadsNoNumbers) {
  EXPECT_EQ(
      Sample().RemoveColumn("timer_2").Failures(),
      (Lines{NotNumeric(6, -1), NotNumeric(18, -1), NotNumeric(13, -1), NotNumeric(25, -1),
             Timer2Failed("first starting zero state malfunctioned. first starting zero state "
                          "malfunctioned. at row 13 timer_2 needs to be approx 2000 ms. at row 25 "
                          "timer_2 needs to be approx 2000 ms. ")}));
}

TEST(TestTimerActionsAndCriteria, ChecksTheTimersInAFileOfTheWrongLength) {
  const std::string tooMany = TooManyCells(EXPERIMENT);
  EXPECT_EQ(Sample().RepeatLastRow().Set(0, "timer_1", "5").Failures(),
            (Lines{tooMany, tooMany, tooMany, tooMany, Timer1Failed(NOT_ZERO)}));
  const std::string tooFew = TooFewCells(EXPERIMENT);
  EXPECT_EQ(Sample().KeepRows(25).Failures(),
            (Lines{tooFew, tooFew, tooFew, tooFew, NotNumeric(25, TIMER_1), NotNumeric(25, TIMER_1),
                   Timer1Failed("third pause action malfunctioned. at row 25 timer_1 needs to be "
                                "approx 2500 ms. "),
                   NotNumeric(25, TIMER_2), Timer2Failed(TIMER_2_AT_25)}));
}

TEST(TestTimerActionsAndCriteria, ChecksTheBoundsAfterAFailure) {
  EXPECT_EQ(Sample().Set(0, "timer_1", "5").SetDuration("6151").SetExpansion("61").Failures(),
            (Lines{Timer1Failed(NOT_ZERO), DurationOutOfBounds(EXPERIMENT, 6006, 6150, "6151"),
                   ExpansionOutOfBounds(EXPERIMENT, 5, 60, "61")}));
}

TEST(TestTimerActionsAndCriteria, LooksAtEachFileAfresh) {
  EXPECT_EQ(Sample().Set(0, "timer_1", "5").Set(0, "timer_2", "5").Failures(),
            (Lines{Timer1Failed(NOT_ZERO), Timer2Failed(ZERO_STATE)}));
  EXPECT_EQ(Sample().Failures(), Lines{});
  EXPECT_EQ(FailuresOf(VerifyBytes(EXPERIMENT, "no data")), Lines{CannotBeRead(EXPERIMENT)});
  EXPECT_EQ(Sample().Failures(), Lines{});
}

}  // namespace
}  // namespace Tests
