#include <gtest/gtest.h>

#include "tests/support/DataFile.h"
#include "tests/support/FrameFailures.h"

namespace Tests {
namespace {

const char* const EXPERIMENT = "MAC_new_movie_stress_test_case_2502.om4";

DataFile Sample() { return DataFile::Sample(EXPERIMENT); }

TEST(TestMacMovieStress_2502, PassesItsSampleWithoutABoundOnAnOrdinaryMachine) {
  EXPECT_EQ(
      Sample().Verify(),
      (Lines{"suite MAC_new_movie_stress_test_case_2502.om4",
             "pass VerifyDatafile_was_called_for_MAC_new_movie_stress_test_case_2502.om4",
             "pass Mac_movie_stress_test_completed",
             "pass __TIMING__TRACKING__MAC_new_movie_stress_test_case_2502.om4__36130_ms",
             "pass __EXPANSION__TRACKING__MAC_new_movie_stress_test_case_2502.om4__1250_ms"}));
  EXPECT_EQ(Sample().KeepRows(1).SetDuration("1").SetExpansion("1").Failures(), Lines{});
}

TEST(TestMacMovieStress_2502, HasBoundsOnTheTwoMachinesOfTheFarm) {
  DataFile file = Sample();
  file.SetDuration("37001").SetExpansion("4501");
  EXPECT_EQ(file.Failures(SERVER_MACHINE),
            (Lines{DurationOutOfBounds(EXPERIMENT, 28000, 37000, "37001"),
                   ExpansionOutOfBounds(EXPERIMENT, 1000, 4500, "4501")}));
  EXPECT_EQ(file.Failures(TESTBOX_MACHINE), Lines{});
  file.SetDuration("34999");
  EXPECT_EQ(file.Failures(TESTBOX_MACHINE),
            Lines{DurationOutOfBounds(EXPERIMENT, 35000, 41500, "34999")});
}

TEST(TestMacMovieStress_2502, DoesNotPassOnAFileThatCannotBeRead) {
  EXPECT_EQ(VerifyBytes(EXPERIMENT, "no data"),
            (Lines{"suite MAC_new_movie_stress_test_case_2502.om4",
                   "pass VerifyDatafile_was_called_for_MAC_new_movie_stress_test_case_2502.om4",
                   CannotBeRead(EXPERIMENT)}));
}

}  // namespace
}  // namespace Tests
