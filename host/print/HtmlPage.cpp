#include "host/print/HtmlPage.h"

#include "host/print/HtmlText.h"
#include "host/print/PageAssets.h"
#include "host/results/Digest.h"

namespace OmbreliaHost {

namespace {

// Does an element of this text end or begin behind a "<", or a comment?
bool MattersToScript(const std::string& text, std::size_t behind) {
  const auto at = [&](std::size_t place) { return place < text.size() ? text[place] : '\0'; };
  if (at(behind) == '!') return true;
  const std::size_t name = at(behind) == '/' ? behind + 1 : behind;
  return (at(name) == 's' || at(name) == 'S') && (at(name + 1) == 'c' || at(name + 1) == 'C');
}

// JSON that ends neither its element nor its section of character data, whatever its texts hold. Only "<script",
// "</script" and "<!--" matter to HTML there, and only "]]>" to XML; to escape every "<" would make a large page half
// as large again.
std::string JsonForMarkup(const std::string& json) {
  std::string inert;
  inert.reserve(json.size() + 1024);
  for (std::size_t i = 0; i < json.size(); ++i) {
    if (json[i] == '<' && MattersToScript(json, i + 1)) {
      inert += "\\u003c";
    } else if (json[i] == '>' && i > 0 && json[i - 1] == ']') {
      inert += "\\u003e";
    } else {
      inert += json[i];
    }
  }
  return inert;
}

// A part of the content cannot name it, since it follows from all of it.
std::string NonceOf(const HtmlPage& page) {
  std::string all = page.title + page.lead + page.data;
  for (const HtmlPage::Section& section : page.sections) all += section.heading + section.body;
  return DigestOfText(all);
}

}  // namespace

void HtmlPage::Print(std::ostream& out) const {
  const std::string nonce = NonceOf(*this);
  const std::string noncePart = HtmlAttribute("nonce", nonce);
  out << "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\"/>\n"
      << "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; img-src "
         "data:; style-src "
         "'nonce-"
      << nonce << "'; script-src 'nonce-" << nonce << "'; base-uri 'none'; form-action 'none'\"/>\n"
      << "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\"/>\n"
      << "<meta name=\"generator\" content=\"verify-datafiles " << OMBRELIA_VERSION
      << "\"/>\n"
      // Else a browser asks the server for one.
      << "<link rel=\"icon\" href=\"data:,\"/>\n"
      << "<title>" << HtmlText(title) << "</title>\n"
      << "<style" << noncePart << ">\n/*<![CDATA[*/\n"
      << PAGE_STYLE << "/*]]>*/\n</style>\n</head>\n<body>\n"
      << "<a class=\"skip\" href=\"#page:main\">Skip to the content</a>\n<header>\n<h1>"
      << HtmlText(title) << "</h1>\n"
      << lead << "</header>\n<nav aria-label=\"On this page\"><ul>\n";
  for (const Section& section : sections) {
    out << "<li><a" << HtmlAttribute("href", "#" + section.id) << ">" << HtmlText(section.heading)
        << "</a></li>\n";
  }
  out << "</ul></nav>\n<main id=\"page:main\" tabindex=\"-1\">\n";
  for (const Section& section : sections) {
    const std::string heading = section.id + "-heading";
    out << "<section" << HtmlAttribute("id", section.id)
        << HtmlAttribute("aria-labelledby", heading) << ">\n<h2" << HtmlAttribute("id", heading)
        << " tabindex=\"-1\">" << HtmlText(section.heading) << "</h2>\n"
        << section.body << "</section>\n";
  }
  out << "</main>\n<footer><p>Made by verify-datafiles " << OMBRELIA_VERSION << ".</p></footer>\n";
  if (!data.empty()) {
    out << "<script type=\"application/json\" id=\"page:data\"><![CDATA[" << JsonForMarkup(data)
        << "]]></script>\n";
  }
  if (!script.empty()) {
    out << "<script" << noncePart << ">\n//<![CDATA[\n" << script << "//]]>\n</script>\n";
  }
  out << "</body>\n</html>\n";
}

}  // namespace OmbreliaHost
