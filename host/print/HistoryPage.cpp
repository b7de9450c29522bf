#include "host/print/HistoryPage.h"

#include <algorithm>

#include "host/print/HistoryWords.h"
#include "host/print/HtmlPage.h"
#include "host/print/HtmlTable.h"
#include "host/print/HtmlText.h"
#include "host/print/SvgPlots.h"
#include "host/print/VisibleText.h"
#include "host/results/ResultNames.h"

namespace OmbreliaHost {

namespace {

using State = ExperimentHistory::State;

constexpr std::size_t MOST_RUNS = 100;  // in the table of an experiment

std::string Text(const std::string& text) { return HtmlText(LineShown(text)); }

std::string Paragraph(const std::string& text) { return "<p>" + Text(text) + "</p>\n"; }

// The class of the style sheet for an outcome.
std::string ClassOf(Outcome outcome) {
  if (outcome == Outcome::Passed) return "passed";
  if (outcome == Outcome::Tolerated) return "tolerated";
  return outcome == Outcome::Failed ? "failed" : "gone";
}

std::string ClassOf(State state) {
  return state == State::NewlyBroken || state == State::StillBroken ? "failed" : "passed";
}

std::string Badge(const std::string& colour, const std::string& word) {
  return "<span" + HtmlAttribute("class", "badge " + colour) + ">" + Text(word) + "</span>";
}

std::string SeriesMarkup(const char* name, const ExperimentHistory::Series& series) {
  if (series.numbers.empty()) return std::string();
  std::vector<SeriesPoint> points;
  for (const ExperimentHistory::Number& number : series.numbers)
    points.push_back({number.value, number.good});
  std::optional<PlotBounds> bounds;
  if (series.bound) bounds = PlotBounds{series.bound->min, series.bound->max};
  return "<div><dt>" + std::string(name) + "</dt><dd>" + PlotOfSeries(name, "ms", points, bounds) +
         " " + Text(WordsOnSeries(series)) + "</dd></div>\n";
}

std::string TestsOf(const std::vector<std::string>& tests) {
  std::string names;
  for (const std::string& test : tests) names += (names.empty() ? "" : ", ") + test;
  return names;
}

std::string RunsMarkup(const ExperimentHistory& history) {
  const std::size_t shown = std::min(history.runs.size(), MOST_RUNS);
  HtmlTable table("The last runs of " + LineShown(history.experiment) + ", the latest first");
  table.AddColumn("Run", HtmlTable::Align::Left);
  table.AddColumn("Host", HtmlTable::Align::Left);
  table.AddColumn("Outcome", HtmlTable::Align::Left);
  table.AddColumn("Failing tests", HtmlTable::Align::Left);
  for (std::size_t i = 0; i < shown; ++i) {
    const ExperimentHistory::Run& run = history.runs[history.runs.size() - 1 - i];
    table.AddRow({Text(run.time), Text(run.host), Badge(ClassOf(run.outcome), NameOf(run.outcome)),
                  Text(TestsOf(run.failed))},
                 "", true);
  }
  std::string summary =
      std::to_string(history.runs.size()) + (history.runs.size() == 1 ? " run" : " runs");
  if (shown < history.runs.size()) summary += ", the last " + std::to_string(shown);
  return "<details><summary>" + Text(summary) + "</summary>\n" + table.Markup() + "</details>\n";
}

std::string CardOf(const ExperimentHistory& history, const std::string& id) {
  std::string card = "<article" + HtmlAttribute("class", "card") + HtmlAttribute("id", id) +
                     "><h3>" + Badge(ClassOf(history.state), NameOf(history.state)) + " " +
                     Text(history.experiment) + "</h3>\n" + Paragraph(WordsOnState(history));
  const std::string series =
      SeriesMarkup("Duration", history.duration) + SeriesMarkup("Expansion", history.expansion);
  if (!series.empty()) card += "<dl class=\"times\">\n" + series + "</dl>\n";
  if (!history.bounds.empty()) {
    card += "<ul>\n";
    for (const ExperimentHistory::Bound& bound : history.bounds)
      card += "<li>" + Text(WordsOnBound(bound)) + "</li>\n";
    card += "</ul>\n";
  }
  return card + RunsMarkup(history) + "</article>\n";
}

std::string ChancesMarkup(const HistorySummary& summary) {
  std::string items;
  for (const ExperimentHistory& history : summary.experiments) {
    for (const ExperimentHistory::Chances& chances : history.chances) {
      const bool look = chances.count.verdict == ChanceVerdict::LookAtIt;
      items += "<li>" + Text(history.experiment + ", " + chances.chance.test + ": ") + "<b>" +
               Text(chances.count.words) + "</b>" + (look ? " " + Badge("failed", "look") : "") +
               "<br/><span class=\"muted small\">" + Text(WordsOnProbability(chances)) +
               "</span></li>\n";
    }
  }
  return items.empty() ? Paragraph("No test here fails by chance.") : "<ul>\n" + items + "</ul>\n";
}

std::string TotalsMarkup(const HistorySummary& summary) {
  std::string totals = "<dl class=\"totals\">\n";
  for (const State state : {State::NewlyBroken, State::StillBroken, State::Mended, State::Good}) {
    const std::size_t count = CountExperiments(summary, state);
    totals += "<div" + HtmlAttribute("class", count > 0 ? ClassOf(state) : "") + "><dt>" +
              NameOf(state) + "</dt><dd>" + std::to_string(count) + "</dd></div>\n";
  }
  return totals + "</dl>\n";
}

}  // namespace

void PrintHistoryPage(std::ostream& out, const HistorySummary& summary, const std::string& name) {
  HtmlPage page;
  page.title = "History of the regression experiments";
  page.lead = "<p class=\"verdict\">" + Text(WordsOnTotals(summary)) + "</p>\n" +
              Paragraph("Of " + name + ", " + std::to_string(summary.lines) + " lines.");
  page.sections.push_back({"page:totals", "Totals", TotalsMarkup(summary)});
  page.sections.push_back({"page:chance", "Failures against chance", ChancesMarkup(summary)});
  HtmlIds ids;
  std::string cards;
  for (const ExperimentHistory& history : summary.experiments)
    cards += CardOf(history, ids.Next(history.experiment));
  page.sections.push_back({"page:experiments", "Experiments", cards});
  if (!summary.skipped.empty()) {
    std::string skipped = "<ul>\n";
    for (const std::string& words : summary.skipped) skipped += "<li>" + Text(words) + "</li>\n";
    page.sections.push_back({"page:skipped", "Lines that were skipped", skipped + "</ul>\n"});
  }
  page.Print(out);
}

}  // namespace OmbreliaHost
