// The lists of row keys in load order, and which part of them still stands.
#ifndef OMBRELIA_TABULON_SRC_TABLE_MULOADORDER_H
#define OMBRELIA_TABULON_SRC_TABLE_MULOADORDER_H

#include <cstddef>
#include <utility>
#include <vector>

#include "Tabulon/src/memory/MUScratchArray.h"

class MURowStore;
struct MUSingleRowDataPlusRowProperties;

// The three lists of row keys, which belong to the table.
struct MURowKeyLists {
  using RowKeys = MULargeVector<unsigned long>;

  RowKeys& all;
  RowKeys& active;
  RowKeys& shown;  // the current one of the two buffers
};

// Effect: writes the lists of row keys in load order, and the rows' places in them. Where it knows that rows
// have done nothing but arrive, it appends those; what it writes is the same.
// Cost: a walk over all rows; where it appends, one over the rows that arrived and the records that were
// lent. A bit per row and a number per record that was lent.
// Lifetime: it remembers the address of the shown keys' buffer, but reads it only while that list stands.
// Threads: one at a time.
// Failure: when memory runs out the lists are incomplete, and the next Write makes them anew.
class MULoadOrder {
 public:
  using Row = MUSingleRowDataPlusRowProperties;

  // Writes the lists and the rows' places. rowsAreOurs: nobody else can write to the lists, and to the rows
  // only who got a record by Lend or LendForACall.
  void Write(const MURowStore& rows, const MURowKeyLists& lists, bool rowsAreOurs);

  // Rows were changed or taken out, or lists written, by the table: the next Write makes all anew.
  void Forget();
  // The record of the row was handed out. Its holder may write to it as long as the row lives.
  void Lend(unsigned long key);
  bool IsLent(unsigned long key) const { return key < m_isLent.size() && m_isLent[key]; }
  // A record was handed out for the length of a call, in which it may be written to. Answers whether that was so
  // before.
  bool LendForACall() { return std::exchange(m_lentForACall, true); }
  // It came back from the call as it was. wasLent: what LendForACall answered.
  void ReturnFromACall(bool wasLent) { m_lentForACall = m_lentForACall && wasLent; }

  // Whether the lists stand in load order, complete but for rows that have arrived since.
  bool Stands() const { return m_stands; }
  // The number of keys with which both buffers of shown keys are known to begin.
  std::size_t CommonKeyCount() const { return m_commonKeyCount; }

 private:
  using RowKeys = MURowKeyLists::RowKeys;

  bool OnlyRowsArrived(const MURowStore& rows, const MURowKeyLists& lists) const;
  bool StandsAsListed(unsigned long key, const Row& row, const MURowKeyLists& lists) const;
  void CopyShownKeysInto(RowKeys& keys);
  void ForgetRecordsOfRowsThatAreGone(const MURowStore& rows);

  bool m_stands = false;
  const RowKeys* m_shownKeys = nullptr;  // the buffer that was written last
  std::size_t m_shownKeyCount = 0;       // how many it held
  std::size_t m_commonKeyCount = 0;
  std::vector<unsigned long> m_lentKeys;  // each once
  std::vector<bool> m_isLent;             // by key
  bool m_lentForACall = false;
};

#endif
