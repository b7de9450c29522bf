#include "host/print/HtmlPage.h"

#include "host/print/HtmlText.h"
#include "host/print/PageAssets.h"
#include "host/results/Digest.h"

namespace OmbreliaHost {

namespace {

// JSON that ends no element and begins none, whatever its texts hold.
std::string JsonForMarkup(const std::string& json) {
  std::string inert;
  inert.reserve(json.size() + json.size() / 8);
  for (const char c : json) {
    switch (c) {
      case '<':
        inert += "\\u003c";
        break;
      case '>':
        inert += "\\u003e";
        break;
      case '&':
        inert += "\\u0026";
        break;
      default:
        inert += c;
    }
  }
  return inert;
}

// What nobody can have foreseen who wrote a part of the content.
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
      << "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; style-src "
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
    out << "<script type=\"application/json\" id=\"page:data\">" << JsonForMarkup(data)
        << "</script>\n";
  }
  if (!script.empty()) {
    out << "<script" << noncePart << ">\n//<![CDATA[\n" << script << "//]]>\n</script>\n";
  }
  out << "</body>\n</html>\n";
}

}  // namespace OmbreliaHost
