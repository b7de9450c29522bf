// tabulon-cli: answers questions about experiment data files on the console.
#include <wx/init.h>

#include <algorithm>
#include <exception>
#include <iostream>

#include "Tabulon/cli/Aggregating.h"
#include "Tabulon/cli/CommandLine.h"
#include "Tabulon/cli/Counting.h"
#include "Tabulon/cli/Diff.h"
#include "Tabulon/cli/DrivenTable.h"
#include "Tabulon/cli/ExitStatus.h"
#include "Tabulon/cli/Info.h"
#include "Tabulon/cli/Inputs.h"
#include "Tabulon/cli/Show.h"
#include "Tabulon/cli/Sql.h"
#include "Tabulon/cli/Text.h"

namespace TabulonCli {
namespace {

ExitStatus TellProblems(const DrivenTable& driven) {
  for (const auto& problem : driven.Problems()) {
    const bool isStandardInput = driven.Files().NameOf(problem.filePath) == wxT("-");
    std::cerr << "tabulon-cli: " << (isStandardInput ? "-" : Utf8(problem.filePath)) << ": "
              << Utf8(problem.message) << '\n';
  }
  return driven.Problems().empty() ? ExitStatus::Fine : ExitStatus::NoDataFile;
}

// Runs an action on the table of all files.
template <typename ACTION>
ExitStatus OnTable(const CommandLine& commandLine, ACTION action) {
  const Inputs inputs(commandLine.inputs);
  DrivenTable driven(inputs);
  const ExitStatus status = TellProblems(driven);
  // Where nothing could be read, a column that is not found would only hide the reason.
  if (!driven.Loaded().empty()) action(commandLine, driven);
  return status;
}

// The column or query comes before the files. If a file stands first, says so beside the error.
ExitStatus OnTableWithFirst(const CommandLine& commandLine,
                            void (*action)(const CommandLine&, DrivenTable&),
                            const std::string& what, const std::string& first) {
  try {
    return OnTable(commandLine, action);
  } catch (const RunError& error) {
    std::error_code ignored;
    if (!std::filesystem::exists(first, ignored)) throw;
    throw RunError(error.Status(), std::string(error.what()) + "\nThe " + what +
                                       " comes before the files, and \"" + first +
                                       "\" was taken for it.");
  }
}

ExitStatus Run(const CommandLine& commandLine) {
  switch (commandLine.action) {
    case Action::Show:
      return OnTable(commandLine, Show);
    case Action::Distinct:
      return OnTableWithFirst(commandLine, Distinct, "column", commandLine.columns.front());
    case Action::Count:
      return OnTableWithFirst(commandLine, Count, "column", commandLine.columns.front());
    case Action::Group:
      return OnTable(commandLine, Group);
    case Action::Summary:
      return OnTable(commandLine, Summary);
    case Action::Diff:
      return Diff(commandLine);
    case Action::Sql:
      return OnTableWithFirst(commandLine, Sql, "query", commandLine.query);
    case Action::Info:
      return Info(commandLine, Inputs(commandLine.inputs));
  }
  return ExitStatus::WrongUse;
}

ExitStatus RunProgram(int argc, char** argv) {
  std::ios::sync_with_stdio(false);
  try {
    CommandLine commandLine;
    if (const auto end = ParseCommandLine(argc, argv, commandLine)) return *end;
    // The console's wx: no display is asked for.
    const wxInitializer wx;
    if (!wx.IsOk()) throw RunError(ExitStatus::NoOutput, "wxWidgets cannot be initialised");
    UseUtf8Everywhere();
    const ExitStatus status = Run(commandLine);
    if (!std::cout.flush()) throw RunError(ExitStatus::NoOutput, "the output cannot be written");
    return status;
  } catch (const RunError& error) {
    std::cout.flush();
    std::cerr << "tabulon-cli: " << error.what() << std::endl;
    return error.Status();
  } catch (const std::exception& error) {
    std::cerr << "tabulon-cli: " << error.what() << std::endl;
    return ExitStatus::NoOutput;
  }
}

}  // namespace
}  // namespace TabulonCli

int main(int argc, char** argv) { return static_cast<int>(TabulonCli::RunProgram(argc, argv)); }
