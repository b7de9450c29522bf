#include "host/print/TextTable.h"

#include <algorithm>

#include "host/print/VisibleText.h"

namespace OmbreliaHost {

void TextTable::AddColumn(const std::string& heading, Align align) {
  m_aligns.push_back(align);
  m_rows.front().push_back(heading);
}

void TextTable::AddRow(const std::vector<std::string>& cells) {
  m_rows.push_back(cells);
  m_rows.back().resize(m_aligns.size());
}

std::vector<std::string> TextTable::Lines() const {
  std::vector<std::size_t> widths(m_aligns.size());
  for (const std::vector<std::string>& row : m_rows) {
    for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], WidthOf(row[i]));
  }
  std::vector<std::string> lines;
  for (const std::vector<std::string>& row : m_rows) {
    std::string line;
    for (std::size_t i = 0; i < row.size(); ++i) {
      const std::string padding(widths[i] - WidthOf(row[i]), ' ');
      line += m_aligns[i] == Align::Left ? row[i] + padding : padding + row[i];
      if (widths[i] > 0) line += "  ";
    }
    line.erase(line.find_last_not_of(' ') + 1);
    lines.push_back(line);
  }
  return lines;
}

}  // namespace OmbreliaHost
