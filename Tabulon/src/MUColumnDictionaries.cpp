#include "Tabulon/src/MUColumnDictionaries.h"

#include "Tabulon/src/MUColumnDictionary.h"
#include "Tabulon/src/MURowStore.h"
#include "Tabulon/src/MURowText.h"

MUColumnDictionaries::Pointer MUColumnDictionaries::Of(const wxString& column,
                                                       const MURowStore& rows) {
  if (Pointer known = Find(column, rows)) return known;
  auto made = std::make_shared<MUColumnDictionary>(rows, column);
  if (made->RowsArePlain()) {
    if (m_entries.size() == MOST_ENTRIES) m_entries.pop_front();
    m_entries.push_back({column, made});
  }
  return made;
}

MUColumnDictionaries::Pointer MUColumnDictionaries::Find(const wxString& column,
                                                         const MURowStore& rows) {
  if (m_versionOfRows != rows.Version() || m_versionOfOverlays != MURowText::VersionOfOverlays()) {
    m_entries.clear();
    m_versionOfRows = rows.Version();
    m_versionOfOverlays = MURowText::VersionOfOverlays();
  }
  for (const Entry& entry : m_entries) {
    if (entry.column == column) return entry.dictionary;
  }
  return nullptr;
}
