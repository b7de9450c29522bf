#include "Tabulon/cli/Aggregating.h"

#include <cmath>
#include <iostream>
#include <map>

#include "Tabulon/cli/Counting.h"
#include "Tabulon/cli/Numbers.h"
#include "Tabulon/cli/Numerals.h"
#include "Tabulon/cli/RowGroups.h"
#include "Tabulon/cli/RowResult.h"
#include "Tabulon/cli/SelectedRows.h"
#include "Tabulon/cli/Text.h"

namespace TabulonCli {

namespace {

using Measure = std::optional<double> (Numerals::*)() const;

const std::map<std::string, Measure> MEASURES = {
    {"mean", &Numerals::Mean}, {"sd", &Numerals::Deviation}, {"median", &Numerals::Median},
    {"min", &Numerals::Least}, {"max", &Numerals::Most},     {"sum", &Numerals::Sum}};

struct Aggregate {
  std::string name;
  const Column* column = nullptr;  // null: the rows themselves are counted
};

// NAME:COLUMN or n.
std::optional<Aggregate> TryParseAggregate(const std::string& typed, const Columns& columns) {
  if (typed == "n") return Aggregate{typed, nullptr};
  const std::size_t colon = typed.find(':');
  if (colon == std::string::npos) return std::nullopt;
  Aggregate aggregate{typed.substr(0, colon), columns.TryFind(TextOf(typed.substr(colon + 1)))};
  if (aggregate.column == nullptr) return std::nullopt;
  if (aggregate.name != "n" && MEASURES.count(aggregate.name) == 0) return std::nullopt;
  return aggregate;
}

[[noreturn]] void RejectAggregate(const std::string& typed, const Columns& columns) {
  const std::size_t colon = typed.find(':');
  const std::string name = typed.substr(0, colon);
  if (colon == std::string::npos || (name != "n" && MEASURES.count(name) == 0)) {
    throw RunError(ExitStatus::WrongUse, "--agg: \"" + typed +
                                             "\" is none of n, n:COLUMN, mean:COLUMN, sd:COLUMN, "
                                             "median:COLUMN, min:COLUMN, max:COLUMN, sum:COLUMN");
  }
  columns.RejectUnknown(typed.substr(colon + 1));
}

std::vector<Aggregate> ParseAggregates(const std::string& typed, const Columns& columns) {
  std::vector<Aggregate> aggregates;
  const std::vector<std::string> pieces = SplitAtCommas(typed);
  for (std::size_t begin = 0; begin < pieces.size();) {
    // A column's name may hold a comma: as few pieces as make an aggregate.
    std::string text;
    std::optional<Aggregate> found;
    std::size_t end = begin;
    while (!found && end < pieces.size()) {
      if (end > begin) text += ',';
      text += pieces[end++];
      found = TryParseAggregate(text, columns);
    }
    if (!found) RejectAggregate(pieces[begin], columns);
    aggregates.push_back(*found);
    begin = end;
  }
  return aggregates;
}

ResultColumn HeadingOf(const Aggregate& aggregate) {
  ResultColumn heading = CountHeading();
  if (aggregate.column == nullptr) return heading;
  heading.name = aggregate.name + " " + aggregate.column->label;
  // Below each other, as the column's own two heading rows.
  heading.upper = aggregate.name;
  heading.lower = aggregate.column->label;
  return heading;
}

// The numbers of one column, group by group.
std::vector<Numerals> CollectNumbers(const Column& column, const RowGroups& groups,
                                     const SelectedRows& selected) {
  std::vector<Numerals> numbers(groups.Count());
  ColumnCells cells(column, selected.inputs);
  std::size_t none = 0;
  std::size_t empty = 0;
  for (std::size_t i = 0; i < selected.rows.size(); ++i) {
    const MUCellText text = cells.TextOf(*selected.rows[i]);
    if (const std::optional<double> number = NumberIn(text)) {
      numbers[groups.OfRows()[i]].Add(*number);
    } else {
      ++none;
      if (IsBlank(text)) ++empty;
    }
  }
  if (none > 0) {
    std::cerr << "tabulon-cli: " << column.label << ": " << WithSeparators(none) << " of "
              << WithSeparators(selected.rows.size()) << " cells are no number and stay out, "
              << WithSeparators(empty) << " of them empty\n";
  }
  return numbers;
}

// A number as a cell; its text is written to room.
ResultCell NumberCell(const std::optional<double>& number, std::string& room) {
  if (!number) return {"", ResultCell::Kind::Null};
  room = ShortestText(*number);
  return {room, std::isfinite(*number) ? ResultCell::Kind::Number : ResultCell::Kind::Text};
}

class Grouping {
 public:
  Grouping(const CommandLine& commandLine, DrivenTable& driven)
      : m_columns(driven.MakeColumns(commandLine.mergedPrefixes)) {
    for (const std::string& list : commandLine.columns) {
      for (const Column* column : m_columns.FindList(list)) m_by.push_back(column);
    }
    for (const std::string& typed : commandLine.aggregates) {
      for (const Aggregate& aggregate : ParseAggregates(typed, m_columns))
        m_aggregates.push_back(aggregate);
    }
    const SelectedRows selected(commandLine, driven, m_columns);
    Print(selected, *MakePrinter(commandLine.print));
  }

