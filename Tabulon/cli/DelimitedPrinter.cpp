#include "Tabulon/cli/DelimitedPrinter.h"

#include "Tabulon/cli/Text.h"

namespace TabulonCli {

DelimitedPrinter::DelimitedPrinter(std::ostream& out, Form form) : m_out(out), m_form(form) {}

void DelimitedPrinter::Begin(const std::vector<ResultColumn>& columns) {
  ResultRow names;
  for (const ResultColumn& column : columns) names.push_back({column.name});
  Row(names);
}

void DelimitedPrinter::Row(const ResultRow& row) {
  const char* between = "";
  for (const ResultCell& cell : row) {
    m_out.Bytes() += between;
    between = m_form == Form::Csv ? "," : "\t";
    Append(cell.text);
  }
  // A line without any byte would read as no row at all.
  if (m_form == Form::Csv && row.size() == 1 && row.front().text.empty()) m_out.Bytes() += "\"\"";
  m_out.Bytes() += '\n';
  m_out.WriteIfMuch();
}

void DelimitedPrinter::End(std::size_t) { m_out.Write(); }

void DelimitedPrinter::Append(std::string_view text) {
  std::string& bytes = m_out.Bytes();
  if (m_form == Form::Tsv) {
    AppendHarmless(bytes, text);
  } else if (text.find_first_of(",\"\r\n") == std::string_view::npos) {
    bytes += text;
  } else {
    bytes += '"';
    for (const char byte : text) bytes.append(byte == '"' ? 2 : 1, byte);
    bytes += '"';
  }
}

}  // namespace TabulonCli
