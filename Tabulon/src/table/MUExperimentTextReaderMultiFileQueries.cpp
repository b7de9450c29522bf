// Searches and selections, and what is kept of them.
#include <algorithm>
#include <cstdint>
#include <memory>
#include <unordered_set>
#include <utility>

#include "Tabulon/src/queries/MUColumnDictionary.h"
#include "Tabulon/src/queries/MUInterfaceRowTruthDecider.h"
#include "Tabulon/src/queries/MUQueryCachingBroker.h"
#include "Tabulon/src/queries/MUQueryKeys.h"
#include "Tabulon/src/queries/MURowIndexInserters.h"
#include "Tabulon/src/queries/MURowKeySet.h"
#include "Tabulon/src/rows/MUColumnNamePlusProperties.h"
#include "Tabulon/src/rows/MUColumnReader.h"
#include "Tabulon/src/rows/MUColumnWalk.h"
#include "Tabulon/src/rows/MUFlagTests.h"
#include "Tabulon/src/rows/MURowLoan.h"
#include "Tabulon/src/rows/MUSingleRowDataPlusRowProperties.h"
#include "Tabulon/src/rows/MUTextKeeper.h"
#include "Tabulon/src/table/MUExperimentTextReaderMultiFile.h"
#include "Tabulon/src/text/MUTrimmedText.h"

namespace {

using Row = MUSingleRowDataPlusRowProperties;
using Key = MUCachingKeySelectedData;

// Are fetched into the cache during a search.
constexpr std::size_t ROWS_AHEAD = 16;

// The cached answer, or else the one that ask() gives, which then is cached.
template <typename ANSWER, typename ASK>
const ANSWER& Remembered(std::map<Key, ANSWER>& cache, const Key& key, ASK ask) {
  const auto found = cache.find(key);
  if (found != cache.end()) return found->second;
  return cache.emplace(key, ask()).first->second;
}

// Calls action for the rows behind the keys, in their order. A row that has been deleted since the keys
// were frozen is left out.
template <typename ACTION>
void ForEachRow(const MULargeVector<unsigned long>& keys, const MURowStore& rows, ACTION action) {
  for (const unsigned long key : keys) {
    if (Row* row = rows.find(key)) action(row);
  }
}

// The column's cells in the rows that were found, in the order of the keys. Cells are read as they lie in memory,
// because in a sorted table neighbours are far apart.
MUSelectedTexts TextsInOrder(const MULargeVector<unsigned long>& keys, MURowKeySet& found,
                             const MURowStore& rows, const wxString& column) {
  MUScratchArray<unsigned long> foundKeys(found.CountRanks());
  std::size_t count = 0;
  found.ForEach([&](unsigned long key) { foundKeys[count++] = key; });
  const auto keeper = std::make_shared<MUTextKeeper>();
  MUScratchArray<MUCellText> texts(count);
  MUColumnReader reader(column);
  const MURowStore::Run* run = nullptr;
  const MURowStore::Run* runAhead = nullptr;
  for (std::size_t i = 0; i < count; ++i) {
    const unsigned long keyAhead = foundKeys[std::min(i + ROWS_AHEAD, count - 1)];
    runAhead = rows.FindPlainRun(keyAhead, runAhead);
    if (runAhead != nullptr) reader.Prefetch(*runAhead->block, runAhead->LineOf(keyAhead));
    run = rows.FindPlainRun(foundKeys[i], run);
    if (run != nullptr) {
      keeper->KeepAll(*run->block);
      texts[i] = reader.TextOf(*run->block, run->LineOf(foundKeys[i]));
    } else {
      const Row& row = *rows.find(foundKeys[i]);
      texts[i] = keeper->Keep(row, reader.TextOf(row));
    }
  }
  MUSelectedTexts selected;
  selected.keeper = keeper;
  selected.texts.reserve(count);
  for (const unsigned long key : keys) {
    if (found.Holds(key)) selected.texts.push_back(texts[found.RankOf(key)]);
  }
  return selected;
}

template <typename TEST>
std::deque<wxString> NamesOfColumns(const std::deque<MUColumnNamePlusProperties*>& columns,
                                    TEST test) {
  std::deque<wxString> names;
  for (const MUColumnNamePlusProperties* column : columns) {
    if (test(column->m_columnPropertyFlags)) names.push_back(column->m_columnName);
  }
  return names;
}

template <typename TEST>
std::list<unsigned long> IndicesOfRows(
    MUInterfaceMultiExperimentDataSource::TARGETED_ROW_SEARCH_SET set,
    const MULargeVector<unsigned long>& activeKeys, const MULargeVector<unsigned long>& shownKeys,
    const MURowStore& rows, TEST test) {
  std::list<unsigned long> indices;
  const auto copyIfTestHolds = [&test](auto inserter) {
    return [&test, inserter](const Row* row) mutable {
      if (test(row->m_rowPropertyFlags)) *inserter++ = row;
    };
  };
  switch (set) {
    case MUInterfaceMultiExperimentDataSource::ACTIVE_SHOWN_AND_ACTIVE_SEMIHIDDEN:
      ForEachRow(
          activeKeys, rows,
          copyIfTestHolds(custom_back_insert_iterator_active_shown_and_active_semihidden(indices)));
      break;
    case MUInterfaceMultiExperimentDataSource::ONLY_FULLY_SHOWN_ROWS:
      ForEachRow(shownKeys, rows,
                 copyIfTestHolds(custom_back_insert_iterator_only_fully_shown_rows(indices)));
      break;
    default: {
      auto copy = copyIfTestHolds(custom_back_insert_iterator_all_rows(indices));
      for (const auto& entry : rows) copy(entry.second);
    }
  }
  return indices;
}

}  // namespace

