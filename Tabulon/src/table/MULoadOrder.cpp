#include "Tabulon/src/table/MULoadOrder.h"

#include <algorithm>

#include "Tabulon/src/rows/MURowStore.h"
#include "Tabulon/src/rows/MUSingleRowDataPlusRowProperties.h"

namespace {

// Appends keys to a list behind its first count ones. There must be room for them.
class KeyWriter {
 public:
  KeyWriter(MURowKeyLists::RowKeys& keys, std::size_t count, std::size_t room) : m_count(count) {
    keys.resize(count + room);
    m_keys = keys.data();
  }
  // Writes the key's place, too.
  void Append(unsigned long key, unsigned long& place) {
    Write(place, m_count);
    Write(m_keys[m_count++], key);
  }
  std::size_t Count() const { return m_count; }

 private:
  // Most often the number stands there already; what need not be written back costs half.
  static void Write(unsigned long& memory, unsigned long number) {
    if (memory != number) memory = number;
  }

  unsigned long* m_keys;
  std::size_t m_count;
};

bool HoldsAt(const MURowKeyLists::RowKeys& keys, unsigned long place, unsigned long key) {
  return place < keys.size() && keys[place] == key;
}

}  // namespace

void MULoadOrder::Write(const MURowStore& rows, const MURowKeyLists& lists, bool rowsAreOurs) {
  const bool append = rowsAreOurs && OnlyRowsArrived(rows, lists);
  m_stands = false;  // stays false if memory runs out below
  // What a call wrote before this Write, it may take back afterwards.
  m_writtenInACall = m_recordsInCalls != 0;
  if (append) {
    CopyShownKeysInto(lists.shown);
  } else {
    m_commonKeyCount = 0;
    ForgetRecordsOfRowsThatAreGone(rows);
  }
  const std::size_t known = append ? lists.all.size() : 0;
  const std::size_t arriving = rows.size() - known;
  const unsigned long firstKey = known == 0 ? 0 : lists.all.back() + 1;
  KeyWriter all(lists.all, known, arriving);
  KeyWriter active(lists.active, append ? lists.active.size() : 0, arriving);
  KeyWriter shown(lists.shown, append ? lists.shown.size() : 0, arriving);
  rows.ForEachFrom(firstKey, [&](unsigned long key, Row* row) {
    all.Append(key, row->m_indexAmongAllRows);
    if ((row->m_rowPropertyFlags & MU_INACTIVE_MASK) != 0) return;
    active.Append(key, row->m_indexAmongActiveRows);
    if ((row->m_rowPropertyFlags & MU_NOT_FULLY_SHOWN_MASK) != 0) return;
    shown.Append(key, row->m_indexAmongShownRows);
  });
  lists.active.resize(active.Count());
  lists.shown.resize(shown.Count());
  m_shownKeys = &lists.shown;
  m_shownKeyCount = lists.shown.size();
  m_stands = true;
}

void MULoadOrder::Forget() {
  m_stands = false;
  m_commonKeyCount = 0;
}

bool MULoadOrder::HoldsAllRowsAsShown(const MURowStore& rows, const MURowKeyLists& lists,
                                      bool rowsAreOurs) const {
  return rowsAreOurs && m_shownKeys == &lists.shown && OnlyRowsArrived(rows, lists) &&
         m_shownKeyCount == rows.size();
}

void MULoadOrder::Lend(unsigned long key) {
  if (key >= m_isLent.size()) m_isLent.resize(key + 1);
  if (m_isLent[key]) return;
  m_lentKeys.push_back(key);
  m_isLent[key] = true;
}

bool MULoadOrder::OnlyRowsArrived(const MURowStore& rows, const MURowKeyLists& lists) const {
  if (!m_stands || m_recordsInCalls != 0 || m_writtenInACall) return false;
  if (m_shownKeys->size() != m_shownKeyCount) return false;
  return std::all_of(m_lentKeys.begin(), m_lentKeys.end(), [&](unsigned long key) {
    const Row* const row = rows.find(key);
    return row == nullptr || StandsAsListed(key, *row, lists);
  });
}

// A row that is in no list may have an old place, but then another key stands there.
bool MULoadOrder::StandsAsListed(unsigned long key, const Row& row,
                                 const MURowKeyLists& lists) const {
  const bool isActive = (row.m_rowPropertyFlags & MU_INACTIVE_MASK) == 0;
  const bool isShown = (row.m_rowPropertyFlags & MU_NOT_FULLY_SHOWN_MASK) == 0;
  return HoldsAt(lists.all, row.m_indexAmongAllRows, key) &&
         HoldsAt(lists.active, row.m_indexAmongActiveRows, key) == isActive &&
         HoldsAt(*m_shownKeys, row.m_indexAmongShownRows, key) == isShown;
}

// The buffer of the notification before the last often has the beginning already.
void MULoadOrder::CopyShownKeysInto(RowKeys& keys) {
  if (&keys == m_shownKeys) return;
  if (keys.size() != m_commonKeyCount || keys.size() > m_shownKeys->size()) keys.clear();
  keys.insert(keys.end(), m_shownKeys->begin() + static_cast<RowKeys::difference_type>(keys.size()),
              m_shownKeys->end());
  m_commonKeyCount = m_shownKeys->size();
}

void MULoadOrder::ForgetRecordsOfRowsThatAreGone(const MURowStore& rows) {
  const auto end = std::remove_if(m_lentKeys.begin(), m_lentKeys.end(), [&](unsigned long key) {
    if (rows.find(key) != nullptr) return false;
    m_isLent[key] = false;
    return true;
  });
  m_lentKeys.erase(end, m_lentKeys.end());
}
