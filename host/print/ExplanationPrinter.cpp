#include "host/print/ExplanationPrinter.h"

#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include "host/print/TextTable.h"
#include "host/print/VisibleText.h"
#include "host/results/ResultNames.h"

namespace OmbreliaHost {

namespace {

using Demand = ExplainedCheck::Demand;

constexpr std::size_t LONGEST_CELL = 100;

std::string Plural(long count, const std::string& noun) {
  return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

std::string RangeText(const RowRange& range) {
  const std::string first = std::to_string(range.first);
  return range.first == range.last ? first : first + "-" + std::to_string(range.last);
}

std::string RowsText(const std::vector<RowRange>& ranges) {
  const bool isOne = ranges.size() == 1 && ranges.front().first == ranges.front().last;
  std::string text = isOne ? "row " : "rows ";
  for (std::size_t i = 0; i < ranges.size(); ++i)
    text += (i > 0 ? ", " : "") + RangeText(ranges[i]);
  return text;
}

std::string HeadlineOf(const Demand& demand) {
  const std::string rows =
      demand.rowCount < 0 ? std::string() : ", in a table of " + Plural(demand.rowCount, "row");
  switch (demand.kind) {
    case Demand::Kind::Cells:
      return ColumnShown(demand.column) + " holds these texts" + rows + ":";
    case Demand::Kind::Anywhere:
      return ColumnShown(demand.column) + " holds each of these texts in some row" + rows + ":";
    case Demand::Kind::Count:
      return ColumnShown(demand.column) + " holds this text in " +
             Plural(demand.runs.front().rows.last + 1, "row") + rows + ":";
    case Demand::Kind::Areas:
      break;
  }
  return "The stimulus areas are these, counted from 0:";
}

}  // namespace

void ExplanationPrinter::Print(const Explanation& explanation, const VerifierEntry& verifier,
                               const std::filesystem::path& datafile) {
  m_out << explanation.experiment << "\n"
        << "  " << verifier.proves << "\n"
        << "  Verified by " << verifier.className << ", explained by "
        << PathShown(datafile.filename().string()) << ".\n";
  const auto failed = std::count_if(explanation.checks.begin(), explanation.checks.end(),
                                    [](const ExplainedCheck& check) { return check.failed; });
  if (failed > 0)
    m_out << "  This is no good data file: where a test fails, some checks may not be shown.\n";
  m_out << "\nChecks in order; rows count from 0:\n";
  for (const ExplainedCheck& check : explanation.checks) PrintCheck(check);
  PrintBounds(explanation.bounds);
}

void ExplanationPrinter::PrintCheck(const ExplainedCheck& check) {
  m_out << "  " << LineShown(check.name);
  if (check.tolerated) m_out << " (may fail now and then)";
  if (check.failed) m_out << " (fails)";
  m_out << "\n";
  for (const Demand& demand : check.demands) PrintDemand(demand);
  for (const ExplainedCheck::Read& read : check.reads)
    m_out << "    reads " << ColumnShown(read.column) << ", " << RowsText(read.rows) << "\n";
  for (const std::string& column : check.columnsLookedFor)
    m_out << "    looks for a column " << ColumnShown(column) << "\n";
}

void ExplanationPrinter::PrintDemand(const Demand& demand) {
  m_out << "    " << HeadlineOf(demand) << "\n";
  const bool isPlaced = demand.kind == Demand::Kind::Cells || demand.kind == Demand::Kind::Areas;
  TextTable table;
  table.AddColumn("", TextTable::Align::Right);
  table.AddColumn("", TextTable::Align::Left);
  for (const ExpectedRun& run : demand.runs)
    table.AddRow(
        {isPlaced ? RangeText(run.rows) : std::string(), CellShown(run.text, LONGEST_CELL)});
  const std::vector<std::string> lines = table.Lines();
  for (const std::string& line : lines) {
    if (!line.empty()) m_out << "      " << line << "\n";
  }
}

void ExplanationPrinter::PrintBounds(const std::vector<ExplainedBound>& bounds) {
  if (bounds.empty()) return;
  m_out << "\nBounds in milliseconds, both ends included:\n";
  TextTable table;
  table.AddColumn("", TextTable::Align::Left);
  table.AddColumn("machine", TextTable::Align::Left);
  table.AddColumn("from", TextTable::Align::Right);
  table.AddColumn("to", TextTable::Align::Right);
  std::vector<std::string> names;
  for (const ExplainedBound& bound : bounds) {
    if (std::find(names.begin(), names.end(), bound.testName) == names.end())
      names.push_back(bound.testName);
  }
  for (const std::string& name : names) {
    for (const ExplainedBound& bound : bounds) {
      if (bound.testName == name)
        table.AddRow({LineShown(name), NameOf(bound.machine), std::to_string(bound.min),
                      std::to_string(bound.max)});
    }
  }
  for (const std::string& line : table.Lines()) m_out << "  " << line << "\n";
}

}  // namespace OmbreliaHost