void MUExperimentTextReaderMultiFile::EraseCachesOfQueries() {
  m_cacheStringSelects.clear();
  m_broker->EmptyAllCachedData();
  m_cacheColumnNames.clear();
  m_cacheRowIndicesByFlags.clear();
  SafeClearCachesOfRowIndicesSetsPointers();
  SafeClearStoredNonCachedConstPointers();
}

void MUExperimentTextReaderMultiFile::SafeClearCachesOfRowIndicesSetsPointers() {
  for (const auto& entry : m_cacheRowIndexHolders) {
    delete *entry.second;
    *entry.second = nullptr;
  }
}

void MUExperimentTextReaderMultiFile::SafeClearStoredNonCachedConstPointers() {
  for (const RowIndexList** holder : m_nonCachedHolders) {
    delete *holder;
    *holder = nullptr;
  }
}

std::deque<wxString> MUExperimentTextReaderMultiFile::FindColumnNamesByPropertyFlag(
    unsigned flags) const {
  return Remembered(m_cacheColumnNames, MUQueryKeys::ColumnNamesByFlag(flags), [&] {
    return NamesOfColumns(m_columns, [=](unsigned has) { return HasAllFlags(has, flags); });
  });
}

std::deque<wxString> MUExperimentTextReaderMultiFile::FindColumnNamesWherePropertyFlagIsAbsent(
    unsigned flags) const {
  return Remembered(m_cacheColumnNames, MUQueryKeys::ColumnNamesByAbsentFlag(flags), [&] {
    return NamesOfColumns(m_columns, [=](unsigned has) { return HasNoFlag(has, flags); });
  });
}

std::deque<wxString> MUExperimentTextReaderMultiFile::FindColumnNamesHavingFlagsX_andAbsentFlagsY(
    unsigned x, unsigned y) const {
  return Remembered(m_cacheColumnNames, MUQueryKeys::ColumnNamesByFlagAndAbsentFlag(x, y), [&] {
    return NamesOfColumns(m_columns, [=](unsigned has) { return HasAllFlagsAndNone(has, x, y); });
  });
}

std::list<CompactColumnInfoStruct>
MUExperimentTextReaderMultiFile::FindColumnInformationWherePropertyFlagIsAbsent(unsigned flags) {
  std::list<CompactColumnInfoStruct> columns;
  for (const MUColumnNamePlusProperties* column : m_columns) {
    if (!HasNoFlag(column->m_columnPropertyFlags, flags)) continue;
    CompactColumnInfoStruct info;
    info.m_columnName = column->m_columnName;
    info.m_hidden = !HasNoFlag(column->m_columnPropertyFlags, MU_NOT_FULLY_SHOWN_MASK);
    columns.push_back(info);
  }
  return columns;
}

// Each key once: a viewer may ask the same question at every repaint without any flag ever changing.
void MUExperimentTextReaderMultiFile::NoteRedFlagDependence(const MUCachingKeySelectedData& key,
                                                            unsigned flags) const {
  if ((flags & MU_ROW_FLAG_RED_FLAG) == 0) return;
  const bool known =
      std::any_of(m_redFlagDependentKeys.begin(), m_redFlagDependentKeys.end(),
                  [&key](const MUCachingKeySelectedData& noted) { return noted.Equals(key); });
  if (!known) m_redFlagDependentKeys.push_back(key);
}

