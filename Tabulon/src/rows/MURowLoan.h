// Rows that are lent one after the other, for a look at each.
#ifndef OMBRELIA_TABULON_SRC_ROWS_MUROWLOAN_H
#define OMBRELIA_TABULON_SRC_ROWS_MUROWLOAN_H

#include <wx/string.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <tuple>
#include <vector>

#include "Tabulon/src/rows/MUColumnReader.h"
#include "Tabulon/src/rows/MURowOverlays.h"

// Effect: removes the entries that a look at a row created, if they equal the row's line; else the row keeps them.
// The next row reuses them, with its own texts, because a decider usually reads the same columns of every row.
// Cost: a copy and a comparison for each entry.
// Lifetime: what was borrowed from a row's maps holds until Return, and longer only if the row keeps it.
// Threads: one at a time for all rows of a file.
// Failure: a row that is not returned keeps what it has.
class MURowLoan {
 public:
  using Row = MUSingleRowDataPlusRowProperties;

  // Before the look. No row may be deleted from here to Return; if one was, Forget and do not Return.
  void Lend(Row& row);
  // After it. Answers whether the record beside the maps, its flags and places, is what it was.
  bool Return(const Row& row);
  void Forget() { *this = MURowLoan(); }

 private:
  using Numbers = std::tuple<std::uint32_t, unsigned long, unsigned long, unsigned long,
                             unsigned long, std::uint64_t>;
  // An entry of the map of cells, and the column that it stands for.
  struct Entry {
    wxString* text;
    MUColumnReader column;
  };

  static Numbers NumbersOf(const Row& row);
  bool LineIsAsItWas(const Row& row) const;
  bool EntriesSayWhatTheLineSays(const Row& row);

  std::unique_ptr<MURowOverlays> m_overlays;  // while no row has them
  std::vector<Entry> m_entries;               // in m_overlays, or in those of the row that is lent
  // The row when it was lent.
  Numbers m_numbers;
  const MUDataFileBlock* m_block = nullptr;  // null for one that keeps all that it has
  std::size_t m_line = 0;
  unsigned long m_version = 0;
  unsigned long m_changeCount = 0;
};

#endif
