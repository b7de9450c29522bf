// What the verifier of one experiment checks, learnt from a verification of a good data file.
#ifndef OMBRELIA_HOST_RESULTS_EXPLANATION_H
#define OMBRELIA_HOST_RESULTS_EXPLANATION_H

#include <filesystem>
#include <string>
#include <vector>

#include "framework/StimAreaData.h"
#include "host/results/RunResults.h"

namespace OmbreliaHost {

// Rows count from 0, as the plug-in counts them; first and last belong to the range.
struct RowRange {
  long first = 0;
  long last = 0;
};

// Successive rows that are to hold one text.
struct ExpectedRun {
  RowRange rows;
  std::string text;
};

struct ExplainedCheck {
  struct Demand {
    enum class Kind {
      Cells,     // the runs' texts in the runs' rows
      Anywhere,  // each run's text in some row
      Count,     // the run's text in as many rows as the run has
      Areas,     // the runs' texts describe the stimulus areas, one each
    };
    Kind kind = Kind::Cells;
    std::string column;
    std::vector<ExpectedRun> runs;
    long rowCount = -1;  // how many rows there are to be; -1: any number
  };
  struct Read {
    std::string column;
    std::vector<RowRange> rows;
  };

  std::string name;
  bool failed = false;  // the data file is no good one
  bool tolerated = false;
  std::vector<Demand> demands;
  // What was read without a demand that the framework knows of.
  std::vector<Read> reads;
  std::vector<std::string> columnsLookedFor;
};

struct ExplainedBound {
  std::string testName;
  MachineKind machine = MachineKind::Ordinary;
  long min = 0;  // milliseconds; both belong to the bounds
  long max = 0;
};

struct Explanation {
  std::string experiment;
  std::vector<ExplainedCheck> checks;  // in order, but for those of a bound
  std::vector<ExplainedBound> bounds;  // of all kinds of machine, in order for each
};

// The registered name of the experiment that a data file is taken to be of; empty if it has no verifier.
std::string ExperimentOf(const std::filesystem::path& datafile);

// Verifies the data file in this process, once for each kind of machine. Its experiment must have a
// verifier. The content may crash the process or keep it busy for ever.
Explanation ExplainByDatafile(const std::filesystem::path& absoluteDatafile,
                              const std::vector<Ombrelia::StimAreaData>& areas);

}  // namespace OmbreliaHost

#endif