std::list<unsigned long> MUExperimentTextReaderMultiFile::FindCurrentRowIndicesByPropertyFlag(
    unsigned flags, TARGETED_ROW_SEARCH_SET set) const {
  const Key key = MUQueryKeys::RowsByFlag(flags, set);
  NoteRedFlagDependence(key, flags);
  return Remembered(m_cacheRowIndicesByFlags, key, [&] {
    return IndicesOfRows(set, m_activeRowKeys, *m_currentShownRowKeys, m_rows,
                         [=](unsigned has) { return HasAllFlags(has, flags); });
  });
}

std::list<unsigned long>
MUExperimentTextReaderMultiFile::FindCurrentRowIndicesWherePropertyFlagIsAbsent(
    unsigned flags, TARGETED_ROW_SEARCH_SET set) const {
  const Key key = MUQueryKeys::RowsByAbsentFlag(flags, set);
  NoteRedFlagDependence(key, flags);
  return Remembered(m_cacheRowIndicesByFlags, key, [&] {
    return IndicesOfRows(set, m_activeRowKeys, *m_currentShownRowKeys, m_rows,
                         [=](unsigned has) { return HasNoFlag(has, flags); });
  });
}

std::list<unsigned long>
MUExperimentTextReaderMultiFile::FindCurrentRowIndicesHavingFlagsX_andAbsentFlagsY(
    unsigned x, unsigned y) const {
  const Key key = MUQueryKeys::RowsByFlagAndAbsentFlag(x, y);
  NoteRedFlagDependence(key, x | y);
  return Remembered(m_cacheRowIndicesByFlags, key, [&] {
    // A deleted row still counts a place: the list of keys is as frozen as the caller's indices are.
    RowIndexList indices;
    for (std::size_t place = 0; place < m_allRowKeys.size(); ++place) {
      const Row* row = m_rows.find(m_allRowKeys[place]);
      if (row != nullptr && HasAllFlagsAndNone(row->m_rowPropertyFlags, x, y))
        indices.push_back(place);
    }
    return indices;
  });
}

const std::list<unsigned long>*
MUExperimentTextReaderMultiFile::FindCurrentRowIndicesMatchingRowTruthPredicate(
    MUInterfaceRowTruthDecider* decider, bool includeAllRows) {
  const TARGETED_ROW_SEARCH_SET set = includeAllRows ? ALL_ROWS : ONLY_FULLY_SHOWN_ROWS;
  const std::size_t size = KeysOfSet(set)->size();
  if (size == 0) return &m_emptyIndexList;
  return InternalFindCurrentRowIndicesMatchingRowTruthPredicate(decider, set, 0, size - 1);
}

const std::list<unsigned long>*
MUExperimentTextReaderMultiFile::FindCurrentRowIndicesMatchingRowTruthPredicateWithinRange(
    MUInterfaceRowTruthDecider* decider, bool includeAllRows, int first, int last) {
  const TARGETED_ROW_SEARCH_SET set = includeAllRows ? ALL_ROWS : ONLY_FULLY_SHOWN_ROWS;
  const std::size_t size = KeysOfSet(set)->size();
  if (size == 0) return &m_emptyIndexList;
  const std::size_t from = first < 0 ? 0 : static_cast<std::size_t>(first);
  const std::size_t to = last < 0 ? size - 1 : static_cast<std::size_t>(last);
  if (from >= size || to >= size) return &m_emptyIndexList;
  return InternalFindCurrentRowIndicesMatchingRowTruthPredicate(decider, set, from, to);
}

const std::list<unsigned long>*
MUExperimentTextReaderMultiFile::FindCurrentRowIndicesMatchingRowTruthPredicateWithinGivenIndices(
    MUInterfaceRowTruthDecider* decider, const std::list<unsigned long>& indices,
    bool includeAllRows) {
  const RowKeys& keys = *KeysOfSet(includeAllRows ? ALL_ROWS : ONLY_FULLY_SHOWN_ROWS);
  m_givenRowKeys.clear();
  for (const unsigned long index : indices) {
    if (index < keys.size()) m_givenRowKeys.push_back(keys[index]);
  }
  if (m_givenRowKeys.empty()) return &m_emptyIndexList;
  const RowIndexList* places = InternalFindCurrentRowIndicesMatchingRowTruthPredicate(
      decider, CALLER_GIVEN_ROWS, 0, m_givenRowKeys.size() - 1);

  // Places count the given rows that exist, the walk counts all that were given: an index out of range
  // shifts the answers behind it. Callers know this.
  auto found = std::make_unique<RowIndexList>();
  auto index = indices.begin();
  unsigned long walked = 0;
  for (const unsigned long place : *places) {
    for (; walked < place; ++walked) ++index;
    found->push_back(*index);
  }
  const RowIndexList* result = found.get();
  SafeStoreNonCachedConstPointerToDeleteLater(found.release());
  return result;
}

