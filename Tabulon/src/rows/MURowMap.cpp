#include "Tabulon/src/rows/MURowMap.h"

#include <cstddef>
#include <optional>
#include <type_traits>

// What a kind of map has to say about one row's line in the block of its file.
namespace {

using Kind = MURowMapKind;

template <Kind KIND>
constexpr std::size_t OffsetInMaps() {
  using Maps = MURowMaps;
  static_assert(std::is_standard_layout_v<Maps>, "a map finds the text by its place beside it");
  switch (KIND) {
    case Kind::CELLS:
      return offsetof(Maps, m_cells);
    case Kind::HASH01:
      return offsetof(Maps, m_hash01);
    case Kind::HASH02:
      return offsetof(Maps, m_hash02);
    case Kind::HASH03:
      return offsetof(Maps, m_hash03);
    case Kind::TEXT_FITS_IN_HASH:
      return offsetof(Maps, m_textFitsInHash);
  }
  return 0;
}

// The overlay of a kind; OVERLAYS is const or not.
template <Kind KIND, typename OVERLAYS>
auto& OverlayOf(OVERLAYS& overlays) {
  if constexpr (KIND == Kind::CELLS)
    return overlays.m_cells;
  else if constexpr (KIND == Kind::HASH01)
    return overlays.m_hash01;
  else if constexpr (KIND == Kind::HASH02)
    return overlays.m_hash02;
  else if constexpr (KIND == Kind::HASH03)
    return overlays.m_hash03;
  else
    return overlays.m_textFitsInHash;
}

template <Kind KIND>
MURowMapped<KIND> ValueOfCell(const MUCellText& cell) {
  if constexpr (KIND == Kind::CELLS)
    return cell.ToString();
  else if constexpr (KIND == Kind::HASH01)
    return cell.SortKey(0);
  else if constexpr (KIND == Kind::HASH02)
    return cell.SortKey(1);
  else if constexpr (KIND == Kind::HASH03)
    return cell.SortKey(2);
  else
    return cell.FitsInSortKeys();
}

// A line without any cell leaves one entry under the empty key in the maps of sort keys.
template <Kind KIND>
bool HasEntryOfNoCell(const MURowText& text) {
  return KIND != Kind::CELLS && text.Block() && text.CellCount() == 0 && text.ColumnCount() > 0;
}

template <Kind KIND>
constexpr MURowMapped<KIND> ValueOfNoCell() {
  if constexpr (KIND == Kind::TEXT_FITS_IN_HASH)
    return true;
  else
    return MURowMapped<KIND>();
}

// Number of positions, from the left, under whose names the map has entries: cells reach to the last
// column that was known when the row was read, sort keys only to the last cell of the line.
template <Kind KIND>
std::size_t PositionCount(const MURowText& text) {
  return KIND == Kind::CELLS ? text.ColumnCount() : text.CellCount();
}

// The entry that the block gives for a key. A hidden cell takes precedence over a column of the same name, and
// the first column before a later one.
template <Kind KIND>
std::optional<MURowMapped<KIND>> FindInBlock(const MURowText& text, const wxString& key) {
  const MUDataFileBlock* block = text.Block();
  if (!block) return std::nullopt;
  if constexpr (KIND == Kind::CELLS) {
    if (const wxString* hidden = block->FindHiddenCell(key)) return *hidden;
  }
  if (HasEntryOfNoCell<KIND>(text)) {
    return key.empty() ? std::optional(ValueOfNoCell<KIND>()) : std::nullopt;
  }
  const std::size_t position = block->PositionOf(key);
  if (position >= PositionCount<KIND>(text)) return std::nullopt;
  return ValueOfCell<KIND>(text.Cell(position));
}

// Calls take(key, position) for every entry that the block gives, in the order of insertion; the
// position is NOT_FOUND for a hidden cell and for the entry of a line without cells.
template <Kind KIND, typename TAKE>
void ForEachKeyInBlock(const MURowText& text, const TAKE& take) {
  const MUDataFileBlock* block = text.Block();
  if (!block) return;
  if (KIND == Kind::CELLS) {
    for (const auto& hidden : block->HiddenCells()) take(hidden.first, MUDataFileBlock::NOT_FOUND);
  }
  if (HasEntryOfNoCell<KIND>(text)) take(wxString(), MUDataFileBlock::NOT_FOUND);
  for (std::size_t position = 0; position < PositionCount<KIND>(text); ++position) {
    take(block->ColumnName(position), position);
  }
}

}  // namespace

template <MURowMapKind KIND>
const MURowText& MURowMap<KIND>::Text() const {
  const char* maps = reinterpret_cast<const char*>(this) - OffsetInMaps<KIND>();
  return reinterpret_cast<const MURowMaps*>(maps)->m_text;
}

