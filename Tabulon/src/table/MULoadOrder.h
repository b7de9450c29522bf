// The lists of row keys in load order, and which part of them still stands.
#ifndef OMBRELIA_TABULON_SRC_TABLE_MULOADORDER_H
#define OMBRELIA_TABULON_SRC_TABLE_MULOADORDER_H

#include <cstddef>
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

  // Lends a record for one call, which may write to it before and after a Write inside of the call. Calls may nest.
  class CallLoan {
   public:
    explicit CallLoan(MULoadOrder& order) : m_order(order) { ++m_order.m_recordsInCalls; }
    ~CallLoan() {
      --m_order.m_recordsInCalls;
      if (!m_isUnchanged) m_order.m_writtenInACall = true;
    }
    CallLoan(const CallLoan&) = delete;
    CallLoan& operator=(const CallLoan&) = delete;
    // The call left the record unchanged. Without this, the next Write rebuilds all.
    void NoteUnchanged() { m_isUnchanged = true; }

   private:
    MULoadOrder& m_order;
    bool m_isUnchanged = false;
  };

  // Writes the lists and the rows' places. rowsAreOurs: no other code writes the lists; only holders of lent records
  // write rows.
  void Write(const MURowStore& rows, const MURowKeyLists& lists, bool rowsAreOurs);

  // The table changed or removed rows, or wrote lists; the next Write rebuilds all.
  void Forget();
  // The record of the row was handed out. Its holder may write to it as long as the row lives.
  void Lend(unsigned long key);
  bool IsLent(unsigned long key) const { return key < m_isLent.size() && m_isLent[key]; }

  // Whether all rows are fully shown and all lists hold all of their keys in load order. rowsAreOurs: as for Write.
  bool HoldsAllRowsAsShown(const MURowStore& rows, const MURowKeyLists& lists,
                           bool rowsAreOurs) const;

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
  std::size_t m_recordsInCalls = 0;
  bool m_writtenInACall = false;  // since the last Write, or around it
};

#endif
