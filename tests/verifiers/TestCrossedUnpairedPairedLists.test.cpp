#include <gtest/gtest.h>

#include <algorithm>

#include "tests/support/DataFile.h"
#include "tests/support/FrameFailures.h"

namespace Tests {
namespace {

const char* const EXPERIMENT = "2013-09-27_list_access_pair_unpair_cross.om5";
const char* const EVENT = "Event\nName";
const char* const TRIAL = "Trial\nName";

struct DeterministicTrial {
  std::string test;
  std::string baseName;
  std::size_t rows;
};

const std::vector<DeterministicTrial> DETERMINISTIC = {
    {"TRIAL_01_ALWAYS_SAME", "1  letters3 PAIRED with numbers7", 14},
    {"TRIAL_01B_ALWAYS_SAME", "1b letters3 PAIRED with numbers7 *copied*", 14},
    {"TRIAL_03_ALWAYS_SAME", "3 letters5 PAIRED with numbers7", 14},
    {"TRIAL_03B_ALWAYS_SAME", "3b letters5 PAIRED with numbers3", 10},
    {"TRIAL_05_ALWAYS_SAME", "5 letters3 CROSSED with numbers7", 42},
    {"TRIAL_06_ALWAYS_SAME", "6 letters3 CROSSED with numbers7 *copied*", 42},
    {"TRIAL_07_ALWAYS_SAME", "7 letters3 CROSSED with numbers3", 18},
    {"TRIAL_08_ALWAYS_SAME", "8 letters3 CROSSED with numbers3 *copied*", 18},
    {"TRIAL_09_ALWAYS_SAME", "9. empty list PAIRED with numbers3", 3},
    {"TRIAL_10_ALWAYS_SAME", "10. empty list UNPAIRED with numbers3", 3},
    {"TRIAL_11_ALWAYS_SAME", "11 empty list CROSSED with numbers3", 3}};

const std::vector<std::string> COPIES_OF_TRIAL_2 = {
    "2 letters3 UNPAIRED with numbers7",
    "2b letters3 UNPAIRED with numbers7 1 *copied*",
    "2b letters3 UNPAIRED with numbers7 2 *copied*",
    "2b letters3 UNPAIRED with numbers7 3 *copied*",
    "2b letters3 UNPAIRED with numbers7 4 *copied*",
    "2b letters3 UNPAIRED with numbers7 5 *copied*"};

const std::string TRIAL_4 = "4 letters5 UNPAIRED with numbers7";

const std::string NAMING_FAILED =
    Fail("INITIAL_PARSING_OF_DATAFILE_TRIALS_COLUMN",
         "Some trial failed to meet our naming conventions", EXPERIMENT, 141,
         "BaseTrialNameAtRow parses trial names and expects ONE COMMA in each trial name");

std::string TrialMissing(const std::string& test, int line) {
  return Fail(test, "An entire trial went missing", EXPERIMENT, line,
              "We could not even proceed to do detailed analysis of the trial, because we found no "
              "trial matching the expected name");
}

std::string TooManyRows(const std::string& test) {
  return Fail(test, "Trial had more rows that expected", EXPERIMENT, 197,
              "The given trial should always have the expected row count. Something is clearly "
              "wrong now.");
}

std::string TooFewRows(const std::string& test) {
  return Fail(test, "Trial had fewer rows than expected.", EXPERIMENT, 215,
              "The given trial should always have the expected row count. Something is clearly "
              "wrong now.");
}

std::string WrongEvent(const std::string& test) {
  return Fail(test, "One or more events are wrong or out of sequence", EXPERIMENT, 206,
              "The given trial should always have the same event sequence. Something is wrong.");
}

std::string WrongLetters(std::size_t copy) {
  return Fail("COPIES_OF_TRIAL_2_LOOP_" + std::to_string(copy),
              "Something wrong with the alphabetic list", EXPERIMENT, 602,
              "the alphabetic list should always end up as aaabbcc or aabbbcc or aabbccc");
}

const std::string NOT_ANEW =
    Fail("UNPAIRED_HAPPENS_ANEW_FOR_EACH_TRIAL", "Something wrong with the numeric list",
         EXPERIMENT, 642,
         "the pairings should come out DIFFERENT in each of the copied trials ... could fail with "
         "SLIM RARE chance");

const std::string SAME_REPEATER =
    Fail("NOT_ALWAYS_SAME_REPEATER",
         "Unpaired with uneven sized lists should vary which item is filler item .. could fail "
         "with SLIM RARE chance",
         EXPERIMENT, 666,
         "When combining lists of unmatched sizes as UNPAIRED the item from the short list that is "
         "repeated should change from trial to trial");

const std::string BAD_LETTERS_4 =
    Fail("TRIAL_4_ALPHABETIC_PORTION", "letters should only increase with exactly two repeats",
         EXPERIMENT, 735,
         "we should see all five letters in A through E with two of them doubled to make 7 letter "
         "presentations");

const std::string BAD_COUNT_4 =
    Fail("TRIAL_4_COUNTING_HOW_MANY_NUMBERS", "there were not exactly 7 number presentations",
         EXPERIMENT, 748, "we should have had exactly 7 number presentations during this trial");

const std::string NOT_SHUFFLED_4 =
    Fail("TRIAL_4_NUMERIC_PORTION_MAY_FAIL_ONCE_PER_BLUE_MOON",
         "ok to rarely fail ... for UNPAIRED we expect the numbers to be shuffled", EXPERIMENT, 764,
         "for the UNPAIRED setting we expect 1 through 7 to not be in perfect order ... but "
         "probabilistically it will sometimes happen");

const std::string NUMERALS_MISSING_4 =
    Fail("TRIAL_4_NUMERIC_PORTION_B",
         "regardless of shuffled ordering we should see all numerals 1 through 7", EXPERIMENT, 785,
         "regardless of shuffled ordering we should see all numerals 1 through 7");

// What a file reports in which no row belongs to any of the trials.
Lines EverythingMissing() {
  Lines failures;
  for (const DeterministicTrial& trial : DETERMINISTIC) {
    failures.push_back(TrialMissing(trial.test, 162));
  }
  for (int copy = 0; copy < 6; ++copy) {
    failures.push_back(TrialMissing("COPIES_OF_TRIAL_2_LOOP_" + std::to_string(copy), 558));
  }
  failures.push_back(NOT_ANEW);
  failures.push_back(SAME_REPEATER);
  failures.push_back(TrialMissing("LOCATE_TRIAL_BASENAME_04", 681));
  return failures;
}

DataFile Sample() { return DataFile::Sample(EXPERIMENT); }

// The rows of the trials of this base name.
std::vector<std::size_t> RowsOf(const DataFile& file, const std::string& baseName) {
  std::vector<std::size_t> rows;
  for (std::size_t row = 0; row < file.RowCount(); ++row) {
    if (file.Cell(row, TRIAL).rfind(baseName + ",", 0) == 0) rows.push_back(row);
  }
  return rows;
}

DataFile WithTrialRenamed(DataFile file, const std::string& baseName, const std::string& name) {
  for (const std::size_t row : RowsOf(file, baseName)) file.Set(row, TRIAL, name + ", 1");
  return file;
}

// Gives the letter rows of a trial, its first, third, fifth ... row, these letters.
DataFile WithLetters(DataFile file, const std::string& baseName, const std::string& letters) {
  const std::vector<std::size_t> rows = RowsOf(file, baseName);
  for (std::size_t i = 0; i < letters.size(); ++i) {
    file.Set(rows.at(2 * i), EVENT, std::string("letters (1, ") + letters[i] + ")");
  }
  return file;
}

// Gives the number rows of a trial, its second, fourth ... row, these numbers.
DataFile WithNumbers(DataFile file, const std::string& baseName, const std::string& numbers) {
  const std::vector<std::size_t> rows = RowsOf(file, baseName);
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    const std::string number(1, numbers[i]);
    file.Set(rows.at(2 * i + 1), EVENT, "numbers7 (" + number + ", " + number + ")");
  }
  return file;
}

const Lines PASSING = {
    "suite 2013-09-27_list_access_pair_unpair_cross.om5",
    "pass VerifyDatafile_was_called_for_2013-09-27_list_access_pair_unpair_cross.om5",
    "pass INITIAL_PARSING_OF_DATAFILE_TRIALS_COLUMN",
    "pass TRIAL_01_ALWAYS_SAME",
    "pass TRIAL_01B_ALWAYS_SAME",
    "pass TRIAL_03_ALWAYS_SAME",
    "pass TRIAL_03B_ALWAYS_SAME",
    "pass TRIAL_05_ALWAYS_SAME",
    "pass TRIAL_06_ALWAYS_SAME",
    "pass TRIAL_07_ALWAYS_SAME",
    "pass TRIAL_08_ALWAYS_SAME",
    "pass TRIAL_09_ALWAYS_SAME",
    "pass TRIAL_10_ALWAYS_SAME",
    "pass TRIAL_11_ALWAYS_SAME",
    "pass UNPAIRED_HAPPENS_ANEW_FOR_EACH_TRIAL",
    "pass NOT_ALWAYS_SAME_REPEATER",
    "pass TRIAL_4_ALPHABETIC_PORTION",
    "pass TRIAL_4_NUMERIC_PORTION_MAY_FAIL_ONCE_PER_BLUE_MOON",
    "pass TRIAL_4_NUMERIC_PORTION_B",
    "pass Experiment_duration_2013-09-27_list_access_pair_unpair_cross.om5",
    "pass Expansion_duration_2013-09-27_list_access_pair_unpair_cross.om5",
    "pass __TIMING__TRACKING__2013-09-27_list_access_pair_unpair_cross.om5__1967_ms",
    "pass __EXPANSION__TRACKING__2013-09-27_list_access_pair_unpair_cross.om5__33_ms"};

TEST(TestCrossedUnpairedPairedLists, PassesItsSample) { EXPECT_EQ(Sample().Verify(), PASSING); }

// --- Names of trials and texts of events

TEST(TestCrossedUnpairedPairedLists, EndsTheWalkAtATrialNameThatBeginsWithAComma) {
  Lines expected = EverythingMissing();
  expected.insert(expected.begin(), NAMING_FAILED);
  EXPECT_EQ(Sample().Set(0, TRIAL, ", 1").Failures(), expected);
}

TEST(TestCrossedUnpairedPairedLists, EndsTheWalkAtATrialNameWithoutAComma) {
  const std::size_t last = Sample().RowCount() - 1;
  EXPECT_EQ(Sample().Set(last, TRIAL, "11 empty list CROSSED with numbers3").Failures(),
            (Lines{NAMING_FAILED, TooFewRows("TRIAL_11_ALWAYS_SAME")}));
  EXPECT_EQ(Sample().Set(last, TRIAL, "").Failures(),
            (Lines{NAMING_FAILED, TooFewRows("TRIAL_11_ALWAYS_SAME")}));
}

TEST(TestCrossedUnpairedPairedLists, NeverGoesOnBehindABadTrialName) {
  const DataFile sample = Sample();
  const std::size_t row = RowsOf(sample, "9. empty list PAIRED with numbers3").at(0);
  EXPECT_EQ(Sample().Set(row, TRIAL, "no comma").Failures(),
            (Lines{NAMING_FAILED, TrialMissing("TRIAL_09_ALWAYS_SAME", 162),
                   TrialMissing("TRIAL_10_ALWAYS_SAME", 162),
                   TrialMissing("TRIAL_11_ALWAYS_SAME", 162)}));
}

TEST(TestCrossedUnpairedPairedLists, TakesTheNameBeforeTheFirstComma) {
  EXPECT_EQ(Sample().Set(0, TRIAL, "1  letters3 PAIRED with numbers7, 1, 2, 3").Verify(), PASSING);
}

TEST(TestCrossedUnpairedPairedLists, TakesTheTextFromTheFirstBracketOn) {
  EXPECT_EQ(Sample().Set(0, EVENT, "(1, a)").Verify(), PASSING);
  EXPECT_EQ(Sample().Set(0, EVENT, "letters3 (1, a) (1, a)").Failures(),
            Lines{WrongEvent("TRIAL_01_ALWAYS_SAME")});
  EXPECT_EQ(Sample().Set(0, EVENT, "letters3 1, a)").Failures(),
            Lines{WrongEvent("TRIAL_01_ALWAYS_SAME")});
}

TEST(TestCrossedUnpairedPairedLists, CollectsATrialFromRowsThatAreApart) {
  const DataFile sample = Sample();
  const std::size_t last = RowsOf(sample, "1  letters3 PAIRED with numbers7").back();
  EXPECT_EQ(Sample().SwapRows(last, last + 1).Verify(), PASSING);
}

TEST(TestCrossedUnpairedPairedLists, FindsEverythingMissingWithoutTheTrialColumn) {
  Lines expected = EverythingMissing();
  expected.insert(expected.begin(), NAMING_FAILED);
  EXPECT_EQ(Sample().RemoveColumn(TRIAL).Failures(), expected);
}

TEST(TestCrossedUnpairedPairedLists, FindsEverythingWrongWithoutTheEventColumn) {
  Lines expected;
  for (const DeterministicTrial& trial : DETERMINISTIC) expected.push_back(WrongEvent(trial.test));
  for (std::size_t copy = 0; copy < 6; ++copy) expected.push_back(WrongLetters(copy));
  expected.insert(expected.end(), {NOT_ANEW, SAME_REPEATER, BAD_LETTERS_4, BAD_COUNT_4});
  EXPECT_EQ(Sample().RemoveColumn(EVENT).Failures(), expected);
}

// --- The trials that always have the same events

TEST(TestCrossedUnpairedPairedLists, ComparesEachEventOfTheDeterministicTrials) {
  const DataFile sample = Sample();
  for (const DeterministicTrial& trial : DETERMINISTIC) {
    const std::vector<std::size_t> rows = RowsOf(sample, trial.baseName);
    ASSERT_EQ(rows.size(), trial.rows) << trial.test;
    for (const std::size_t row : rows) {
      EXPECT_EQ(DataFile(sample).Set(row, EVENT, sample.Cell(row, EVENT) + "x").Failures(),
                Lines{WrongEvent(trial.test)})
          << row;
    }
  }
}

TEST(TestCrossedUnpairedPairedLists, ReportsAMissingTrial) {
  for (const DeterministicTrial& trial : DETERMINISTIC) {
    EXPECT_EQ(WithTrialRenamed(Sample(), trial.baseName, "some other trial").Failures(),
              Lines{TrialMissing(trial.test, 162)});
  }
}

TEST(TestCrossedUnpairedPairedLists, ReportsOneRowTooFew) {
  for (const DeterministicTrial& trial : DETERMINISTIC) {
    DataFile file = Sample();
    file.RemoveRow(RowsOf(file, trial.baseName).back()).SetDuration("1967");
    EXPECT_EQ(file.Failures(), Lines{TooFewRows(trial.test)});
  }
}

TEST(TestCrossedUnpairedPairedLists, ReportsOneRowTooManyAndThenAPassOfTheSameName) {
  for (const DeterministicTrial& trial : DETERMINISTIC) {
    DataFile file = Sample();
    file.RepeatRow(RowsOf(file, trial.baseName).back());
    Lines expected = PASSING;
    const auto pass = std::find(expected.begin(), expected.end(), "pass " + trial.test);
    ASSERT_NE(pass, expected.end());
    expected.insert(pass, TooManyRows(trial.test));
    EXPECT_EQ(file.Verify(), expected);
  }
}

TEST(TestCrossedUnpairedPairedLists, ReportsSeveralRowsTooManyOnce) {
  DataFile file = Sample();
  const std::size_t last = RowsOf(file, "10. empty list UNPAIRED with numbers3").back();
  file.RepeatRow(last).RepeatRow(last);
  EXPECT_EQ(file.Failures(), Lines{TooManyRows("TRIAL_10_ALWAYS_SAME")});
}

TEST(TestCrossedUnpairedPairedLists, ReportsAWrongEventOnceAndNoRowCountBehindIt) {
  DataFile file = Sample();
  const std::vector<std::size_t> rows = RowsOf(file, "7 letters3 CROSSED with numbers3");
  file.Set(rows.at(3), EVENT, "wrong").Set(rows.at(5), EVENT, "wrong").RemoveRow(rows.back());
  EXPECT_EQ(file.Failures(), Lines{WrongEvent("TRIAL_07_ALWAYS_SAME")});
}

// --- The unpaired trial and its copies

TEST(TestCrossedUnpairedPairedLists, AcceptsTheThreeLetterPatternsInEachCopy) {
  for (const std::string& baseName : COPIES_OF_TRIAL_2) {
    for (const char* letters : {"aaabbcc", "aabbbcc", "aabbccc"}) {
      EXPECT_EQ(WithLetters(Sample(), baseName, letters).Verify(), PASSING);
    }
  }
}

TEST(TestCrossedUnpairedPairedLists, ReportsAnyOtherLetterPatternInEachCopy) {
  for (std::size_t copy = 0; copy < 6; ++copy) {
    for (const char* letters : {"aaaabcc", "aabbcca", "abababc", "cccbbaa", "aabbcdd"}) {
      EXPECT_EQ(WithLetters(Sample(), COPIES_OF_TRIAL_2[copy], letters).Failures(),
                Lines{WrongLetters(copy)});
    }
  }
}

TEST(TestCrossedUnpairedPairedLists, ReportsAMissingCopyAndGoesOn) {
  for (std::size_t copy = 0; copy < 6; ++copy) {
    EXPECT_EQ(WithTrialRenamed(Sample(), COPIES_OF_TRIAL_2[copy], "some other trial").Failures(),
              Lines{TrialMissing("COPIES_OF_TRIAL_2_LOOP_" + std::to_string(copy), 558)});
  }
}

DataFile WithEqualNumbers() {
  DataFile file = Sample();
  for (const std::string& baseName : COPIES_OF_TRIAL_2) {
    file = WithNumbers(file, baseName, "2716543");
  }
  return file;
}

TEST(TestCrossedUnpairedPairedLists, ReportsNumbersThatAreEqualInAllCopies) {
  EXPECT_EQ(WithEqualNumbers().Failures(), Lines{NOT_ANEW});
}

TEST(TestCrossedUnpairedPairedLists, AcceptsNumbersThatDifferInOneCopyAlone) {
  for (const std::string& baseName : COPIES_OF_TRIAL_2) {
    EXPECT_EQ(WithNumbers(WithEqualNumbers(), baseName, "2716534").Failures(), Lines{});
  }
}

TEST(TestCrossedUnpairedPairedLists, TakesAMissingCopyForOneWithOtherNumbers) {
  EXPECT_EQ(
      WithTrialRenamed(WithEqualNumbers(), COPIES_OF_TRIAL_2[3], "some other trial").Failures(),
      Lines{TrialMissing("COPIES_OF_TRIAL_2_LOOP_3", 558)});
}

TEST(TestCrossedUnpairedPairedLists, CountsOnlyNumbersOneToSevenAsNumbers) {
  DataFile file = WithEqualNumbers();
  file.Set(RowsOf(file, COPIES_OF_TRIAL_2[0]).at(1), EVENT, "numbers7 (2, 3)");
  for (std::size_t copy = 1; copy < 6; ++copy) {
    file.Set(RowsOf(file, COPIES_OF_TRIAL_2[copy]).at(1), EVENT, "numbers7 (8, 8)");
  }
  EXPECT_EQ(file.Failures(), Lines{NOT_ANEW});
}

DataFile WithEqualLetters(const std::string& letters) {
  DataFile file = Sample();
  for (const std::string& baseName : COPIES_OF_TRIAL_2) file = WithLetters(file, baseName, letters);
  return file;
}

TEST(TestCrossedUnpairedPairedLists, ReportsTheSameRepeaterInAllCopies) {
  for (const char* letters : {"aaabbcc", "aabbbcc", "aabbccc"}) {
    EXPECT_EQ(WithEqualLetters(letters).Failures(), Lines{SAME_REPEATER});
  }
}

TEST(TestCrossedUnpairedPairedLists, AcceptsASecondRepeaterInOneCopy) {
  EXPECT_EQ(WithLetters(WithEqualLetters("aabbbcc"), COPIES_OF_TRIAL_2[5], "aaabbcc").Failures(),
            Lines{});
}

TEST(TestCrossedUnpairedPairedLists, DoesNotCountAWrongPatternAsASecondRepeater) {
  EXPECT_EQ(WithLetters(WithEqualLetters("aabbccc"), COPIES_OF_TRIAL_2[1], "aabcccc").Failures(),
            (Lines{WrongLetters(1), SAME_REPEATER}));
}

// --- Trial 4

TEST(TestCrossedUnpairedPairedLists, ReportsThatTrialFourIsMissing) {
  EXPECT_EQ(WithTrialRenamed(Sample(), TRIAL_4, "some other trial").Failures(),
            Lines{TrialMissing("LOCATE_TRIAL_BASENAME_04", 681)});
}

TEST(TestCrossedUnpairedPairedLists, AcceptsLettersThatIncreaseWithTwoRepeats) {
  for (const char* letters : {"AABBCDE", "ABCDDEE", "AABCDEE", "ABBBCDE"}) {
    EXPECT_EQ(WithLetters(Sample(), TRIAL_4, letters).Verify(), PASSING) << letters;
  }
}

TEST(TestCrossedUnpairedPairedLists, ReportsOtherLetters) {
  for (const char* letters :
       {"ACCDDEE", "AABBCCD", "AAABBCD", "BAABCDE", "AABCBDE", "EDCBAAA", "BBCCDDE", "aabbcde"}) {
    EXPECT_EQ(WithLetters(Sample(), TRIAL_4, letters).Failures(), Lines{BAD_LETTERS_4}) << letters;
  }
}

// A letter behind "E" that brings no number with it, so that the numbers stay right.
TEST(TestCrossedUnpairedPairedLists, ReportsALetterBehindTheLastOne) {
  for (const char* letter : {"(6, F)", "(1, A)", "(7, 7)", ""}) {
    DataFile file = Sample();
    const std::size_t last = RowsOf(file, TRIAL_4).back();
    file.RepeatRow(last).Set(last + 1, EVENT, std::string("letters5 ") + letter);
    EXPECT_EQ(file.Failures(), Lines{BAD_LETTERS_4}) << letter;
  }
}

TEST(TestCrossedUnpairedPairedLists, ReportsManyLettersBehindTheLastOneOnce) {
  DataFile file = Sample();
  const std::size_t last = RowsOf(file, TRIAL_4).back();
  for (int i = 0; i < 40; ++i) {
    file.RepeatRow(last).Set(last + 1, EVENT, "letters5 (6, F)");
  }
  EXPECT_EQ(file.Failures(), Lines{BAD_LETTERS_4});
}

TEST(TestCrossedUnpairedPairedLists, ReportsAThirdRepeat) {
  DataFile file = Sample();
  const std::size_t last = RowsOf(file, TRIAL_4).back();
  file.RepeatRow(last).Set(last + 1, EVENT, "letters5 (5, E)");
  EXPECT_EQ(file.Failures(), Lines{BAD_LETTERS_4});
}

TEST(TestCrossedUnpairedPairedLists, ReportsAMissingRepeat) {
  DataFile file = WithLetters(Sample(), TRIAL_4, "AABBCDE");
  const auto rows = RowsOf(file, TRIAL_4);
  file.RemoveRow(rows[1]).RemoveRow(rows[0]);  // a letter and its number
  EXPECT_EQ(file.Failures(), (Lines{BAD_LETTERS_4, BAD_COUNT_4}));
}

TEST(TestCrossedUnpairedPairedLists, ReportsOneNumberTooFewAndEndsThere) {
  DataFile file = Sample();
  file.Set(RowsOf(file, TRIAL_4).back(), EVENT, "numbers7 (8, 8)");
  Lines expected = PASSING;
  const auto shuffled = std::find(expected.begin(), expected.end(),
                                  "pass TRIAL_4_NUMERIC_PORTION_MAY_FAIL_ONCE_PER_BLUE_MOON");
  ASSERT_NE(shuffled, expected.end());
  *shuffled = BAD_COUNT_4;
  expected.erase(shuffled + 1);
  EXPECT_EQ(file.Verify(), expected);
}

// The eighth number comes with an additional letter row, which stands behind "E".
TEST(TestCrossedUnpairedPairedLists, ReportsOneNumberTooManyAndEndsThere) {
  DataFile file = Sample();
  const std::size_t last = RowsOf(file, TRIAL_4).back();
  file.RepeatRow(last).RepeatRow(last);
  EXPECT_EQ(file.Failures(), (Lines{BAD_LETTERS_4, BAD_COUNT_4}));
}

TEST(TestCrossedUnpairedPairedLists, ReportsNumbersInPerfectOrder) {
  EXPECT_EQ(WithNumbers(Sample(), TRIAL_4, "1234567").Failures(), Lines{NOT_SHUFFLED_4});
  EXPECT_EQ(WithNumbers(Sample(), TRIAL_4, "1234576").Failures(), Lines{});
}

TEST(TestCrossedUnpairedPairedLists, ReportsAnyNumberThatIsMissingThoughThereAreSeven) {
  for (const char* numbers :
       {"2234567", "1134567", "1244567", "1233567", "1234667", "1234557", "1234566"}) {
    EXPECT_EQ(WithNumbers(Sample(), TRIAL_4, numbers).Failures(), Lines{NUMERALS_MISSING_4})
        << numbers;
  }
}

// --- The run as a whole

TEST(TestCrossedUnpairedPairedLists, TestsTheBoundsAfterFailures) {
  EXPECT_EQ(
      WithNumbers(Sample(), TRIAL_4, "1234567").SetDuration("2501").SetExpansion("9").Failures(),
      (Lines{NOT_SHUFFLED_4, DurationOutOfBounds(EXPERIMENT, 1450, 2500, "2501"),
             ExpansionOutOfBounds(EXPERIMENT, 10, 55, "9")}));
}

TEST(TestCrossedUnpairedPairedLists, ForgetsTheTrialsOfTheFileBefore) {
  EXPECT_EQ(Sample().Verify(), PASSING);
  EXPECT_EQ(Sample().Verify(), PASSING);
  Lines expected = EverythingMissing();
  expected.insert(expected.begin(), NAMING_FAILED);
  EXPECT_EQ(Sample().Set(0, TRIAL, "no comma").Failures(), expected);
  EXPECT_EQ(Sample().Verify(), PASSING);
}

}  // namespace
}  // namespace Tests
