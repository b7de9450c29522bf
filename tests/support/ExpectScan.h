// The tests that all verifiers of one scan over the event names have in common.
#ifndef OMBRELIA_TESTS_SUPPORT_EXPECTSCAN_H
#define OMBRELIA_TESTS_SUPPORT_EXPECTSCAN_H

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/support/DataFile.h"
#include "tests/support/FrameFailures.h"
#include "tests/support/VerbatimFailures.h"

namespace Tests {

struct Scan {
  std::string experiment;
  std::string testName;
  int line;
  std::string message;
  // The event names of the sample.
  std::vector<std::string> events;
  // Does their order count?
  enum { IN_ORDER, IN_ANY_ORDER } order;
  // Those of them that the scan demands. The others may be anything.
  std::vector<std::string> demanded;
  // The duration's bounds on an ordinary machine. None: neither duration nor expansion is bounded on
  // any machine.
  struct {
    int min;
    int max;
  } duration = {0, 0};
  // The cells of the column "code" if they are compared as well.
  std::vector<std::string> codes = {};
};

// On the sample, then on the sample with a wrong event, events in another order, one row too many, one
// too few, without its column, and out of its bounds.
inline void ExpectScan(const Scan& scan) {
  const char* const column = "Event\nName";
  const std::string& experiment = scan.experiment;
  const std::string checkFailed =
      Fail(scan.testName, "Something bad happened instead.", experiment, scan.line, scan.message);
  const bool hasBounds = scan.duration.max > 0;
  const DataFile sample = DataFile::Sample(experiment);
  ASSERT_EQ(sample.Column(column), scan.events);
  const std::size_t rows = scan.events.size();
  const std::string time = sample.Cell(rows - 1, "Cumulative\nTime");
  // A file of another length fails the comparison of the codes, too.
  const auto checkFailedAnd = [&](const std::string& lengthFailed) {
    return scan.codes.empty() ? Lines{checkFailed} : Lines{checkFailed, lengthFailed};
  };

  Lines passing = {"suite " + experiment, "pass VerifyDatafile_was_called_for_" + experiment,
                   "pass " + scan.testName};
  if (!scan.codes.empty()) passing.push_back("pass Data_appears_completely_and_in_order");
  if (hasBounds) {
    passing.push_back("pass Experiment_duration_" + experiment);
    passing.push_back("pass Expansion_duration_" + experiment);
  }
  passing.push_back("pass __TIMING__TRACKING__" + experiment + "__" + time + "_ms");
  passing.push_back("pass __EXPANSION__TRACKING__" + experiment + "__23_ms");
  EXPECT_EQ(sample.Verify(), passing);

  for (std::size_t row = 0; row < rows; ++row) {
    const std::string& event = scan.events[row];
    const bool isDemanded = std::count(scan.demanded.begin(), scan.demanded.end(), event) > 0;
    for (const std::string& text :
         {event + " ", std::string("Event 1"), std::string("event 1"), std::string("event 2"),
          std::string("event 3"), std::string()}) {
      if (text == event) continue;
      SCOPED_TRACE("row " + std::to_string(row) + " with {" + text + "}");
      EXPECT_EQ(DataFile(sample).Set(row, column, text).Failures(),
                isDemanded ? Lines{checkFailed} : Lines{});
    }
  }

  std::vector<std::string> events = scan.events;
  std::sort(events.begin(), events.end());
  do {
    SCOPED_TRACE(testing::PrintToString(events));
    EXPECT_EQ(
        DataFile(sample).SetColumn(column, events).Failures(),
        scan.order == Scan::IN_ANY_ORDER || events == scan.events ? Lines{} : Lines{checkFailed});
  } while (std::next_permutation(events.begin(), events.end()));

  EXPECT_EQ(DataFile(sample).RepeatLastRow().Failures(), checkFailedAnd(TooManyCells(experiment)));
  if (rows > 1) {
    EXPECT_EQ(DataFile(sample).KeepRows(rows - 1).SetDuration(time).Failures(),
              checkFailedAnd(TooFewCells(experiment)));
  }
  EXPECT_EQ(DataFile(sample).RemoveColumn(column).Failures(),
            scan.demanded.empty() ? Lines{} : Lines{checkFailed});
  if (!scan.codes.empty()) ExpectEachCellIsCompared(experiment, "code", scan.codes);

  if (hasBounds) {
    const std::string late = std::to_string(scan.duration.max + 1);
    Lines expected = checkFailedAnd(TooManyCells(experiment));
    expected.push_back(DurationOutOfBounds(experiment, scan.duration.min, scan.duration.max, late));
    expected.push_back(ExpansionOutOfBounds(experiment, 0, 5000, "5001"));
    EXPECT_EQ(DataFile(sample).RepeatLastRow().SetDuration(late).SetExpansion("5001").Failures(),
              expected);
  } else {
    for (const char* const machine : {ORDINARY_MACHINE, SERVER_MACHINE, TESTBOX_MACHINE}) {
      EXPECT_EQ(DataFile(sample).SetDuration("99999999").SetExpansion("99999999").Failures(machine),
                Lines{});
    }
  }
}

}  // namespace Tests

#endif
