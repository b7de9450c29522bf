// Rows by row key, for a table that gives its keys out from a counter.
#ifndef OMBRELIA_TABULON_SRC_ROWS_MUROWSTORE_H
#define OMBRELIA_TABULON_SRC_ROWS_MUROWSTORE_H

#include <algorithm>
#include <array>
#include <cstddef>
#include <memory>
#include <vector>

#include "Tabulon/src/memory/MUPooledMemory.h"

class MUDataFileBlock;
struct MUSingleRowDataPlusRowProperties;

// Answers like a map from key to row, in constant time: keys are dense and ascending, so they lead
// straight to a place in a page of fixed size. A page whose rows are all erased is freed, so that a table
// whose files come and go does not grow. Rows are not owned.
class MURowStore {
 public:
  using Row = MUSingleRowDataPlusRowProperties;

  struct Entry {
    unsigned long first;
    Row* second;
  };

  // Rows with neighbouring keys that are nothing but neighbouring lines of one file: the keys from firstKey
  // up to endKey, which is not one of them, the first of them on the line firstRow of the block.
  struct Run {
    unsigned long firstKey;
    unsigned long endKey;
    const MUDataFileBlock* block;  // null: each row has to be asked itself
    std::size_t firstRow;
  };

  // Goes through the rows in key order. Erasing any row leaves it valid, inserting does not.
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

  std::size_t size() const { return m_size; }
  bool empty() const { return m_size == 0; }
  const_iterator begin() const { return {this, FirstUsedPlaceFrom(0)}; }
  // From the first row whose key is at least this one.
  const_iterator from(unsigned long key) const {
    return {this, FirstUsedPlaceFrom(std::min<std::size_t>(key, PlaceCount()))};
  }
  const_iterator end() const { return {this, PlaceCount()}; }

  // Above every key.
  unsigned long KeyLimit() const { return PlaceCount(); }
  // Another number after every change. Who keeps what he found out about the rows can tell whether it holds.
  unsigned long Version() const { return m_version; }

  // Calls action(key, row) for every row in key order. The action must not insert or erase.
  template <typename ACTION>
  void ForEach(ACTION action) const {
    unsigned long key = 0;
    for (const std::unique_ptr<Page>& page : m_pages) {
      for (std::size_t i = 0; page != nullptr && i < PAGE_SIZE; ++i) {
        if (page->rows[i] != nullptr) action(key + i, page->rows[i]);
      }
      key += PAGE_SIZE;
    }
  }

  // The rows as runs, in key order. Borrowed until the rows change or one of them gets entries of its own;
  // after that it takes a walk over all rows to make them anew.
  const std::vector<Run>& Runs() const;
  // Null if that walk would be necessary.
  const std::vector<Run>* StandingRuns() const;

  // Null if no row has the key.
  Row* find(unsigned long key) const {
    if (key >= PlaceCount()) return nullptr;
    const Page* page = m_pages[key / PAGE_SIZE].get();
    return page == nullptr ? nullptr : page->rows[key % PAGE_SIZE];
  }
  // row must not be null. False, with nothing changed, if the key is taken.
  bool insert(unsigned long key, Row* row);
  // Whether there was such a row.
  bool erase(unsigned long key);
  void clear();

 private:
  static constexpr std::size_t PAGE_SIZE = 512;
  struct Page {
    static void* operator new(std::size_t bytes) { return MUAllocatePooled(bytes); }
    static void operator delete(void* page, std::size_t bytes) noexcept {
      MUFreePooled(page, bytes);
    }

    std::array<Row*, PAGE_SIZE> rows{};
    std::size_t used = 0;
  };

  std::size_t PlaceCount() const { return m_pages.size() * PAGE_SIZE; }
  void AppendToRuns(unsigned long key, const Row* row) const;

  // The number of places if there is none.
  std::size_t FirstUsedPlaceFrom(std::size_t place) const;

  std::vector<std::unique_ptr<Page>> m_pages;
  std::size_t m_size = 0;
  unsigned long m_version = 0;
  mutable std::vector<Run> m_runs;
  mutable bool m_runsStand = true;
  mutable unsigned long m_runsOverlayVersion = 0;
};

#endif
