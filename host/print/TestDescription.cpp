#include "host/print/TestDescription.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "host/print/VisibleText.h"
#include "host/results/ResultNames.h"

namespace OmbreliaHost {

namespace {

using Parts = std::vector<DescriptionPart>;

constexpr std::size_t LONGEST_CELL = 40;
constexpr std::size_t MOST_ROWS = 10;

std::string Plural(long count, const std::string& noun) {
  return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

std::string NumberShown(const std::optional<long>& number) {
  return number ? std::to_string(*number) : std::string();
}

struct ComparedCells {
  std::string actual;
  std::string expected;
};

// Two texts that belong together are cut at the same place; an absent one shows as nothing.
ComparedCells ShowCompared(const EvidenceCell& cell) {
  std::size_t around = 0;
  if (cell.actual && cell.expected) {
    around = FirstDifference(*cell.actual, *cell.expected).value_or(0);
  }
  const auto show = [&](const std::optional<std::string>& text) {
    return text ? CellShown(*text, LONGEST_CELL, around) : std::string();
  };
  return {show(cell.actual), show(cell.expected)};
}

void AddText(Parts& parts, const std::string& text) {
  parts.push_back({text, {}, {}, false, false});
}

void AddTable(Parts& parts, const TextTable& table, const std::vector<bool>& decides,
              bool isContext) {
  parts.push_back({"", table, decides, isContext, false});
}

// The rows around the deciding one: its expected cell beside the compared column, then the other columns. A
// deciding row that the data file lacks stands below its last ones.
void AddContext(Parts& parts, const EvidenceContext& context, const EvidenceCell& deciding) {
  TextTable table;
  table.AddColumn("line", TextTable::Align::Right);
  table.AddColumn("row", TextTable::Align::Right);
  const std::string compared =
      context.columns.empty() ? std::string() : ColumnShown(context.columns.front());
  table.AddColumn(compared, TextTable::Align::Left);
  table.AddColumn(deciding.expected ? "expected" : "", TextTable::Align::Left);
  for (std::size_t i = 1; i < context.columns.size(); ++i) {
    table.AddColumn(ColumnShown(context.columns[i]), TextTable::Align::Left);
  }

  const ComparedCells decidingShown = ShowCompared(deciding);
  std::vector<bool> decides;
  for (const EvidenceContext::Row& row : context.rows) {
    std::vector<std::string> cells = {std::to_string(row.line), std::to_string(row.row)};
    for (const std::string& cell : row.cells) cells.push_back(CellShown(cell, LONGEST_CELL));
    cells.resize(std::max<std::size_t>(cells.size(), 3));
    cells.insert(cells.begin() + 3, row.decides ? decidingShown.expected : std::string());
    if (row.decides) cells[2] = decidingShown.actual;
    table.AddRow(cells);
    decides.push_back(row.decides);
  }
  if (deciding.row && std::find(decides.begin(), decides.end(), true) == decides.end()) {
    table.AddRow({NumberShown(deciding.line), NumberShown(deciding.row), decidingShown.actual,
                  decidingShown.expected});
    decides.push_back(true);
  }
  AddTable(parts, table, decides, true);
}

// Cells of one column stand below its name; where columns differ, each cell has the name beside it.
void AddCells(Parts& parts, const std::vector<EvidenceCell>& cells, bool firstDecides) {
  const bool oneColumn = std::all_of(cells.begin(), cells.end(), [&](const EvidenceCell& cell) {
    return cell.column == cells.front().column;
  });
  const auto any = [&](const auto& has) { return std::any_of(cells.begin(), cells.end(), has); };
  const bool anyLine = any([](const EvidenceCell& cell) { return cell.line.has_value(); });
  const bool anyRow = any([](const EvidenceCell& cell) { return cell.row.has_value(); });
  const bool anyActual = any([](const EvidenceCell& cell) { return cell.actual.has_value(); });
  const bool anyExpected = any([](const EvidenceCell& cell) { return cell.expected.has_value(); });
  TextTable table;
  table.AddColumn(anyLine ? "line" : "", TextTable::Align::Right);
  table.AddColumn(anyRow ? "row" : "", TextTable::Align::Right);
  table.AddColumn(oneColumn ? "" : "column", TextTable::Align::Left);
  const std::string name = oneColumn ? ColumnShown(cells.front().column) : std::string();
  table.AddColumn(oneColumn ? name : anyActual ? "cell" : "", TextTable::Align::Left);
  table.AddColumn(anyExpected ? "expected" : "", TextTable::Align::Left);

  std::vector<bool> decides;
  for (std::size_t i = 0; i < std::min(cells.size(), MOST_ROWS); ++i) {
    const ComparedCells shown = ShowCompared(cells[i]);
    table.AddRow({NumberShown(cells[i].line), NumberShown(cells[i].row),
                  oneColumn ? std::string() : ColumnShown(cells[i].column), shown.actual,
                  shown.expected});
    decides.push_back(firstDecides && i == 0);
  }
  AddTable(parts, table, decides, false);
  if (cells.size() > MOST_ROWS) {
    AddText(parts, "  and " + std::to_string(cells.size() - MOST_ROWS) + " more");
  }
}

void AddHiddenDifference(Parts& parts, const Evidence& evidence) {
  if (evidence.cells.empty()) return;
  const EvidenceCell& cell = evidence.cells.front();
  if (!cell.actual || !cell.expected) return;
  const std::string words = HiddenDifference(*cell.actual, *cell.expected, LONGEST_CELL);
  if (!words.empty()) AddText(parts, words);
}

std::string DescribeLength(const Evidence& evidence) {
  if (!evidence.actualCount || !evidence.expectedCount) return std::string();
  return Plural(*evidence.actualCount, "row") + ", where " +
         std::to_string(*evidence.expectedCount) + " are expected.";
}

std::string DescribeCount(const Evidence& evidence) {
  if (!evidence.actualCount || !evidence.expectedCount) return std::string();
  return "Found " + Plural(*evidence.actualCount, "time") + ", where " +
         Plural(*evidence.expectedCount, "time") + " are expected.";
}

std::string DescribeBound(const BoundCheck& bound, MachineKind machine) {
  const std::string kind = ", on " + std::string(machine == MachineKind::Ordinary ? "an " : "a ") +
                           NameOf(machine) + " machine.";
  const std::string bounds =
      " of " + std::to_string(bound.min) + " to " + std::to_string(bound.max);
  const std::string value = std::to_string(bound.actual);
  if (bound.actual < bound.min) return value + " is below the bounds" + bounds + kind;
  if (bound.actual > bound.max) return value + " is above the bounds" + bounds + kind;
  return value + " is within the bounds" + bounds + kind;
}

std::string HeadlineOf(const Evidence& evidence) {
  switch (evidence.kind) {
    case Evidence::Kind::Length:
      return DescribeLength(evidence);
    case Evidence::Kind::Row:
      return "The first row that differs:";
    case Evidence::Kind::Count:
      return DescribeCount(evidence);
    case Evidence::Kind::LastReads:
      return "No more is known than what the check read last.";
    case Evidence::Kind::None:
    case Evidence::Kind::Cell:
    case Evidence::Kind::MissingText:
    case Evidence::Kind::Bound:
    case Evidence::Kind::Reader:
      break;
  }
  return std::string();
}

// Cells under a line of their own, if there are any.
void AddCellsBelow(Parts& parts, const char* headline, const std::vector<EvidenceCell>& cells) {
  if (cells.empty()) return;
  AddText(parts, headline);
  AddCells(parts, cells, false);
}

// Texts that no row has come without a row; the rows that could have had them follow.
void AddMissingTexts(Parts& parts, const std::vector<EvidenceCell>& cells) {
  std::vector<EvidenceCell> others;
  for (const EvidenceCell& cell : cells) {
    if (cell.row || !cell.expected) {
      others.push_back(cell);
      continue;
    }
    AddText(parts, "No row has this in column " + ColumnShown(cell.column) + ": " +
                       CellShown(*cell.expected, LONGEST_CELL));
  }
  AddCellsBelow(parts, "These rows have something else:", others);
}

// Where a text is there too rarely, rows that could have had it come first, and say what is expected.
void AddCounted(Parts& parts, const std::vector<EvidenceCell>& cells) {
  std::vector<EvidenceCell> others;
  std::vector<EvidenceCell> counted;
  for (const EvidenceCell& cell : cells) (cell.expected ? others : counted).push_back(cell);
  AddCellsBelow(parts, "These rows have something else:", others);
  AddCellsBelow(parts, "These rows have it:", counted);
}

void AddDecidingCells(Parts& parts, const Evidence& evidence) {
  const std::vector<EvidenceCell>& cells = evidence.cells;
  if (evidence.kind == Evidence::Kind::MissingText) {
    AddMissingTexts(parts, cells);
  } else if (evidence.kind == Evidence::Kind::Count) {
    AddCounted(parts, cells);
  } else if (evidence.kind == Evidence::Kind::Cell && !cells.empty() && !cells.front().row) {
    // A heading, of a column that the data file lacks; the words say so.
    if (cells.front().actual) {
      AddText(parts, "The nearest to it is column " + ColumnShown(*cells.front().actual) + ".");
    }
  } else if (!cells.empty() && !evidence.context.rows.empty()) {
    AddContext(parts, evidence.context, cells.front());
    AddCellsBelow(parts, "Further cells that differ:", {cells.begin() + 1, cells.end()});
  } else if (!cells.empty()) {
    AddCells(parts, cells,
             evidence.kind == Evidence::Kind::Cell || evidence.kind == Evidence::Kind::Row ||
                 evidence.kind == Evidence::Kind::Length);
  }
}

}  // namespace

std::vector<DescriptionPart> DescribeEvidenceInParts(const TestOutcome& test, MachineKind machine) {
  const Evidence& evidence = test.evidence;
  Parts parts;
  const std::string headline = HeadlineOf(evidence);
  if (!headline.empty()) AddText(parts, headline);
  for (const std::string& words : evidence.words) {
    for (const std::string& line : LinesShown(words)) AddText(parts, line);
  }
  AddDecidingCells(parts, evidence);
  AddHiddenDifference(parts, evidence);
  if (test.bound) {
    AddText(parts, BoundScale(*test.bound));
    parts.back().isScale = true;
    AddText(parts, DescribeBound(*test.bound, machine));
  }
  return parts;
}

std::vector<DescriptionLine> DescribeEvidence(const TestOutcome& test, MachineKind machine) {
  std::vector<DescriptionLine> lines;
  for (const DescriptionPart& part : DescribeEvidenceInParts(test, machine)) {
    if (!part.table) {
      lines.push_back({part.text, false});
      continue;
    }
    const std::vector<std::string> texts = part.table->Lines();
    for (std::size_t i = 0; i < texts.size(); ++i) {
      const bool decidingRow = i > 0 && part.decides[i - 1];
      lines.push_back({(decidingRow ? "> " : "  ") + texts[i], decidingRow});
    }
  }
  return lines;
}

std::string DescribeLoss(const DatafileResult& datafile) {
  const Loss& loss = *datafile.loss;
  std::string how;
  if (datafile.outcome == Outcome::TimedOut) {
    how = "timed out";
  } else if (loss.signal != 0) {
    const char* const name = strsignal(loss.signal);
    how = NameOf(datafile.outcome) + ": signal " + std::to_string(loss.signal) + " (" +
          (name == nullptr ? "unknown" : name) + ")";
  } else {
    how = NameOf(datafile.outcome) + ": its process ended with status " +
          std::to_string(loss.exitStatus);
  }
  return how;
}

std::string BoundScale(const BoundCheck& bound) {
  // A line of 40 places for all that lies between the three numbers, at least one on either side of a number.
  constexpr double PLACES = 40;
  const double min = static_cast<double>(bound.min);
  const double max = static_cast<double>(bound.max);
  const double actual = static_cast<double>(bound.actual);
  const double all = std::max(max, actual) - std::min(min, actual);
  const auto line = [&](double length, char place) {
    const double places = all > 0 ? std::round(length / all * PLACES) : 0;
    return std::string(std::max<std::size_t>(static_cast<std::size_t>(std::max(places, 0.0)), 1),
                       place);
  };
  const std::string value = std::to_string(bound.actual);
  const std::string from = std::to_string(bound.min) + " [";
  const std::string to = "] " + std::to_string(bound.max);
  if (bound.actual < bound.min) {
    return value + " *" + line(min - actual, '-') + " " + from + line(max - min, '=') + to;
  }
  if (bound.actual > bound.max) {
    return from + line(max - min, '=') + to + " " + line(actual - max, '-') + "* " + value;
  }
  return from + line(actual - min, '=') + "*" + line(max - actual, '=') + to + ", " + value;
}

}  // namespace OmbreliaHost
