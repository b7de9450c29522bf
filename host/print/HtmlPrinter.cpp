#include "host/print/HtmlPrinter.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "host/print/HtmlPage.h"
#include "host/print/HtmlTable.h"
#include "host/print/HtmlText.h"
#include "host/print/PageAssets.h"
#include "host/print/SvgPlots.h"
#include "host/print/TestDescription.h"
#include "host/print/VisibleText.h"
#include "host/results/ResultNames.h"
#include "host/results/ResultSummary.h"
#include "host/results/ResultsJson.h"
#include "host/results/RunOverview.h"

namespace OmbreliaHost {

namespace {

constexpr std::size_t MARKED_UP_DATAFILES = 100;  // the script has the same number
constexpr std::size_t MOST_EVIDENCE = 16u << 20;  // bytes of markup
constexpr std::size_t MOST_TESTS = 50;            // of a data file, with their evidence
constexpr std::size_t MOST_NAMES = 20;            // of its other failing tests
constexpr std::size_t MOST_LINES = 20;            // of one text
constexpr std::size_t MOST_UNKNOWN_EXPERIMENTS = 100;
constexpr std::size_t MOST_IN_BRIEF = 20;  // data files that did not pass

constexpr std::array<Outcome, 8> OUTCOMES = {
    Outcome::Failed,   Outcome::Unreadable, Outcome::Unknown,   Outcome::Crashed,
    Outcome::TimedOut, Outcome::Lost,       Outcome::Tolerated, Outcome::Passed};

// The class of the style sheet.
const char* ClassOf(Outcome outcome) {
  switch (outcome) {
    case Outcome::Passed:
      return "passed";
    case Outcome::Tolerated:
      return "tolerated";
    case Outcome::Crashed:
    case Outcome::TimedOut:
    case Outcome::Lost:
      return "gone";
    case Outcome::Failed:
    case Outcome::Unreadable:
    case Outcome::Unknown:
      break;
  }
  return "failed";
}

// A sign beside the outcome's word, for the eye alone.
std::string SignOf(Outcome outcome) {
  const char* sign = "\xE2\x9C\x95";  // a cross
  if (outcome == Outcome::Passed) sign = "\xE2\x9C\x93";
  if (outcome == Outcome::Tolerated) sign = "\xE2\x89\x88";
  if (outcome == Outcome::Unreadable || outcome == Outcome::Unknown) sign = "?";
  if (ClassOf(outcome) == std::string("gone")) sign = "!";
  return "<span aria-hidden=\"true\">" + std::string(sign) + "</span> ";
}

std::string BadgeOf(Outcome outcome) {
  return "<span class=\"badge\">" + SignOf(outcome) + HtmlText(NameOf(outcome)) + "</span>";
}

std::string Count(std::size_t number, const std::string& noun) {
  return NumberWithCommas(static_cast<long>(number)) + " " + noun + (number == 1 ? "" : "s");
}

std::string Seconds(double seconds) {
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), seconds < 10 ? "%.3f s" : "%.1f s", seconds);
  return text.data();
}

std::string Paragraph(const std::string& text, const std::string& classes = "") {
  const std::string start = classes.empty() ? "<p>" : "<p" + HtmlAttribute("class", classes) + ">";
  return start + HtmlText(text) + "</p>\n";
}

// The lines of a text that came from a data file; nothing for no text.
std::string Lines(const std::string& text, const std::string& classes) {
  if (text.empty()) return std::string();
  const std::vector<std::string> lines = LinesShown(text);
  std::string html = classes.empty() ? "<p>" : "<p" + HtmlAttribute("class", classes) + ">";
  for (std::size_t i = 0; i < std::min(lines.size(), MOST_LINES); ++i) {
    html += (i == 0 ? "" : "<br/>") + HtmlText(lines[i]);
  }
  if (lines.size() > MOST_LINES) {
    html += "<br/>and " + Count(lines.size() - MOST_LINES, "further line");
  }
  return html + "</p>\n";
}

