#include "host/run/CommandLine.h"

#include <CLI/CLI.hpp>
#include <map>
#include <string>

namespace OmbreliaHost {

std::optional<ExitStatus> ParseCommandLine(int argc, char** argv, CommandLine& commandLine) {
  CLI::App app(
      "Hands data files to the data-hook plug-in, as the host does after each experiment, and sums "
      "up "
      "the report that the plug-in writes.",
      "verify-datafiles");
  app.set_version_flag("--version", std::string("verify-datafiles ") + OMBRELIA_VERSION);
  app.footer(
      "Stimulus areas of X.txt stand in X.stimareas.tsv beside it.\n"
      "The report goes below DIR into scons-out/opt/tests/auto_experiment_tests.\n"
      "Exit status: 0 no failing test; 1 some failing test; 2 wrong use or wrong input;\n"
      "3 the report is not well-formed; 4 the library does not load or there is no report.");

  std::string plugin;
  std::string workDir;
  std::string progress = "auto";
  std::vector<std::string> inputs;
  app.add_option("--plugin", plugin, "The plug-in library (default: in ../lib beside this program)")
      ->type_name("PATH");
  app.add_option("--work-dir", workDir, "Working directory of the run")->type_name("DIR");
  app.add_option("--progress", progress,
                 "Show progress on standard error: auto (on a terminal only), always, never")
      ->type_name("WHEN")
      ->check(CLI::IsMember({"auto", "always", "never"}));
  app.add_option("inputs", inputs,
                 "Data files, or folders of which the *.txt files are taken in name order")
      ->type_name("FILE|FOLDER")
      ->required();

  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& end) {
    return app.exit(end) == 0 ? ExitStatus::NoFailingTest : ExitStatus::WrongUse;
  }

  const std::map<std::string, ProgressMode> modes = {{"auto", ProgressMode::Auto},
                                                     {"always", ProgressMode::Always},
                                                     {"never", ProgressMode::Never}};
  commandLine.plugin = plugin;
  commandLine.workDir = workDir;
  commandLine.progress = modes.at(progress);
  commandLine.inputs.assign(inputs.begin(), inputs.end());
  return std::nullopt;
}

}  // namespace OmbreliaHost
