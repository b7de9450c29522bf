// Rows by row key, for a table that gives its keys out from a counter.
#ifndef OMBRELIA_TABULON_SRC_ROWS_MUROWSTORE_H
#define OMBRELIA_TABULON_SRC_ROWS_MUROWSTORE_H

#include <algorithm>
#include <array>
#include <boost/smart_ptr/intrusive_ptr.hpp>
#include <cstddef>
#include <memory>
#include <vector>

#include "Tabulon/src/machine/MUMachine.h"
#include "Tabulon/src/memory/MUPooledMemory.h"
#include "Tabulon/src/rows/MUDataFileBlock.h"

struct MUSingleRowDataPlusRowProperties;

// Effect: answers like a map from key to row. Rows stand in pages of fixed size under their keys, which are
// dense and ascending.
// Cost: find, insert and erase take constant time. A page is freed with its last row, so that a table whose
// files come and go does not grow. Runs may walk over all rows.
// Lifetime: rows are borrowed, and an erased row is not deleted. Iterators hold until an insertion, runs
// until any insertion or erasure.
// Threads: one at a time; the const Runs writes what it remembers.
// Failure: an unknown key is answered with null or false. Memory for pages up to the highest key is taken
// at once; std::bad_alloc or std::length_error leave the store as it was.
class MURowStore {
 public:
  using Row = MUSingleRowDataPlusRowProperties;

  struct Entry {
    unsigned long first;
    Row* second;
  };

  // Neighbouring keys whose rows are neighbouring lines of one file: the keys from firstKey up to endKey,
  // which is not one of them; the first of them is the line firstRow of the block.
  struct Run {
    unsigned long firstKey;
    unsigned long endKey;
    // Null: each row has to be asked itself. Shared, so that it outlives rows that become others.
    boost::intrusive_ptr<const MUDataFileBlock> block;
    std::size_t firstRow;
    unsigned long versionOfRows;  // the block's when the run was made

    bool Holds(unsigned long key) const { return firstKey <= key && key < endKey; }
    // key: held by the run, or endKey.
    std::size_t LineOf(unsigned long key) const { return firstRow + (key - firstKey); }
    // Whether the block alone tells what the rows' cells are.
    bool IsPlain() const { return block != nullptr && block->VersionOfRows() == versionOfRows; }
  };

  // Visits the rows in key order. Erasing any row leaves it valid, inserting does not.
  class const_iterator {
   public:
    const_iterator(const MURowStore* store, std::size_t place) : m_store(store), m_place(place) {}
    Entry operator*() const { return {m_place, m_store->find(m_place)}; }
    const_iterator& operator++() {
      m_place = m_store->FirstUsedPlaceFrom(m_place + 1);
      return *this;
    }
    bool operator!=(const const_iterator& other) const { return m_place != other.m_place; }
    bool operator==(const const_iterator& other) const { return m_place == other.m_place; }

   private:
    const MURowStore* m_store;
    std::size_t m_place;
  };

  MURowStore() = default;
  // The other store is empty afterwards. Both get a version that no store had before.
  MURowStore(MURowStore&& other) noexcept;
  MURowStore& operator=(MURowStore&& other) noexcept;

  std::size_t size() const { return m_size; }
  bool empty() const { return m_size == 0; }
  const_iterator begin() const { return {this, FirstUsedPlaceFrom(0)}; }
  const_iterator end() const { return {this, PlaceCount()}; }

  // Above every key.
  unsigned long KeyLimit() const { return PlaceCount(); }
  // Changes on every insertion, erasure and move; compare it to detect stale cached facts.
  unsigned long Version() const { return m_version; }

  // Calls action(key, row) for every row in key order. The action must not insert or erase.
  template <typename ACTION>
  void ForEach(ACTION action) const {
    ForEachFrom(0, action);
  }
  // The same for the rows whose key is at least firstKey.
  template <typename ACTION>
  void ForEachFrom(unsigned long firstKey, ACTION action) const {
    std::size_t first = firstKey % PAGE_SIZE;
    for (std::size_t number = firstKey / PAGE_SIZE; number < m_pages.size(); ++number, first = 0) {
      const Page* const page = m_pages[number].get();
      if (page == nullptr) continue;
      for (std::size_t i = first; i < PAGE_SIZE; ++i) {
        if (i + ROWS_AHEAD < PAGE_SIZE) Prefetch(page->rows[i + ROWS_AHEAD]);
        if (page->rows[i] != nullptr) action(number * PAGE_SIZE + i, page->rows[i]);
      }
    }
  }

  // All rows as runs, in key order, each of them plain or of rows that have to be asked. Made anew, by a walk
  // over all rows, if a row was erased or changed since they were made.
  const std::vector<Run>& Runs() const;
  // The plain run that holds the key; null if none is known, and then the row has to be asked. Makes nothing
  // anew. hint: a run that this call answered before, or null; it saves the search if it holds the key, too.
  const Run* FindPlainRun(unsigned long key, const Run* hint) const {
    if (hint != nullptr && hint->Holds(key) && hint->IsPlain()) return hint;
    return SearchPlainRun(key);
  }

  // Null if no row has the key.
  Row* find(unsigned long key) const {
    if (key >= PlaceCount()) return nullptr;
    const Page* page = m_pages[key / PAGE_SIZE].get();
    return page == nullptr ? nullptr : page->rows[key % PAGE_SIZE];
  }
  // Calls the key's row up into the cache, if there is one.
  void Prefetch(unsigned long key) const { Prefetch(find(key)); }
  // row must not be null. False, with nothing changed, if the key is taken.
  bool insert(unsigned long key, Row* row);
  // Whether there was such a row.
  bool erase(unsigned long key);

 private:
  static constexpr std::size_t PAGE_SIZE = 512;
  static constexpr std::size_t ROWS_AHEAD = 32;  // are fetched into the cache during a walk
  struct Page {
    static void* operator new(std::size_t bytes) { return MUAllocatePooled(bytes); }
    static void operator delete(void* page, std::size_t bytes) noexcept {
      MUFreePooled(page, bytes);
    }

    std::array<Row*, PAGE_SIZE> rows{};
    std::size_t used = 0;
  };

  // The record lies in one or two lines of the cache. row: may be null.
  static void Prefetch(const Row* row) {
    if (row == nullptr) return;
    const char* const record = reinterpret_cast<const char*>(row);
    MUPrefetch(record);
    MUPrefetch(record + 48);
  }

  std::size_t PlaceCount() const { return m_pages.size() * PAGE_SIZE; }
  void AppendToRuns(unsigned long key, const Row* row) const;
  void ForgetRuns() const;
  const Run* SearchPlainRun(unsigned long key) const;

  // The number of places if there is none.
  std::size_t FirstUsedPlaceFrom(std::size_t place) const;

  std::vector<std::unique_ptr<Page>> m_pages;
  std::size_t m_size = 0;
  unsigned long m_version = 0;
  mutable std::vector<Run> m_runs;
  mutable bool m_runsStand = true;  // they hold all keys; whether each is plain, it knows itself
};

#endif
