// Columns side by side on a terminal.
#ifndef OMBRELIA_HOST_PRINT_TEXTTABLE_H
#define OMBRELIA_HOST_PRINT_TEXTTABLE_H

#include <string>
#include <vector>

namespace OmbreliaHost {

class TextTable {
 public:
  enum class Align { Left, Right };

  // A column without a heading and without a cell takes no place.
  void AddColumn(const std::string& heading, Align align);
  // One cell per column, shown as it is.
  void AddRow(const std::vector<std::string>& cells);

  // The headings, then the rows, two blanks between columns and none at the end.
  std::vector<std::string> Lines() const;

  // The columns' alignments, and the cells: the first row holds the headings.
  const std::vector<Align>& Aligns() const { return m_aligns; }
  const std::vector<std::vector<std::string>>& Rows() const { return m_rows; }

 private:
  std::vector<Align> m_aligns;
  std::vector<std::vector<std::string>> m_rows = {{}};  // the first one holds the headings
};

}  // namespace OmbreliaHost

#endif
