#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/time.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>

#include "tests/support/DataFile.h"
#include "tests/support/FrameFailures.h"

namespace Tests {
namespace {

const char* const EXPERIMENT = "2012-12-20_test_reset_the_subset.om5";
const char* const BLOCK = "Block\nName";
const char* const TRIAL = "Trial\nName";
const char* const EVENT = "Event\nName";
const char* const TRIAL_TAG = "coinflips_trial";
const char* const EVENT_TAG = "coinflips_event";

const std::string ROW_COUNT_FAILED =
    Fail("Improper_Row_Count", "found either too many or too few data rows", EXPERIMENT, 37,
         "by the design of this experiment, we should always have the same exact number of data "
         "rows for every run");
const std::string FLIPS_FAILED =
    Fail("Never_Two_Consecutive_Coinflips", "extra coinflip row", EXPERIMENT, 90,
         "we should never see two consecutive rows that both are from block coinflips");
const std::string VARIETY_FAILED =
    Fail("Variety_of_Right_and_Left",
         "did not see both left and right -- this OCCASIONALLY FAILS PERMISSIBLY. ALLOW THIS TO "
         "HAPPEN RARELY",
         EXPERIMENT, 132,
         "after randomizing 12 items we normally want to see at least one go left and at least one "
         "go right -- this OCCASIONALLY FAILS PERMISSIBLY. ALLOW THIS TO HAPPEN RARELY");
const std::string CODES_FAILED =
    Fail("Random_codes_that_propagate_from_evt_to_trl",
         "something is wrong with values for tags in columns coinflips_event and coinflips_trial",
         EXPERIMENT, 249,
         "refer to the function CheckExpectedCodeValueOutcome in "
         "TestMultipleSubsetExpressionsOnOneBlock for details about expected behavior here");

// The sample flips in every seventh row from row 6 on, eleven times.
const std::vector<std::size_t> FLIP_ROWS = {6, 13, 20, 27, 34, 41, 48, 55, 62, 69, 76};

// The sample with these outcomes of the eleven flips, '1' or '2', and with these tags of the trial,
// '-' for an empty one.
DataFile WithFlips(const std::string& outcomes, const std::string& trialTags) {
  DataFile file = DataFile::Sample(EXPERIMENT);
  for (std::size_t i = 0; i < FLIP_ROWS.size(); ++i) {
    const std::string outcome(1, outcomes[i]);
    file.Set(FLIP_ROWS[i], EVENT, "coinflips (" + outcome + ", coinflip)");
    file.Set(FLIP_ROWS[i], EVENT_TAG, outcome);
    file.Set(FLIP_ROWS[i], TRIAL_TAG, trialTags[i] == '-' ? "" : std::string(1, trialTags[i]));
  }
  return file;
}

// The sample, all of whose trials with a cue go to one side.
DataFile WithCuesOf(const std::string& trial) {
  DataFile file = DataFile::Sample(EXPERIMENT);
  for (std::size_t row = 0; row < file.RowCount(); ++row) {
    if (file.Cell(row, BLOCK) == "cues") file.Set(row, TRIAL, trial);
  }
  return file;
}

TEST(TestMultipleSubsetExpressionsOnOneBlock, PassesItsSample) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Verify(),
            (Lines{"suite 2012-12-20_test_reset_the_subset.om5",
                   "pass VerifyDatafile_was_called_for_2012-12-20_test_reset_the_subset.om5",
                   "pass Never_Two_Consecutive_Coinflips", "pass Variety_of_Right_and_Left",
                   "pass Random_codes_that_propagate_from_evt_to_trl",
                   "pass Experiment_duration_2012-12-20_test_reset_the_subset.om5",
                   "pass Expansion_duration_2012-12-20_test_reset_the_subset.om5",
                   "pass __TIMING__TRACKING__2012-12-20_test_reset_the_subset.om5__203_ms",
                   "pass __EXPANSION__TRACKING__2012-12-20_test_reset_the_subset.om5__29_ms"}));
}

TEST(TestMultipleSubsetExpressionsOnOneBlock, GoesOnAfterOneRowTooFew) {
  EXPECT_EQ(
      DataFile::Sample(EXPERIMENT).KeepRows(82).SetDuration("203").Verify(),
      (Lines{"suite 2012-12-20_test_reset_the_subset.om5",
             "pass VerifyDatafile_was_called_for_2012-12-20_test_reset_the_subset.om5",
             ROW_COUNT_FAILED, "pass Never_Two_Consecutive_Coinflips",
             "pass Variety_of_Right_and_Left", "pass Random_codes_that_propagate_from_evt_to_trl",
             "pass Experiment_duration_2012-12-20_test_reset_the_subset.om5",
             "pass Expansion_duration_2012-12-20_test_reset_the_subset.om5",
             "pass __TIMING__TRACKING__2012-12-20_test_reset_the_subset.om5__203_ms",
             "pass __EXPANSION__TRACKING__2012-12-20_test_reset_the_subset.om5__29_ms"}));
}

