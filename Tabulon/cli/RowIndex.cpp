#include "Tabulon/cli/RowIndex.h"

#include <algorithm>

#include "Tabulon/cli/Numbers.h"

namespace TabulonCli {

RowIndex::RowIndex(ColumnCells& cells, const std::vector<DataRow*>& rows) {
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const auto place = static_cast<std::uint32_t>(i);
    const MUCellText text = cells.TextOf(*rows[i]);
    m_byText[text].push_back(place);
    if (const auto number = NumberIn(text)) m_byNumber.emplace_back(*number, place);
  }
  std::sort(m_byNumber.begin(), m_byNumber.end());
}

std::vector<std::uint32_t> RowIndex::PlacesOf(const MUCellText& text) const {
  const auto found = m_byText.find(text);
  return found == m_byText.end() ? std::vector<std::uint32_t>() : found->second;
}

std::vector<std::uint32_t> RowIndex::PlacesOf(double number) const {
  std::vector<std::uint32_t> places;
  for (auto entry = std::lower_bound(m_byNumber.begin(), m_byNumber.end(), std::pair(number, 0U));
       entry != m_byNumber.end() && !(entry->first > number); ++entry)
    places.push_back(entry->second);
  return places;
}

}  // namespace TabulonCli
