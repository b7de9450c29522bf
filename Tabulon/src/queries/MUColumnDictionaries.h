// The dictionaries of the columns that were asked for last.
#ifndef OMBRELIA_TABULON_SRC_QUERIES_MUCOLUMNDICTIONARIES_H
#define OMBRELIA_TABULON_SRC_QUERIES_MUCOLUMNDICTIONARIES_H

#include <wx/string.h>

#include <cstddef>
#include <deque>
#include <memory>

class MUColumnDictionary;
class MURowStore;

// Effect: makes dictionaries and keeps the last few of them while they tell what the rows hold.
// Cost: a dictionary takes a walk over all rows to make and a number per row to keep. One that is kept costs
// a look at each file, and at each row that has entries of its own.
// Lifetime: a dictionary that was handed out tells of the rows as they were then, also after they changed.
// Threads: one at a time.
// Failure: any column may be asked for; a column that no row has is one of empty texts.
class MUColumnDictionaries {
 public:
  using Pointer = std::shared_ptr<const MUColumnDictionary>;

  // The dictionary of the column, made if none is kept. rows: always those of the same table.
  Pointer Of(const wxString& column, const MURowStore& rows);
  // The same for a column of at most 4096 different texts; null for another one.
  Pointer OfFewTexts(const wxString& column, const MURowStore& rows);
  // Null if none is kept.
  Pointer Find(const wxString& column, const MURowStore& rows);
  // Drops dictionaries made stale by inserted, erased or moved rows, and the files they keep.
  void DropStale(const MURowStore& rows);

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
};

#endif
