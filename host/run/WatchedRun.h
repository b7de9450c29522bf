// Finds out what the verifiers notice of changed data files.
#ifndef OMBRELIA_HOST_RUN_WATCHEDRUN_H
#define OMBRELIA_HOST_RUN_WATCHEDRUN_H

#include <cstddef>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "framework/StimAreaData.h"
#include "host/results/ChangedDatafile.h"
#include "host/results/WatchedBaseline.h"
#include "host/results/WatchedResults.h"
#include "host/run/ScratchFolder.h"

namespace OmbreliaHost {

class WatchedRun {
 public:
  struct Input {
    std::string experiment;  // the registered name
    std::string className;
    std::filesystem::path given;
    std::filesystem::path path;  // absolute
    std::vector<Ombrelia::StimAreaData> areas;
  };
  struct Plan {
    std::vector<Input> inputs;
    std::size_t jobs = 1;
    double timeout = 1;  // seconds of the processor's time for one changed data file
    // Hears of each input as soon as all is known of it, in the order of the inputs.
    std::function<void(const WatchedDatafile&)> take;
  };

  // Changes each cell, column, row and bound of each data file, one at a time, and verifies each change in a child
  // process. Works to the end or to the signal that it gives. Ends the run (WrongUse) at a data file that is no
  // good one.
  static int Do(const Plan& plan);

 private:
  // One change. bytes is called in a child.
  struct Change {
    std::size_t input = 0;
    std::function<std::string()> bytes;
    const WatchedBaseline::Bound* bound =
        nullptr;  // the one that the change is about, if it is about one
    std::function<void(ChangeOutcome)> take;
  };

  explicit WatchedRun(const Plan& plan);
  int FindBaselines();
  void RequireGood(std::size_t input) const;
  void PlanChanges(std::size_t input);
  void PlanCells(std::size_t input, std::size_t column);
  void PlanRows(std::size_t input);
  void PlanBound(std::size_t input, std::size_t bound);
  void Add(std::size_t input, std::function<std::string()> bytes, ChangeOutcome& outcome);
  void Add(std::size_t input, std::function<std::string()> bytes,
           std::optional<ChangeOutcome>& outcome);
  int VerifyChanges();
  std::string Verify(const Change& change) const;
  void TakeOutcome(const Change& change, ChangeOutcome outcome);

  const Plan& m_plan;
  ScratchFolder m_scratch;
  std::vector<ChangedDatafile> m_datafiles;
  std::vector<WatchedBaseline> m_baselines;
  std::vector<WatchedDatafile> m_results;
  std::vector<Change> m_changes;
  std::vector<std::size_t> m_open;  // changes without an outcome, for each input
  std::size_t m_firstNotTaken = 0;
};

}  // namespace OmbreliaHost

#endif
