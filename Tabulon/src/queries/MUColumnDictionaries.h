// The dictionaries of the columns that were asked for last.
#ifndef OMBRELIA_TABULON_SRC_QUERIES_MUCOLUMNDICTIONARIES_H
#define OMBRELIA_TABULON_SRC_QUERIES_MUCOLUMNDICTIONARIES_H

#include <wx/string.h>

#include <cstddef>
#include <deque>
#include <memory>

class MUColumnDictionary;
class MURowStore;

// Kept as long as the rows are the same and none has entries of its own, which could be written at any
// time; and no more than a few, because each has a number for every row.
class MUColumnDictionaries {
 public:
  using Pointer = std::shared_ptr<const MUColumnDictionary>;

  // The one of the column; made if there is none.
  Pointer Of(const wxString& column, const MURowStore& rows);
  // The same for a column of few different texts; null for another one.
  Pointer OfFewTexts(const wxString& column, const MURowStore& rows);
  // Null if there is none.
  Pointer Find(const wxString& column, const MURowStore& rows);

 private:
  struct Entry {
    wxString column;
    Pointer dictionary;
  };

  Pointer Kept(const wxString& column, Pointer made);

  static constexpr std::size_t MOST_ENTRIES = 8;
  static constexpr std::size_t FEW_TEXTS = 4096;
  std::deque<Entry> m_entries;
  unsigned long m_versionOfRows = 0;
  unsigned long m_versionOfOverlays = 0;
};

#endif
