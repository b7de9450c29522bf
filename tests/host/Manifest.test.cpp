// The verifiers' table as the program has it.
#include "host/results/Manifest.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "tests/BuildPaths.h"
#include "tests/support/Files.h"

namespace Tests {
namespace {

using namespace OmbreliaHost;

TEST(Manifest, HasEveryEntryOfTheTable) {
  const auto table =
      nlohmann::json::parse(ReadFile(std::string(OMBRELIA_SOURCE_DIR) + "/verifiers/manifest.json"))
          .at("verifiers");
  ASSERT_EQ(Verifiers().size(), table.size());
  for (std::size_t i = 0; i < table.size(); ++i) {
    EXPECT_EQ(Verifiers()[i].className, table[i].at("class"));
    EXPECT_EQ(Verifiers()[i].experiment, table[i].at("experiment"));
    EXPECT_EQ(Verifiers()[i].proves, table[i].at("proves"));
    EXPECT_EQ(Verifiers()[i].expectEmptyDatafile, table[i].at("expect_empty_datafile"));
  }
}

TEST(Manifest, KnowsWhatIsTolerated) {
  EXPECT_TRUE(IsTolerated("2012-12-20_test_reset_the_subset.om5", "Variety_of_Right_and_Left"));
  EXPECT_FALSE(IsTolerated("2012-12-20_test_reset_the_subset.om5", "Variety_of_Right"));
  EXPECT_FALSE(IsTolerated("2012-12-20_test_reset_the_subset.om5", ""));
  EXPECT_FALSE(IsTolerated("good.om4", "Variety_of_Right_and_Left"));
  for (const char* second : {"UNPAIRED_HAPPENS_ANEW_FOR_EACH_TRIAL", "NOT_ALWAYS_SAME_REPEATER",
                             "TRIAL_4_NUMERIC_PORTION_MAY_FAIL_ONCE_PER_BLUE_MOON"}) {
    EXPECT_TRUE(IsTolerated("2013-09-27_list_access_pair_unpair_cross.om5", second)) << second;
  }
}

// A name that no verifier reports would tolerate nothing.
TEST(Manifest, EveryToleratedTestIsOneThatItsVerifierReports) {
  for (const VerifierEntry& entry : Verifiers()) {
    const std::string source =
        ReadFile(std::string(OMBRELIA_SOURCE_DIR) + "/verifiers/" + entry.className + ".cpp");
    for (const std::string& test : entry.toleratedFailures) {
      EXPECT_NE(source.find("\"" + test + "\""), std::string::npos)
          << entry.className << " " << test;
    }
  }
}

TEST(Manifest, KnowsWhatChanceFails) {
  const ChanceFailure* const jumbled =
      FindChance("2013-01_assorted_new_block_options.om5", "Block_One_Is_V4_Jumbled");
  ASSERT_NE(jumbled, nullptr);
  EXPECT_EQ(ProbabilityOf(*jumbled, std::nullopt), 1.0 / 14);
  const ChanceFailure* const coins = FindChance("2011-11-1_tolmey_2552_Randomization.om4",
                                                "Experiment_is_a_bunch_of_coinflips_as_expected");
  ASSERT_NE(coins, nullptr) << "not tolerated, but by chance";
  EXPECT_EQ(ProbabilityOf(*coins, std::nullopt), std::nullopt);
  EXPECT_EQ(ProbabilityOf(*coins, 100), CoinOutsideBand(100));
  EXPECT_EQ(FindChance("2013-01_assorted_new_block_options.om5", "Block_Two_Is_V5_Random"),
            nullptr);
  EXPECT_EQ(FindChance("good.om4", "Block_One_Is_V4_Jumbled"), nullptr);
}

// A name that no verifier reports would have no trials.
TEST(Manifest, EveryTestThatChanceFailsIsOneThatItsVerifierReports) {
  for (const VerifierEntry& entry : Verifiers()) {
    const std::string source =
        ReadFile(std::string(OMBRELIA_SOURCE_DIR) + "/verifiers/" + entry.className + ".cpp");
    for (const ChanceFailure& chance : entry.chanceFailures) {
      EXPECT_NE(source.find("\"" + chance.test + "\""), std::string::npos)
          << entry.className << " " << chance.test;
    }
  }
}

TEST(Manifest, FindsAVerifierByItsExactNameOnly) {
  ASSERT_NE(FindVerifier("mac_input_settings_45_one.om4"), nullptr);
  EXPECT_EQ(FindVerifier("mac_input_settings_45_one.om4")->className, "TestBasicMacInput_01");
  EXPECT_EQ(FindVerifier("MAC_input_settings_45_one.om4"), nullptr);
  EXPECT_EQ(FindVerifier(""), nullptr);
}

}  // namespace
}  // namespace Tests
