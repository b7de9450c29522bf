#include "Tabulon/src/queries/MUColumnCells.h"

#include <algorithm>

#include "Tabulon/src/rows/MUColumnWalk.h"
#include "Tabulon/src/rows/MURowStore.h"

MUColumnCells::MUColumnCells(const MURowStore& rows, const wxString& column,
                             const MUCellText& undefinedText)
    : m_undefinedText(undefinedText),
      m_versionOfRows(rows.Version()),
      m_firstKey(rows.Runs().empty() ? 0 : rows.Runs().front().firstKey),
      m_cells(rows.Runs().empty() ? 0 : rows.Runs().back().endKey - m_firstKey) {
  for (const MURowStore::Run& run : rows.Runs()) {
    if (m_files.empty() || m_files.back().block != run.block) {
      m_files.push_back({run.block, run.versionOfRows});
    }
  }
  std::size_t next = 0;
  MUForEachCell(rows, column, [&](unsigned long key, const MUCellText& text) {
    for (; next != key - m_firstKey; ++next) m_cells[next] = undefinedText;
    m_cells[next++] = text;
  });
}

bool MUColumnCells::TellsTheCellsOf(const MURowStore& rows) const {
  return rows.Version() == m_versionOfRows &&
         std::all_of(m_files.begin(), m_files.end(), [](const File& file) {
           return file.block->VersionOfRows() == file.versionOfRows;
         });
}
