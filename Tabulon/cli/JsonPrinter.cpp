#include "Tabulon/cli/JsonPrinter.h"

#include <nlohmann/json.hpp>

namespace TabulonCli {

void JsonPrinter::AppendQuoted(std::string& bytes, std::string_view text) {
  bool plain = true;
  for (const char byte : text) {
    const auto value = static_cast<unsigned char>(byte);
    plain = plain && value >= 32 && value < 128 && value != '"' && value != '\\';
  }
  if (plain) {
    bytes.append(1, '"').append(text).append(1, '"');
  } else {
    bytes += nlohmann::json(text).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
  }
}

void JsonPrinter::Begin(const std::vector<ResultColumn>& columns) {
  for (const ResultColumn& column : columns) {
    m_keys.emplace_back();
    AppendQuoted(m_keys.back(), column.name);
    m_keys.back() += ": ";
  }
  m_out.Bytes() += '[';
}

void JsonPrinter::Row(const ResultRow& row) {
  std::string& bytes = m_out.Bytes();
  bytes += m_hasRows ? ",\n  {" : "\n  {";
  m_hasRows = true;
  for (std::size_t i = 0; i < row.size(); ++i) {
    if (i > 0) bytes += ", ";
    bytes += m_keys[i];
    const ResultCell& cell = row[i];
    switch (cell.kind) {
      case ResultCell::Kind::Text:
        AppendQuoted(bytes, cell.text);
        break;
      case ResultCell::Kind::Number:
        bytes += cell.text.substr(cell.text.find_first_of("-0123456789"));
        bytes.erase(bytes.find_last_of("0123456789") + 1);
        break;
      case ResultCell::Kind::Null:
        bytes += "null";
        break;
      case ResultCell::Kind::Mark:
        bytes += cell.text.empty() ? "false" : "true";
        break;
    }
  }
  bytes += '}';
  m_out.WriteIfMuch();
}

void JsonPrinter::End(std::size_t) {
  m_out.Bytes() += m_hasRows ? "\n]\n" : "]\n";
  m_out.Write();
}

}  // namespace TabulonCli
