#include "Tabulon/cli/TablePrinter.h"

#include <algorithm>

#include "Tabulon/cli/Text.h"

namespace TabulonCli {

namespace {

// Where the width is limited, no column takes more, as long as others follow it.
constexpr std::size_t WIDEST_COLUMN = 40;
// Without a limit a longer cell is printed whole, and the cells behind it stand out of line: the rows above and
// below it are not filled up with a megabyte of blanks each.
constexpr std::size_t WIDEST_ALIGNED = 500;
const char* const CUT = "\xE2\x80\xA6";  // an ellipsis, one column wide

std::string CountedOf(std::size_t count, std::size_t total, const std::string& noun) {
  const std::string of = count == total ? "" : " of " + std::to_string(total);
  return std::to_string(count) + of + " " + noun + (total == 1 ? "" : "s");
}

}  // namespace

TablePrinter::TablePrinter(std::ostream& out, std::ostream& err, Limits limits)
    : m_out(out), m_err(err), m_limits(limits) {}

void TablePrinter::Begin(const std::vector<ResultColumn>& columns) { m_columns = columns; }

void TablePrinter::Row(const ResultRow& row) {
  ++m_rowsSeen;
  if (m_limits.rows != 0 && m_keptRows == m_limits.rows) return;
  ++m_keptRows;
  for (const ResultCell& cell : row) {
    AppendHarmless(m_text, cell.text);
    m_ends.push_back(m_text.size());
  }
}

std::string_view TablePrinter::Cell(std::size_t row, std::size_t column) const {
  const std::size_t cell = row * m_columns.size() + column;
  const std::size_t begin = cell == 0 ? 0 : m_ends[cell - 1];
  return std::string_view(m_text).substr(begin, m_ends[cell] - begin);
}

void TablePrinter::Measure() {
  for (const ResultColumn& column : m_columns) {
    m_widths.push_back(
        std::max(DisplayWidth(column.upper), DisplayWidth(column.lower.value_or(""))));
  }
  for (std::size_t row = 0; row < m_keptRows; ++row) {
    for (std::size_t column = 0; column < m_columns.size(); ++column) {
      m_widths[column] = std::max(m_widths[column], DisplayWidth(Cell(row, column)));
    }
  }
}

void TablePrinter::FitIntoWidth() {
  m_shownColumns = m_columns.size();
  if (m_limits.width == 0) {
    for (std::size_t& width : m_widths) width = std::min(width, WIDEST_ALIGNED);
    return;
  }
  for (std::size_t& width : m_widths)
    width = std::min({width, m_limits.width, std::max(WIDEST_COLUMN, m_limits.width / 2)});
  std::size_t used = 0;
  m_shownColumns = 0;
  while (m_shownColumns < m_columns.size()) {
    used += m_widths[m_shownColumns] + (m_shownColumns > 0 ? 2 : 0);
    if (m_shownColumns > 0 && used > m_limits.width) break;
    ++m_shownColumns;
  }
}

void TablePrinter::AppendCell(std::string_view text, std::size_t column) {
  const std::size_t room = m_widths[column];
  std::size_t width = DisplayWidth(text);
  if (width > room && m_limits.width > 0) {
    ++m_shortened;
    text = CutToWidth(text, room - 1);
    m_line.append(text).append(CUT);
    width = DisplayWidth(text) + 1;
  } else {
    m_line += text;
  }
  m_line.append(room > width ? room - width + 2 : 2, ' ');
}

void TablePrinter::EndLine() {
  m_line.erase(m_line.find_last_not_of(' ') + 1);
  m_out.Bytes().append(m_line).append(1, '\n');
  m_out.WriteIfMuch();
  m_line.clear();
}

void TablePrinter::PrintHeadings() {
  for (std::size_t i = 0; i < m_shownColumns; ++i) AppendCell(m_columns[i].upper, i);
  EndLine();
  if (std::any_of(m_columns.begin(), m_columns.end(),
                  [](const ResultColumn& column) { return column.lower.has_value(); })) {
    for (std::size_t i = 0; i < m_shownColumns; ++i) AppendCell(m_columns[i].lower.value_or(""), i);
    EndLine();
  }
  for (std::size_t i = 0; i < m_shownColumns; ++i) m_line.append(m_widths[i], '-').append("  ");
  EndLine();
}

void TablePrinter::End(std::size_t totalRows) {
  Measure();
  FitIntoWidth();
  PrintHeadings();
  for (std::size_t row = 0; row < m_keptRows; ++row) {
    for (std::size_t column = 0; column < m_shownColumns; ++column)
      AppendCell(Cell(row, column), column);
    EndLine();
  }
  const auto counted = [this](std::size_t first, std::size_t last) {
    return static_cast<std::size_t>(
        std::count_if(m_columns.begin() + static_cast<std::ptrdiff_t>(first),
                      m_columns.begin() + static_cast<std::ptrdiff_t>(last),
                      [](const ResultColumn& column) { return column.counted; }));
  };
  m_out.Bytes() += CountedOf(m_keptRows, totalRows, "row") + ", " +
                   CountedOf(counted(0, m_shownColumns), counted(0, m_columns.size()), "column") +
                   "\n";
  m_out.WriteAndFlush();
  TellWhatWasCut(totalRows);
}

void TablePrinter::TellWhatWasCut(std::size_t totalRows) {
  if (m_keptRows == m_rowsSeen && m_shownColumns == m_columns.size() && m_shortened == 0) return;
  m_err << "tabulon-cli: shown are " << WithSeparators(m_keptRows) << " of "
        << WithSeparators(totalRows) << " rows, " << m_shownColumns << " of " << m_columns.size()
        << " columns";
  if (m_shortened > 0) m_err << "; " << WithSeparators(m_shortened) << " cells are shortened";
  m_err << "; --limit and --width set other limits, 0 none\n";
}

}  // namespace TabulonCli
