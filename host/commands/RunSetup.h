// What the commands that run the plug-in have in common.
#ifndef OMBRELIA_HOST_COMMANDS_RUNSETUP_H
#define OMBRELIA_HOST_COMMANDS_RUNSETUP_H

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "host/print/TerminalPrinter.h"
#include "host/results/RunResults.h"
#include "host/run/CommandLine.h"
#include "host/run/DatafileList.h"
#include "host/run/Supervisor.h"

namespace OmbreliaHost {

// Empty: the present one stays. Ends the run (WrongUse) if it cannot be entered.
void EnterWorkingDirectory(const std::filesystem::path& directory);

// As in 2026-03-01T12:00:00Z.
std::string UtcNow();

// The second verification of a data file, in a child process.
DatafileResult VerifyAgain(const Datafile& datafile, std::optional<MachineKind> machine);

// Is a good data file of the experiment verified a second time, too? A page and a history need bounds and
// rows of all; stored results need the rows on which a probability depends.
bool AsksForAll(const OutputArguments& output, const std::string& experiment);

// The version of the project, and the library that was built of it.
std::string VersionOfVerifiers(const std::filesystem::path& library);

class VerdictsOnTheScreen : public VerdictListener {
 public:
  // printer: borrowed.
  explicit VerdictsOnTheScreen(TerminalPrinter& printer) : m_printer(printer) {}
  void OnBeforeFirst(const std::vector<TestOutcome>& tests) override {
    m_printer.PrintBeforeFirst(tests);
  }
  void OnVerdict(const DatafileResult& datafile) override { m_printer.PrintDatafile(datafile); }

 private:
  TerminalPrinter& m_printer;
};

}  // namespace OmbreliaHost

#endif
