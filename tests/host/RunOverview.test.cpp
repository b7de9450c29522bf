#include "host/results/RunOverview.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "host/results/Manifest.h"
#include "tests/host/WholeResults.h"

namespace Tests {
namespace {

using namespace OmbreliaHost;

DatafileResult Of(const std::string& experiment, Outcome outcome) {
  DatafileResult datafile;
  datafile.experiment = experiment;
  datafile.outcome = outcome;
  return datafile;
}

TEST(RunOverview, WhatFailedComesFirstThenWhatIsToleratedAndOtherwiseTheResultsOrder) {
  RunResults results;
  results.datafiles = {Of("a", Outcome::Passed),    Of("b", Outcome::Tolerated),
                       Of("c", Outcome::Failed),    Of("d", Outcome::Passed),
                       Of("e", Outcome::TimedOut),  Of("f", Outcome::Tolerated),
                       Of("g", Outcome::Unreadable)};
  EXPECT_EQ(OverviewOf(results).order, (std::vector<std::size_t>{2, 4, 6, 1, 5, 0, 3}));
}

TEST(RunOverview, HasEveryExperimentWithAVerifierOnce) {
  std::vector<std::string> experiments;
  for (const FamilyOverview& family : OverviewOf(RunResults()).families) {
    for (const ExperimentOverview& experiment : family.experiments) {
      EXPECT_FALSE(experiment.proves.empty());
      EXPECT_FALSE(experiment.outcome.has_value()) << "not in this run";
      experiments.push_back(experiment.experiment);
    }
  }
  std::vector<std::string> wanted;
  for (const VerifierEntry& entry : Verifiers()) wanted.push_back(entry.experiment);
  std::sort(experiments.begin(), experiments.end());
  std::sort(wanted.begin(), wanted.end());
  EXPECT_EQ(experiments, wanted);
}

TEST(RunOverview, AnExperimentIsAsBadAsItsWorstDataFile) {
  RunResults results;
  results.datafiles = {Of("two_sublists_tagging.om5", Outcome::Passed),
                       Of("two_sublists_tagging.om5", Outcome::Tolerated),
                       Of("two_sublists_tagging.om5", Outcome::Crashed), Of("z", Outcome::Unknown),
                       Of("y", Outcome::Unknown)};
  const RunOverview overview = OverviewOf(results);
  ExperimentOverview tagging;
  for (const FamilyOverview& family : overview.families) {
    for (const ExperimentOverview& experiment : family.experiments) {
      if (experiment.experiment == "two_sublists_tagging.om5") tagging = experiment;
    }
  }
  EXPECT_EQ(tagging.outcome, Outcome::Crashed);
  EXPECT_EQ(tagging.notPassed, 2u);
  EXPECT_EQ(tagging.datafiles, (std::vector<std::size_t>{2, 1, 0}));
  ASSERT_EQ(overview.withoutVerifier.size(), 2u);
  EXPECT_EQ(overview.withoutVerifier[0].experiment, "y");
}

TEST(RunOverview, TimesComeWithTheBoundsOfTheirOwnCheck) {
  DatafileResult datafile = Of("x.om5", Outcome::Passed);
  EXPECT_FALSE(DurationOf(datafile).has_value());
  datafile.durationMs = 812;
  datafile.expansionMs = 23;
  EXPECT_EQ(DurationOf(datafile)->milliseconds, 812);
  EXPECT_FALSE(DurationOf(datafile)->bound.has_value());
  datafile.tests.resize(2);
  datafile.tests[0].name = "Expansion_duration_x.om5";
  datafile.tests[0].bound = BoundCheck{0, 50, 23};
  EXPECT_FALSE(DurationOf(datafile)->bound.has_value());
  EXPECT_EQ(ExpansionOf(datafile)->bound->max, 50);
  datafile.tests[1].name = "Experiment_duration_x.om5";
  datafile.tests[1].bound = BoundCheck{700, 900, 812};
  EXPECT_EQ(DurationOf(datafile)->bound->max, 900);
}

}  // namespace
}  // namespace Tests
