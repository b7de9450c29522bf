// One line of a history: what became of one data file in one run. docs/history.md describes the format.
#ifndef OMBRELIA_HOST_RESULTS_HISTORYLINE_H
#define OMBRELIA_HOST_RESULTS_HISTORYLINE_H

#include <optional>
#include <string>
#include <vector>

#include "host/results/RunResults.h"

namespace OmbreliaHost {

// All names of tests are stable ones. Members that are not known are empty or absent.
struct HistoryLine {
  // A test that chance can fail, and that the verifier came to.
  struct Trial {
    std::string test;
    bool failed = false;
  };
  struct Bound {
    std::string test;
    BoundCheck check;
  };
  std::string time;    // when the run began, UTC, as in 2026-03-01T12:00:00Z
  double seconds = 0;  // the same, since 1970
  MachineKind machine = MachineKind::Ordinary;
  std::string host;
  std::string verifiers;
  std::string experiment;
  std::string digest;
  Outcome outcome = Outcome::Passed;
  std::vector<std::string> failed;  // each once, in the order of the report
  std::vector<std::string> tolerated;
  std::vector<Trial> trials;
  std::optional<long> rows;
  std::optional<long> durationMs;
  std::optional<long> expansionMs;
  std::vector<Bound> bounds;
};

// One for each data file that was verified or lost, in their order; none for those that an interrupted run did
// not come to.
std::vector<HistoryLine> HistoryLinesOf(const RunResults& results);

// One line of text without its line feed, and back. std::exception, with words on what is wrong, if the text is
// no such line.
std::string TextOf(const HistoryLine& line);
HistoryLine HistoryLineOf(const std::string& text);

}  // namespace OmbreliaHost

#endif
