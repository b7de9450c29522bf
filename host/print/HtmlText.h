// Texts as markup of a page: whatever a text holds, a browser shows it and never obeys it.
#ifndef OMBRELIA_HOST_PRINT_HTMLTEXT_H
#define OMBRELIA_HOST_PRINT_HTMLTEXT_H

#include <map>
#include <string>

namespace OmbreliaHost {

// Texts are UTF-8; a byte that is none, and a character that no page may hold, show as \x1B. All markup here and in
// the other pieces of a page is well-formed XML and HTML at once. Texts of data files should have gone through
// VisibleText.h before.
std::string HtmlText(const std::string& text);
// With the blank before it, as in ` class="number"`.
std::string HtmlAttribute(const std::string& name, const std::string& value);

// A shown cell (CellShown, ColumnShown) with its marks of what cannot be seen set off from the rest.
std::string HtmlCell(const std::string& shown);

// A text as the id of an element: "#" and the id make a link to it. Letters, digits and ".-_" stay as they are, other
// bytes become %20, and what is long is cut. No id of this kind holds a colon: the page's own ids do.
std::string HtmlId(const std::string& text);

// Ids that differ from one another: the second element of an id gets "~2".
class HtmlIds {
 public:
  std::string Next(const std::string& text);

 private:
  std::map<std::string, int> m_given;  // how often each id was asked for
};

}  // namespace OmbreliaHost

#endif