TEST(TestMultipleSubsetExpressionsOnOneBlock, FailsOnOneRowTooMany) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RepeatLastRow().Failures(), Lines{ROW_COUNT_FAILED});
}

TEST(TestMultipleSubsetExpressionsOnOneBlock, FailsOnTwoFlipsInARow) {
  for (const std::size_t row : {5U, 7U, 12U, 75U, 77U}) {
    EXPECT_EQ(DataFile::Sample(EXPERIMENT).Set(row, BLOCK, "coinflips").Failures(),
              Lines{FLIPS_FAILED})
        << "row " << row;
  }
}

TEST(TestMultipleSubsetExpressionsOnOneBlock, PassesFlipsWithARowBetween) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Set(8, BLOCK, "coinflips").Failures(), Lines{});
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Set(0, BLOCK, "coinflips").Failures(), Lines{});
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Set(8, BLOCK, "coinflips").Set(7, BLOCK, "").Failures(),
            Lines{});
}

TEST(TestMultipleSubsetExpressionsOnOneBlock, PassesWithoutTheBlockNames) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveColumn(BLOCK).Failures(), Lines{});
}

TEST(TestMultipleSubsetExpressionsOnOneBlock, FailsWhenAllCuesGoToOneSide) {
  EXPECT_EQ(WithCuesOf("cues left").Failures(), Lines{VARIETY_FAILED});
  EXPECT_EQ(WithCuesOf("cues right").Failures(), Lines{VARIETY_FAILED});
  EXPECT_EQ(WithCuesOf("cues left").Set(82, TRIAL, "Cues right").Failures(), Lines{VARIETY_FAILED});
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveColumn(TRIAL).Failures(), Lines{VARIETY_FAILED});
}

TEST(TestMultipleSubsetExpressionsOnOneBlock, PassesWhenEachSideComesOnce) {
  EXPECT_EQ(WithCuesOf("cues left").Set(82, TRIAL, "cues right").Failures(), Lines{});
  EXPECT_EQ(WithCuesOf("cues right").Set(0, TRIAL, "cues left").Failures(), Lines{});
  EXPECT_EQ(WithCuesOf("cues up").Set(0, TRIAL, "cues left").Set(1, TRIAL, "cues right").Failures(),
            Lines{});
}

TEST(TestMultipleSubsetExpressionsOnOneBlock, HoldsEachOfElevenSamples) {
  const DataFile sample = DataFile::Sample(EXPERIMENT);
  for (const std::size_t row : FLIP_ROWS) {
    SCOPED_TRACE(row);
    DataFile file = sample;
    EXPECT_EQ(file.Set(row, EVENT_TAG, "").Failures(), Lines{CODES_FAILED});
    EXPECT_EQ(file.Set(row, EVENT_TAG, "3").Failures(), Lines{CODES_FAILED});
    file = sample;
    EXPECT_EQ(file.Set(row, TRIAL_TAG, "3").Failures(), Lines{CODES_FAILED});
    file = sample;
    EXPECT_EQ(file.Set(row, EVENT, "coinflips (3, coinflip)").Failures(), Lines{CODES_FAILED});
  }
}

TEST(TestMultipleSubsetExpressionsOnOneBlock, TakesAnEmptyTrialTagTheFirstTimeAlone) {
  EXPECT_EQ(WithFlips("12211212221", "--2112122-1").Failures(), Lines{CODES_FAILED});
  EXPECT_EQ(WithFlips("12211212221", "--211212221").Failures(), Lines{});
  EXPECT_EQ(WithFlips("12211212221", "-2211212221").Failures(), Lines{CODES_FAILED});
  EXPECT_EQ(WithFlips("12211212221", "1-211212221").Failures(), Lines{CODES_FAILED});
}

TEST(TestMultipleSubsetExpressionsOnOneBlock, TakesEitherOutcomeFirst) {
  EXPECT_EQ(WithFlips("21112222121", "--112222121").Failures(), Lines{});
  EXPECT_EQ(WithFlips("21112222121", "--11-222121").Failures(), Lines{CODES_FAILED});
}

TEST(TestMultipleSubsetExpressionsOnOneBlock, KeepsTheCodesOfTheOutcomesApart) {
  EXPECT_EQ(WithFlips("11111111111", "-1111111111").Failures(), Lines{});
  EXPECT_EQ(WithFlips("22222222222", "-2222222222").Failures(), Lines{});
  EXPECT_EQ(WithFlips("22222222221", "-222222222-").Failures(), Lines{});
  // The code of the other outcome's last run is not it.
  EXPECT_EQ(WithFlips("12121212121", "--211212121").Failures(), Lines{CODES_FAILED});
}