// rows: which of them. The deciding ones among others have a sign of their own.
std::string TableMarkup(const DescriptionPart& part, const std::string& caption,
                        bool onlyDeciding) {
  const std::vector<std::vector<std::string>>& rows = part.table->Rows();
  const bool marked =
      !onlyDeciding && rows.size() > 2 &&
      std::find(part.decides.begin(), part.decides.end(), true) != part.decides.end();
  HtmlTable table(caption);
  if (marked) table.AddColumn("", HtmlTable::Align::Left);
  for (std::size_t i = 0; i < rows.front().size(); ++i) {
    table.AddColumn(rows.front()[i], part.table->Aligns()[i] == TextTable::Align::Right
                                         ? HtmlTable::Align::Right
                                         : HtmlTable::Align::Left);
  }
  for (std::size_t i = 1; i < rows.size(); ++i) {
    const bool decides = part.decides[i - 1];
    if (onlyDeciding && !decides) continue;
    std::vector<std::string> cells;
    if (marked) {
      cells.push_back(decides ? "<span aria-hidden=\"true\">\xE2\x96\xB6</span>"
                                "<span class=\"unseen-text\">the test failed here</span>"
                              : "");
    }
    for (const std::string& cell : rows[i]) cells.push_back(HtmlCell(cell));
    table.AddRow(cells, decides ? "decides" : "");
  }
  return table.Markup();
}

std::string ContextMarkup(const DescriptionPart& part) {
  const auto deciding = std::count(part.decides.begin(), part.decides.end(), true);
  const std::size_t others = part.decides.size() - static_cast<std::size_t>(deciding);
  if (deciding == 0 || others == 0) return TableMarkup(part, "Rows of the data file", false);
  return TableMarkup(part, "The row at which the test failed", true) + "<details><summary>" +
         Count(others, "row") + " around it</summary>" +
         TableMarkup(part, "Rows around the one at which the test failed", false) + "</details>\n";
}

std::string EvidenceMarkup(const TestOutcome& test, MachineKind machine) {
  std::string html;
  for (const DescriptionPart& part : DescribeEvidenceInParts(test, machine)) {
    if (part.isScale) {
      html += PlotOfValue("Measured", "ms", test.bound->actual,
                          PlotBounds{test.bound->min, test.bound->max}) +
              "\n";
    } else if (!part.table) {
      html += Paragraph(part.text);
    } else if (part.isContext) {
      html += ContextMarkup(part);
    } else {
      html += TableMarkup(part, "Cells of the data file", false);
    }
  }
  return html;
}

std::string TestMarkup(const TestOutcome& test, MachineKind machine) {
  std::string html = "<div" + HtmlAttribute("class", std::string("test ") + ClassOf(test.outcome)) +
                     "><h4><span class=\"name\">" + HtmlText(LinesShown(test.name).front()) +
                     "</span> " + BadgeOf(test.outcome);
  if (const std::optional<long> line = LineOf(test)) {
    html += " <span class=\"muted small\">line " + std::to_string(*line) + "</span>";
  }
  html += "</h4>\n";
  if (!test.chance.empty()) html += Lines("Against chance: " + test.chance + ".", "");
  html += Lines(test.subject, "") + EvidenceMarkup(test, machine) + Lines(test.message, "muted");
  if (test.evidence.kind == Evidence::Kind::None) html += Lines(test.location, "muted small");
  return html + "</div>\n";
}

std::vector<const TestOutcome*> NotPassed(const std::vector<TestOutcome>& tests) {
  std::vector<const TestOutcome*> notPassed;
  for (const TestOutcome& test : tests) {
    if (test.outcome != Outcome::Passed) notPassed.push_back(&test);
  }
  return notPassed;
}

