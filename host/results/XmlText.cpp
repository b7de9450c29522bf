#include "host/results/XmlText.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <map>

#include "host/results/CodePoints.h"

namespace OmbreliaHost {

namespace {

bool XmlMayHold(const CodePoint& point) {
  if (!point.valid) return false;
  if (point.value < 0x20) {
    return point.value == '\t' || point.value == '\n' || point.value == '\r';
  }
  return point.value != 0xFFFE && point.value != 0xFFFF;
}

void AppendVisibly(std::string& xml, const CodePoint& point) {
  std::array<char, 16> visible{};
  std::snprintf(visible.data(), visible.size(), point.value < 0x100 ? "\\x%02X" : "\\u{%X}",
                static_cast<unsigned>(point.value));
  xml += visible.data();
}

// kept: characters of ASCII that stay although they have an entity.
std::string Escaped(const std::string& text, const std::string& kept) {
  static const std::map<char32_t, const char*> entities = {
      {'&', "&amp;"},
      {'<', "&lt;"},
      {'>', "&gt;"},
      {'"', "&quot;"},
      // A reader makes blanks of these in an attribute, and a line feed of the last one everywhere.
      {'\t', "&#9;"},
      {'\n', "&#10;"},
      {'\r', "&#13;"}};
  std::string xml;
  xml.reserve(text.size());
  for (const CodePoint& point : CodePointsOf(text)) {
    const auto entity = entities.find(point.value);
    if (!XmlMayHold(point)) {
      AppendVisibly(xml, point);
    } else if (entity != entities.end() &&
               kept.find(static_cast<char>(point.value)) == std::string::npos) {
      xml += entity->second;
    } else {
      AppendUtf8(xml, point.value);
    }
  }
  return xml;
}

}  // namespace

std::string XmlAttribute(const std::string& text) { return Escaped(text, ""); }

std::string XmlContent(const std::string& text) { return Escaped(text, "\t\n\""); }

std::string XmlCharacterData(const std::string& text) {
  const std::string end = "]]>";
  std::string data = "<![CDATA[";
  std::string held;
  for (const CodePoint& point : CodePointsOf(text)) {
    if (XmlMayHold(point)) {
      AppendUtf8(held, point.value);
    } else {
      AppendVisibly(held, point);
    }
  }
  for (std::size_t begin = 0;;) {
    const std::size_t at = held.find(end, begin);
    // Each section ends within the three characters.
    if (at == std::string::npos) return data + held.substr(begin) + end;
    data += held.substr(begin, at + 2 - begin) + "]]><![CDATA[";
    begin = at + 2;
  }
}

bool HoldsWhatXmlCannot(const std::string& text) {
  const std::vector<CodePoint> points = CodePointsOf(text);
  return !std::all_of(points.begin(), points.end(), XmlMayHold);
}

}  // namespace OmbreliaHost
