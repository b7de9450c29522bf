#include "host/print/HtmlTable.h"

#include <algorithm>

#include "host/print/HtmlText.h"

namespace OmbreliaHost {

void HtmlTable::AddColumn(const std::string& heading, Align align) {
  m_columns.push_back({heading, align});
}

void HtmlTable::AddRow(const std::vector<std::string>& cells, const std::string& rowClass,
                       bool headed) {
  m_rows.push_back({cells, rowClass, headed});
  m_rows.back().cells.resize(m_columns.size());
}

void HtmlTable::SetCellClass(std::size_t column, const std::string& cellClass) {
  m_rows.back().cellClasses.resize(m_columns.size());
  m_rows.back().cellClasses[column] = cellClass;
}

bool HtmlTable::IsShown(std::size_t column) const {
  return !m_columns[column].heading.empty() ||
         std::any_of(m_rows.begin(), m_rows.end(),
                     [column](const Row& row) { return !row.cells[column].empty(); });
}

std::string HtmlTable::Markup() const {
  std::string html = "<div class=\"scroll\" role=\"group\" tabindex=\"0\"" +
                     HtmlAttribute("aria-label", m_caption) + "><table><thead><tr>";
  std::vector<bool> shown;
  for (std::size_t i = 0; i < m_columns.size(); ++i) {
    shown.push_back(IsShown(i));
    if (!shown[i]) continue;
    const std::string alignment = m_columns[i].align == Align::Right ? " class=\"number\"" : "";
    // A heading without words would be none to a screen reader.
    html += m_columns[i].heading.empty()
                ? "<td></td>"
                : "<th scope=\"col\"" + alignment + ">" + HtmlText(m_columns[i].heading) + "</th>";
  }
  html += "</tr></thead><tbody>";
  for (const Row& row : m_rows) {
    html += row.rowClass.empty() ? "<tr>" : "<tr" + HtmlAttribute("class", row.rowClass) + ">";
    for (std::size_t i = 0; i < m_columns.size(); ++i) {
      if (!shown[i]) continue;
      const bool isNumber = m_columns[i].align == Align::Right;
      std::string classes = isNumber ? "number" : "";
      if (!row.cellClasses.empty() && !row.cellClasses[i].empty())
        classes += (classes.empty() ? "" : " ") + row.cellClasses[i];
      const std::string alignment = classes.empty() ? "" : HtmlAttribute("class", classes);
      html += row.headed && i == 0 ? "<th scope=\"row\"" + alignment + ">" + row.cells[i] + "</th>"
                                   : "<td" + alignment + ">" + row.cells[i] + "</td>";
    }
    html += "</tr>";
  }
  return html + "</tbody></table></div>\n";
}

}  // namespace OmbreliaHost