const std::list<unsigned long>*
MUExperimentTextReaderMultiFile::InternalFindCurrentRowIndicesMatchingRowTruthPredicate(
    MUInterfaceRowTruthDecider* decider, TARGETED_ROW_SEARCH_SET set, unsigned long first,
    unsigned long last) {
  if (first > last) std::swap(first, last);
  std::unique_ptr<Key> key;
  if (set != CALLER_GIVEN_ROWS && decider->ResultMayBeCached()) {
    key = std::make_unique<Key>(MUQueryKeys::RowsByPredicate(decider->GetIdentityString(), set,
                                                             static_cast<unsigned>(first),
                                                             static_cast<unsigned>(last)));
    const auto cached = m_cacheRowIndexHolders.find(*key);
    if (cached != m_cacheRowIndexHolders.end() && *cached->second != nullptr)
      return *cached->second;
  }

  auto found = std::make_unique<RowIndexList>();
  // A copy: a decider may search, sort or notify by itself.
  const RowKeys& setKeys = *KeysOfSet(set);
  const RowKeys keys(setKeys.data() + first, setKeys.data() + last + 1);
  MURowLoan loan;
  for (std::size_t i = 0; i < keys.size(); ++i) {
    if (i + ROWS_AHEAD < keys.size()) m_rows.Prefetch(keys[i + ROWS_AHEAD]);
    Row* const row = m_rows.find(keys[i]);
    if (row == nullptr) continue;
    const unsigned long version = m_rows.Version();
    MULoadOrder::CallLoan callLoan(m_loadOrder);
    loan.Lend(*row);
    if (decider->DecideRow(row) == 1) found->push_back(first + i);
    if (m_rows.Version() != version || m_loadOrder.IsLent(keys[i])) {
      // The row may be gone, or somebody may keep what he borrowed from it.
      loan.Forget();
    } else if (loan.Return(*row)) {
      callLoan.NoteUnchanged();
    }
  }

  const RowIndexList* result = found.release();
  if (key != nullptr) {
    SafeStoreNewValueInCachesOfRowIndicesSetsPointers(*key, result);
  } else {
    SafeStoreNonCachedConstPointerToDeleteLater(result);
  }
  return result;
}

void MUExperimentTextReaderMultiFile::SafeStoreNewValueInCachesOfRowIndicesSetsPointers(
    const MUCachingKeySelectedData& key, const RowIndexList* indices) {
  const auto entry = m_cacheRowIndexHolders.find(key);
  if (entry == m_cacheRowIndexHolders.end()) {
    m_cacheRowIndexHolders.emplace(key, new const RowIndexList*(indices));
  } else if (*entry->second == nullptr) {
    *entry->second = indices;
  } else {
    // A decider that searched by its own key while it decided: its caller holds the first list, this
    // one's caller the second.
    SafeStoreNonCachedConstPointerToDeleteLater(indices);
  }
}

void MUExperimentTextReaderMultiFile::SafeStoreNonCachedConstPointerToDeleteLater(
    const RowIndexList* indices) {
  m_nonCachedHolders.push_back(new const RowIndexList*(indices));
}

void MUExperimentTextReaderMultiFile::SelectDistinctPerColumn(const wxString& column,
                                                              std::vector<wxString>& values,
                                                              TARGETED_ROW_SEARCH_SET set,
                                                              bool trim) const {
  const Key key = MUQueryKeys::DistinctValues(column, set, trim);
  values = Remembered(m_cacheStringSelects, key, [&] {
             const RowKeys* keys = set == CALLER_GIVEN_ROWS ? nullptr : KeysOfSet(set);
             return keys == nullptr ? MUSelectedTexts() : DistinctTexts(column, *keys, trim);
           }).ToTexts();
}