std::string TestsMarkup(const std::vector<TestOutcome>& tests, MachineKind machine,
                        bool withEvidence) {
  const std::vector<const TestOutcome*> notPassed = NotPassed(tests);
  const std::size_t shown = withEvidence ? std::min(notPassed.size(), MOST_TESTS) : 0;
  std::string html;
  for (std::size_t i = 0; i < shown; ++i) html += TestMarkup(*notPassed[i], machine);
  if (shown == notPassed.size()) return html;
  const std::size_t named = std::min(notPassed.size(), shown + MOST_NAMES);
  html +=
      "<div class=\"test\"><p>Without evidence here, since there is too much of it; the results "
      "that --json writes hold all:</p><ul>";
  for (std::size_t i = shown; i < named; ++i) {
    html += "<li>" + HtmlText(LinesShown(notPassed[i]->name).front()) + " " +
            SignOf(notPassed[i]->outcome) + HtmlText(NameOf(notPassed[i]->outcome)) + "</li>";
  }
  if (named < notPassed.size()) {
    html += "<li>and " + Count(notPassed.size() - named, "further test") + "</li>";
  }
  return html + "</ul></div>\n";
}

std::string TimeMarkup(const std::string& name, const std::optional<MeasuredTime>& time) {
  if (!time) return std::string();
  const std::string value = NumberWithCommas(time->milliseconds) + " ms";
  std::string html = "<div><dt>" + name + "</dt><dd>";
  if (!time->bound) return html + value + "</dd></div>";
  const BoundCheck& bound = *time->bound;
  html +=
      PlotOfValue(name, "ms", bound.actual, PlotBounds{bound.min, bound.max}) + "<span>" + value;
  const bool within = bound.actual >= bound.min && bound.actual <= bound.max;
  return html + ", <span class=\"muted\">" +
         (within                     ? "within "
          : bound.actual < bound.min ? "below "
                                     : "above ") +
         NumberWithCommas(bound.min) + " to " + NumberWithCommas(bound.max) +
         "</span></span></dd></div>";
}

std::string TimesMarkup(const DatafileResult& datafile) {
  const std::string times =
      TimeMarkup("Duration", DurationOf(datafile)) + TimeMarkup("Expansion", ExpansionOf(datafile));
  return times.empty() ? times : "<dl class=\"times\">" + times + "</dl>\n";
}

std::string CountsText(const std::vector<TestOutcome>& tests) {
  const TestCounts counts = CountTests(tests);
  std::string text = "tests: " + std::to_string(counts.passed) + " passed";
  if (counts.failed > 0) text += ", " + std::to_string(counts.failed) + " failed";
  if (counts.tolerated > 0) text += ", " + std::to_string(counts.tolerated) + " tolerated";
  return text;
}

// A long name may go on in a new line behind an underscore.
std::string ExperimentMarkup(const std::string& experiment) {
  if (experiment.empty()) return "(no name)";
  std::string html;
  for (const char c : HtmlText(LinesShown(experiment).front())) {
    html += c;
    if (c == '_') html += "<wbr/>";
  }
  return html;
}

std::string LossMarkup(const DatafileResult& datafile) {
  std::string html = Paragraph(DescribeLoss(datafile));
  const std::vector<std::string>& lines = datafile.loss->lastLines;
  if (lines.empty()) return html;
  html += Paragraph("The last lines on its standard error:", "muted") + "<pre>";
  for (const std::string& line : lines) html += HtmlText(LinesShown(line).front()) + "\n";
  return html + "</pre>\n";
}

// What an experiment proves about the host; a failing data file does not prove it.
std::string ProofMarkup(Outcome outcome, const std::string& proves) {
  const bool proven = outcome == Outcome::Passed || outcome == Outcome::Tolerated;
  return (proven ? "" : "<i>Not proven:</i> ") + HtmlText(proves);
}