 private:
  void Print(const SelectedRows& selected, ResultPrinter& printer) {
    const RowGroups groups(m_by, selected.rows, selected.inputs);
    std::map<const Column*, std::vector<Numerals>> numbers;
    for (const Aggregate& aggregate : m_aggregates) {
      if (aggregate.column != nullptr && numbers.count(aggregate.column) == 0)
        numbers[aggregate.column] = CollectNumbers(*aggregate.column, groups, selected);
    }
    RowResult result(m_by, selected.inputs);
    if (printer.TellsNumbers()) result.TellNumbers(selected.rows);
    std::vector<ResultColumn> headings = result.ShortHeadings();
    for (const Aggregate& aggregate : m_aggregates) headings.push_back(HeadingOf(aggregate));
    printer.Begin(headings);
    ResultRow cells;
    std::vector<std::string> room(m_aggregates.size());
    for (std::size_t group = 0; group < groups.Count(); ++group) {
      cells.clear();
      result.AppendCells(*selected.rows[groups.FirstRow(group)], cells);
      for (std::size_t i = 0; i < m_aggregates.size(); ++i) {
        const Aggregate& aggregate = m_aggregates[i];
        std::optional<double> number;
        if (aggregate.column == nullptr) {
          number = static_cast<double>(groups.RowCount(group));
        } else if (aggregate.name == "n") {
          number = static_cast<double>(numbers[aggregate.column][group].Count());
        } else {
          number = (numbers[aggregate.column][group].*MEASURES.at(aggregate.name))();
        }
        cells.push_back(NumberCell(number, room[i]));
      }
      printer.Row(cells);
    }
    printer.End(groups.Count());
  }

  const Columns m_columns;
  std::vector<const Column*> m_by;
  std::vector<Aggregate> m_aggregates;
};

const char* const SUMMARY_HEADINGS[] = {"column",   "kind",  "rows",   "empty", "numbers",
                                        "distinct", "least", "median", "mean",  "most"};

class Summarizing {
 public:
  Summarizing(DrivenTable& driven, const SelectedRows& selected)
      : m_driven(driven), m_selected(selected) {}

  void AppendRow(const Column& column, ResultRow& row) {
    std::size_t empty = 0;
    Numerals numbers;
    ColumnCells cells(column, m_selected.inputs);
    for (const DataRow* dataRow : m_selected.rows) {
      const MUCellText text = cells.TextOf(*dataRow);
      if (const std::optional<double> number = NumberIn(text)) {
        numbers.Add(*number);
      } else if (IsBlank(text)) {
        ++empty;
      }
    }
    const std::size_t rows = m_selected.rows.size();
    row.push_back({column.label});
    row.push_back({KindOfCells(rows, empty, numbers.Count())});
    m_room.assign(8, std::string());
    AppendCount(rows, row);
    AppendCount(empty, row);
    AppendCount(numbers.Count(), row);
    AppendCount(CountDistinct(column), row);
    for (const Measure measure :
         {&Numerals::Least, &Numerals::Median, &Numerals::Mean, &Numerals::Most})
      row.push_back(NumberCell((numbers.*measure)(), m_room[row.size() - 2]));
  }

 private:
  void AppendCount(std::size_t count, ResultRow& row) {
    std::string& room = m_room[row.size() - 2];
    room = std::to_string(count);
    row.push_back({room, ResultCell::Kind::Number});
  }

  std::size_t CountDistinct(const Column& column) {
    if (column.kind != Column::Kind::Data)
      return RowGroups({&column}, m_selected.rows, m_selected.inputs).Count();
    std::vector<wxString> values;
    m_driven.Table().SelectDistinctPerColumn(column.sources.front(), values,
                                             MUExperimentTextReaderMultiFile::ONLY_FULLY_SHOWN_ROWS,
                                             false);
    return values.size();
  }

  DrivenTable& m_driven;
  const SelectedRows& m_selected;
  std::vector<std::string> m_room;
};

}  // namespace

void Group(const CommandLine& commandLine, DrivenTable& driven) { Grouping(commandLine, driven); }

void Summary(const CommandLine& commandLine, DrivenTable& driven) {
  const Columns columns = driven.MakeColumns(commandLine.mergedPrefixes);
  const SelectedRows selected(commandLine, driven, columns);
  const std::unique_ptr<ResultPrinter> printer = MakePrinter(commandLine.print);
  std::vector<ResultColumn> headings;
  for (const char* name : SUMMARY_HEADINGS) {
    headings.emplace_back();
    headings.back().name = headings.back().upper = name;
  }
  printer->Begin(headings);
  Summarizing summarizing(driven, selected);
  std::size_t count = 0;
  for (const Column& column : columns.All()) {
    if (column.IsOrigin()) continue;
    ResultRow row;
    summarizing.AppendRow(column, row);
    printer->Row(row);
    ++count;
  }
  printer->End(count);
}

}  // namespace TabulonCli
