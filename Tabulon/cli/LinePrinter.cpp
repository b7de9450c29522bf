#include "Tabulon/cli/LinePrinter.h"

#include <algorithm>

#include "Tabulon/cli/Text.h"

namespace TabulonCli {

void LinePrinter::Begin(const std::vector<ResultColumn>& columns) {
  std::size_t width = 0;
  for (const ResultColumn& column : columns) width = std::max(width, DisplayWidth(column.name));
  for (const ResultColumn& column : columns) {
    m_labels.push_back(std::string(width - DisplayWidth(column.name), ' ') + column.name + " = ");
  }
}

void LinePrinter::Row(const ResultRow& row) {
  std::string& bytes = m_out.Bytes();
  if (m_hasRows) bytes += '\n';
  m_hasRows = true;
  for (std::size_t i = 0; i < row.size(); ++i) {
    bytes += m_labels[i];
    AppendHarmless(bytes, row[i].text);
    bytes += '\n';
  }
  m_out.WriteIfMuch();
}

void LinePrinter::End(std::size_t) { m_out.Write(); }

}  // namespace TabulonCli
