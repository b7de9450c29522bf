// verify-datafiles: plays the host's part for data files that are there already.
#include <wx/init.h>

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <variant>

#include "host/commands/CollectCommand.h"
#include "host/commands/ExplainCommand.h"
#include "host/commands/HistoryCommand.h"
#include "host/commands/ListCommand.h"
#include "host/commands/MergeCommand.h"
#include "host/commands/RepairCommand.h"
#include "host/commands/RunCommand.h"
#include "host/commands/WatchCommand.h"
#include "host/commands/WatchedCommand.h"
#include "host/results/ExitStatus.h"
#include "host/results/WideText.h"
#include "host/run/CommandLine.h"

namespace OmbreliaHost {
namespace {

ExitStatus RunCommandOf(const RunArguments& arguments) { return RunRunCommand(arguments); }
ExitStatus RunCommandOf(const ListArguments& arguments) { return RunListCommand(arguments); }
ExitStatus RunCommandOf(const ExplainArguments& arguments) { return RunExplainCommand(arguments); }
ExitStatus RunCommandOf(const MergeArguments& arguments) { return RunMergeCommand(arguments); }
ExitStatus RunCommandOf(const RepairArguments& arguments) { return RunRepairCommand(arguments); }
ExitStatus RunCommandOf(const CollectArguments& arguments) { return RunCollectCommand(arguments); }
ExitStatus RunCommandOf(const HistoryArguments& arguments) { return RunHistoryCommand(arguments); }
ExitStatus RunCommandOf(const WatchedArguments& arguments) { return RunWatchedCommand(arguments); }
ExitStatus RunCommandOf(const WatchArguments& arguments) { return RunWatchCommand(arguments); }

ExitStatus RunProgram(int argc, char** argv) {
  try {
    const std::variant<CommandLine, ExitStatus> parsed = ParseCommandLine(argc, argv);
    if (const ExitStatus* const end = std::get_if<ExitStatus>(&parsed)) return *end;
    // The console's wx: no display is asked for.
    const wxInitializer wx;
    if (!wx.IsOk()) throw RunError(ExitStatus::NoReport, "wxWidgets cannot be initialised");
    ReadFileNamesAsUtf8();
    return std::visit([](const auto& arguments) { return RunCommandOf(arguments); },
                      std::get<CommandLine>(parsed));
  } catch (const RunError& error) {
    std::cerr << "verify-datafiles: " << error.what() << std::endl;
    return error.Status();
  } catch (const std::exception& error) {
    std::cerr << "verify-datafiles: no report: " << error.what() << std::endl;
    return ExitStatus::NoReport;
  }
}

}  // namespace
}  // namespace OmbreliaHost

int main(int argc, char** argv) {
  const int status = static_cast<int>(OmbreliaHost::RunProgram(argc, argv));
#ifdef OMBRELIA_LEAVES_AT_ONCE
  // The exit handlers of some eighty libraries would only clear up what the system takes back anyway.
  std::cout.flush();
  std::cerr.flush();
  std::fflush(nullptr);
  std::_Exit(status);
#else
  return status;
#endif
}
