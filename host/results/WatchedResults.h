// What a verifier notices of the changes of a good data file.
//
// Rows count from 0. All texts are UTF-8.
#ifndef OMBRELIA_HOST_RESULTS_WATCHEDRESULTS_H
#define OMBRELIA_HOST_RESULTS_WATCHEDRESULTS_H

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "host/results/RunResults.h"

namespace OmbreliaHost {

// What became of one changed data file.
enum class ChangeOutcome {
  Unnoticed,  // the same tests fail as without the change
  Noticed,    // other tests fail
  // The next two have no verdict; a run of the host would tell, so they count as noticed.
  NeverEnds,
  Crashes,
};

inline bool IsNoticed(ChangeOutcome outcome) { return outcome != ChangeOutcome::Unnoticed; }

// The changes of one cell; absent where there is no such change.
struct WatchedCell {
  std::optional<ChangeOutcome> near;   // a number is one more, any other text has " 2" behind it
  std::optional<ChangeOutcome> other;  // the next other text of its column
  std::optional<ChangeOutcome> empty;
};

// How much of the changes of one cell is noticed.
enum class Share { None, Some, All };
Share NoticedShareOf(const WatchedCell& cell);

struct WatchedColumn {
  std::string name;  // the table's name of it, with its line feed
  std::vector<WatchedCell> cells;
  std::optional<ChangeOutcome> emptied;  // all its cells at once; absent if they are empty
  std::optional<ChangeOutcome> removed;  // with its heading

  std::size_t CountOf(Share share) const;
};

// The data file's number is put on both sides of both ends.
struct WatchedBound {
  std::string test;
  MachineKind machine = MachineKind::Ordinary;
  long min = 0;  // milliseconds; both belong to the bounds
  long max = 0;
  bool failsBelow = false;  // at min - 1
  bool passesAtMin = false;
  bool passesAtMax = false;
  bool failsAbove = false;  // at max + 1

  bool IsNoticed() const { return failsBelow && passesAtMin && passesAtMax && failsAbove; }
};

struct WatchedDatafile {
  std::string experiment;
  std::string className;
  std::filesystem::path datafile;
  std::size_t changes = 0;  // how many data files were verified
  std::vector<WatchedColumn> columns;
  std::vector<ChangeOutcome> dropped;  // one per row
  std::vector<ChangeOutcome> doubled;
  std::optional<ChangeOutcome> added;  // a row where there is to be none
  std::vector<WatchedBound> bounds;
};

std::size_t CountNoticed(const std::vector<ChangeOutcome>& outcomes);
std::size_t CountNoticed(const std::vector<WatchedBound>& bounds);

}  // namespace OmbreliaHost

#endif
