#include "tests/Tabulon/table/TablePlainModel.h"

#include <algorithm>
#include <cmath>

namespace Tests {

namespace {

bool Contains(const Strings& texts, const std::string& text) {
  return std::find(texts.begin(), texts.end(), text) != texts.end();
}

std::string CellOf(const PlainTable::Row& row, const std::string& name) {
  const auto cell = row.cells.find(name);
  return cell == row.cells.end() ? "" : cell->second;
}

std::string Trimmed(const std::string& text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string::npos) return "";
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

double Hash(const std::string& text, std::size_t piece) {
  double sum = 0.0;
  for (std::size_t i = 0; i < 6; ++i) {
    const std::size_t place = piece * 6 + i;
    const double character =
        place < text.size() ? static_cast<double>(static_cast<unsigned char>(text[place])) : 32.0;
    sum += character * std::pow(256.0, 7.0 - static_cast<double>(i));
  }
  return sum;
}

double Number(const PlainTable::Row& row) {
  const std::string text = CellOf(row, "Reaction\nTime");
  if (text.empty()) return -999999.0;
  std::size_t used = 0;
  double number = 0.0;
  try {
    number = std::stod(text, &used);
  } catch (const std::exception&) {
    return -999999.0;
  }
  return used == text.size() ? number : -999999.0;
}

}  // namespace

// ---- Loading

const PlainFile* PlainTable::FindFile(const std::string& path) const {
  for (const PlainFile& file : m_disk) {
    if (file.path == path) return &file;
  }
  return nullptr;
}

bool PlainTable::Add(const std::string& path, bool notify) {
  const PlainFile* file = FindFile(path);
  const bool good = file != nullptr && file->good;
  if (good) {
    for (const Strings& cells : file->rows) {
      Row row;
      row.key = nextKey++;
      for (std::size_t i = 0; i < file->columns.size(); ++i) {
        row.cells[file->columns[i]] = i < cells.size() ? cells[i] : "";
        if (i < cells.size()) row.reached[file->columns[i]] = cells[i];
      }
      row.emptyLine = cells.empty();
      row.cells["FFFFF1"] = path;
      rows.push_back(row);
    }
    // A new column is put behind the one that precedes it in the file, or to the front with those before it.
    std::size_t place = 0;
    for (const std::string& name : file->columns) {
      std::size_t known = 0;
      while (known < columns.size() && columns[known].name != name) ++known;
      if (known < columns.size()) {
        columns[known].files.push_back({path, false});
        place = known + 1;
      } else {
        Column column;
        column.name = name;
        column.files.push_back({path, false});
        columns.insert(columns.begin() + static_cast<std::ptrdiff_t>(place), column);
        ++place;
      }
    }
    UnsuppressColumns({path});
  } else {
    files.erase(path);
  }
  if (notify) pending = true;
  return good;
}

bool PlainTable::AddWithoutViewer(const std::string& path) {
  files.insert({path, true});
  const bool good = Add(path, false);
  if (good) Notification();
  return good;
}

void PlainTable::AddAndRemove(const Requests& requests) {
  Strings gone;
  Strings added;
  for (const auto& [path, wanted] : requests) {
    const bool known = files.count(path) != 0;
    if (known && !wanted) gone.push_back(path);
    if (!known && wanted) added.push_back(path);
  }
  if (!gone.empty()) {
    for (const std::string& path : gone) files.erase(path);
    Delete("FFFFF1", gone, true);
    RemoveColumns(gone);
  }
  for (const std::string& path : added) {
    files.insert({path, true});
    Add(path, false);
  }
  pending = true;
}

void PlainTable::SuppressAndUnsuppress(const Requests& requests) {
  for (const auto& [path, wanted] : requests) {
    if (files.count(path) != 0) continue;
    files[path] = false;
    Add(path, false);
  }
  for (const auto& [path, wanted] : requests) {
    if (files.count(path) != 0) files[path] = wanted;
  }
  for (Column& column : columns) {
    bool anyLive = false;
    for (auto& [path, suppressed] : column.files) {
      for (const Request& request : requests) {
        if (request.first == path) suppressed = !request.second;
      }
      anyLive |= !suppressed;
    }
    column.flags = anyLive ? column.flags & ~8u : column.flags | 8u;
  }
  for (Row& row : rows) {
    for (const Request& request : requests) {
      if (request.first != CellOf(row, "FFFFF1")) continue;
      row.flags = request.second ? row.flags & ~8u : row.flags | 8u;
      break;
    }
  }
  pending = true;
}

void PlainTable::SuppressColumns(const Strings& paths) {
  for (Column& column : columns) {
    bool anyLive = false;
    for (auto& [path, suppressed] : column.files) {
      if (Contains(paths, path)) suppressed = true;
      anyLive |= !suppressed;
    }
    if (!anyLive) column.flags |= 8u;
  }
}

void PlainTable::UnsuppressColumns(const Strings& paths) {
  for (Column& column : columns) {
    bool anyLive = false;
    for (auto& [path, suppressed] : column.files) {
      if (Contains(paths, path)) suppressed = false;
      anyLive |= !suppressed;
    }
    if (anyLive) column.flags &= ~8u;
  }
}

void PlainTable::RemoveColumns(const Strings& paths) {
  SuppressColumns(paths);
  for (std::size_t c = columns.size(); c-- > 0;) {
    Strings left = paths;
    auto& shares = columns[c].files;
    for (std::size_t i = 0; i < shares.size();) {
      const auto name = std::find(left.begin(), left.end(), shares[i].first);
      if (name == left.end()) {
        ++i;
      } else {
        left.erase(name);
        shares.erase(shares.begin() + static_cast<std::ptrdiff_t>(i));
      }
    }
    if (shares.empty()) columns.erase(columns.begin() + static_cast<std::ptrdiff_t>(c));
  }
}

// ---- Visibility

PlainTable::Row* PlainTable::FindRow(unsigned long key) {
  for (Row& row : rows) {
    if (row.key == key) return &row;
  }
  return nullptr;
}

const PlainTable::Row* PlainTable::FindRow(unsigned long key) const {
  return const_cast<PlainTable*>(this)->FindRow(key);
}

PlainTable::Column* PlainTable::FindColumn(const std::string& name) {
  for (Column& column : columns) {
    if (column.name == name) return &column;
  }
  return nullptr;
}

void PlainTable::HideRow(std::size_t shownRow) {
  if (shownRow < shownKeys.size()) {
    if (Row* row = FindRow(shownKeys[shownRow])) row->flags |= 32u;
  }
  pending = true;
}

void PlainTable::UnhideRows() {
  for (Row& row : rows) {
    const auto file = files.find(CellOf(row, "FFFFF1"));
    if (file != files.end() && file->second) row.flags &= ~32u;
  }
  pending = true;
}

void PlainTable::SetColumnHidden(const std::string& name, bool hidden) {
  Column* column = FindColumn(name);
  if (column == nullptr) return;
  column->flags = hidden ? column->flags | 32u : column->flags & ~32u;
  pending = true;
}

void PlainTable::Move(const std::string& moved, const std::string& before) {
  for (std::size_t from = 0; from < columns.size(); ++from) {
    if (columns[from].name != moved) continue;
    const Column column = columns[from];
    columns.erase(columns.begin() + static_cast<std::ptrdiff_t>(from));
    std::size_t to = 0;
    while (to < columns.size() && columns[to].name != before) ++to;
    columns.insert(columns.begin() + static_cast<std::ptrdiff_t>(to), column);
    pending = true;
    return;
  }
}

int PlainTable::HideEmpty() {
  int count = 0;
  if (shownCount > 0 && columnCount > 0) {
    for (std::size_t i = 0; i < hasText.size() && i < names.size(); ++i) {
      if (hasText[i] == 2)
        hasText[i] = Distinct(names[i], PlainSet::Shown, true) == Strings({""}) ? 0 : 1;
      if (hasText[i] == 0) {
        SetColumnHidden(names[i], true);
        ++count;
      }
    }
  }
  searchFinished = true;
  return count;
}

void PlainTable::Slice() {
  if (searchFinished) return;
  // Small tables are done in one slice.
  for (std::size_t i = 0; i < names.size(); ++i) {
    hasText[i] = 0;
    for (const unsigned long key : shownKeys) {
      const Row* row = FindRow(key);
      if (row != nullptr && !Trimmed(CellOf(*row, names[i])).empty()) hasText[i] = 1;
    }
  }
  searchFinished = true;
}

void PlainTable::SetFlag(long shownRow, bool value) {
  for (auto entry = m_byFlags.begin(); entry != m_byFlags.end();) {
    entry = entry->first[0] == 'R' ? m_byFlags.erase(entry) : std::next(entry);
  }
  if (shownRow < 0 || static_cast<std::size_t>(shownRow) >= shownKeys.size()) return;
  Row* row = FindRow(shownKeys[static_cast<std::size_t>(shownRow)]);
  if (row != nullptr) row->flags = value ? row->flags | 64u : row->flags & ~64u;
}

bool PlainTable::Flag(long shownRow) const {
  if (shownRow < 0 || static_cast<std::size_t>(shownRow) >= shownKeys.size()) return false;
  const Row* row = FindRow(shownKeys[static_cast<std::size_t>(shownRow)]);
  return row != nullptr && (row->flags & 64u) != 0;
}

void PlainTable::Delete(const std::string& field, const Strings& values, bool notify) {
  for (std::size_t i = rows.size(); i-- > 0;) {
    if (Contains(values, CellOf(rows[i], field)))
      rows.erase(rows.begin() + static_cast<std::ptrdiff_t>(i));
  }
  if (notify) pending = true;
}

// ---- Order

void PlainTable::Sort(const std::string& name, bool descending) {
  if (name == sortColumn && descending == reverse) return;
  sortColumn = name;
  reverse = descending;
  m_byFlags.clear();
  m_places.clear();
  Rebuild(true);
}

void PlainTable::Revert() {
  if (sortColumn.empty()) return;
  sortColumn.clear();
  m_byFlags.clear();
  m_places.clear();
  Rebuild(false);
}

bool PlainTable::SortApplies() {
  if (sortColumn.empty()) return false;
  const Column* column = FindColumn(sortColumn);
  if (column == nullptr) return false;
  for (const auto& share : column->files) {
    const auto file = files.find(share.first);
    if (file != files.end() && file->second) return true;
  }
  return false;
}

void PlainTable::Rebuild(bool sorted) {
  std::vector<Row*> shown;
  std::vector<Row*> rest;
  for (Row& row : rows) ((row.flags & 60u) == 0 ? shown : rest).push_back(&row);
  if (sorted) {
    const auto sortBy = [this, &shown](auto lessThan) {
      std::stable_sort(shown.begin(), shown.end(), [&](const Row* a, const Row* b) {
        return reverse ? lessThan(*b, *a) : lessThan(*a, *b);
      });
    };
    const auto text = [this](const Row& row) { return CellOf(row, sortColumn); };
    const auto hash = [this](const Row& row, std::size_t piece) {
      const auto cell = row.reached.find(sortColumn);
      return cell == row.reached.end() ? 0.0 : Hash(cell->second, piece);
    };
    const auto fits = [this](const Row& row) {
      if (sortColumn.empty()) return row.emptyLine;
      const auto cell = row.reached.find(sortColumn);
      return cell != row.reached.end() && cell->second.size() < 19;
    };
    if (sortColumn == "Reaction\nTime") {
      sortBy([](const Row& a, const Row& b) { return Number(a) < Number(b); });
    } else if (std::none_of(shown.begin(), shown.end(),
                            [&](const Row* row) { return fits(*row); })) {
      sortBy([&](const Row& a, const Row& b) { return text(a) < text(b); });
    } else {
      // Fitting before long, ascending, and the long ones in order among themselves.
      std::vector<Row*> fitting;
      std::vector<Row*> longOnes;
      for (Row& row : rows) {
        if ((row.flags & 60u) == 0) (fits(row) ? fitting : longOnes).push_back(&row);
      }
      std::stable_sort(longOnes.begin(), longOnes.end(), [&](const Row* a, const Row* b) {
        return reverse ? text(*b) < text(*a) : text(*a) < text(*b);
      });
      shown = reverse ? longOnes : fitting;
      const std::vector<Row*>& others = reverse ? fitting : longOnes;
      shown.insert(shown.end(), others.begin(), others.end());
      for (std::size_t piece = 3; piece-- > 0;) {
        sortBy([&](const Row& a, const Row& b) { return hash(a, piece) < hash(b, piece); });
      }
    }
  }
  allKeys.clear();
  activeKeys.clear();
  shownKeys.clear();
  std::vector<Row*> order;
  if (sorted) {
    order = shown;
    order.insert(order.end(), rest.begin(), rest.end());
  } else {
    for (Row& row : rows) order.push_back(&row);
  }
  for (Row* row : order) {
    row->allIndex = allKeys.size();
    allKeys.push_back(row->key);
    if ((row->flags & 28u) != 0) continue;
    row->activeIndex = activeKeys.size();
    activeKeys.push_back(row->key);
    if ((row->flags & 60u) != 0) continue;
    row->shownIndex = shownKeys.size();
    shownKeys.push_back(row->key);
  }
}

void PlainTable::Notification() {
  ++notifications;
  previousShownKeys = shownKeys;
  previousNames = names;
  m_strings.clear();
  m_several.clear();
  m_byFlags.clear();
  m_places.clear();
  Rebuild(SortApplies());
  names.clear();
  for (const Column& column : columns) {
    if ((column.flags & 60u) == 0) names.push_back(column.name);
  }
  hasText.assign(names.size(), 2);
  shownCount = shownKeys.size();
  columnCount = names.size();
  searchFinished = shownCount == 0 && columnCount == 0;
  if (allKeys.empty()) nextKey = 0;
  told = {static_cast<long>(shownCount), static_cast<long>(columnCount),
          static_cast<long>(activeKeys.size()), PreservedRow(), PreservedColumn()};
}

void PlainTable::Idle() {
  if (pending) {
    Notification();
    pending = false;
  } else {
    previousShownKeys.clear();
    previousNames.clear();
    Slice();
  }
}

// ---- Answers

const PlainTable::Keys& PlainTable::KeysOf(PlainSet set) const {
  return set == PlainSet::All ? allKeys : set == PlainSet::Active ? activeKeys : shownKeys;
}

std::string PlainTable::Cell(long row, long column) const {
  if (row < 0 || column < 0 || static_cast<std::size_t>(row) >= shownCount ||
      static_cast<std::size_t>(column) >= columnCount ||
      static_cast<std::size_t>(row) >= shownKeys.size()) {
    return "?";
  }
  const Row* found = FindRow(shownKeys[static_cast<std::size_t>(row)]);
  return found == nullptr ? "?" : CellOf(*found, names[static_cast<std::size_t>(column)]);
}

const PlainTable::Row* PlainTable::RowAt(std::size_t index, PlainSet set) const {
  const Keys& keys = KeysOf(set);
  return index < keys.size() ? FindRow(keys[index]) : nullptr;
}

Strings PlainTable::Distinct(const std::string& column, PlainSet set, bool trim) {
  const std::string key =
      "distinct|" + column + "|" + std::to_string(static_cast<int>(set)) + (trim ? "|trim" : "");
  const auto known = m_strings.find(key);
  if (known != m_strings.end()) return known->second;
  Strings values;
  for (const unsigned long rowKey : KeysOf(set)) {
    const Row* row = FindRow(rowKey);
    if (row == nullptr) continue;
    const std::string text = trim ? Trimmed(CellOf(*row, column)) : CellOf(*row, column);
    if (!Contains(values, text)) values.push_back(text);
  }
  return m_strings[key] = values;
}

Strings PlainTable::Where(const std::string& x, const std::string& y, const std::string& z,
                          bool all) {
  const std::string key = "where|" + x + "|" + y + "|" + z + (all ? "|all" : "");
  const auto known = m_strings.find(key);
  if (known != m_strings.end()) return known->second;
  Strings values;
  for (const unsigned long rowKey : KeysOf(all ? PlainSet::All : PlainSet::Shown)) {
    const Row* row = FindRow(rowKey);
    if (row != nullptr && CellOf(*row, y) == z) values.push_back(CellOf(*row, x));
  }
  return m_strings[key] = values;
}

std::vector<std::map<std::string, std::string>> PlainTable::SeveralWhere(Strings xs,
                                                                         const std::string& y,
                                                                         const std::string& z,
                                                                         bool all) {
  const bool everything = z == std::string(20, '*');
  std::sort(xs.begin(), xs.end());
  std::string key = (everything ? "" : y) + "|" + z + (all ? "|all" : "");
  for (const std::string& x : xs) key += "|" + x;
  const auto known = m_several.find(key);
  if (known != m_several.end()) return known->second;
  std::vector<std::map<std::string, std::string>> found;
  for (const unsigned long rowKey : KeysOf(all ? PlainSet::All : PlainSet::Shown)) {
    const Row* row = FindRow(rowKey);
    if (row == nullptr || (!everything && CellOf(*row, y) != z)) continue;
    found.emplace_back();
    for (const std::string& x : xs) found.back()[x] = CellOf(*row, x);
  }
  return m_several[key] = found;
}

Strings PlainTable::ColumnsByFlags(unsigned with, unsigned without) {
  const std::string key = "columns|" + std::to_string(with) + "|" + std::to_string(without);
  const auto known = m_strings.find(key);
  if (known != m_strings.end()) return known->second;
  Strings found;
  for (const Column& column : columns) {
    if ((column.flags & with) == with && (column.flags & without) == 0)
      found.push_back(column.name);
  }
  return m_strings[key] = found;
}

std::vector<std::size_t> PlainTable::RowsByFlag(unsigned flags, bool absent, PlainSet set) {
  const std::string key = std::string((flags & 64u) != 0 ? "R" : "-") + std::to_string(flags) +
                          (absent ? "|absent|" : "|") + std::to_string(static_cast<int>(set));
  const auto known = m_byFlags.find(key);
  if (known != m_byFlags.end()) return known->second;
  std::vector<std::size_t> found;
  const auto take = [&](const Row& row) {
    if (absent ? (row.flags & flags) != 0 : (row.flags & flags) != flags) return;
    found.push_back(set == PlainSet::All      ? row.allIndex
                    : set == PlainSet::Active ? row.activeIndex
                                              : row.shownIndex);
  };
  if (set == PlainSet::All) {
    for (const Row& row : rows) take(row);
  } else {
    for (const unsigned long rowKey : KeysOf(set)) {
      if (const Row* row = FindRow(rowKey)) take(*row);
    }
  }
  return m_byFlags[key] = found;
}

std::vector<std::size_t> PlainTable::RowsByBoth(unsigned with, unsigned without) {
  const std::string key = std::string(((with | without) & 64u) != 0 ? "R" : "-") + "both|" +
                          std::to_string(with) + "|" + std::to_string(without);
  const auto known = m_byFlags.find(key);
  if (known != m_byFlags.end()) return known->second;
  std::vector<std::size_t> found;
  for (std::size_t place = 0; place < allKeys.size(); ++place) {
    const Row* row = FindRow(allKeys[place]);
    if (row != nullptr && (row->flags & with) == with && (row->flags & without) == 0)
      found.push_back(place);
  }
  return m_byFlags[key] = found;
}

std::vector<std::size_t> PlainTable::Places(const std::string& column, const std::string& text,
                                            bool all, long first, long last) {
  const Keys& keys = KeysOf(all ? PlainSet::All : PlainSet::Shown);
  const long size = static_cast<long>(keys.size());
  if (first < 0) first = 0;
  if (last < 0) last = size - 1;
  if (first >= size || last >= size) return {};
  if (first > last) std::swap(first, last);
  const std::string key = column + "|" + text + (all ? "|all|" : "|shown|") +
                          std::to_string(first) + "|" + std::to_string(last);
  const auto known = m_places.find(key);
  if (known != m_places.end()) return known->second;
  std::vector<std::size_t> found;
  for (long place = first; place <= last; ++place) {
    const Row* row = FindRow(keys[static_cast<std::size_t>(place)]);
    if (row != nullptr && CellOf(*row, column) == text)
      found.push_back(static_cast<std::size_t>(place));
  }
  return m_places[key] = found;
}

std::vector<std::size_t> PlainTable::PlacesWithin(const std::string& column,
                                                  const std::string& text,
                                                  const std::vector<std::size_t>& indices,
                                                  bool all) const {
  const Keys& keys = KeysOf(all ? PlainSet::All : PlainSet::Shown);
  std::vector<std::size_t> found;
  std::size_t kept = 0;
  for (const std::size_t index : indices) {
    if (index >= keys.size()) continue;
    const Row* row = FindRow(keys[index]);
    // Translated by the number of indices kept so far, whatever was left out before.
    if (row != nullptr && CellOf(*row, column) == text) found.push_back(indices[kept]);
    ++kept;
  }
  return found;
}

int PlainTable::PreservedRow() const {
  if (shownCount == 0) return -1;
  int equal = 0;
  for (std::size_t i = 0; i < std::min(shownKeys.size(), previousShownKeys.size()); ++i) {
    if (shownKeys[i] != previousShownKeys[i]) break;
    ++equal;
  }
  return equal - 1;
}

int PlainTable::PreservedColumn() const {
  if (columnCount == 0) return -1;
  int equal = 0;
  for (std::size_t i = 0; i < std::min(names.size(), previousNames.size()); ++i) {
    if (names[i] != previousNames[i]) break;
    ++equal;
  }
  return equal - 1;
}

}  // namespace Tests
