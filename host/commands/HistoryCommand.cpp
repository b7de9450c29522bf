#include "host/commands/HistoryCommand.h"

#include <iostream>
#include <nlohmann/json.hpp>
#include <optional>

#include "host/print/HistoryPage.h"
#include "host/print/HistoryPrinter.h"
#include "host/print/VisibleText.h"
#include "host/results/HistorySummary.h"
#include "host/results/ResultsJson.h"
#include "host/run/WholeFile.h"

namespace OmbreliaHost {

ExitStatus RunHistoryCommand(const HistoryArguments& arguments) {
  const std::string name = PathShown(arguments.file.string());
  const HistoryContent content = HistoryFile(arguments.file, HistoryFile::Use::Read).Read();
  for (const std::string& words : content.skipped)
    std::cerr << "verify-datafiles: " << name << ": " << LineShown(words) << std::endl;
  if (content.lines.empty())
    throw RunError(ExitStatus::WrongUse,
                   name + ": the history has no line; runs add to it with --history");
  const HistorySummary summary = SummaryOf(content, arguments.only);
  if (summary.experiments.empty())
    throw RunError(ExitStatus::WrongUse, name + ": no experiment of the history matches");

  std::optional<WholeFile> json;
  if (!arguments.json.empty()) json.emplace(arguments.json);
  std::optional<WholeFile> html;
  if (!arguments.html.empty()) html.emplace(arguments.html);
  HistoryPrinter(std::cout).Print(summary);
  if (json) {
    json->Stream() << JsonText(ToJson(summary)) << "\n";
    json->Close();
  }
  if (html) {
    PrintHistoryPage(html->Stream(), summary, name);
    html->Close();
  }
  return ExitStatus::NoFailingTest;
}

}  // namespace OmbreliaHost
