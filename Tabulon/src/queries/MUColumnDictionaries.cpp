#include "Tabulon/src/queries/MUColumnDictionaries.h"

#include <utility>

#include "Tabulon/src/queries/MUColumnDictionary.h"
#include "Tabulon/src/rows/MURowStore.h"
#include "Tabulon/src/rows/MURowText.h"

MUColumnDictionaries::Pointer MUColumnDictionaries::Of(const wxString& column,
                                                       const MURowStore& rows) {
  if (Pointer known = Find(column, rows)) return known;
  return Kept(column, std::make_shared<MUColumnDictionary>(rows, column));
}

MUColumnDictionaries::Pointer MUColumnDictionaries::OfFewTexts(const wxString& column,
                                                               const MURowStore& rows) {
  if (const Pointer known = Find(column, rows)) {
    return known->TextCount() <= FEW_TEXTS ? known : nullptr;
  }
  auto made = std::make_shared<MUColumnDictionary>(rows, column, FEW_TEXTS);
  return made->HasGivenUp() ? nullptr : Kept(column, std::move(made));
}

MUColumnDictionaries::Pointer MUColumnDictionaries::Kept(const wxString& column, Pointer made) {
  if (!made->RowsArePlain()) return made;
  if (m_entries.size() == MOST_ENTRIES) m_entries.pop_front();
  m_entries.push_back({column, made});
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
