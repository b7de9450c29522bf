// tabulon-cli: shows the merged table of data files on the console.
#include <wx/init.h>

#include <exception>
#include <iostream>

#include "Tabulon/cli/CommandLine.h"
#include "Tabulon/cli/DrivenTable.h"
#include "Tabulon/cli/ExitStatus.h"
#include "Tabulon/cli/Info.h"
#include "Tabulon/cli/Inputs.h"
#include "Tabulon/cli/Printing.h"
#include "Tabulon/cli/Text.h"

namespace TabulonCli {
namespace {

ExitStatus TellProblems(const DrivenTable& driven) {
  for (const auto& problem : driven.Problems()) {
    std::cerr << "tabulon-cli: " << Utf8(problem.filePath) << ": " << Utf8(problem.message) << '\n';
  }
  return driven.Problems().empty() ? ExitStatus::Fine : ExitStatus::NoDataFile;
}

ExitStatus Show(const CommandLine& commandLine, const std::vector<std::filesystem::path>& files) {
  DrivenTable driven(files);
  const ExitStatus status = TellProblems(driven);
  // Where nothing could be read, a column that is not found would only hide the reason.
  if (driven.Table().GetNamesOfActiveFiles().empty()) return status;
  driven.Arrange(commandLine);
  Print(std::cout, Window{driven.Table(), commandLine.rows, !commandLine.flaggedRows.empty()},
        commandLine.format);
  return status;
}

ExitStatus Distinct(const CommandLine& commandLine,
                    const std::vector<std::filesystem::path>& files) {
  DrivenTable driven(files);
  const ExitStatus status = TellProblems(driven);
  if (driven.Table().GetNamesOfActiveFiles().empty()) return status;
  std::vector<wxString> values;
  driven.Table().SelectDistinctPerColumn(driven.Columns().Find(commandLine.distinctColumn), values,
                                         MUExperimentTextReaderMultiFile::ONLY_FULLY_SHOWN_ROWS,
                                         false);
  for (const wxString& value : values) std::cout << Utf8(value) << '\n';
  return status;
}

ExitStatus Run(const CommandLine& commandLine) {
  const std::vector<std::filesystem::path> files = ListFiles(commandLine.files);
  switch (commandLine.action) {
    case Action::Show:
      return Show(commandLine, files);
    case Action::Distinct:
      return Distinct(commandLine, files);
    case Action::Info:
      return PrintInfo(std::cout, files);
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
