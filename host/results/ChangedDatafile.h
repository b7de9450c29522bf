// The bytes of a data file with one thing changed.
#ifndef OMBRELIA_HOST_RESULTS_CHANGEDDATAFILE_H
#define OMBRELIA_HOST_RESULTS_CHANGEDDATAFILE_H

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace OmbreliaHost {

// Knows the lines and cells as the plug-in's reader splits them. Each operation returns the bytes of a whole
// file; rows and columns count from 0, rows from the first one behind the headings. A row may end before the
// column: the cell then reads as empty, and is made where it gets a text.
class ChangedDatafile {
 public:
  // bytes: of a data file. UTF-16 and UTF-32 become UTF-8.
  explicit ChangedDatafile(const std::string& bytes);

  std::size_t RowCount() const { return m_cells.size(); }
  std::string Cell(std::size_t row, std::size_t column) const;

  std::string WithCell(std::size_t row, std::size_t column, const std::string& text) const;
  std::string WithEmptyColumn(std::size_t column) const;
  std::string WithoutColumn(std::size_t column) const;
  std::string WithoutRow(std::size_t row) const;
  // The copy follows the row.
  std::string WithRowTwice(std::size_t row) const;
  // At the end, one cell with a text.
  std::string WithOneMoreRow() const;
  // The number behind the colon in the heading of the expansion time.
  std::string WithExpansionTime(std::size_t column, long milliseconds) const;

  // A text close to the one that is there: a whole number becomes one more, any other text gets " 2".
  std::string NearText(std::size_t row, std::size_t column) const;
  // The next text below, and then from the top, that is another one; absent if the column has but one.
  std::optional<std::string> OtherText(std::size_t row, std::size_t column) const;

 private:
  struct Line {
    std::string text;
    std::string end;  // its terminator; empty for a last line without one
  };
  static std::string TextOf(const std::vector<Line>& lines);
  static std::string WithCell(const std::string& line, std::size_t column, const std::string& text);

  std::vector<Line> m_lines;
  std::vector<std::vector<std::string>> m_cells;  // of the rows
};

}  // namespace OmbreliaHost

#endif
