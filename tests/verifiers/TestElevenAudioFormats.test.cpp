#include <gtest/gtest.h>

#include "tests/support/DataFile.h"
#include "tests/support/FrameFailures.h"

namespace Tests {
namespace {

const char* const EXPERIMENT = "2011-09-21_basic_audio_format_4.5.2_tests.om4";

const std::string CHECK_FAILED =
    Fail("Simple_playback_11_formats", "Incorrect number of events played back.", EXPERIMENT, 44,
         "There should be two events per each of 11 audio formats," + std::string(20, ' ') +
             "for a total of 22 events.");

DataFile Sample() { return DataFile::Sample(EXPERIMENT); }

TEST(TestElevenAudioFormats, PassesItsSample) {
  EXPECT_EQ(
      Sample().Verify(),
      (Lines{"suite 2011-09-21_basic_audio_format_4.5.2_tests.om4",
             "pass VerifyDatafile_was_called_for_2011-09-21_basic_audio_format_4.5.2_tests.om4",
             "pass Simple_playback_11_formats",
             "pass Experiment_duration_2011-09-21_basic_audio_format_4.5.2_tests.om4",
             "pass Expansion_duration_2011-09-21_basic_audio_format_4.5.2_tests.om4",
             "pass __TIMING__TRACKING__2011-09-21_basic_audio_format_4.5.2_tests.om4__22924_ms",
             "pass __EXPANSION__TRACKING__"
             "2011-09-21_basic_audio_format_4.5.2_tests.om4__19_ms"}));
}

TEST(TestElevenAudioFormats, FailsOn21RowsAndChecksTheDuration) {
  EXPECT_EQ(
      Sample().KeepRows(21).SetDuration("22924").Verify(),
      (Lines{"suite 2011-09-21_basic_audio_format_4.5.2_tests.om4",
             "pass VerifyDatafile_was_called_for_"
             "2011-09-21_basic_audio_format_4.5.2_tests.om4",
             CHECK_FAILED, "pass Experiment_duration_2011-09-21_basic_audio_format_4.5.2_tests.om4",
             "pass Expansion_duration_2011-09-21_basic_audio_format_4.5.2_tests.om4",
             "pass __TIMING__TRACKING__"
             "2011-09-21_basic_audio_format_4.5.2_tests.om4__22924_ms",
             "pass __EXPANSION__TRACKING__"
             "2011-09-21_basic_audio_format_4.5.2_tests.om4__19_ms"}));
}

TEST(TestElevenAudioFormats, FailsOn23RowsAndChecksTheBounds) {
  EXPECT_EQ(Sample().RepeatLastRow().SetDuration("27001").SetExpansion("41").Failures(),
            (Lines{CHECK_FAILED, DurationOutOfBounds(EXPERIMENT, 22300, 27000, "27001"),
                   ExpansionOutOfBounds(EXPERIMENT, 5, 40, "41")}));
}

}  // namespace
}  // namespace Tests