std::string CardMarkup(const DatafileResult& datafile, const std::string& id,
                       const std::string& proves, MachineKind machine, bool withEvidence) {
  std::string html =
      "<article" + HtmlAttribute("class", std::string("card ") + ClassOf(datafile.outcome)) +
      HtmlAttribute("id", id) + " tabindex=\"-1\"" +
      HtmlAttribute("data-outcome", NameOf(datafile.outcome)) + ">\n<h3><a class=\"name\"" +
      HtmlAttribute("href", "#" + id) + ">" + ExperimentMarkup(datafile.experiment) + "</a> " +
      BadgeOf(datafile.outcome) + "</h3>\n";
  if (datafile.outcome != Outcome::Passed && !proves.empty()) {
    html += "<p>" + ProofMarkup(datafile.outcome, proves) + "</p>\n";
  }
  std::string place = PathShown(datafile.path.string());
  if (!datafile.tests.empty()) place += ", " + CountsText(datafile.tests);
  html += Paragraph(place, "muted small");
  if (datafile.loss) html += LossMarkup(datafile);
  for (const std::string& remark : datafile.remarks) html += Lines(remark, "");
  return html + TimesMarkup(datafile) + TestsMarkup(datafile.tests, machine, withEvidence) +
         "</article>\n";
}

class PageMaker {
 public:
  explicit PageMaker(const RunResults& results)
      : m_results(results),
        m_overview(OverviewOf(results)),
        m_ids(results.datafiles.size()),
        m_proves(results.datafiles.size()) {
    HtmlIds ids;
    for (const std::size_t i : m_overview.order) {
      m_ids[i] = ids.Next(results.datafiles[i].experiment);
    }
    for (const FamilyOverview& family : m_overview.families) {
      for (const ExperimentOverview& experiment : family.experiments) {
        for (const std::size_t i : experiment.datafiles) m_proves[i] = experiment.proves;
      }
    }
  }

  HtmlPage Page() {
    HtmlPage page;
    page.title = "Verified data files";
    page.lead = Verdict();
    page.sections = {{"page:summary", "Summary", Summary()},
                     {"page:experiments", "Experiments", Experiments()},
                     {"page:datafiles", "Data files", Datafiles()}};
    if (!m_further.empty()) page.data = JsonText(m_further, -1);
    page.script = RESULTS_PAGE_SCRIPT;
    return page;
  }

 private:
  std::string CountsOfNotPassed() const {
    std::string text;
    for (const Outcome outcome : OUTCOMES) {
      const std::size_t count = CountDatafiles(m_results, outcome);
      if (count == 0 || outcome == Outcome::Passed) continue;
      text += (text.empty() ? "" : ", ") + NumberWithCommas(static_cast<long>(count)) + " " +
              NameOf(outcome);
    }
    return text;
  }

  // The run's failures include the plug-in's own.
  Outcome OutcomeOfAll() const {
    if (ExitStatusOf(m_results, true) != ExitStatus::NoFailingTest) return Outcome::Failed;
    return ExitStatusOf(m_results, false) != ExitStatus::NoFailingTest ? Outcome::Tolerated
                                                                       : Outcome::Passed;
  }

  std::string Verdict() const {
    const std::size_t all = m_results.datafiles.size();
    const std::size_t passed = CountDatafiles(m_results, Outcome::Passed);
    std::string text =
        all == 0 ? "No data file was verified."
        : passed == all
            ? (all == 1 ? "The data file passed." : "All " + Count(all, "data file") + " passed.")
            : NumberWithCommas(static_cast<long>(all - passed)) + " of " + Count(all, "data file") +
                  " did not pass: " + CountsOfNotPassed() + ".";
    if (!NotPassed(m_results.beforeFirst).empty()) text += " The plug-in itself failed.";
    if (!m_results.faults.empty()) text += " The results are not whole.";
    if (m_results.tolerance && m_results.tolerance->state == ToleranceBudget::State::Blown)
      text += " Chance does not explain the tolerated failures.";
    return "<p" + HtmlAttribute("class", std::string("verdict ") + ClassOf(OutcomeOfAll())) + ">" +
           SignOf(OutcomeOfAll()) + HtmlText(text) + "</p>\n";
  }

