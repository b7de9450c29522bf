// Output iterators: assigning a row appends its index in one set, as last written by a notification or sort.
//
// Cost: one list entry per row. Lifetime: the list is borrowed and must outlive the iterator. Threads: one at
// a time. Failure: a row that is not in the set gives the index that it had there last.
#ifndef OMBRELIA_TABULON_SRC_QUERIES_MUROWINDEXINSERTERS_H
#define OMBRELIA_TABULON_SRC_QUERIES_MUROWINDEXINSERTERS_H

#include <cstddef>
#include <iterator>
#include <list>

#include "Tabulon/src/rows/MUSingleRowDataPlusRowProperties.h"

template <unsigned long MUSingleRowDataPlusRowProperties::*INDEX>
class MURowIndexInserter {
 public:
  using iterator_category = std::output_iterator_tag;
  using value_type = void;
  using difference_type = std::ptrdiff_t;
  using pointer = void;
  using reference = void;

  explicit MURowIndexInserter(std::list<unsigned long>& indices) : m_indices(&indices) {}
  MURowIndexInserter& operator=(const MUSingleRowDataPlusRowProperties* row) {
    m_indices->push_back(row->*INDEX);
    return *this;
  }
  MURowIndexInserter& operator*() { return *this; }
  MURowIndexInserter& operator++() { return *this; }
  MURowIndexInserter& operator++(int) { return *this; }

 private:
  std::list<unsigned long>* m_indices;
};

using custom_back_insert_iterator_active_shown_and_active_semihidden =
    MURowIndexInserter<&MUSingleRowDataPlusRowProperties::m_indexAmongActiveRows>;
using custom_back_insert_iterator_only_fully_shown_rows =
    MURowIndexInserter<&MUSingleRowDataPlusRowProperties::m_indexAmongShownRows>;
using custom_back_insert_iterator_all_rows =
    MURowIndexInserter<&MUSingleRowDataPlusRowProperties::m_indexAmongAllRows>;

#endif
