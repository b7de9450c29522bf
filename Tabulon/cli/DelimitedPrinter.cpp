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
  const char separator = m_form == Form::Csv ? ',' : '\t';
  for (std::size_t i = 0; i < row.size(); ++i) {
    if (i > 0) m_out.Bytes() += separator;
    Append(row[i].text);
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
