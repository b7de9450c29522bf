// Names of tests that stay the same from run to run.
#include "host/results/StableNames.h"

#include <gtest/gtest.h>

namespace Tests {
namespace {

using namespace OmbreliaHost;

TEST(StableNames, MeasuredValuesGo) {
  EXPECT_EQ(StableName("x.om5", "__TIMING__TRACKING__x.om5__812_ms"), "__TIMING__TRACKING__x.om5");
  EXPECT_EQ(StableName("x.om5", "__TIMING__TRACKING__x.om5__any __ cell_ms"),
            "__TIMING__TRACKING__x.om5");
  EXPECT_EQ(StableName("x.om5", "__EXPANSION__TRACKING__x.om5__-123_ms"),
            "__EXPANSION__TRACKING__x.om5");
  EXPECT_EQ(StableName("x.om5", "coin_flip_and_percent_was_48"), "coin_flip")
      << "the name under which it fails";
}

TEST(StableNames, RunningCountersAndPlacesGo) {
  EXPECT_EQ(StableName("x.om5", "CHECK_TIMESTAMP_17"), "CHECK_TIMESTAMP");
  EXPECT_EQ(StableName("x.om5", "NON_NUMERIC_VALUE_3_-1"), "NON_NUMERIC_VALUE");
  EXPECT_EQ(StableName("", "TestingPluginDH_AssertionFailure_00012"),
            "TestingPluginDH_AssertionFailure");
}

TEST(StableNames, TheDataFilesNameGivesWayToTheExperiments) {
  EXPECT_EQ(StableName("x.om5", "open_and_parse_x.om5 31"), "open_and_parse_x.om5");
  EXPECT_EQ(StableName("x.om5", "locating_verifier_for_x.om5 2026-03-01"),
            "locating_verifier_for_x.om5");
}

TEST(StableNames, AllOthersStay) {
  for (const char* name :
       {"Data_appears_completely_and_in_order", "CONTENT_CHECK_3_OF_8", "COPIES_OF_TRIAL_2_LOOP_1",
        "__TIMING__TRACKING__UNAVAILABLE__x.om5", "Experiment_duration_x.om5", "CHECK_TIMESTAMP",
        "CHECK_TIMESTAMP_x", "Simple_playback_11_formats", "a_and_percent_was_high", ""}) {
    EXPECT_EQ(StableName("x.om5", name), name);
  }
}

TEST(StableNames, TheSecondOfANameGetsItsNumber) {
  UniqueNames names;
  EXPECT_EQ(names.Next("a"), "a");
  EXPECT_EQ(names.Next("b"), "b");
  EXPECT_EQ(names.Next("a"), "a (2)");
  EXPECT_EQ(names.Next("a"), "a (3)");
}

TEST(StableNames, ANameThatReallyEndsInANumberIsNoClash) {
  UniqueNames names;
  EXPECT_EQ(names.Next("a (2)"), "a (2)");
  EXPECT_EQ(names.Next("a"), "a");
  EXPECT_EQ(names.Next("a"), "a (3)");
  EXPECT_EQ(names.Next("a (2)"), "a (2) (2)");
}

TEST(StableNames, NamesAreCutAt200CharactersAndStayUnique) {
  UniqueNames names;
  const std::string umlauts = [] {
    std::string text;
    for (int i = 0; i < 300; ++i) text += "\xC3\xA4";
    return text;
  }();
  EXPECT_EQ(names.Next(std::string(200, 'x')), std::string(200, 'x'));
  EXPECT_EQ(names.Next(std::string(201, 'x')), std::string(196, 'x') + " (2)");
  EXPECT_EQ(names.Next(std::string(300, 'x')), std::string(196, 'x') + " (3)");
  EXPECT_EQ(names.Next(umlauts), umlauts.substr(0, 400)) << "characters, not bytes";
}

}  // namespace
}  // namespace Tests
