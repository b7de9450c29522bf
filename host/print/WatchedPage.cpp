#include "host/print/WatchedPage.h"

#include <algorithm>
#include <functional>
#include <map>
#include <sstream>
#include <string>

#include "host/print/HtmlPage.h"
#include "host/print/HtmlTable.h"
#include "host/print/HtmlText.h"
#include "host/print/SvgPlots.h"
#include "host/print/VisibleText.h"
#include "host/print/WatchedPrinter.h"
#include "host/results/Manifest.h"

namespace OmbreliaHost {

namespace {

const std::string EXPANSION_TIME = "Expansion Time(ms)";

// How many of how many changes were noticed, and how many more in part.
struct Part {
  std::size_t noticed = 0;
  std::size_t inPart = 0;
  std::size_t whole = 0;

  void Add(const Part& other) {
    noticed += other.noticed;
    inPart += other.inPart;
    whole += other.whole;
  }
};

Part PartOf(const WatchedColumn& column) {
  return {column.CountOf(Share::All), column.CountOf(Share::Some), column.cells.size()};
}

Part PartOf(const std::vector<ChangeOutcome>& outcomes) {
  return {CountNoticed(outcomes), 0, outcomes.size()};
}

Part PartOf(const std::vector<WatchedBound>& bounds) {
  return {CountNoticed(bounds), 0, bounds.size()};
}

std::string TextOf(const Part& part) {
  std::string text = std::to_string(part.noticed) + " of " + std::to_string(part.whole);
  if (part.inPart > 0) text += ", " + std::to_string(part.inPart) + " in part";
  return text;
}

std::string HeatClassOf(const Part& part) {
  const double share = static_cast<double>(part.noticed) / static_cast<double>(part.whole);
  return part.noticed == 0 && part.inPart > 0 ? HeatClass(0.1) : HeatClass(share);
}

// A table whose cells may show parts.
class PartsTable {
 public:
  explicit PartsTable(const std::string& caption) : m_table(caption) {}

  void AddColumn(const std::string& heading) { m_table.AddColumn(heading, HtmlTable::Align::Left); }
  void AddRow(const std::string& head, const std::vector<Part>& parts,
              const std::string& last = "") {
    std::vector<std::string> cells = {head};
    for (const Part& part : parts) cells.push_back(part.whole > 0 ? TextOf(part) : "–");
    if (!last.empty()) cells.push_back(last);
    m_table.AddRow(cells, "", true);
    for (std::size_t i = 0; i < parts.size(); ++i) {
      if (parts[i].whole > 0) m_table.SetCellClass(i + 1, HeatClassOf(parts[i]));
    }
  }
  std::string Markup() const { return m_table.Markup(); }

