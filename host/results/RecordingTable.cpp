#include "host/results/RecordingTable.h"

#include <algorithm>

namespace OmbreliaHost {

namespace {

// A check that never ends may read ever further rows.
constexpr std::size_t MOST_CELLS = 1'000'000;

}  // namespace

int RecordingTable::GetColumnPositionNumberFromText(const wxString& name) const {
  const int column = MUExperimentTextReaderMultiFile::GetColumnPositionNumberFromText(name);
  const bool isKnown =
      std::any_of(m_lookups.begin(), m_lookups.end(),
                  [&name](const ColumnLookup& lookup) { return lookup.name == name; });
  if (!isKnown) m_lookups.push_back({name, column});
  return column;
}

wxString RecordingTable::GetDataCellValue(int row, int column) const {
  const std::pair<int, int> place(row, column);
  const auto known = m_lastReads.find(place);
  if (known != m_lastReads.end()) {
    known->second = ++m_readCount;
  } else if (m_lastReads.size() < MOST_CELLS) {
    m_lastReads.emplace(place, ++m_readCount);
  }
  return MUExperimentTextReaderMultiFile::GetDataCellValue(row, column);
}

wxString RecordingTable::GetColumnNameText(int column) const {
  m_headings = true;
  return MUExperimentTextReaderMultiFile::GetColumnNameText(column);
}

TableReads RecordingTable::TakeReads() {
  std::vector<std::pair<std::uint64_t, CellPlace>> byTime;
  byTime.reserve(m_lastReads.size());
  for (const auto& [place, time] : m_lastReads)
    byTime.push_back({time, {place.first, place.second}});
  std::sort(byTime.begin(), byTime.end(),
            [](const auto& a, const auto& b) { return a.first > b.first; });
  TableReads reads;
  reads.cells.reserve(byTime.size());
  for (const auto& [time, place] : byTime) reads.cells.push_back(place);
  reads.lookups = std::move(m_lookups);
  reads.headings = m_headings;
  m_lastReads.clear();
  m_lookups.clear();
  m_headings = false;
  return reads;
}

}  // namespace OmbreliaHost
