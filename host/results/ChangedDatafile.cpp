#include "host/results/ChangedDatafile.h"

#include <wx/convauto.h>
#include <wx/string.h>

#include <algorithm>
#include <array>
#include <charconv>

#include "framework/RunTimes.h"
#include "host/results/WideText.h"

namespace OmbreliaHost {

namespace {

constexpr std::size_t FIRST_HEADING_LINE = 4;
constexpr std::size_t HEADER_LINES = 6;

// Only these hold bytes between their characters that look like tabs and line ends.
bool IsWide(const std::string& bytes) {
  const std::array<std::string, 3> marks = {std::string("\xFF\xFE"), std::string("\xFE\xFF"),
                                            std::string("\0\0\xFE\xFF", 4)};
  return std::any_of(marks.begin(), marks.end(), [&bytes](const std::string& mark) {
    return bytes.compare(0, mark.size(), mark) == 0;
  });
}

std::string Utf8OfBytes(const std::string& bytes) {
  if (!IsWide(bytes)) return bytes;
  return Utf8OfText(wxString(bytes.data(), wxConvAuto(), bytes.size()));
}

// The cell's place in the line, as far as there is one.
struct Span {
  std::size_t begin = 0;
  std::size_t end = 0;
  std::size_t missing = 0;  // how many tabs the line lacks before the cell
};

Span SpanOf(const std::string& line, std::size_t column) {
  Span span;
  for (std::size_t i = 0; i < column; ++i) {
    const std::size_t tab = line.find('\t', span.begin);
    if (tab == std::string::npos) return {line.size(), line.size(), column - i};
    span.begin = tab + 1;
  }
  span.end = std::min(line.find('\t', span.begin), line.size());
  return span;
}

std::vector<std::string> CellsOf(const std::string& line) {
  std::vector<std::string> cells;
  std::size_t begin = 0;
  for (std::size_t tab = 0; (tab = line.find('\t', begin)) != std::string::npos; begin = tab + 1)
    cells.push_back(line.substr(begin, tab - begin));
  cells.push_back(line.substr(begin));
  return cells;
}

std::string WithoutCell(const std::string& line, std::size_t column) {
  const Span span = SpanOf(line, column);
  if (span.missing > 0) return line;
  if (span.end < line.size()) return line.substr(0, span.begin) + line.substr(span.end + 1);
  return line.substr(0, span.begin > 0 ? span.begin - 1 : 0);
}

std::optional<long> NumberIn(const std::string& text) {
  long number = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  if (text.empty() || error != std::errc() || stop != end) return std::nullopt;
  return number;
}

}  // namespace

ChangedDatafile::ChangedDatafile(const std::string& bytes) {
  const std::string text = Utf8OfBytes(bytes);
  for (std::size_t begin = 0; begin < text.size();) {
    const std::size_t end = std::min(text.find_first_of("\r\n", begin), text.size());
    const std::size_t length = text.compare(end, 2, "\r\n") == 0 ? 2 : end < text.size() ? 1 : 0;
    m_lines.push_back({text.substr(begin, end - begin), text.substr(end, length)});
    begin = end + length;
  }
  for (std::size_t i = HEADER_LINES; i < m_lines.size(); ++i)
    m_cells.push_back(CellsOf(m_lines[i].text));
}

std::string ChangedDatafile::TextOf(const std::vector<Line>& lines) {
  std::string text;
  for (const Line& line : lines) text.append(line.text).append(line.end);
  return text;
}

std::string ChangedDatafile::WithCell(const std::string& line, std::size_t column,
                                      const std::string& text) {
  const Span span = SpanOf(line, column);
  return line.substr(0, span.begin) + std::string(span.missing, '\t') + text +
         line.substr(span.end);
}

std::string ChangedDatafile::Cell(std::size_t row, std::size_t column) const {
  return column < m_cells[row].size() ? m_cells[row][column] : std::string();
}

std::string ChangedDatafile::WithCell(std::size_t row, std::size_t column,
                                      const std::string& text) const {
  std::vector<Line> lines = m_lines;
  std::string& line = lines[HEADER_LINES + row].text;
  line = WithCell(line, column, text);
  return TextOf(lines);
}

std::string ChangedDatafile::WithEmptyColumn(std::size_t column) const {
  std::vector<Line> lines = m_lines;
  for (std::size_t i = HEADER_LINES; i < lines.size(); ++i) {
    if (SpanOf(lines[i].text, column).missing == 0)
      lines[i].text = WithCell(lines[i].text, column, std::string());
  }
  return TextOf(lines);
}

std::string ChangedDatafile::WithoutColumn(std::size_t column) const {
  std::vector<Line> lines = m_lines;
  for (std::size_t i = FIRST_HEADING_LINE; i < lines.size(); ++i)
    lines[i].text = WithoutCell(lines[i].text, column);
  return TextOf(lines);
}

std::string ChangedDatafile::WithoutRow(std::size_t row) const {
  std::vector<Line> lines = m_lines;
  lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(HEADER_LINES + row));
  return TextOf(lines);
}

std::string ChangedDatafile::WithRowTwice(std::size_t row) const {
  std::vector<Line> lines = m_lines;
  const Line copy = lines[HEADER_LINES + row];
  if (copy.end.empty()) lines[HEADER_LINES + row].end = m_lines.front().end;
  lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(HEADER_LINES + row + 1), copy);
  return TextOf(lines);
}

std::string ChangedDatafile::WithOneMoreRow() const {
  const std::string end = m_lines.empty() ? std::string("\n") : m_lines.front().end;
  std::vector<Line> lines = m_lines;
  for (Line& line : lines) {
    if (line.end.empty()) line.end = end;
  }
  // A file that lacks headings gets them, too.
  do {
    lines.push_back({"one row more", end});
  } while (lines.size() <= HEADER_LINES);
  return TextOf(lines);
}

std::string ChangedDatafile::WithExpansionTime(std::size_t column, long milliseconds) const {
  const std::string name = Utf8OfText(Ombrelia::EXPANSION_TIME_COLUMN_NAME);
  std::vector<Line> lines = m_lines;
  for (std::size_t i = FIRST_HEADING_LINE; i < HEADER_LINES; ++i) {
    std::string& line = lines[i].text;
    const Span span = SpanOf(line, column);
    const std::size_t found = line.substr(0, span.end).find(name, span.begin);
    if (found == std::string::npos) continue;
    line = WithCell(line, column, name + std::to_string(milliseconds));
  }
  return TextOf(lines);
}

std::string ChangedDatafile::NearText(std::size_t row, std::size_t column) const {
  const std::string text = Cell(row, column);
  const std::optional<long> number = NumberIn(text);
  // The few numbers that have no successor are texts like any other.
  const bool hasSuccessor = number && *number < 1'000'000'000;
  return hasSuccessor ? std::to_string(*number + 1) : text + " 2";
}

std::optional<std::string> ChangedDatafile::OtherText(std::size_t row, std::size_t column) const {
  const std::string text = Cell(row, column);
  for (std::size_t i = 1; i < RowCount(); ++i) {
    const std::vector<std::string>& cells = m_cells[(row + i) % RowCount()];
    if (column < cells.size() && !cells[column].empty() && cells[column] != text)
      return cells[column];
  }
  return std::nullopt;
}

}  // namespace OmbreliaHost
