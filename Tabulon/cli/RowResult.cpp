#include "Tabulon/cli/RowResult.h"

#include <algorithm>
#include <utility>

#include "Tabulon/cli/Text.h"

namespace TabulonCli {

RowResult::RowResult(std::vector<const Column*> columns, const Inputs& inputs)
    : m_columns(std::move(columns)), m_areNumbers(m_columns.size()), m_room(m_columns.size()) {
  for (const Column* column : m_columns) m_cells.emplace_back(*column, inputs);
}

std::vector<ResultColumn> RowResult::Headings() const {
  std::vector<ResultColumn> headings;
  for (const Column* column : m_columns) {
    ResultColumn heading;
    heading.name = column->label;
    // A code-value column has no cell in the first heading row.
    heading.upper = column->isCodeValue ? "" : Utf8(Harmless(column->name.BeforeFirst(wxT('\n'))));
    heading.lower =
        Utf8(OnOneLine(column->isCodeValue ? column->name : column->name.AfterFirst(wxT('\n'))));
    headings.push_back(heading);
  }
  return headings;
}

std::vector<ResultColumn> RowResult::ShortHeadings() const {
  std::vector<ResultColumn> headings = Headings();
  if (std::all_of(headings.begin(), headings.end(),
                  [](const ResultColumn& heading) { return heading.lower->empty(); })) {
    for (ResultColumn& heading : headings) heading.lower.reset();
  }
  return headings;
}

void RowResult::TellNumbers(const std::vector<DataRow*>& rows) {
  for (std::size_t i = 0; i < m_cells.size(); ++i)
    m_areNumbers[i] = HoldsOnlyNumbers(m_cells[i], rows, IsPlainNumber);
}

void RowResult::AppendCells(const DataRow& row, ResultRow& cells) {
  for (std::size_t i = 0; i < m_cells.size(); ++i) {
    const MUCellText text = m_cells[i].TextOf(row);
    ResultCell cell;
    cell.text = Utf8View(text, m_room[i]);
    if (m_areNumbers[i])
      cell.kind = IsBlank(text) ? ResultCell::Kind::Null : ResultCell::Kind::Number;
    cells.push_back(cell);
  }
}

}  // namespace TabulonCli
