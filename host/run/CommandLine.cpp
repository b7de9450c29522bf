#include "host/run/CommandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <charconv>
#include <cstddef>
#include <functional>
#include <map>

#include "host/run/Commit.h"

namespace OmbreliaHost {

namespace {

const std::map<std::string, ShowMode> SHOW_MODES = {
    {"auto", ShowMode::Auto}, {"always", ShowMode::Always}, {"never", ShowMode::Never}};

const std::map<std::string, MachineKind> MACHINES = {{"ordinary", MachineKind::Ordinary},
                                                     {"small", MachineKind::Small},
                                                     {"large", MachineKind::Large}};

// The option takes one of the words.
template <typename VALUE>
CLI::Option* AddChoice(CLI::App& app, const std::string& name,
                       const std::map<std::string, VALUE>& words,
                       const std::function<void(VALUE)>& take, const std::string& help) {
  return app
      .add_option_function<std::string>(
          name, [&words, take](const std::string& word) { take(words.at(word)); }, help)
      ->check(CLI::IsMember(words));
}

// One value each time that the option is given; a data file may follow.
void AddGlobs(CLI::App& app, std::vector<std::string>& globs, const std::string& help) {
  app.add_option("--only", globs, help)->type_name("GLOB")->allow_extra_args(false);
}

void AddOutputOptions(CLI::App& app, OutputArguments& output) {
  AddChoice<ShowMode>(
      app, "--color", SHOW_MODES, [&output](ShowMode mode) { output.color = mode; },
      "Colour: auto (on a terminal, unless NO_COLOR is set), always, never")
      ->type_name("WHEN");
  CLI::Option* const quiet =
      app.add_flag("-q,--quiet", output.quiet, "Show failing data files and the totals only");
  app.add_flag("-v,--verbose", output.verbose, "Show passing tests, too")->excludes(quiet);
  app.add_flag("--tolerate", output.tolerate,
               "Failures that are known as tolerated do not count in the exit status");
  app.add_option("--json", output.json, "Write the results as JSON")->type_name("FILE");
  app.add_option("--junit", output.junit, "Write the results as JUnit XML")->type_name("FILE");
  app.add_option("--html", output.html, "Write the results as a page for a browser")
      ->type_name("FILE");
}

// For commands that know when which data file was verified.
void AddHistoryOption(CLI::App& app, OutputArguments& output) {
  app.add_option("--history", output.history, "Add a line for each data file to a history")
      ->type_name("FILE");
}

bool ReadNumber(const char*& text, const char* end, std::size_t& number) {
  const auto [stop, error] = std::from_chars(text, end, number);
  text = stop;
  return error == std::errc();
}

// Absent if the word is no partition.
std::optional<Shard> PartitionOf(const std::string& word) {
  const std::string start = "slice:";
  if (word.compare(0, start.size(), start) != 0) return std::nullopt;
  Shard shard;
  const char* text = word.data() + start.size();
  const char* const end = word.data() + word.size();
  const bool read = ReadNumber(text, end, shard.index) && text != end && *text++ == '/' &&
                    ReadNumber(text, end, shard.count) && text == end;
  if (!read || shard.index < 1 || shard.index > shard.count) return std::nullopt;
  return shard;
}

// Options for a run over existing data files that `watch` does not have.
enum class Extent { OfAList, OfWhatComes };

void AddRunOptions(CLI::App& app, RunArguments& run, Extent extent = Extent::OfAList) {
  app.add_option("--plugin", run.plugin,
                 "The plug-in library (default: the one that came with this program)")
      ->type_name("PATH");
  app.add_option("--work-dir", run.workDir, "Working directory of the run")->type_name("DIR");
  if (extent == Extent::OfAList) {
    AddChoice<ShowMode>(
        app, "--progress", SHOW_MODES, [&run](ShowMode mode) { run.progress = mode; },
        "Show progress on standard error: auto (on a terminal only), always, never")
        ->type_name("WHEN");
  }
  AddGlobs(app, run.only,
           "Take only data files whose name, or its part before the first blank, matches; "
           "may be given again");
  app.add_option_function<double>(
         "--timeout",
         [&run](double seconds) { run.timeout = std::chrono::duration<double>(seconds); },
         "Give up a data file after so many seconds (default: 60)")
      ->type_name("SECONDS")
      ->check(CLI::Range(0.001, 1e6));
  app.add_option("--jobs", run.jobs, "Verify in N processes side by side (default: 1)")
      ->type_name("N")
      ->check(CLI::Range(1, 1000));
  if (extent == Extent::OfAList) {
    app.add_option_function<std::string>(
           "--partition", [&run](const std::string& word) { run.partition = PartitionOf(word); },
           "Take only the M-th of N shares, counted from 1")
        ->type_name("slice:M/N")
        ->check([](const std::string& word) {
          return PartitionOf(word) ? std::string() : word + " is not slice:M/N with M from 1 to N";
        });
  }
  AddChoice<MachineKind>(
      app, "--machine", MACHINES, [&run](MachineKind kind) { run.machine = kind; },
      "Tell also what would fail on a machine of this kind: ordinary, small, large")
      ->type_name("KIND");
  AddOutputOptions(app, run.output);
  AddHistoryOption(app, run.output);
}

std::string VersionText() {
  const std::string version = std::string("verify-datafiles ") + OMBRELIA_VERSION;
  return *COMMIT == '\0' ? version : version + "\ncommit " + COMMIT;
}

CLI::App* AddRepairCommand(CLI::App& app, RepairArguments& repair) {
  CLI::App* const command =
      app.add_subcommand("repair", "Make a well-formed copy of a report that a text has broken");
  command->add_option("report", repair.report, "A report that a host has left")
      ->type_name("REPORT")
      ->required();
  command
      ->add_option("--output", repair.output,
                   "Write the copy there (default: X.repaired.xml beside X.xml)")
      ->type_name("FILE");
  command->footer(
      "Example:\n"
      "  verify-datafiles repair FakeUnitTestsDataHookExperimentRunning_4711.xml\n"
      "names the tests whose texts broke the report, shows those texts, and writes a copy with "
      "the\n"
      "same results. The report stays as it is. A well-formed report is only copied, and only if\n"
      "--output is given.\n"
      "Exit status: 0 the report is well-formed, or its copy holds all results, failing ones, "
      "too;\n"
      "2 wrong use, or a file that is no report; 3 the report does not hold all that it counts, "
      "so\n"
      "that the copy does not, either; 4 the copy could not be written to its end.");
  return command;
}

CLI::App* AddCollectCommand(CLI::App& app, CollectArguments& collect) {
  CLI::App* const command =
      app.add_subcommand("collect", "Join the reports that processes of the host have left");
  command
      ->add_option("folder", collect.folder,
                   "Where the reports and flag files are, in it or below it")
      ->type_name("FOLDER")
      ->required();
  AddChoice<MachineKind>(
      *command, "--machine", MACHINES, [&collect](MachineKind kind) { collect.machine = kind; },
      "The kind of machine that wrote the reports (default: that of this one)")
      ->type_name("KIND");
  AddOutputOptions(*command, collect.output);
  command->footer(
      "Example:\n"
      "  verify-datafiles collect nightly --json nightly.json --junit nightly.xml\n"
      "A report tells the experiment of a data file and not its path, nor when it was verified. A\n"
      "flag file without a report tells of a process that died, or that has not ended yet.\n"
      "Exit status: 0 no failing test; 1 some failing test; 2 wrong use, or nothing to collect;\n"
      "3 a process left no report, or one that is not well-formed or not whole; 4 the results\n"
      "could not be written.");
  return command;
}

CLI::App* AddHistoryCommand(CLI::App& app, HistoryArguments& history) {
  CLI::App* const command = app.add_subcommand(
      "history", "Show what a history tells: what broke when, trends, failures against chance");
  command->add_option("file", history.file, "The file that --history wrote")
      ->type_name("FILE")
      ->required();
  AddGlobs(*command, history.only, "Show only experiments that match; may be given again");
  command->add_option("--json", history.json, "Write it as JSON")->type_name("FILE");
  command->add_option("--html", history.html, "Write it as a page")->type_name("FILE");
  command->footer(
      "Example:\n"
      "  verify-datafiles history runs.jsonl --only 'two_sublists*' --html history.html\n"
      "Exit status: 0 whatever the history tells; 2 wrong use, or a file that is no history; 4 a\n"
      "file could not be written to its end.");
  return command;
}

CLI::App* AddWatchCommand(CLI::App& app, WatchArguments& watch) {
  CLI::App* const command =
      app.add_subcommand("watch", "Verify the data files of a folder as they arrive");
  command->add_option("folder", watch.folder, "Its *.txt files, not those of folders below it")
      ->type_name("FOLDER")
      ->required();
  command->add_flag("--new-only", watch.newOnly,
                    "Do not verify what is there at the start, unless it changes");
  AddRunOptions(*command, watch.run, Extent::OfWhatComes);
  command->footer(
      "Example:\n"
      "  verify-datafiles watch run --json results.json --html results.html\n"
      "A data file is verified when it has not changed for a second, and again when it is written\n"
      "again: then the last verdict counts. Control-C ends the watch; the files that were asked "
      "for\n"
      "are written then.\n"
      "Exit status: that of a run of all that came: 0 no failing test; 1 some failing test, or a\n"
      "data file that was not verified; 2 wrong use; 3 a report is not well-formed; 4 the library\n"
      "does not load or there is no report.");
  return command;
}

CLI::App* AddWatchedCommand(CLI::App& app, WatchedArguments& watched) {
  CLI::App* const command = app.add_subcommand(
      "watched", "Show which cells, rows and bounds of a good data file its verifier notices");
  command
      ->add_option("names", watched.names,
                   "Good data files, or experiments, of which the sample is taken that was built "
                   "with this program (default: all experiments)")
      ->type_name("FILE|EXPERIMENT");
  command
      ->add_option_function<int>(
          "--jobs", [&watched](int jobs) { watched.jobs = jobs; },
          "Verify in N processes side by side (default: one for each processor)")
      ->type_name("N")
      ->check(CLI::Range(1, 1000));
  command
      ->add_option_function<double>(
          "--timeout",
          [&watched](double seconds) { watched.timeout = std::chrono::duration<double>(seconds); },
          "A verification that takes more of the processor's time never ends (default: 1)")
      ->type_name("SECONDS")
      ->check(CLI::Range(0.001, 1e6));
  command->add_option("--json", watched.json, "Write what was found as JSON")->type_name("FILE");
  command->add_option("--html", watched.html, "Write what was found as a page of heat maps")
      ->type_name("FILE");
  command->footer(
      "Example:\n"
      "  verify-datafiles watched two_sublists_tagging.om5 --json watched.json\n"
      "Each cell is changed up to three times: to a text close to it (a number to one more, any\n"
      "other text to one with \" 2\" behind it), to the next other text of its column, and to "
      "none.\n"
      "It counts as noticed if other tests fail then, each time; or else, at least once, in "
      "part.\n"
      "Exit status: 0 what is noticed was found; 2 wrong use, or a data file that is not good; 4 "
      "the\n"
      "files that were asked for could not be written.");
  return command;
}

CLI::App* AddListCommand(CLI::App& app, ListArguments& list) {
  CLI::App* const command = app.add_subcommand("list", "Show the experiments that have a verifier");
  AddGlobs(*command, list.only, "Show only experiments that match; may be given again");
  command->add_flag("--json", list.json, "Show them as JSON");
  command->footer("");
  return command;
}

CLI::App* AddExplainCommand(CLI::App& app, ExplainArguments& explain) {
  CLI::App* const command =
      app.add_subcommand("explain", "Show what the verifier of one experiment checks");
  command->add_option("name", explain.name, "The experiment")->type_name("NAME")->required();
  command
      ->add_option("--datafile", explain.datafile,
                   "A good data file of it (default: the sample that came with this program)")
      ->type_name("FILE");
  command->footer("");
  return command;
}

CLI::App* AddMergeCommand(CLI::App& app, MergeArguments& merge) {
  CLI::App* const command = app.add_subcommand("merge", "Join results that --json wrote");
  AddOutputOptions(*command, merge.output);
  AddHistoryOption(*command, merge.output);
  command->add_option("files", merge.files, "Results of runs")->type_name("FILE")->required();
  command->footer("");
  return command;
}

// The command without a name. Answers its inputs, which a subcommand does without.
CLI::Option* AddRunCommand(CLI::App& app, RunArguments& run) {
  app.footer(
      "Stimulus areas of X.txt stand in X.stimareas.tsv beside it.\n"
      "The report goes below DIR into scons-out/opt/tests/auto_experiment_tests.\n"
      "A share of the data files is also taken from TEST_TOTAL_SHARDS and TEST_SHARD_INDEX, or\n"
      "GTEST_TOTAL_SHARDS and GTEST_SHARD_INDEX, counted from 0, unless --partition is given.\n"
      "Exit status: 0 no failing test; 1 some failing test, or a data file that could not be\n"
      "verified to its end; 2 wrong use or wrong input; 3 the report is not well-formed, or\n"
      "results do not fit together; 4 the library does not load or there is no report.");
  AddRunOptions(app, run);
  return app
      .add_option("inputs", run.inputs,
                  "Data files, or folders of which the *.txt files are taken in name order")
      ->type_name("FILE|FOLDER");
}

// What each command is given, filled in as the command line is parsed.
struct AllArguments {
  RunArguments run;
  ListArguments list;
  ExplainArguments explain;
  MergeArguments merge;
  RepairArguments repair;
  CollectArguments collect;
  HistoryArguments history;
  WatchedArguments watched;
  WatchArguments watch;
};

struct Subcommand {
  CLI::App* app;
  std::function<CommandLine()> parsed;  // what it was given
};

template <typename ARGUMENTS>
Subcommand Add(CLI::App* (*add)(CLI::App&, ARGUMENTS&), CLI::App& app, ARGUMENTS& arguments) {
  return {add(app, arguments), [&arguments] { return CommandLine(arguments); }};
}

// In the order of the help.
std::vector<Subcommand> AddSubcommands(CLI::App& app, AllArguments& all) {
  return {Add(AddListCommand, app, all.list),       Add(AddExplainCommand, app, all.explain),
          Add(AddMergeCommand, app, all.merge),     Add(AddRepairCommand, app, all.repair),
          Add(AddCollectCommand, app, all.collect), Add(AddHistoryCommand, app, all.history),
          Add(AddWatchedCommand, app, all.watched), Add(AddWatchCommand, app, all.watch)};
}

}  // namespace

std::variant<CommandLine, ExitStatus> ParseCommandLine(int argc, char** argv) {
  CLI::App app(
      "Hands data files to the data-hook plug-in, as the host does after each experiment, and sums "
      "up the report that the plug-in writes.",
      "verify-datafiles");
  app.set_version_flag("--version", VersionText());
  AllArguments all;
  CLI::Option* const inputs = AddRunCommand(app, all.run);
  const std::vector<Subcommand> subcommands = AddSubcommands(app, all);

  const auto allowSubcommands = [&](bool allowed) {
    for (const Subcommand& one : subcommands) one.app->disabled(!allowed);
  };
  const bool isSubcommand = argc > 1 && std::any_of(subcommands.begin(), subcommands.end(),
                                                    [argv](const Subcommand& one) {
                                                      return one.app->get_name() == argv[1];
                                                    });
  inputs->required(!isSubcommand);
  allowSubcommands(isSubcommand);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& end) {
    allowSubcommands(true);  // the help names them
    return app.exit(end) == 0 ? ExitStatus::NoFailingTest : ExitStatus::WrongUse;
  }
  for (const Subcommand& one : subcommands) {
    if (one.app->parsed()) return one.parsed();
  }
  return all.run;
}

}  // namespace OmbreliaHost
