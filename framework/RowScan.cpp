#include "framework/RowScan.h"

#include <algorithm>
#include <utility>

#include "Tabulon/src/table/MUExperimentTextReaderMultiFile.h"

namespace Ombrelia {

RowScan RowScan::Positional(std::vector<wxString> texts) {
  RowScan rule;
  rule.m_kind = Kind::POSITIONAL;
  rule.m_texts = std::move(texts);
  rule.m_last = static_cast<int>(rule.m_texts.size()) - 1;
  return rule;
}

RowScan RowScan::Anywhere(std::vector<wxString> texts, int last) {
  RowScan rule;
  rule.m_kind = Kind::ANYWHERE;
  rule.m_texts = std::move(texts);
  rule.m_last = last;
  return rule;
}

RowScan RowScan::Count(const wxString& text, int count, int last) {
  RowScan rule;
  rule.m_kind = Kind::COUNT;
  rule.m_texts = {text};
  rule.m_count = count;
  rule.m_last = last;
  return rule;
}

bool RowScan::HoldsFor(const MUExperimentTextReaderMultiFile& reader,
                       const wxString& columnName) const {
  const int column = reader.GetColumnPositionNumberFromText(columnName);
  const int rows = reader.GetNumberOfDataRows();
  std::vector<int> occurrences(m_texts.size(), 0);
  std::vector<bool> inPlace(m_texts.size(), false);
  int last = 0;
  for (int row = 0; row < rows; ++row) {
    last = row;
    const wxString cell = reader.GetDataCellValue(row, column);
    for (size_t place = 0; place < m_texts.size(); ++place) {
      if (cell.compare(m_texts[place]) != 0) continue;
      ++occurrences[place];
      if (static_cast<size_t>(row) == place) inPlace[place] = true;
    }
  }
  if (last != m_last) return false;
  switch (m_kind) {
    case Kind::POSITIONAL:
      return std::all_of(inPlace.begin(), inPlace.end(), [](bool isThere) { return isThere; });
    case Kind::ANYWHERE:
      return std::all_of(occurrences.begin(), occurrences.end(), [](int n) { return n > 0; });
    case Kind::COUNT:
      return occurrences.front() == m_count;
  }
  return false;
}

}  // namespace Ombrelia
