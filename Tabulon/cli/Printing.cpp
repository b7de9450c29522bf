#include "Tabulon/cli/Printing.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <ostream>

#include "Tabulon/cli/Text.h"

namespace TabulonCli {

namespace {

const char* const MARK = "*";
const char* const MARK_HEADING = "Flag";

// Rows first to last, both inclusive; none if last is below first.
RowRange ExistingRows(const Window& window) {
  RowRange rows = window.rows;
  rows.last = std::min(rows.last, window.table.GetNumberOfDataRows() - 1);
  return rows;
}

template <typename ACTION>
void ForEachRow(const Window& window, ACTION action) {
  const RowRange rows = ExistingRows(window);
  for (int row = rows.first; row <= rows.last; ++row) action(row);
}

std::string Counted(int count, int total, const std::string& noun) {
  const std::string of = count == total ? "" : " of " + std::to_string(total);
  return std::to_string(count) + of + " " + noun + (total == 1 ? "" : "s");
}

// Columns of one width each, two blanks between them, the two heading rows on two lines.
class TablePrinter {
 public:
  TablePrinter(std::ostream& out, const Window& window)
      : m_out(out), m_window(window), m_columnCount(window.table.GetNumberOfDataColumns()) {}

  void Print() {
    Measure();
    PrintHeading(m_firstHeadings, m_window.marks ? MARK_HEADING : "");
    PrintHeading(m_secondHeadings, "");
    BeginLine("");
    for (const std::size_t width : m_widths) m_line.append(width, '-').append("  ");
    if (m_window.marks) m_line.replace(0, m_markWidth, m_markWidth, '-');
    EndLine();
    ForEachRow(m_window, [this](int row) {
      BeginLine(m_window.table.GetRowFlagStatus(row) ? MARK : "");
      for (int column = 0; column < m_columnCount; ++column) {
        const MUCellText text = m_window.table.GetDataCellText(row, column);
        AppendUtf8(m_line, text);
        Pad(column, DisplayWidth(text));
      }
      EndLine();
    });
    const RowRange rows = ExistingRows(m_window);
    m_out << Counted(std::max(0, rows.last - rows.first + 1), m_window.table.GetNumberOfDataRows(),
                     "row")
          << ", " << Counted(m_columnCount, m_columnCount, "column") << '\n';
  }

 private:
  void Measure() {
    for (int column = 0; column < m_columnCount; ++column) {
      const wxString name = m_window.table.GetColumnNameText(column);
      // A code-value column has no cell in the first heading row.
      const bool below = m_window.table.IsColumnCodeValColulmn(name);
      m_firstHeadings.push_back(below ? wxString() : Harmless(name.BeforeFirst(wxT('\n'))));
      m_secondHeadings.push_back(OnOneLine(below ? name : name.AfterFirst(wxT('\n'))));
      m_widths.push_back(
          std::max(DisplayWidth(m_firstHeadings.back()), DisplayWidth(m_secondHeadings.back())));
    }
    ForEachRow(m_window, [this](int row) {
      for (int column = 0; column < m_columnCount; ++column) {
        std::size_t& width = m_widths[static_cast<std::size_t>(column)];
        width = std::max(width, DisplayWidth(m_window.table.GetDataCellText(row, column)));
      }
    });
  }

  void PrintHeading(const std::vector<wxString>& headings, const std::string& mark) {
    BeginLine(mark);
    for (int column = 0; column < m_columnCount; ++column) {
      const wxString& heading = headings[static_cast<std::size_t>(column)];
      m_line += Utf8(heading);
      Pad(column, DisplayWidth(heading));
    }
    EndLine();
  }

  void BeginLine(const std::string& mark) {
    m_line.clear();
    if (m_window.marks) m_line = mark + std::string(m_markWidth + 2 - mark.size(), ' ');
  }
  void Pad(int column, std::size_t width) {
    m_line.append(m_widths[static_cast<std::size_t>(column)] - width + 2, ' ');
  }
  void EndLine() {
    m_line.erase(m_line.find_last_not_of(' ') + 1);
    m_out << m_line << '\n';
  }

  const std::size_t m_markWidth = std::string(MARK_HEADING).size();
  std::ostream& m_out;
  const Window& m_window;
  const int m_columnCount;
  std::vector<wxString> m_firstHeadings;
  std::vector<wxString> m_secondHeadings;
  std::vector<std::size_t> m_widths;
  std::string m_line;
};

void PrintTsv(std::ostream& out, const Window& window) {
  const int columnCount = window.table.GetNumberOfDataColumns();
  std::string line = window.marks ? MARK_HEADING : "";
  for (int column = 0; column < columnCount; ++column) {
    if (column > 0 || window.marks) line += '\t';
    line += Utf8(OnOneLine(window.table.GetColumnNameText(column)));
  }
  out << line << '\n';
  ForEachRow(window, [&](int row) {
    line = window.marks && window.table.GetRowFlagStatus(row) ? MARK : "";
    for (int column = 0; column < columnCount; ++column) {
      if (column > 0 || window.marks) line += '\t';
      AppendUtf8(line, window.table.GetDataCellText(row, column));
    }
    out << line << '\n';
  });
}

std::string Quoted(const std::string& utf8) {
  return nlohmann::json(utf8).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

// One line per row, so that many rows neither fill the memory nor one line.
void PrintJson(std::ostream& out, const Window& window) {
  const int columnCount = window.table.GetNumberOfDataColumns();
  out << "{\"columns\": [";
  for (int column = 0; column < columnCount; ++column) {
    out << (column > 0 ? ", " : "") << Quoted(Utf8(window.table.GetColumnNameText(column)));
  }
  out << "],\n \"rows\": [";
  std::string flagged;
  const char* separator = "\n  [";
  std::string cell;
  ForEachRow(window, [&](int row) {
    out << separator;
    separator = ",\n  [";
    for (int column = 0; column < columnCount; ++column) {
      cell.clear();
      AppendUtf8(cell, window.table.GetDataCellText(row, column));
      out << (column > 0 ? ", " : "") << Quoted(cell);
    }
    out << "]";
    if (window.table.GetRowFlagStatus(row))
      flagged += (flagged.empty() ? "" : ", ") + std::to_string(row);
  });
  out << "],\n \"flaggedRows\": [" << flagged << "]}\n";
}

}  // namespace

void Print(std::ostream& out, const Window& window, Format format) {
  switch (format) {
    case Format::Table:
      TablePrinter(out, window).Print();
      break;
    case Format::Tsv:
      PrintTsv(out, window);
      break;
    case Format::Json:
      PrintJson(out, window);
      break;
  }
}

}  // namespace TabulonCli
