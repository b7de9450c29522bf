// The program's arguments.
#ifndef OMBRELIA_HOST_RUN_COMMANDLINE_H
#define OMBRELIA_HOST_RUN_COMMANDLINE_H

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "host/results/ExitStatus.h"
#include "host/results/RunResults.h"

namespace OmbreliaHost {

// When something is shown that suits a terminal only. Auto: on a terminal.
enum class ShowMode { Auto, Always, Never };

// How results are shown and handed on, for every command that has results. Files are as the user gave
// them, relative to the working directory at the start; empty: not asked for.
struct OutputArguments {
  ShowMode color = ShowMode::Auto;
  bool quiet = false;    // failing data files and the totals only
  bool verbose = false;  // passing tests, too; never together with quiet
  bool tolerate = false;
  std::filesystem::path json;
  std::filesystem::path junit;
  std::filesystem::path html;
  std::filesystem::path history;  // lines are added to it
};

// A run of data files, which is what the program does without a subcommand.
struct RunArguments {
  std::filesystem::path plugin;   // empty: the library that came with this program
  std::filesystem::path workDir;  // empty: the present working directory
  ShowMode progress = ShowMode::Auto;
  std::vector<std::filesystem::path> inputs;  // files and folders, in the order given; at least one
  std::vector<std::string> only;              // globs; empty: all data files
  std::chrono::duration<double> timeout = std::chrono::seconds(60);  // per data file, above 0
  int jobs = 1;                                                      // at least 1
  std::optional<Shard> partition;
  std::optional<MachineKind> machine;  // the other kind whose verdict is asked for
  OutputArguments output;
};

struct ListArguments {
  std::vector<std::string> only;  // globs; empty: all experiments
  bool json = false;
};

struct ExplainArguments {
  std::string name;
  std::filesystem::path datafile;  // a good one; empty: the sample that came with this program
};

struct MergeArguments {
  std::vector<std::filesystem::path> files;  // in the order given; at least one
  OutputArguments output;
};

struct RepairArguments {
  std::filesystem::path report;
  std::filesystem::path output;  // empty: beside the report
};

struct CollectArguments {
  std::filesystem::path folder;
  std::optional<MachineKind> machine;  // that wrote the reports; absent: the kind of this one
  OutputArguments output;
};

struct HistoryArguments {
  std::filesystem::path file;
  std::vector<std::string> only;  // globs; empty: all experiments
  std::filesystem::path json;     // empty: not asked for
  std::filesystem::path html;
};

struct WatchedArguments {
  std::vector<std::string>
      names;                // data files and experiments; none: the samples of all experiments
  std::optional<int> jobs;  // at least 1; absent: one for each processor
  std::chrono::duration<double> timeout =
      std::chrono::seconds(1);  // of the processor's time, per change
  std::filesystem::path json;
  std::filesystem::path html;
};

struct WatchArguments {
  std::filesystem::path folder;
  bool newOnly = false;  // what is there at the start is not verified until it changes
  RunArguments run;      // but for its inputs, the progress and the partition
};

using CommandLine =
    std::variant<RunArguments, ListArguments, ExplainArguments, MergeArguments, RepairArguments,
                 CollectArguments, HistoryArguments, WatchedArguments, WatchArguments>;

// A subcommand is one only as the first argument: any later word of that name is an input. An exit
// status comes back when the program is to end at once: after the help and the version, which it prints,
// and after wrong use, which it names on standard error.
std::variant<CommandLine, ExitStatus> ParseCommandLine(int argc, char** argv);

}  // namespace OmbreliaHost

#endif
