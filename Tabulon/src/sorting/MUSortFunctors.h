// What a sort asks of rows: partitions by a predicate, passes by a comparison. They define the order;
// MURowSort.h makes the same order faster for many rows.
//
// Effect: each is made from the sort column's name and answers for rows; none writes to a row.
// Cost: a search for the column's name per row and call.
// Lifetime: the name is copied, the rows are borrowed for the call.
// Threads: any number for rows that nobody writes to.
// Failure: a row without the column's keys reads as 0.0 and as a long text. Rows must not be null.
#ifndef OMBRELIA_TABULON_SRC_SORTING_MUSORTFUNCTORS_H
#define OMBRELIA_TABULON_SRC_SORTING_MUSORTFUNCTORS_H

#include <wx/string.h>

#include <cmath>

#include "Tabulon/src/rows/MUSingleRowDataPlusRowProperties.h"

class MUSortFunctor {
 public:
  using Row = MUSingleRowDataPlusRowProperties;

 protected:
  explicit MUSortFunctor(const wxString& column) : m_column(column) {}

  const wxString m_column;
};

class UnaryPredPartitionByVisibility : public MUSortFunctor {
 public:
  explicit UnaryPredPartitionByVisibility(const wxString& column) : MUSortFunctor(column) {}
  bool operator()(const Row* row) const {
    return (row->m_rowPropertyFlags & MU_NOT_FULLY_SHOWN_MASK) == 0;
  }
};

class CustomUnPredCellTextFitsInHash : public MUSortFunctor {
 public:
  explicit CustomUnPredCellTextFitsInHash(const wxString& column) : MUSortFunctor(column) {}
  bool operator()(const Row* row) const { return row->m_textFitsInHash.ValueOrDefault(m_column); }
};

class CustomUnPredCellTextFitsInHashReverse : public MUSortFunctor {
 public:
  explicit CustomUnPredCellTextFitsInHashReverse(const wxString& column) : MUSortFunctor(column) {}
  bool operator()(const Row* row) const { return !row->m_textFitsInHash.ValueOrDefault(m_column); }
};

template <typename MAP, MAP MURowMaps::*HASH>
class MUCompareByHash : public MUSortFunctor {
 public:
  explicit MUCompareByHash(const wxString& column) : MUSortFunctor(column) {}
  bool operator()(const Row* left, const Row* right) const {
    return (left->*HASH).ValueOrDefault(m_column) < (right->*HASH).ValueOrDefault(m_column);
  }
};

template <typename MAP, MAP MURowMaps::*HASH>
class MUCompareByHashReverse : public MUSortFunctor {
 public:
  explicit MUCompareByHashReverse(const wxString& column) : MUSortFunctor(column) {}
  bool operator()(const Row* left, const Row* right) const {
    return (left->*HASH).ValueOrDefault(m_column) > (right->*HASH).ValueOrDefault(m_column);
  }
};

using CustomComparatorCellTextHash01 =
    MUCompareByHash<MURowMap<MURowMapKind::HASH01>, &MURowMaps::m_hash01>;
using CustomComparatorCellTextHash02 =
    MUCompareByHash<MURowMap<MURowMapKind::HASH02>, &MURowMaps::m_hash02>;
using CustomComparatorCellTextHash03 =
    MUCompareByHash<MURowMap<MURowMapKind::HASH03>, &MURowMaps::m_hash03>;
using CustomComparatorCellTextHash01Reverse =
    MUCompareByHashReverse<MURowMap<MURowMapKind::HASH01>, &MURowMaps::m_hash01>;
using CustomComparatorCellTextHash02Reverse =
    MUCompareByHashReverse<MURowMap<MURowMapKind::HASH02>, &MURowMaps::m_hash02>;
using CustomComparatorCellTextHash03Reverse =
    MUCompareByHashReverse<MURowMap<MURowMapKind::HASH03>, &MURowMaps::m_hash03>;

class RowCompareLessStringCompare : public MUSortFunctor {
 public:
  explicit RowCompareLessStringCompare(const wxString& column) : MUSortFunctor(column) {}
  bool operator()(const Row* left, const Row* right) const {
    return left->m_cells.ValueOrDefault(m_column).compare(right->m_cells.ValueOrDefault(m_column)) <
           0;
  }
};

class RowCompareLessStringCompareReverse : public MUSortFunctor {
 public:
  explicit RowCompareLessStringCompareReverse(const wxString& column) : MUSortFunctor(column) {}
  bool operator()(const Row* left, const Row* right) const {
    return left->m_cells.ValueOrDefault(m_column).compare(right->m_cells.ValueOrDefault(m_column)) >
           0;
  }
};

// The number by which a row sorts. What reads as not-a-number is no number: it would have no place in any
// order, and a sort must keep every row.
inline double SortableReactionTime(const MUSingleRowDataPlusRowProperties& row) {
  return std::isnan(row.m_reactionTime) ? MUSingleRowDataPlusRowProperties::NO_REACTION_TIME
                                        : row.m_reactionTime;
}

class CustomComparatorByRowReactionTimeFunctor : public MUSortFunctor {
 public:
  explicit CustomComparatorByRowReactionTimeFunctor(const wxString& column)
      : MUSortFunctor(column) {}
  bool operator()(const Row* left, const Row* right) const {
    return SortableReactionTime(*left) < SortableReactionTime(*right);
  }
};

class CustomComparatorByRowReactionTimeFunctorReverse : public MUSortFunctor {
 public:
  explicit CustomComparatorByRowReactionTimeFunctorReverse(const wxString& column)
      : MUSortFunctor(column) {}
  bool operator()(const Row* left, const Row* right) const {
    return SortableReactionTime(*left) > SortableReactionTime(*right);
  }
};

#endif