MUSelectedTexts MUExperimentTextReaderMultiFile::DistinctTexts(const wxString& column,
                                                               const RowKeys& keys,
                                                               bool trim) const {
  const auto dictionary = m_columnTexts.Dictionaries().Of(column, m_rows);
  MUSelectedTexts distinct;
  distinct.keeper = dictionary;
  distinct.texts.reserve(std::min(dictionary->TextCount(), keys.size()));
  std::vector<bool> seen(dictionary->TextCount());
  std::unordered_set<MUCellText, MUCellTextHash> seenTrimmed;
  std::size_t unseen = dictionary->TextCount();
  for (auto key = keys.begin(); key != keys.end() && unseen != 0; ++key) {
    const std::uint32_t number = dictionary->NumberOfRow(*key);
    if (number == MUColumnDictionary::NONE || seen[number]) continue;
    seen[number] = true;
    --unseen;
    const MUCellText& text = dictionary->Text(number);
    if (!trim) {
      distinct.texts.push_back(text);
    } else if (const MUCellText trimmed = TrimmedText(text); seenTrimmed.insert(trimmed).second) {
      distinct.texts.push_back(trimmed);
    }
  }
  return distinct;
}

// The rows whose cell in the column is this text. keys: the rows that the answer will be taken from; others may be
// in it, too.
MURowKeySet MUExperimentTextReaderMultiFile::RowsWhere(const wxString& column, const wxString& text,
                                                       const RowKeys& keys) const {
  MURowKeySet found(m_rows.KeyLimit());
  const MUWantedText wanted(text);
  if (const auto dictionary = m_columnTexts.Dictionaries().Find(column, m_rows)) {
    // One that is there answers faster; making one for a single question would take longer than the answer.
    const std::uint32_t number = dictionary->NumberOfText(wanted.View());
    if (number == MUColumnDictionary::NONE) return found;
    for (const unsigned long key : keys) {
      if (dictionary->NumberOfRow(key) == number) found.Add(key);
    }
  } else if (keys.size() < m_rows.size() / 4) {
    MUColumnReader cells(column);
    for (const unsigned long key : keys) {
      const Row* const row = m_rows.find(key);
      if (row != nullptr && wanted.Equals(cells.TextOf(*row))) found.Add(key);
    }
  } else {
    MUForEachCell(m_rows, column, [&](unsigned long key, const MUCellText& cell) {
      if (wanted.Equals(cell)) found.Add(key);
    });
  }
  return found;
}

std::vector<wxString> MUExperimentTextReaderMultiFile::GetAllFromCol_X_WhereField_Y_Matches_Z(
    const wxString& columnX, const wxString& fieldY, const wxString& valueZ, bool includeAllRows) {
  const Key key = MUQueryKeys::OneColumnWhere(columnX, fieldY, valueZ, includeAllRows);
  return Remembered(m_cacheStringSelects, key,
                    [&] {
                      const RowKeys& keys =
                          *KeysOfSet(includeAllRows ? ALL_ROWS : ONLY_FULLY_SHOWN_ROWS);
                      MURowKeySet found = RowsWhere(fieldY, valueZ, keys);
                      return TextsInOrder(keys, found, m_rows, columnX);
                    })
      .ToTexts();
}

const std::vector<std::map<wxString, wxString>*>*
MUExperimentTextReaderMultiFile::GetAllFromMultiCols_X_WhereField_Y_Matches_Z(
    const std::deque<wxString>& columnsX, const wxString& fieldY, const wxString& valueZ,
    bool includeAllRows) {
  const Key key = MUQueryKeys::SeveralColumnsWhere(columnsX, fieldY, valueZ, includeAllRows);
  if (const auto* held = m_broker->GetSharedPointerToMultiSelect(key)) return held;

  auto result = std::make_unique<MUQueryCachingBroker::MultiSelect>();
  std::deque<MUColumnReader> columns(columnsX.begin(), columnsX.end());
  const auto take = [&](const Row& row) {
    auto cells = std::make_unique<std::map<wxString, wxString>>();
    for (std::size_t i = 0; i < columnsX.size(); ++i) {
      cells->emplace(columnsX[i], columns[i].TextOf(row).ToString());
    }
    result->push_back(cells.release());
  };
  const RowKeys& keys = *KeysOfSet(includeAllRows ? ALL_ROWS : ONLY_FULLY_SHOWN_ROWS);
  if (valueZ == SPECIAL_CODE_TO_REQUEST_MATCH_ALL_ROWS) {
    ForEachRow(keys, m_rows, [&](const Row* row) { take(*row); });
  } else {
    const MURowKeySet found = RowsWhere(fieldY, valueZ, keys);
    for (const unsigned long rowKey : keys) {
      if (found.Holds(rowKey)) take(*m_rows.find(rowKey));
    }
  }
  MUQueryCachingBroker::MultiSelect* held = result.release();
  m_broker->HoldThisDataMultiSelect(key, held);
  return held;
}