  static std::string Total(const std::string& what, std::size_t number, const char* ownClass) {
    return "<div" + HtmlAttribute("class", ownClass) + "><dt>" + what + "</dt><dd>" +
           NumberWithCommas(static_cast<long>(number)) + "</dd></div>";
  }

  std::string Totals() const {
    std::string html = "<h3>Data files</h3>\n<dl class=\"totals\">" +
                       Total("in all", m_results.datafiles.size(), "");
    for (const Outcome outcome : OUTCOMES) {
      const std::size_t count = CountDatafiles(m_results, outcome);
      const bool always =
          outcome == Outcome::Failed || outcome == Outcome::Tolerated || outcome == Outcome::Passed;
      if (count > 0 || always) {
        html += Total(SignOf(outcome) + NameOf(outcome), count, count > 0 ? ClassOf(outcome) : "");
      }
    }
    const TestCounts counts = CountTests(m_results);
    html += "</dl>\n<h3>Tests</h3>\n<dl class=\"totals\">" + Total("in all", counts.All(), "");
    const auto total = [&html](Outcome outcome, std::size_t count) {
      html += Total(SignOf(outcome) + NameOf(outcome), count, count > 0 ? ClassOf(outcome) : "");
    };
    total(Outcome::Failed, counts.failed);
    total(Outcome::Tolerated, counts.tolerated);
    total(Outcome::Passed, counts.passed);
    return html + "</dl>\n";
  }

  static std::string Fact(const std::string& what, const std::string& text) {
    return "<dt>" + what + "</dt><dd>" + HtmlText(text) + "</dd>";
  }

  // What did not pass, and what is not proven by that.
  std::string InBrief() const {
    const std::size_t notPassed =
        m_results.datafiles.size() - CountDatafiles(m_results, Outcome::Passed);
    if (notPassed == 0) return std::string();
    std::string html = "<h3>Not passed</h3>\n<ul class=\"brief\">\n";
    for (std::size_t place = 0; place < std::min(notPassed, MOST_IN_BRIEF); ++place) {
      const std::size_t i = m_overview.order[place];
      const DatafileResult& datafile = m_results.datafiles[i];
      html += "<li" + HtmlAttribute("class", ClassOf(datafile.outcome)) + "><a class=\"name\"" +
              HtmlAttribute("href", "#" + m_ids[i]) + ">" + ExperimentMarkup(datafile.experiment) +
              "</a> " + BadgeOf(datafile.outcome) +
              (m_proves[i].empty() ? "" : "<br/>" + ProofMarkup(datafile.outcome, m_proves[i])) +
              "</li>\n";
    }
    if (notPassed > MOST_IN_BRIEF) {
      html += "<li class=\"absent\">and <a href=\"#page:datafiles\">" +
              NumberWithCommas(static_cast<long>(notPassed - MOST_IN_BRIEF)) + " more</a></li>\n";
    }
    return html + "</ul>\n";
  }

  std::string Summary() const {
    std::string html = Totals() + InBrief() + "<h3>Run</h3>\n<dl class=\"facts\">" +
                       Fact("Machine", NameOf(m_results.machine) + ", whose bounds applied");
    if (!m_results.started.empty()) html += Fact("Started", LineShown(m_results.started));
    html += Fact("Took", Seconds(m_results.seconds));
    if (m_results.shard) {
      html += Fact("Shard", std::to_string(m_results.shard->index) + " of " +
                                std::to_string(m_results.shard->count));
    }
    for (const std::filesystem::path& report : m_results.reports) {
      html += Fact("Report", PathShown(report.string()));
    }
    html += "</dl>\n";
    if (!m_results.faults.empty()) {
      html += "<div class=\"card gone\"><h3>Why the results are not whole</h3>\n";
      for (const std::string& fault : m_results.faults) html += Lines(fault, "");
      html += "</div>\n";
    }
    if (m_results.tolerance && m_results.tolerance->state != ToleranceBudget::State::Kept) {
      const bool blown = m_results.tolerance->state == ToleranceBudget::State::Blown;
      html += "<div class=\"card " + std::string(blown ? "failed" : "tolerated") +
              "\"><h3>Tolerated failures and chance</h3>\n";
      for (const std::string& words : m_results.tolerance->words) html += Lines(words, "");
      html += "</div>\n";
    }
    if (!NotPassed(m_results.beforeFirst).empty()) {
      html += "<div class=\"card failed\"><h3>The plug-in itself, before any data file</h3>\n" +
              TestsMarkup(m_results.beforeFirst, m_results.machine, true) + "</div>\n";
    }
    return html;
  }