template <MURowMapKind KIND>
auto MURowMap<KIND>::FindOverlay() const -> const Overlay* {
  const MURowOverlays* overlays = Text().Overlays();
  return overlays ? &OverlayOf<KIND>(*overlays) : nullptr;
}

template <MURowMapKind KIND>
auto MURowMap<KIND>::MakeOverlay() const -> Overlay& {
  return OverlayOf<KIND>(Text().MakeOverlays());
}

// The entry of a key, copied into the row if it is not there yet; null if the map has none.
template <MURowMapKind KIND>
auto MURowMap<KIND>::Pin(const wxString& key) const -> value_type* {
  if (const Overlay* overlay = FindOverlay()) {
    auto& entries = MakeOverlay().m_entries;
    const auto found = entries.find(key);
    if (found != entries.end()) return &*found;
    if (overlay->m_complete) return nullptr;
  }
  auto value = FindInBlock<KIND>(Text(), key);
  if (!value) return nullptr;
  return &*MakeOverlay().m_entries.emplace(key, *std::move(value)).first;
}

// From here on the row's own entries are all there is.
template <MURowMapKind KIND>
auto MURowMap<KIND>::PinAll() const -> Overlay& {
  Overlay& overlay = MakeOverlay();
  if (!overlay.m_complete) {
    ForEachKeyInBlock<KIND>(Text(), [this](const wxString& key, std::size_t) { Pin(key); });
    overlay.m_complete = true;
  }
  return overlay;
}

template <MURowMapKind KIND>
auto MURowMap<KIND>::Next(const value_type* entry) const -> value_type* {
  auto& entries = PinAll().m_entries;
  const auto next = entry ? std::next(entries.find(entry->first)) : entries.begin();
  return next == entries.end() ? nullptr : &*next;
}

template <MURowMapKind KIND>
auto MURowMap<KIND>::Previous(const value_type* entry) const -> value_type* {
  auto& entries = PinAll().m_entries;
  return &*std::prev(entry ? entries.find(entry->first) : entries.end());
}

template <MURowMapKind KIND>
auto MURowMap<KIND>::operator[](const wxString& key) -> mapped_type& {
  if (value_type* entry = Pin(key)) return entry->second;
  return MakeOverlay().m_entries[key];
}

template <MURowMapKind KIND>
auto MURowMap<KIND>::insert(const value_type& entry) -> std::pair<iterator, bool> {
  if (value_type* existing = Pin(entry.first)) return {iterator(this, existing), false};
  return {iterator(this, &*MakeOverlay().m_entries.insert(entry).first), true};
}

template <MURowMapKind KIND>
auto MURowMap<KIND>::erase(const wxString& key) -> size_type {
  return count(key) ? PinAll().m_entries.erase(key) : 0;
}

template <MURowMapKind KIND>
void MURowMap<KIND>::clear() {
  Overlay& overlay = MakeOverlay();
  overlay.m_entries.clear();
  overlay.m_complete = true;
}

template <MURowMapKind KIND>
auto MURowMap<KIND>::count(const wxString& key) const -> size_type {
  const Overlay* overlay = FindOverlay();
  if (overlay && overlay->m_entries.count(key)) return 1;
  if (overlay && overlay->m_complete) return 0;
  return FindInBlock<KIND>(Text(), key) ? 1 : 0;
}

template <MURowMapKind KIND>
auto MURowMap<KIND>::size() const -> size_type {
  if (FindOverlay()) return PinAll().m_entries.size();
  const MUDataFileBlock* block = Text().Block();
  size_type entries = 0;
  ForEachKeyInBlock<KIND>(Text(), [&](const wxString& key, std::size_t position) {
    const bool isColumn = position != MUDataFileBlock::NOT_FOUND;
    const bool isHidden = KIND == MURowMapKind::CELLS && isColumn && block->FindHiddenCell(key);
    const bool isRepeated = isColumn && block->PositionOf(key) != position;
    if (!isHidden && !isRepeated) ++entries;
  });
  return entries;
}

template <MURowMapKind KIND>
auto MURowMap<KIND>::ValueOrDefault(const wxString& key) const -> mapped_type {
  if (const Overlay* overlay = FindOverlay()) {
    const auto found = overlay->m_entries.find(key);
    if (found != overlay->m_entries.end()) return found->second;
    if (overlay->m_complete) return mapped_type();
  }
  return FindInBlock<KIND>(Text(), key).value_or(mapped_type());
}

template class MURowMap<MURowMapKind::CELLS>;
template class MURowMap<MURowMapKind::HASH01>;
template class MURowMap<MURowMapKind::HASH02>;
template class MURowMap<MURowMapKind::HASH03>;
template class MURowMap<MURowMapKind::TEXT_FITS_IN_HASH>;
