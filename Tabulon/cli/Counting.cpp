#include "Tabulon/cli/Counting.h"

#include <algorithm>
#include <iostream>
#include <numeric>

#include "Tabulon/cli/RowGroups.h"
#include "Tabulon/cli/RowResult.h"
#include "Tabulon/cli/SelectedRows.h"
#include "Tabulon/cli/Text.h"

namespace TabulonCli {

namespace {

void PrintGroups(const CommandLine& commandLine, const SelectedRows& selected,
                 const std::vector<const Column*>& columns, bool withCounts, bool mostFirst) {
  const RowGroups groups(columns, selected.rows, selected.inputs);
  std::vector<std::size_t> order(groups.Count());
  std::iota(order.begin(), order.end(), std::size_t{0});
  if (mostFirst) {
    std::stable_sort(order.begin(), order.end(), [&groups](std::size_t a, std::size_t b) {
      return groups.RowCount(a) > groups.RowCount(b);
    });
  }
  const std::unique_ptr<ResultPrinter> printer = MakePrinter(commandLine.print);
  RowResult result(columns, selected.inputs);
  if (printer->TellsNumbers()) result.TellNumbers(selected.rows);
  std::vector<ResultColumn> headings = result.ShortHeadings();
  if (withCounts) headings.push_back(CountHeading());
  printer->Begin(headings);
  ResultRow cells;
  for (const std::size_t group : order) {
    cells.clear();
    result.AppendCells(*selected.rows[groups.FirstRow(group)], cells);
    const std::string count = std::to_string(groups.RowCount(group));
    if (withCounts) cells.push_back({count, ResultCell::Kind::Number});
    printer->Row(cells);
  }
  printer->End(groups.Count());
}

std::vector<const Column*> WantedColumns(const CommandLine& commandLine, const Columns& columns) {
  std::vector<const Column*> wanted;
  for (const std::string& list : commandLine.columns) {
    for (const Column* column : columns.FindList(list)) wanted.push_back(column);
  }
  return wanted;
}

}  // namespace

ResultColumn CountHeading() {
  ResultColumn heading;
  heading.name = "n";
  heading.upper = "n";
  return heading;
}

void Distinct(const CommandLine& commandLine, DrivenTable& driven) {
  const Columns columns = driven.MakeColumns(commandLine.mergedPrefixes);
  const std::vector<const Column*> wanted = WantedColumns(commandLine, columns);
  const SelectedRows selected(commandLine, driven, columns);
  if (commandLine.hasFormat || commandLine.counts || wanted.size() > 1) {
    PrintGroups(commandLine, selected, wanted, commandLine.counts, false);
    return;
  }
  std::vector<wxString> values;
  if (wanted.front()->kind == Column::Kind::Data) {
    driven.Table().SelectDistinctPerColumn(wanted.front()->sources.front(), values,
                                           MUExperimentTextReaderMultiFile::ONLY_FULLY_SHOWN_ROWS,
                                           false);
  } else {
    const RowGroups groups(wanted, selected.rows, selected.inputs);
    ColumnCells cells(*wanted.front(), selected.inputs);
    for (std::size_t i = 0; i < groups.Count(); ++i)
      values.push_back(Harmless(cells.TextOf(*selected.rows[groups.FirstRow(i)]).ToString()));
  }
  const std::size_t limit = commandLine.print.limit.value_or(0);
  if (limit > 0 && values.size() > limit) values.resize(limit);
  for (const wxString& value : values) std::cout << Utf8(value) << '\n';
}

void Count(const CommandLine& commandLine, DrivenTable& driven) {
  const Columns columns = driven.MakeColumns(commandLine.mergedPrefixes);
  const std::vector<const Column*> wanted = WantedColumns(commandLine, columns);
  const SelectedRows selected(commandLine, driven, columns);
  PrintGroups(commandLine, selected, wanted, true, true);
}

}  // namespace TabulonCli