  std::string TileMarkup(const ExperimentOverview& experiment) const {
    const std::string name = ExperimentMarkup(experiment.experiment);
    std::string html;
    if (experiment.outcome) {
      html = "<li" + HtmlAttribute("class", ClassOf(*experiment.outcome)) + "><a class=\"name\"" +
             HtmlAttribute("href", "#" + m_ids[experiment.datafiles.front()]) + ">" + name +
             "</a> " + BadgeOf(*experiment.outcome);
    } else {
      html = "<li class=\"absent\"><span class=\"name\">" + name +
             "</span> <span class=\"badge\">not in this run</span>";
    }
    if (experiment.datafiles.size() > 1) {
      html +=
          Paragraph(Count(experiment.datafiles.size(), "data file") + ", of which " +
                    NumberWithCommas(static_cast<long>(experiment.notPassed)) + " did not pass");
    }
    if (!experiment.proves.empty()) {
      html += "<p class=\"muted\">" +
              ProofMarkup(experiment.outcome.value_or(Outcome::Passed), experiment.proves) +
              "</p>\n";
    }
    return html + "</li>\n";
  }

  // The heading says at once whether one must look below it.
  static std::string HeadingOf(const FamilyOverview& family) {
    std::size_t notPassed = 0;
    std::size_t absent = 0;
    for (const ExperimentOverview& experiment : family.experiments) {
      if (!experiment.outcome) ++absent;
      if (experiment.notPassed > 0) ++notPassed;
    }
    std::string text = Count(family.experiments.size(), "experiment");
    if (notPassed > 0) text += ", " + std::to_string(notPassed) + " not passed";
    if (absent > 0) text += ", " + std::to_string(absent) + " not in this run";
    return "<h3>" + HtmlText(family.name) + " <span class=\"muted small\">" + HtmlText(text) +
           "</span></h3>\n";
  }

  std::string Experiments() const {
    std::string html = Paragraph(
        "All experiments that have a verifier, by the words of their names, with what each "
        "proves about the host.",
        "muted");
    for (const FamilyOverview& family : m_overview.families) {
      html += HeadingOf(family) + "<ul class=\"tiles\">\n";
      for (const ExperimentOverview& experiment : family.experiments) {
        html += TileMarkup(experiment);
      }
      html += "</ul>\n";
    }
    const std::vector<ExperimentOverview>& others = m_overview.withoutVerifier;
    if (others.empty()) return html;
    html += HeadingOf({"Without a verifier", others}) + "<ul class=\"tiles\">\n";
    for (std::size_t i = 0; i < std::min(others.size(), MOST_UNKNOWN_EXPERIMENTS); ++i) {
      html += TileMarkup(others[i]);
    }
    if (others.size() > MOST_UNKNOWN_EXPERIMENTS) {
      html += "<li class=\"absent\">and " +
              NumberWithCommas(static_cast<long>(others.size() - MOST_UNKNOWN_EXPERIMENTS)) +
              " more</li>\n";
    }
    return html + "</ul>\n";
  }

