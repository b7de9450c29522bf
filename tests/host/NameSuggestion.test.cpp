#include "host/results/NameSuggestion.h"

#include <gtest/gtest.h>

#include "host/results/Manifest.h"

namespace {

using OmbreliaHost::NameSuggestion;
using OmbreliaHost::NearestName;
using OmbreliaHost::SuggestExperiment;

const std::vector<std::string> EXPERIMENTS = {"two_sublists_tagging.om5", "import_v4_macros.om4"};

std::string WrongWith(const std::string& datafile) {
  const auto suggestion = SuggestExperiment("/some/folder/" + datafile, EXPERIMENTS);
  if (!suggestion) return "nothing";
  EXPECT_EQ(suggestion->experiment, "two_sublists_tagging.om5");
  return suggestion->wrong;
}

TEST(NearestName, IsTheOneWithTheFewestChanges) {
  EXPECT_EQ(NearestName("colur", {"flavour", "colour", "color"}), "colour");
  EXPECT_EQ(NearestName("COLOR", {"flavour", "colour", "color"}), "color");
  EXPECT_EQ(NearestName("tagigng", {"tagging"}), "tagging");
}

TEST(NearestName, IsNothingIfAllAreFar) {
  EXPECT_EQ(NearestName("direction", {"colour", "shape"}), std::nullopt);
  EXPECT_EQ(NearestName("direction", {}), std::nullopt);
  EXPECT_EQ(NearestName("", {"colour"}), std::nullopt);
}

TEST(SuggestExperiment, IsSilentAboutAKnownName) {
  EXPECT_EQ(WrongWith("two_sublists_tagging.om5 3.txt"), "nothing");
  EXPECT_EQ(WrongWith("TWO_Sublists_tagging.OM5.txt"), "nothing");
}

TEST(SuggestExperiment, IsSilentAboutAnotherName) {
  EXPECT_EQ(WrongWith("shopping list.txt"), "nothing");
  EXPECT_EQ(WrongWith(""), "nothing");
  EXPECT_EQ(WrongWith(" .txt"), "nothing");
  EXPECT_EQ(WrongWith(std::string(250, 'x') + ".txt"), "nothing");
}

TEST(SuggestExperiment, TellsThatTheBlankIsMissing) {
  EXPECT_EQ(WrongWith("two_sublists_tagging.om5_3.txt"),
            "A blank must follow the experiment's name, not \"_\".");
  EXPECT_EQ(WrongWith("Two_Sublists_Tagging.om53.txt"),
            "A blank must follow the experiment's name, not \"3\".");
}

TEST(SuggestExperiment, TellsThatABlankStandsInsideTheName) {
  EXPECT_EQ(WrongWith("two sublists_tagging.om5 3.txt"),
            "The experiment's name ends at the first blank, so \"two\" was looked for.");
}

TEST(SuggestExperiment, TellsThatTheNameBeginsWithABlank) {
  EXPECT_EQ(WrongWith(" two_sublists_tagging.om5 3.txt"), "It begins with a blank.");
}

TEST(SuggestExperiment, TellsThatTheEndingOfTheDatafileIsMissing) {
  EXPECT_EQ(
      WrongWith("two_sublists_tagging.om5"),
      "Its ending \".om5\" is that of the experiment; a data file's own, as in \".txt\", must "
      "follow.");
}

TEST(SuggestExperiment, TellsThatTheEndingOfTheExperimentIsMissing) {
  EXPECT_EQ(WrongWith("two_sublists_tagging 3.txt"),
            "The experiment's ending \".om5\" is missing.");
}

TEST(SuggestExperiment, TellsThatTheEndingOfTheExperimentIsAnother) {
  EXPECT_EQ(WrongWith("two_sublists_tagging.om4 3.txt"),
            "The experiment ends in \".om5\", not in \".om4\".");
}

TEST(SuggestExperiment, TellsThatTheNameIsMistyped) {
  EXPECT_EQ(WrongWith("two_sublist_tagging.om5 3.txt"),
            "\"two_sublist_tagging.om5\" is not quite the experiment's name.");
}

// The names of the experiments differ by a few characters from each other.
TEST(SuggestExperiment, KnowsEachExperimentByItsNameWithOneMistake) {
  std::vector<std::string> experiments;
  for (const auto& verifier : OmbreliaHost::Verifiers()) experiments.push_back(verifier.experiment);
  ASSERT_EQ(experiments.size(), 68u);
  for (const std::string& experiment : experiments) {
    const std::string bare = experiment.substr(0, experiment.size() - 4);
    for (const std::string& name :
         {bare + " 1.txt", experiment + "_1.txt", experiment, " " + experiment + " 1.txt",
          experiment.substr(0, 3) + experiment.substr(4) + " 1.txt"}) {
      const auto suggestion = SuggestExperiment(name, experiments);
      ASSERT_TRUE(suggestion) << name;
      EXPECT_EQ(suggestion->experiment, experiment) << name;
    }
  }
}

}  // namespace
