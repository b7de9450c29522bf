#include <gtest/gtest.h>

#include <boost/make_shared.hpp>

#include "tests/support/ChecksOnTable.h"
#include "tests/support/DataFile.h"
#include "tests/support/FrameFailures.h"

namespace Ombrelia {
class Test_2011_11_1_tolmey_2552_Randomization;
}

namespace Tests {
namespace {

const char* const EXPERIMENT = "2011-11-1_tolmey_2552_Randomization.om4";
const char* const COLOR = "Font Color\n(Trial Variable)";

std::string CheckFailed(const std::string& proportion) {
  return Fail("Experiment_is_a_bunch_of_coinflips_as_expected",
              "The trial variable Font Color occurs too often or not often enough", EXPERIMENT, 63,
              "We expected very close to a proportion of 0.50 blue to red. Instead, we got " +
                  proportion + ".");
}

// A file with this number of rows; the first ones are blue and the others have this text.
DataFile Flips(std::size_t blue, std::size_t rows, const std::string& other = "Red") {
  std::vector<std::vector<std::string>> cells;
  for (std::size_t row = 0; row < rows; ++row) {
    cells.push_back({row < blue ? "Blue" : other, "1", "-"});
  }
  return DataFile::Of(EXPERIMENT, {COLOR, "Cumulative\nTime", "Expansion Time(ms): 512"}, cells);
}

// What the check itself recorded, which stands third in the suite.
std::string Outcome(const DataFile& file) { return file.Verify().at(2); }

std::string Passed(const std::string& percent) {
  return "pass Experiment_is_a_bunch_of_coinflips_as_expected_and_percent_was_" + percent;
}

TEST(Test_2011_11_1_tolmey_2552_Randomization, PassesItsSample) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Verify(),
            (Lines{"suite 2011-11-1_tolmey_2552_Randomization.om4",
                   "pass VerifyDatafile_was_called_for_2011-11-1_tolmey_2552_Randomization.om4",
                   "pass Experiment_is_a_bunch_of_coinflips_as_expected_and_percent_was_51",
                   "pass Expansion_duration_2011-11-1_tolmey_2552_Randomization.om4",
                   "pass __TIMING__TRACKING__2011-11-1_tolmey_2552_Randomization.om4__1716_ms",
                   "pass __EXPANSION__TRACKING__2011-11-1_tolmey_2552_Randomization.om4__512_ms"}));
}

TEST(Test_2011_11_1_tolmey_2552_Randomization, PassesClearlyInsideTheBand) {
  EXPECT_EQ(Outcome(Flips(44, 100)), Passed("44"));
  EXPECT_EQ(Outcome(Flips(431, 1000)), Passed("43"));
  EXPECT_EQ(Outcome(Flips(1, 2)), Passed("50"));
  EXPECT_EQ(Outcome(Flips(56, 100)), Passed("56"));
  EXPECT_EQ(Outcome(Flips(569, 1000)), Passed("56"));
}

TEST(Test_2011_11_1_tolmey_2552_Randomization, FailsClearlyOutsideTheBand) {
  EXPECT_EQ(Flips(42, 100).Failures(), Lines{CheckFailed("0.420000")});
  EXPECT_EQ(Flips(429, 1000).Failures(), Lines{CheckFailed("0.429000")});
  EXPECT_EQ(Flips(58, 100).Failures(), Lines{CheckFailed("0.580000")});
  EXPECT_EQ(Flips(571, 1000).Failures(), Lines{CheckFailed("0.571000")});
  EXPECT_EQ(Flips(0, 100).Failures(), Lines{CheckFailed("0.000000")});
  EXPECT_EQ(Flips(100, 100).Failures(), Lines{CheckFailed("1.000000")});
}

// In single precision 43 of 100 is 0.4300000071..., which lies above the double-precision 0.43, and
// 57 of 100 is 0.5699999928..., which lies below 0.57: both are just inside.
TEST(Test_2011_11_1_tolmey_2552_Randomization, PassesOnExactly43Or57PerCent) {
  EXPECT_EQ(Outcome(Flips(43, 100)), Passed("43"));
  EXPECT_EQ(Outcome(Flips(430, 1000)), Passed("43"));
  EXPECT_EQ(Outcome(Flips(57, 100)), Passed("57"));
  EXPECT_EQ(Outcome(Flips(570, 1000)), Passed("57"));
}

TEST(Test_2011_11_1_tolmey_2552_Randomization, CutsThePercentageOff) {
  EXPECT_EQ(Outcome(Flips(5, 9)), Passed("55"));
}

TEST(Test_2011_11_1_tolmey_2552_Randomization, CountsEveryOtherTextAgainstBlue) {
  EXPECT_EQ(Outcome(Flips(50, 100, "blue")), Passed("50"));
  EXPECT_EQ(Outcome(Flips(50, 100, "Blue ")), Passed("50"));
  EXPECT_EQ(Flips(50, 120, "").Failures(), Lines{CheckFailed("0.416667")});
}

TEST(Test_2011_11_1_tolmey_2552_Randomization, FailsWithoutItsColumn) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).RemoveColumn(COLOR).Failures(),
            Lines{CheckFailed("0.000000")});
}

TEST(Test_2011_11_1_tolmey_2552_Randomization, BoundsTheExpansionAfterAFailureButNoDuration) {
  EXPECT_EQ(Flips(42, 100).SetDuration("99999999").SetExpansion("901").Failures(),
            (Lines{CheckFailed("0.420000"), ExpansionOutOfBounds(EXPERIMENT, 350, 900, "901")}));
}

TEST(Test_2011_11_1_tolmey_2552_Randomization, NamesEachPassAfterItsOwnFile) {
  EXPECT_EQ(Outcome(Flips(55, 100)), Passed("55"));
  EXPECT_EQ(Outcome(Flips(45, 100)), Passed("45"));
  EXPECT_EQ(Outcome(DataFile::Sample(EXPERIMENT)), Passed("51"));
}

// A file without rows cannot be read, so the check is handed a table without rows.
TEST(Test_2011_11_1_tolmey_2552_Randomization, FailsOnATableWithoutRows) {
  const Lines failures = RecordOfChecksOn<Ombrelia::Test_2011_11_1_tolmey_2552_Randomization>(
      boost::make_shared<MUExperimentTextReaderMultiFile>(nullptr), EXPERIMENT);
  ASSERT_EQ(failures.size(), 1U);
  // Whether a sign stands before it is the C library's choice.
  EXPECT_TRUE(failures[0] == CheckFailed("nan") || failures[0] == CheckFailed("-nan"))
      << failures[0];
}

}  // namespace
}  // namespace Tests