  std::string Controls() const {
    std::string html =
        "<form id=\"page:controls\" class=\"controls\" role=\"search\" aria-label=\"Data files\" "
        "hidden=\"hidden\">\n<label for=\"page:search\">Search</label>\n<input type=\"search\" "
        "id=\"page:search\" autocomplete=\"off\" aria-describedby=\"page:hint\"/>\n"
        "<p id=\"page:hint\" class=\"muted small\">All that is told of a data file: names, tests, "
        "cells. Several words must all be there.</p>\n<fieldset><legend>Outcome</legend><div "
        "class=\"chips\">";
    for (const Outcome outcome : OUTCOMES) {
      const std::size_t count = CountDatafiles(m_results, outcome);
      if (count == 0) continue;
      html += "<label" + HtmlAttribute("class", ClassOf(outcome)) + "><input type=\"checkbox\"" +
              HtmlAttribute("value", NameOf(outcome)) + "/><span>" + SignOf(outcome) +
              NameOf(outcome) + " (" + NumberWithCommas(static_cast<long>(count)) +
              ")</span></label>";
    }
    return html + "</div></fieldset>\n<p id=\"page:status\" role=\"status\" class=\"small\">" +
           HtmlText(Count(m_results.datafiles.size(), "data file")) +
           ", those that did not pass first</p>\n</form>\n";
  }

  // Fills what the script shows page by page.
  std::string Datafiles() {
    std::string list;
    std::size_t bytes = 0;
    std::size_t furtherNotPassed = 0;
    m_further = nlohmann::json::array();
    for (std::size_t place = 0; place < m_overview.order.size(); ++place) {
      const std::size_t i = m_overview.order[place];
      const DatafileResult& datafile = m_results.datafiles[i];
      std::string card =
          CardMarkup(datafile, m_ids[i], m_proves[i], m_results.machine, bytes < MOST_EVIDENCE);
      bytes += card.size();
      if (place < MARKED_UP_DATAFILES) {
        list += card;
        continue;
      }
      if (datafile.outcome != Outcome::Passed) ++furtherNotPassed;
      m_further.push_back({m_ids[i], NameOf(datafile.outcome), std::move(card)});
    }
    std::string html = Controls();
    if (CountDatafiles(m_results, Outcome::Passed) < m_results.datafiles.size()) html += Legend();
    if (!m_further.empty()) {
      html += "<noscript><p>" + HtmlText(Count(m_further.size(), "further data file")) +
              ", of which " + NumberWithCommas(static_cast<long>(furtherNotPassed)) +
              " did not pass, can be seen with JavaScript only.</p></noscript>\n";
    }
    return html + "<div id=\"page:list\"" +
           HtmlAttribute("data-total", std::to_string(m_results.datafiles.size())) + ">\n" + list +
           "</div>\n<nav id=\"page:pager\" class=\"pager\" aria-label=\"Pages of the list\" "
           "hidden=\"hidden\"><button type=\"button\" id=\"page:previous\">Previous</button><span "
           "id=\"page:number\" role=\"status\"></span><button type=\"button\" "
           "id=\"page:next\">Next</button></nav>\n";
  }

  static std::string Legend() {
    return "<p class=\"muted small\">What cannot be seen in a cell is written: <i "
           "class=\"unseen\">\\t</i> a tab, <i class=\"unseen\">\\u{A0}</i> a character by its "
           "number, <i class=\"unseen\">\xC2\xB7</i> a blank at an end. Lines of a data file count "
           "from 1, rows from 0.</p>\n";
  }

  const RunResults& m_results;
  const RunOverview m_overview;
  std::vector<std::string> m_ids;     // of the data files
  std::vector<std::string> m_proves;  // what each proves about the host; empty where nobody knows
  nlohmann::json m_further;           // id, outcome and markup of each
};

}  // namespace

void HtmlPrinter::Print(const RunResults& results) { PageMaker(results).Page().Print(m_out); }

}  // namespace OmbreliaHost
