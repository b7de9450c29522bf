#include "Tabulon/cli/ColumnCells.h"

#include "Tabulon/src/reading/MUInterfaceExperimentDataFileInputReader.h"
#include "Tabulon/src/rows/MUSingleRowDataPlusRowProperties.h"

namespace TabulonCli {

namespace {

using Reader = MUInterfaceExperimentDataFileInputReader;

constexpr std::size_t LINES_ABOVE_THE_ROWS = 6;

}  // namespace

ColumnCells::ColumnCells(const Column& column, const Inputs& inputs)
    : m_kind(column.kind), m_inputs(&inputs) {
  switch (column.kind) {
    case Column::Kind::Data:
    case Column::Kind::Merged:
      for (const wxString& source : column.sources) m_sources.emplace_back(source);
      break;
    case Column::Kind::File:
      m_sources.emplace_back(Reader::STRING_FOR_FILENAME_SECRET_COL);
      break;
    case Column::Kind::Title:
      m_sources.emplace_back(Reader::STRING_FOR_EXPERIMENT_SECRET_COL);
      break;
    case Column::Kind::Date:
      m_sources.emplace_back(Reader::STRING_FOR_EXP_DATETIME_SECRET_COL);
      break;
    case Column::Kind::Participant:
      m_sources.emplace_back(Reader::STRING_FOR_PERSONNAME_SECRET_COL);
      break;
    case Column::Kind::Line:
      break;
  }
}

MUCellText ColumnCells::TextOf(const MUSingleRowDataPlusRowProperties& row) {
  switch (m_kind) {
    case Column::Kind::Line:
      return LineOf(row);
    case Column::Kind::File:
      return FileOf(row);
    case Column::Kind::Merged:
      for (MUColumnReader& source : m_sources) {
        const MUCellText text = source.TextOf(row);
        if (!text.IsEmpty()) return text;
      }
      return MUCellText();
    default:
      return m_sources.front().TextOf(row);
  }
}

MUCellText ColumnCells::FileOf(const MUSingleRowDataPlusRowProperties& row) {
  if (row.Block() == nullptr || row.Block() != m_block) {
    m_block = row.Block();
    m_file = MUColumnReader::ViewOf(m_inputs->NameOf(m_sources.front().TextOf(row).ToString()));
  }
  return m_file;
}

MUCellText ColumnCells::LineOf(const MUSingleRowDataPlusRowProperties& row) {
  const std::size_t line = row.m_text.RowInBlock() + LINES_ABOVE_THE_ROWS + 1;
  while (m_lines.size() <= line) m_lines.push_back(std::to_string(m_lines.size()));
  return {m_lines[line].data(), m_lines[line].size()};
}

}  // namespace TabulonCli