TEST(TestMultipleSubsetExpressionsOnOneBlock, LooksOnlyAtEverySeventhRow) {
  DataFile file = DataFile::Sample(EXPERIMENT);
  for (std::size_t row = 7; row < file.RowCount(); ++row) {
    if (row % 7 == 6) continue;
    file.Set(row, EVENT, "coinflips (1, coinflip)").Set(row, TRIAL_TAG, "3");
  }
  EXPECT_EQ(file.Failures(), Lines{});
}

TEST(TestMultipleSubsetExpressionsOnOneBlock, StartsAtTheFirstEventThatBeginsWithTheWord) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Set(5, EVENT, "coinflips").Failures(),
            Lines{CODES_FAILED});
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Set(5, EVENT, "Coinflips").Failures(), Lines{});
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Set(5, EVENT, "no coinflips").Failures(), Lines{});
}

// One row less before the first flip leaves all eleven samples; one flip less leaves ten.
TEST(TestMultipleSubsetExpressionsOnOneBlock, NeedsElevenSamplesWhereverTheyBegin) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveRow(0).Failures(), Lines{ROW_COUNT_FAILED});
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).KeepRows(77).SetDuration("203").Failures(),
            Lines{ROW_COUNT_FAILED});
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).KeepRows(76).SetDuration("203").Failures(),
            (Lines{ROW_COUNT_FAILED, CODES_FAILED}));
}

TEST(TestMultipleSubsetExpressionsOnOneBlock, FailsWithoutEitherTag) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveColumn(TRIAL_TAG).Failures(), Lines{CODES_FAILED});
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveColumn(EVENT_TAG).Failures(), Lines{CODES_FAILED});
}

// Knows whether the result recorded last is the one before the search.
class PrinterBeforeTheSearch : public Ombrelia::FakeJUnitPrinter {
 public:
  void NewTestSuite(const wxString&) override { m_isNext = 0; }
  void AddPassingTestResult(const wxString& testName) override {
    m_isNext = testName == wxT("Variety_of_Right_and_Left") ? 1 : 0;
  }
  void AddFailingTestResult(const wxString&, const wxString&, const wxString&,
                            const wxString&) override {
    m_isNext = 0;
  }

  static volatile std::sig_atomic_t m_isNext;
};

volatile std::sig_atomic_t PrinterBeforeTheSearch::m_isNext = 0;

const int STILL_SEARCHING = 42;

// Comes after each further 10 ms of work, however long they take on a busy machine.
void EndAfterMuchSearching(int) {
  static int times = 0;
  times = PrinterBeforeTheSearch::m_isNext ? times + 1 : 0;
  if (times == 20) _exit(STILL_SEARCHING);
}

void Search(const DataFile& file, const std::filesystem::path& folder) {
  setenv("TMPDIR", folder.c_str(), 1);
  std::signal(SIGVTALRM, &EndAfterMuchSearching);
  const itimerval every10ms = {{0, 10000}, {0, 10000}};
  setitimer(ITIMER_VIRTUAL, &every10ms, nullptr);
  PrinterBeforeTheSearch printer;
  file.VerifyOn(printer);
  _exit(0);
}

// A separate process reaches the search, runs on without a further result, and is then ended.
TEST(TestMultipleSubsetExpressionsOnOneBlockDeathTest, SearchesWithoutEndForAFlipThatIsNotThere) {
  DataFile file = DataFile::Sample(EXPERIMENT);
  for (const std::size_t row : FLIP_ROWS) file.Set(row, EVENT, "cue");
  // The process that is stopped cannot clear up its files.
  const std::filesystem::path folder = std::filesystem::current_path() / "endless-search";
  std::filesystem::create_directories(folder);
  EXPECT_EXIT(Search(file, folder), testing::ExitedWithCode(STILL_SEARCHING), "");
  std::filesystem::remove_all(folder);
}

TEST(TestMultipleSubsetExpressionsOnOneBlock, ChecksTheBoundsAfterAllFailures) {
  EXPECT_EQ(WithCuesOf("cues left")
                .RepeatLastRow()
                .Set(7, BLOCK, "coinflips")
                .Set(6, EVENT_TAG, "")
                .SetDuration("381")
                .SetExpansion("56")
                .Failures(),
            (Lines{ROW_COUNT_FAILED, FLIPS_FAILED, VARIETY_FAILED, CODES_FAILED,
                   DurationOutOfBounds(EXPERIMENT, 83, 380, "381"),
                   ExpansionOutOfBounds(EXPERIMENT, 10, 55, "56")}));
}

// The first time counts within one file.
TEST(TestMultipleSubsetExpressionsOnOneBlock, KeepsNothingFromOneFileForTheNext) {
  const DataFile sample = DataFile::Sample(EXPERIMENT);
  DataFile wrong = sample;
  wrong.Set(6, EVENT_TAG, "2");
  EXPECT_EQ(sample.Failures(), Lines{});
  EXPECT_EQ(sample.Failures(), Lines{});
  EXPECT_EQ(wrong.Failures(), Lines{CODES_FAILED});
  EXPECT_EQ(sample.Failures(), Lines{});
}

}  // namespace
}  // namespace Tests
