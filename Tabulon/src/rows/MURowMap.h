// The five per-column maps of a row: views into the block of its file that answer as maps do.
#ifndef OMBRELIA_TABULON_SRC_ROWS_MUROWMAP_H
#define OMBRELIA_TABULON_SRC_ROWS_MUROWMAP_H

#include <wx/string.h>

#include <cstddef>
#include <iterator>
#include <type_traits>
#include <utility>

#include "Tabulon/src/rows/MURowOverlays.h"
#include "Tabulon/src/rows/MURowText.h"

enum class MURowMapKind { CELLS, HASH01, HASH02, HASH03, TEXT_FITS_IN_HASH };

// What the map of a kind holds: texts, numbers, or yes and no.
template <MURowMapKind KIND>
using MURowMapped =
    std::conditional_t<KIND == MURowMapKind::CELLS, wxString,
                       std::conditional_t<KIND == MURowMapKind::TEXT_FITS_IN_HASH, bool, double>>;

// Effect: a std::map from a column's name to the mapped type, as far as anybody can see: the same entries,
// the same order (wxString::compare), insert keeps an existing entry, the subscript inserts. It has no data
// and works only as a member of MURowMaps, which alone can make or copy it.
// Cost: an entry is copied into the row when it is first handed out by reference or iterator, and a walk
// copies them all. ValueOrDefault, count, size and empty copy nothing; prefer them, and the row's CellAt,
// where many rows are read.
// Lifetime: references and iterators hold until the entry is erased or the row dies.
// Threads: one at a time for all rows of a file; const operations that hand out an entry write to the row.
// Failure: a missing key is answered as std::map answers it; only memory can run out.
template <MURowMapKind KIND>
class MURowMap {
 public:
  using key_type = wxString;
  using mapped_type = MURowMapped<KIND>;
  using value_type = std::pair<const wxString, mapped_type>;
  using size_type = std::size_t;

  template <typename VALUE>
  class Iterator {
   public:
    using iterator_category = std::bidirectional_iterator_tag;
    using value_type = typename MURowMap::value_type;
    using difference_type = std::ptrdiff_t;
    using pointer = VALUE*;
    using reference = VALUE&;

    Iterator() : m_map(nullptr), m_entry(nullptr) {}
    Iterator(const MURowMap* map, value_type* entry) : m_map(map), m_entry(entry) {}
    // An iterator may become a const_iterator.
    template <typename OTHER, typename = std::enable_if_t<!std::is_const_v<OTHER>>>
    Iterator(const Iterator<OTHER>& other) : m_map(other.m_map), m_entry(other.m_entry) {}

    reference operator*() const { return *m_entry; }
    pointer operator->() const { return m_entry; }
    Iterator& operator++() {
      m_entry = m_map->Next(m_entry);
      return *this;
    }
    Iterator operator++(int) {
      Iterator before = *this;
      ++*this;
      return before;
    }
    Iterator& operator--() {
      m_entry = m_map->Previous(m_entry);
      return *this;
    }
    Iterator operator--(int) {
      Iterator before = *this;
      --*this;
      return before;
    }
    friend bool operator==(const Iterator& a, const Iterator& b) { return a.m_entry == b.m_entry; }
    friend bool operator!=(const Iterator& a, const Iterator& b) { return a.m_entry != b.m_entry; }

   private:
    template <typename OTHER>
    friend class Iterator;
    const MURowMap* m_map;
    value_type* m_entry;  // null at the end
  };
  using iterator = Iterator<value_type>;
  using const_iterator = Iterator<const value_type>;

  mapped_type& operator[](const wxString& key);
  iterator find(const wxString& key) { return {this, Pin(key)}; }
  const_iterator find(const wxString& key) const { return {this, Pin(key)}; }
  size_type count(const wxString& key) const;
  std::pair<iterator, bool> insert(const value_type& entry);
  size_type erase(const wxString& key);
  void clear();
  size_type size() const;
  bool empty() const { return size() == 0; }
  iterator begin() { return {this, Next(nullptr)}; }
  iterator end() { return {this, nullptr}; }
  const_iterator begin() const { return {this, Next(nullptr)}; }
  const_iterator end() const { return {this, nullptr}; }

  // What the subscript would answer, without leaving an entry behind.
  mapped_type ValueOrDefault(const wxString& key) const;

 private:
  friend struct MURowMaps;
  MURowMap() = default;
  MURowMap(const MURowMap&) = default;
  MURowMap& operator=(const MURowMap&) = default;

  using Overlay = MURowOverlay<mapped_type>;

  const MURowText& Text() const;
  const Overlay* FindOverlay() const;
  Overlay& MakeOverlay() const;
  value_type* Pin(const wxString& key) const;
  Overlay& PinAll() const;
  value_type* Next(const value_type* entry) const;
  value_type* Previous(const value_type* entry) const;
};

// A row's text and the five maps over it: a map finds the text by its place in this record. The maps have no
// data, and where the compiler knows the attribute they take no room either.
struct MURowMaps {
  MURowMaps() = default;
  MURowMaps(const MUDataFileBlockPtr& block, std::size_t row, std::size_t columnCount)
      : m_text(block, row, columnCount) {}

  MURowText m_text;  // what the maps look at; of no use to others
  // Column name to text, with the hidden cells.
  [[no_unique_address]] MURowMap<MURowMapKind::CELLS> m_cells;
  // Sort keys of the characters 0 to 5, 6 to 11 and 12 to 17, and whether there are fewer than 19.
  [[no_unique_address]] MURowMap<MURowMapKind::HASH01> m_hash01;
  [[no_unique_address]] MURowMap<MURowMapKind::HASH02> m_hash02;
  [[no_unique_address]] MURowMap<MURowMapKind::HASH03> m_hash03;
  [[no_unique_address]] MURowMap<MURowMapKind::TEXT_FITS_IN_HASH> m_textFitsInHash;
};

#endif