 private:
  HtmlTable m_table;
};

// The number in its name is that of one run.
std::string NameInAll(const WatchedColumn& column) {
  const std::string name = ColumnShown(column.name);
  return name.compare(0, EXPANSION_TIME.size(), EXPANSION_TIME) == 0 ? EXPANSION_TIME : name;
}

// The columns of more than half of the data files, in their order.
std::vector<std::string> CommonColumns(const std::vector<WatchedDatafile>& datafiles) {
  std::map<std::string, std::size_t> counts;
  std::vector<std::string> names;
  for (const WatchedDatafile& datafile : datafiles) {
    for (const WatchedColumn& column : datafile.columns) {
      if (++counts[NameInAll(column)] == 1) names.push_back(NameInAll(column));
    }
  }
  names.erase(
      std::remove_if(names.begin(), names.end(),
                     [&](const std::string& name) { return counts[name] * 2 <= datafiles.size(); }),
      names.end());
  return names;
}

std::string LinkTo(const WatchedDatafile& datafile, const std::string& id) {
  return "<a" + HtmlAttribute("href", "#" + id) + ">" + HtmlText(datafile.experiment) + "</a>";
}

std::string MapOfAll(const std::vector<WatchedDatafile>& datafiles,
                     const std::vector<std::string>& ids) {
  const std::vector<std::string> common = CommonColumns(datafiles);
  PartsTable table("What is noticed of each experiment");
  table.AddColumn("Experiment");
  for (const std::string& name : common) table.AddColumn(name);
  for (const char* const heading : {"Other columns", "A row dropped", "A row doubled", "Bounds"}) {
    table.AddColumn(heading);
  }
  for (std::size_t i = 0; i < datafiles.size(); ++i) {
    const WatchedDatafile& datafile = datafiles[i];
    std::vector<Part> parts(common.size() + 1);
    for (const WatchedColumn& column : datafile.columns) {
      const auto place = std::find(common.begin(), common.end(), NameInAll(column));
      parts[static_cast<std::size_t>(place - common.begin())].Add(PartOf(column));
    }
    parts.push_back(PartOf(datafile.dropped));
    parts.push_back(PartOf(datafile.doubled));
    parts.push_back(PartOf(datafile.bounds));
    table.AddRow(LinkTo(datafile, ids[i]), parts);
  }
  return table.Markup();
}

// One bar per row from left to right: high for all, low for some, none for none. Bars of one height that
// follow one another are one.
std::string Strip(const std::string& name, std::size_t rows,
                  const std::function<Share(std::size_t)>& shareOf) {
  constexpr std::size_t HEIGHT = 16;
  std::string bars;
  for (std::size_t first = 0, end = 0; first < rows; first = end) {
    const Share share = shareOf(first);
    end = first + 1;
    while (end < rows && shareOf(end) == share) ++end;
    if (share == Share::None) continue;
    const std::size_t height = share == Share::All ? HEIGHT : HEIGHT / 2;
    bars += "<rect" + HtmlAttribute("class", share == Share::All ? "dot" : "band") +
            HtmlAttribute("x", std::to_string(first)) +
            HtmlAttribute("y", std::to_string(HEIGHT - height)) +
            HtmlAttribute("width", std::to_string(end - first)) +
            HtmlAttribute("height", std::to_string(height)) + "/>";
  }
  return "<svg class=\"plot value\" preserveAspectRatio=\"none\"" +
         HtmlAttribute("viewBox", "0 0 " + std::to_string(rows) + " " + std::to_string(HEIGHT)) +
         " role=\"img\"" + HtmlAttribute("aria-label", name + " by row") + "><path class=\"axis\"" +
         HtmlAttribute("d", "M0 " + std::to_string(HEIGHT) + "h" + std::to_string(rows)) + "/>" +
         bars + "</svg>";
}

std::string StripOf(const std::string& name, const std::vector<ChangeOutcome>& outcomes) {
  return Strip(name, outcomes.size(), [&outcomes](std::size_t row) {
    return IsNoticed(outcomes[row]) ? Share::All : Share::None;
  });
}

std::string TrapsOf(const WatchedDatafile& datafile) {
  std::ostringstream text;
  WatchedPrinter(text).PrintTraps(datafile);
  std::istringstream lines(text.str());
  std::string items;
  for (std::string line; std::getline(lines, line);) {
    items += "<li>" + HtmlText(line.substr(line.find_first_not_of(' '))) + "</li>";
  }
  return items.empty() ? items : "<ul>" + items + "</ul>";
}

std::string CardOf(const WatchedDatafile& datafile, const std::string& id) {
  PartsTable table("What is noticed of " + datafile.experiment);
  for (const char* const heading : {"Column", "Cells noticed", "By row"}) table.AddColumn(heading);
  for (const WatchedColumn& column : datafile.columns) {
    const std::string name = ColumnShown(column.name);
    if (column.cells.empty()) continue;
    table.AddRow(HtmlText(name), {PartOf(column)},
                 Strip(name, column.cells.size(),
                       [&column](std::size_t row) { return NoticedShareOf(column.cells[row]); }));
  }
  if (!datafile.dropped.empty()) {
    table.AddRow("(a row dropped)", {PartOf(datafile.dropped)},
                 StripOf("A row dropped", datafile.dropped));
    table.AddRow("(a row doubled)", {PartOf(datafile.doubled)},
                 StripOf("A row doubled", datafile.doubled));
  }
  if (datafile.added) table.AddRow("(a row added)", {PartOf({*datafile.added})});
  if (!datafile.bounds.empty()) table.AddRow("(bounds)", {PartOf(datafile.bounds)});
  const VerifierEntry* const verifier = FindVerifier(datafile.experiment);
  return "<article class=\"card\"" + HtmlAttribute("id", id) + "><h3><span class=\"name\">" +
         HtmlText(datafile.experiment) + "</span></h3><p>" +
         HtmlText(verifier != nullptr ? verifier->proves : "") + "</p><p class=\"muted small\">" +
         HtmlText(datafile.className + ", " + std::to_string(datafile.changes) + " changes of " +
                  PathShown(datafile.datafile.filename().string())) +
         "</p>" + table.Markup() + TrapsOf(datafile) + "</article>\n";
}

}  // namespace

void WatchedPage::Print(const std::vector<WatchedDatafile>& datafiles) {
  HtmlIds given;
  std::vector<std::string> ids;
  for (const WatchedDatafile& datafile : datafiles) ids.push_back(given.Next(datafile.experiment));
  std::ostringstream totals;
  WatchedPrinter(totals).PrintTotals(datafiles);
  std::string cards;
  for (std::size_t i = 0; i < datafiles.size(); ++i) cards += CardOf(datafiles[i], ids[i]);

  HtmlPage page;
  page.title = "What the verifiers notice";
  page.lead =
      "<p>Each cell, row and bound of a good data file was changed, one at a time. What is not "
      "noticed, a passing experiment does not prove.</p><p>" +
      HtmlText(totals.str()) +
      "</p><p class=\"muted small\">A cell is noticed if a text close to it, the next other text "
      "of its column and no text make other tests fail; in part, if only some of these do. By "
      "row: a high bar is noticed, a low one in part.</p>";
  page.sections = {{"page:all", "All experiments", MapOfAll(datafiles, ids)},
                   {"page:each", "Each experiment", cards}};
  page.Print(m_out);
}

}  // namespace OmbreliaHost
