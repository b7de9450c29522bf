#include "host/results/Families.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "host/results/Manifest.h"

namespace Tests {
namespace {

using namespace OmbreliaHost;

TEST(Families, TheWordsOfANameDecide) {
  EXPECT_EQ(FamilyOf("2012_3_9_tolmey_2668_macro_goto_block_any.om4"), "Macros");
  EXPECT_EQ(FamilyOf("2012_3_9_tolmey_2668_trial_wtp_less_than.om4"), "When to run, and loops");
  EXPECT_EQ(FamilyOf("two_sublists_tagging.om5"), "Lists and sublists");
  EXPECT_EQ(FamilyOf("nonsense.om5"), "Others");
  EXPECT_EQ(FamilyOf(""), "Others");
}

TEST(Families, AWordBeginsAtACapitalAndCaseDoesNotCount) {
  EXPECT_EQ(FamilyOf("1-30-13-TextEventParamTest.om5"), "Parameters and time");
  EXPECT_EQ(FamilyOf("RANDOM order.om5"), "Randomisation");
  EXPECT_EQ(FamilyOf("prerandom.om5"), "Others") << "a word in the middle of another";
}

TEST(Families, TheFirstFamilyWithAWordTakesAName) {
  EXPECT_EQ(FamilyOf("trial_subset_multiple_block_macro_import.om4"), "Macros");
  EXPECT_EQ(FamilyOf("one_sublist_exp_randomization.om5"), "Lists and sublists");
}

TEST(Families, NearlyAllExperimentsHaveAFamilyAndNoFamilyIsEmpty) {
  std::map<std::string, int> sizes;
  for (const VerifierEntry& entry : Verifiers()) ++sizes[FamilyOf(entry.experiment)];
  for (const std::string& family : Families()) EXPECT_GT(sizes[family], 0) << family;
  EXPECT_EQ(sizes.size(), Families().size()) << "every family is one of those listed";
  EXPECT_EQ(Families().back(), "Others");
  EXPECT_LE(sizes["Others"], 5);
}

}  // namespace
}  // namespace Tests
