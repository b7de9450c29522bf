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

const std::vector<std::size_t>& RowResult::PlacesIn(const MUDataFileBlock& block) {
  std::vector<std::size_t>& places = m_places[&block];
  if (!places.empty()) return places;
  for (const Column* column : m_columns) {
    const bool isOfItsLines = column->kind == Column::Kind::Data &&
                              block.FindHiddenCell(column->sources.front()) == nullptr;
    places.push_back(isOfItsLines ? block.PositionOf(column->sources.front()) : ASK_THE_COLUMN);
  }
  return places;
}

MUCellText RowResult::TextOf(const DataRow& row, std::size_t column,
                             const std::vector<std::size_t>* places) {
  const std::size_t place = places == nullptr ? ASK_THE_COLUMN : (*places)[column];
  return place == ASK_THE_COLUMN ? m_cells[column].TextOf(row) : row.CellAt(place);
}

void RowResult::AppendCells(const DataRow& row, ResultRow& cells) {
  // One look-up per row, and not one per cell: in a sorted table neighbours are of different files.
  const bool isLine = row.Block() != nullptr && !row.HasOverlay();
  const std::vector<std::size_t>* const places = isLine ? &PlacesIn(*row.Block()) : nullptr;
  for (std::size_t i = 0; i < m_cells.size(); ++i) {
    const MUCellText text = TextOf(row, i, places);
    ResultCell cell;
    cell.text = Utf8View(text, m_room[i]);
    if (m_areNumbers[i])
      cell.kind = IsBlank(text) ? ResultCell::Kind::Null : ResultCell::Kind::Number;
    cells.push_back(cell);
  }
}

}  // namespace TabulonCli
