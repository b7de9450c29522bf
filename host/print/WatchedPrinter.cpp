#include "host/print/WatchedPrinter.h"

#include <array>
#include <utility>

#include "host/print/TextTable.h"
#include "host/print/VisibleText.h"
#include "host/results/Manifest.h"
#include "host/results/ResultNames.h"

namespace OmbreliaHost {

namespace {

std::string OfText(std::size_t part, std::size_t whole) {
  return std::to_string(part) + " of " + std::to_string(whole);
}

std::string ShareText(const WatchedColumn& column) {
  std::string text = OfText(column.CountOf(Share::All), column.cells.size());
  if (const std::size_t some = column.CountOf(Share::Some))
    text += ", " + std::to_string(some) + " in part";
  return text;
}

}  // namespace

void WatchedPrinter::Print(const WatchedDatafile& datafile) {
  m_out << datafile.experiment << "\n";
  if (const VerifierEntry* const verifier = FindVerifier(datafile.experiment))
    m_out << "  " << verifier->proves << "\n";
  m_out << "  Noticed by " << datafile.className << " of " << datafile.changes
        << (datafile.changes == 1 ? " change of " : " changes of ")
        << PathShown(datafile.datafile.filename().string()) << ":\n";
  PrintShares(datafile);
  PrintTraps(datafile);
}

void WatchedPrinter::PrintShares(const WatchedDatafile& datafile) {
  TextTable table;
  table.AddColumn("", TextTable::Align::Left);
  table.AddColumn("", TextTable::Align::Left);
  for (const WatchedColumn& column : datafile.columns) {
    if (!column.cells.empty()) table.AddRow({ColumnShown(column.name), ShareText(column)});
  }
  if (datafile.added)
    table.AddRow({"(a row added)", OfText(IsNoticed(*datafile.added) ? 1 : 0, 1)});
  const std::array<std::pair<const char*, const std::vector<ChangeOutcome>*>, 2> rows = {
      {{"(a row dropped)", &datafile.dropped}, {"(a row doubled)", &datafile.doubled}}};
  for (const auto& [name, outcomes] : rows) {
    if (!outcomes->empty()) table.AddRow({name, OfText(CountNoticed(*outcomes), outcomes->size())});
  }
  if (!datafile.bounds.empty())
    table.AddRow({"(bounds)", OfText(CountNoticed(datafile.bounds), datafile.bounds.size())});
  for (const std::string& line : table.Lines()) {
    if (!line.empty()) m_out << "    " << line << "\n";
  }
}

void WatchedPrinter::PrintTraps(const WatchedDatafile& datafile) {
  for (const WatchedColumn& column : datafile.columns) {
    const std::string name = ColumnShown(column.name);
    if (column.emptied) PrintTrap(*column.emptied, "if " + name + " is empty in all rows");
    if (column.removed) PrintTrap(*column.removed, "without the column " + name);
    for (std::size_t row = 0; row < column.cells.size(); ++row) {
      const WatchedCell& cell = column.cells[row];
      const std::string place = "if " + name + " in row " + std::to_string(row) + " ";
      if (cell.near) PrintTrap(*cell.near, place + "has a text close to it");
      if (cell.other) PrintTrap(*cell.other, place + "has another text");
      if (cell.empty) PrintTrap(*cell.empty, place + "is empty");
    }
  }
  for (std::size_t row = 0; row < datafile.dropped.size(); ++row) {
    PrintTrap(datafile.dropped[row], "without row " + std::to_string(row));
    PrintTrap(datafile.doubled[row], "with row " + std::to_string(row) + " twice");
  }
  for (const WatchedBound& bound : datafile.bounds) PrintBound(bound);
}

void WatchedPrinter::PrintTrap(ChangeOutcome outcome, const std::string& change) {
  if (outcome == ChangeOutcome::NeverEnds)
    m_out << "    The verification never ends " << change << ".\n";
  if (outcome == ChangeOutcome::Crashes)
    m_out << "    The verification crashes " << change << ".\n";
}

void WatchedPrinter::PrintBound(const WatchedBound& bound) {
  if (bound.IsNoticed()) return;
  const auto say = [&](long value, const char* what) {
    m_out << "    " << LineShown(bound.test) << " " << what << " at " << value
          << " ms, with bounds of " << bound.min << " to " << bound.max << " on a machine of kind "
          << NameOf(bound.machine) << ".\n";
  };
  if (!bound.failsBelow) say(bound.min - 1, "passes");
  if (!bound.passesAtMin) say(bound.min, "fails");
  if (!bound.passesAtMax) say(bound.max, "fails");
  if (!bound.failsAbove) say(bound.max + 1, "passes");
}

void WatchedPrinter::PrintTotals(const std::vector<WatchedDatafile>& datafiles) {
  std::size_t cells = 0, noticed = 0, inPart = 0, rows = 0, dropped = 0, doubled = 0, bounds = 0,
              boundsNoticed = 0, changes = 0;
  for (const WatchedDatafile& datafile : datafiles) {
    for (const WatchedColumn& column : datafile.columns) {
      cells += column.cells.size();
      noticed += column.CountOf(Share::All);
      inPart += column.CountOf(Share::Some);
    }
    rows += datafile.dropped.size();
    dropped += CountNoticed(datafile.dropped);
    doubled += CountNoticed(datafile.doubled);
    bounds += datafile.bounds.size();
    boundsNoticed += CountNoticed(datafile.bounds);
    changes += datafile.changes;
  }
  m_out << "Of " << datafiles.size() << " data files and " << changes << " changes: cells "
        << OfText(noticed, cells) << ", " << inPart << " in part; rows dropped "
        << OfText(dropped, rows) << ", doubled " << OfText(doubled, rows) << "; bounds "
        << OfText(boundsNoticed, bounds) << "\n";
}

}  // namespace OmbreliaHost
