#include <gtest/gtest.h>

#include "tests/support/DataFile.h"
#include "tests/support/FrameFailures.h"

namespace Tests {
namespace {

const char* const EXPERIMENT = "basic_input_brexa_qk_singlekey_pst.om4";

const Lines RECORD_OF_AN_UNREADABLE_FILE = {
    "suite basic_input_brexa_qk_singlekey_pst.om4",
    "pass VerifyDatafile_was_called_for_basic_input_brexa_qk_singlekey_pst.om4",
    "pass basic_input_brexa_qk_singlekey_pst_completed",
    "pass __TIMING__TRACKING__basic_input_brexa_qk_singlekey_pst.om4__55555_ms"};

TEST(TestBasicInput_02, PassesItsSampleWhichCannotBeRead) {
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Verify(), RECORD_OF_AN_UNREADABLE_FILE);
}

TEST(TestBasicInput_02, PassesOnAFileOfNothing) {
  EXPECT_EQ(VerifyBytes(EXPERIMENT, ""), RECORD_OF_AN_UNREADABLE_FILE);
}

TEST(TestBasicInput_02, TakesAReadableFileLikeAnyOtherVerifier) {
  const DataFile file = DataFile::Of(
      EXPERIMENT, {"Event\nName", "Cumulative\nTime", "Expansion Time(ms): 20", "Notes"},
      {{"event 1", "1234", "", "-"}});
  EXPECT_EQ(file.Verify(),
            (Lines{"suite basic_input_brexa_qk_singlekey_pst.om4",
                   "pass VerifyDatafile_was_called_for_basic_input_brexa_qk_singlekey_pst.om4",
                   "pass basic_input_brexa_qk_singlekey_pst_completed",
                   "pass __TIMING__TRACKING__basic_input_brexa_qk_singlekey_pst.om4__1234_ms",
                   "pass __EXPANSION__TRACKING__basic_input_brexa_qk_singlekey_pst.om4__20_ms"}));
  // The frame's own failures are all that such a file can give.
  EXPECT_EQ(DataFile::Of(EXPERIMENT, {"Event\nName"}, {{"event 1"}}).Failures(),
            (Lines{DurationUnavailable(EXPERIMENT), ExpansionUnavailable(EXPERIMENT)}));
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Verify(), RECORD_OF_AN_UNREADABLE_FILE);
}

}  // namespace
}  // namespace Tests
