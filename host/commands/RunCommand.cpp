#include "host/commands/RunCommand.h"

#include <algorithm>
#include <iostream>
#include <system_error>
#include <vector>

#include "host/print/SummaryPrinter.h"
#include "host/results/ReportReader.h"
#include "host/results/WideText.h"
#include "host/run/AssertionForwarder.h"
#include "host/run/DatafileList.h"
#include "host/run/PluginLibrary.h"
#include "host/run/Progress.h"
#include "host/run/ReportFile.h"
#include "host/run/StimulusAreaFile.h"

namespace fs = std::filesystem;

namespace OmbreliaHost {

namespace {

void EnterWorkingDirectory(const fs::path& directory) {
  if (directory.empty()) return;
  std::error_code error;
  fs::current_path(directory, error);
  if (error) {
    throw RunError(ExitStatus::WrongUse,
                   directory.string() + ": not usable as working directory: " + error.message());
  }
}

}  // namespace

ExitStatus RunRunCommand(const RunArguments& arguments) {
  // Everything that names a file is looked up before the working directory changes, and every input is
  // read before anything runs.
  const fs::path plugin =
      arguments.plugin.empty() ? DefaultPluginLibrary() : fs::absolute(arguments.plugin);
  const std::vector<fs::path> datafiles = ListDatafiles(arguments.inputs);
  std::vector<std::vector<Ombrelia::StimAreaData>> areas;
  areas.reserve(datafiles.size());
  for (const fs::path& datafile : datafiles) areas.push_back(ReadStimulusAreas(datafile));
  EnterWorkingDirectory(arguments.workDir);

  ReportFile report;
  {
    AssertionForwarder assertions;
    const PluginLibrary library(plugin);
    assertions.ForwardTo(&library.Plugin());
    Progress progress(arguments.progress, datafiles.size());
    for (std::size_t i = 0; i < datafiles.size(); ++i) {
      progress.Next(datafiles[i]);
      library.Plugin().PerformPostProcessing(TextOfPath(datafiles[i]), areas[i]);
    }
    // A result after the flush would start a report that replaces this one.
    assertions.ForwardTo(nullptr);
    report.RememberStateBeforeWriting();
    library.Plugin().FlushTestOutput();
    report.RequireWritten();
  }

  const std::vector<TestResult> results = ReadReport(report.Path(), datafiles);
  SummaryPrinter(std::cout).Print(results, datafiles, report.Path());
  const bool anyFailed = std::any_of(results.begin(), results.end(),
                                     [](const TestResult& result) { return result.failed; });
  return anyFailed ? ExitStatus::SomeFailingTest : ExitStatus::NoFailingTest;
}

}  // namespace OmbreliaHost
