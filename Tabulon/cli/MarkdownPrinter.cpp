#include "Tabulon/cli/MarkdownPrinter.h"

#include "Tabulon/cli/Text.h"

namespace TabulonCli {

void MarkdownPrinter::Begin(const std::vector<ResultColumn>& columns) {
  ResultRow names;
  for (const ResultColumn& column : columns) names.push_back({column.name});
  Row(names);
  for (std::size_t i = 0; i < columns.size(); ++i) m_out.Bytes() += "| --- ";
  m_out.Bytes() += "|\n";
}

void MarkdownPrinter::Row(const ResultRow& row) {
  std::string& bytes = m_out.Bytes();
  std::string harmless;
  for (const ResultCell& cell : row) {
    bytes += "| ";
    harmless.clear();
    AppendHarmless(harmless, cell.text);
    for (const char byte : harmless) {
      if (byte == '|' || byte == '\\') bytes += '\\';
      bytes += byte;
    }
    bytes += ' ';
  }
  bytes += "|\n";
  m_out.WriteIfMuch();
}

void MarkdownPrinter::End(std::size_t) { m_out.Write(); }

}  // namespace TabulonCli
