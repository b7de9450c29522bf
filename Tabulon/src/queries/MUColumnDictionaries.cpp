#include "Tabulon/src/queries/MUColumnDictionaries.h"

#include <algorithm>
#include <utility>

#include "Tabulon/src/queries/MUColumnDictionary.h"
#include "Tabulon/src/rows/MURowStore.h"

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
  if (m_entries.size() == MOST_ENTRIES) m_entries.pop_front();
  m_entries.push_back({column, made});
  return made;
}

MUColumnDictionaries::Pointer MUColumnDictionaries::Find(const wxString& column,
                                                         const MURowStore& rows) {
  DropStale(rows);
  const auto entry = std::find_if(m_entries.begin(), m_entries.end(),
                                  [&](const Entry& known) { return known.column == column; });
  if (entry == m_entries.end()) return nullptr;
  if (entry->dictionary->TellsTheTextsOf(rows)) return entry->dictionary;
  m_entries.erase(entry);
  return nullptr;
}

void MUColumnDictionaries::DropStale(const MURowStore& rows) {
  if (m_versionOfRows == rows.Version()) return;
  m_entries.clear();
  m_versionOfRows = rows.Version();
}
