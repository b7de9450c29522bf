// A table of a page.
#ifndef OMBRELIA_HOST_PRINT_HTMLTABLE_H
#define OMBRELIA_HOST_PRINT_HTMLTABLE_H

#include <string>
#include <vector>

namespace OmbreliaHost {

// Scrolls by itself where the page is too narrow for it; a keyboard reaches it.
class HtmlTable {
 public:
  enum class Align { Left, Right };

  // caption: what the table holds, for those who do not see it. Text.
  explicit HtmlTable(const std::string& caption) : m_caption(caption) {}

  // heading: text. A column without a heading and without a cell takes no place.
  void AddColumn(const std::string& heading, Align align);
  // One cell per column, as markup. rowClass: classes of the style sheet, such as "decides"; may be empty.
  // headed: the first cell names the row.
  void AddRow(const std::vector<std::string>& cells, const std::string& rowClass = "",
              bool headed = false);

  // Gives a cell of the last row a class of the style sheet, such as HeatClass of SvgPlots.h.
  void SetCellClass(std::size_t column, const std::string& cellClass);

  std::string Markup() const;

 private:
  struct Column {
    std::string heading;
    Align align = Align::Left;
  };
  struct Row {
    std::vector<std::string> cells;
    std::string rowClass;
    bool headed = false;
    std::vector<std::string> cellClasses = {};  // empty, or one per column
  };
  bool IsShown(std::size_t column) const;

  std::string m_caption;
  std::vector<Column> m_columns;
  std::vector<Row> m_rows;
};

}  // namespace OmbreliaHost

#endif
