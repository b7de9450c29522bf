// What is known of a data file before anything of it is changed.
#ifndef OMBRELIA_HOST_RESULTS_WATCHEDBASELINE_H
#define OMBRELIA_HOST_RESULTS_WATCHEDBASELINE_H

#include <filesystem>
#include <string>
#include <vector>

#include "framework/StimAreaData.h"
#include "host/results/RunResults.h"

namespace OmbreliaHost {

struct WatchedBaseline {
  struct Bound {
    std::string test;
    MachineKind machine = MachineKind::Ordinary;
    int column = 0;            // of the number
    bool isExpansion = false;  // the number stands in the heading; otherwise in the last row
    long min = 0;
    long max = 0;
  };

  std::vector<std::string> failing;  // names of tests, on an ordinary machine
  std::vector<std::string> columns;  // of the table; none if the data file cannot be read
  std::vector<Bound> bounds;         // of all kinds of machine

  // One line of text, and back.
  std::string Line() const;
  static WatchedBaseline OfLine(const std::string& line);
};

// Both verify in this process; the content may crash it or keep it busy for ever.

WatchedBaseline BaselineOf(const std::filesystem::path& absoluteDatafile,
                           const std::vector<Ombrelia::StimAreaData>& areas);

// Does the number of this data file lie outside the bound? A bound that is not looked at is kept.
bool Breaks(const WatchedBaseline::Bound& bound, const std::filesystem::path& absoluteDatafile,
            const std::vector<Ombrelia::StimAreaData>& areas);

}  // namespace OmbreliaHost

#endif
