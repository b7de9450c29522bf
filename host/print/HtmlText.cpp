#include "host/print/HtmlText.h"

#include <algorithm>
#include <cstddef>

#include "host/results/XmlText.h"

namespace OmbreliaHost {

namespace {

constexpr std::size_t LONGEST_ID = 200;
const char* const MIDDLE_DOT = "\xC2\xB7";

bool StaysInAnId(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '.' ||
         c == '-' || c == '_';
}

// The length of the mark that begins at a place of a shown cell, which ends at end; 0 if none does. A doubled
// backslash is a character of the text and no mark.
std::size_t LengthOfMark(const std::string& shown, std::size_t at, std::size_t end) {
  if (shown[at] != '\\' || at + 1 == end) return 0;
  std::size_t last = at + 1;
  if (shown[last] == 'x') last = at + 3;
  if (shown[last] == 'u') last = shown.find('}', at);
  return std::min(last, end - 1) + 1 - at;
}

std::string Mark(const std::string& mark) {
  return "<i class=\"unseen\">" + HtmlText(mark) + "</i>";
}

bool IsDotAt(const std::string& text, std::size_t at) {
  return text.compare(at, 2, MIDDLE_DOT) == 0;
}

}  // namespace

std::string HtmlText(const std::string& text) { return XmlContent(text); }

std::string HtmlAttribute(const std::string& name, const std::string& value) {
  return " " + name + "=\"" + XmlAttribute(value) + "\"";
}

std::string HtmlCell(const std::string& shown) {
  std::size_t begin = 0;
  std::size_t end = shown.size();
  while (begin < end && IsDotAt(shown, begin)) begin += 2;
  while (end >= begin + 2 && IsDotAt(shown, end - 2)) end -= 2;
  std::string html = begin > 0 ? Mark(shown.substr(0, begin)) : std::string();
  std::string plain;
  for (std::size_t at = begin; at < end;) {
    if (shown.compare(at, 2, "\\\\") == 0) {
      plain += "\\\\";
      at += 2;
    } else if (const std::size_t length = LengthOfMark(shown, at, end)) {
      html += HtmlText(plain) + Mark(shown.substr(at, length));
      plain.clear();
      at += length;
    } else {
      plain += shown[at++];
    }
  }
  html += HtmlText(plain);
  return end < shown.size() ? html + Mark(shown.substr(end)) : html;
}

std::string HtmlId(const std::string& text) {
  const std::string digits = "0123456789ABCDEF";
  std::string id;
  for (const char c : text) {
    if (id.size() >= LONGEST_ID) break;
    const auto byte = static_cast<unsigned char>(c);
    if (StaysInAnId(c)) {
      id += c;
    } else {
      id += {'%', digits[byte >> 4], digits[byte & 0xF]};
    }
  }
  return id.empty() ? "%" : id;
}

std::string HtmlIds::Next(const std::string& text) {
  const std::string id = HtmlId(text);
  const int count = ++m_given[id];
  return count == 1 ? id : id + "~" + std::to_string(count);
}

}  // namespace OmbreliaHost
