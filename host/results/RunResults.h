// The results of one run: the one model that every form of output prints.
//
// Rows count from 0, as the plug-in counts them; lines of a data file count from 1, as editors do. Times are
// seconds where the name says so, otherwise milliseconds. All texts are UTF-8; bytes of a data file that are
// no UTF-8 have been replaced.
#ifndef OMBRELIA_HOST_RESULTS_RUNRESULTS_H
#define OMBRELIA_HOST_RESULTS_RUNRESULTS_H

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace OmbreliaHost {

// What became of one data file, or of one test.
enum class Outcome {
  Passed,
  Failed,
  Tolerated,   // failed in nothing but tests whose failure the manifest tolerates
  Unreadable,  // failed, and the reader could not make a table of the file
  Unknown,     // failed, and no verifier has its experiment's name
  // The next three have no results from the plug-in; they count as failing.
  Crashed,
  TimedOut,
  Lost,  // the process ended, or wrote no report, without a signal
};

// One place of a data file that decided a test. A member is absent where it does not apply: an expected cell
// beyond the last row has no actual text, a surplus cell no expected one.
struct EvidenceCell {
  std::string column;  // the table's name of it, with its line feed
  std::optional<long> row;
  std::optional<long> line;
  std::optional<std::string> actual;
  std::optional<std::string> expected;
};

// Rows of the data file around the deciding one, the compared columns side by side.
struct EvidenceContext {
  struct Row {
    long line = 0;
    long row = 0;
    std::vector<std::string> cells;  // one per column
    bool decides = false;            // the row that the test failed at
    std::string expected;            // of the compared column; of use where decides is true
  };
  std::vector<std::string> columns;  // the compared one first
  std::vector<Row> rows;  // two on either side of the deciding one, or as many as there are
};

// Why a test has its outcome.
struct Evidence {
  enum class Kind {
    None,         // nothing is known
    Cell,         // one cell differs from the expected one
    Length,       // the number of rows differs; the first cell is the first surplus or missing row
    MissingText,  // a text that no row has
    Row,          // the first row that breaks a positional rule
    Count,        // a number of occurrences; the cells are the rows that have the text
    Bound,        // a number outside its bounds
    Reader,       // the data file cannot be read; the words are the reader's own
    LastReads,    // no more is known than the cells that the check read last
  };
  Kind kind = Kind::None;
  std::vector<EvidenceCell> cells;  // the deciding one first
  EvidenceContext context;          // may be empty
  std::vector<std::string> words;   // whole sentences, each of one line
  // For Length and Count.
  std::optional<long> actualCount;
  std::optional<long> expectedCount;
};

struct BoundCheck {
  long min = 0;
  long max = 0;
  long actual = 0;
};

struct TestOutcome {
  int number = 0;                     // the report's running number; 0 if there is no report
  std::string name;                   // without the running number
  Outcome outcome = Outcome::Passed;  // Passed, Failed or Tolerated
  std::string subject;                // this and the next two are empty for a passing test
  std::string location;
  std::string message;
  Evidence evidence;
  std::optional<BoundCheck> bound;
  std::string
      chance;  // of a tolerated failure: "TOLERATED p=0.0714 k/n=2/400: 2 in 400, chance allows it"
};

// How the process ended that verified a data file, where it did not end well.
struct Loss {
  int signal = 0;                      // 0: none
  int exitStatus = 0;                  // of use where there is no signal
  std::vector<std::string> lastLines;  // the last lines on its standard error
};

struct DatafileResult {
  std::filesystem::path path;  // as the user gave it, or below the folder that he gave
  std::string experiment;      // the registered name; the looked-up one where there is no verifier
  std::string digest;          // of the file's bytes, in hexadecimal; empty if they cannot be read
  Outcome outcome = Outcome::Passed;
  double seconds = 0;
  // Its place, from 1, in the list of the whole run before shards divided that list; 0 if not known.
  std::size_t position = 0;
  std::optional<long> durationMs;  // what the host needed, from the tracking results
  std::optional<long> expansionMs;
  std::optional<long> rows;          // of its table, where they were asked for
  std::vector<TestOutcome> tests;    // in the order of the report
  std::optional<Loss> loss;          // for Crashed, TimedOut and Lost
  std::vector<std::string> remarks;  // such as what was wrong with the name of a data file
};

// The kinds of machine that have bounds of their own.
enum class MachineKind { Ordinary, Small, Large };

// Which part of a run that several processes share; both numbers count from 1.
struct Shard {
  std::size_t index = 1;
  std::size_t count = 1;
};

// Whether chance explains the tolerated failures of a run.
struct ToleranceBudget {
  enum class State { Kept, Warns, Blown };
  State state = State::Kept;
  std::vector<std::string> words;  // sentences; at least one
};

struct RunResults {
  MachineKind machine = MachineKind::Ordinary;
  std::string host;  // the machine's name; empty if it is not known, or if there are several
  std::string
      verifiers;        // which verifiers judged; empty if it is not known, or if there are several
  std::string started;  // UTC, as in 2026-03-01T12:00:00Z
  double seconds = 0;   // of all shards together, if they were merged
  std::optional<Shard> shard;            // absent: the whole of a run
  std::vector<std::string> faults;       // why these results are not whole, such as a missing shard
  std::vector<TestOutcome> beforeFirst;  // of the plug-in itself, before any data file
  std::vector<DatafileResult> datafiles;       // in the order given
  std::vector<std::filesystem::path> reports;  // what the plug-in wrote, one file per process
  std::optional<ToleranceBudget> tolerance;    // absent before all is known
};

}  // namespace OmbreliaHost

#endif
