#include "host/print/VisibleText.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cwchar>

#include "host/results/CodePoints.h"

namespace OmbreliaHost {

namespace {

constexpr std::size_t LONGEST_LINE = 2000;
constexpr char32_t MIDDLE_DOT = 0xB7;
const char* const ELLIPSIS = "\xE2\x80\xA6";

struct Range {
  char32_t first;
  char32_t last;
};

// Blanks of other kinds than U+0020, marks without a shape, private use, and no characters at all.
constexpr std::array<Range, 29> UNSEEN = {
    {{0x80, 0xA0},        {0xAD, 0xAD},       {0x34F, 0x34F},     {0x61C, 0x61C},
     {0x115F, 0x1160},    {0x1680, 0x1680},   {0x17B4, 0x17B5},   {0x180B, 0x180F},
     {0x2000, 0x200F},    {0x2028, 0x202F},   {0x205F, 0x206F},   {0x2800, 0x2800},
     {0x3000, 0x3000},    {0x3164, 0x3164},   {0xE000, 0xF8FF},   {0xFDD0, 0xFDEF},
     {0xFE00, 0xFE0F},    {0xFEFF, 0xFEFF},   {0xFFA0, 0xFFA0},   {0xFFF0, 0xFFFB},
     {0xFFFE, 0xFFFF},    {0x1BCA0, 0x1BCA3}, {0x1D173, 0x1D17A}, {0x1FFFE, 0x1FFFF},
     {0x2FFFE, 0x2FFFF},  {0x3FFFE, 0x3FFFF}, {0xE0000, 0xE0FFF}, {0xF0000, 0xFFFFF},
     {0x100000, 0x10FFFF}}};

bool IsControl(char32_t value) { return value < 0x20 || value == 0x7F; }

bool IsUnseen(char32_t value) {
  return std::any_of(UNSEEN.begin(), UNSEEN.end(), [&](const Range& range) {
    return value >= range.first && value <= range.last;
  });
}

std::string Formatted(const char* format, char32_t value) {
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), format, static_cast<unsigned>(value));
  return text.data();
}

std::string Escaped(const CodePoint& point) {
  if (point.valid && point.value == '\t') return "\\t";
  if (point.valid && point.value == '\n') return "\\n";
  if (point.valid && point.value == '\r') return "\\r";
  return Formatted(!point.valid || IsControl(point.value) ? "\\x%02X" : "\\u{%X}", point.value);
}

void AppendShown(std::string& shown, const CodePoint& point) {
  if (!point.valid || IsControl(point.value) || IsUnseen(point.value)) {
    shown += Escaped(point);
  } else {
    AppendUtf8(shown, point.value);
  }
}

using Points = std::vector<CodePoint>;

std::string Characters(std::size_t count) { return std::to_string(count) + " characters"; }

// Groups of ASCII characters that many fonts draw alike.
bool LookAlike(const CodePoint& one, const CodePoint& other) {
  if (!one.valid || !other.valid || one.value >= 0x80 || other.value >= 0x80) return true;
  for (const char* group : {"0O", "1lI|", "'`", "-_"}) {
    const std::string characters = group;
    if (characters.find(static_cast<char>(one.value)) != std::string::npos &&
        characters.find(static_cast<char>(other.value)) != std::string::npos) {
      return true;
    }
  }
  return false;
}

std::size_t FirstDifferenceOf(const Points& one, const Points& other) {
  const auto [inOne, inOther] = std::mismatch(one.begin(), one.end(), other.begin(), other.end(),
                                              [](const CodePoint& a, const CodePoint& b) {
                                                return a.value == b.value && a.valid == b.valid;
                                              });
  return static_cast<std::size_t>(inOne - one.begin());
}

// The character of a text as a code point, with its shape if it has one.
std::string CharacterAt(const Points& points, std::size_t at) {
  if (at == points.size()) return "the end";
  const CodePoint& point = points[at];
  if (!point.valid) return "the byte " + Formatted("%02X", point.value) + ", which is no UTF-8,";
  std::string character = Formatted("U+%04X", point.value);
  if (!IsControl(point.value) && !IsUnseen(point.value) && point.value != ' ') {
    character += " (";
    AppendUtf8(character, point.value);
    character += ")";
  }
  return character;
}

}  // namespace

std::string LineShown(const std::string& text) {
  std::string shown;
  for (const CodePoint& point : CodePointsOf(text)) AppendShown(shown, point);
  return shown;
}

std::vector<std::string> LinesShown(const std::string& text) {
  std::vector<std::string> lines;
  for (std::size_t begin = 0; begin <= text.size();) {
    const std::size_t end = std::min(text.find('\n', begin), text.size());
    const Points points = CodePointsOf(text.substr(begin, end - begin));
    std::string line;
    for (std::size_t i = 0; i < std::min(points.size(), LONGEST_LINE); ++i) {
      AppendShown(line, points[i]);
    }
    if (points.size() > LONGEST_LINE) line += ELLIPSIS + (" (" + Characters(points.size())) + ")";
    lines.push_back(line);
    begin = end + 1;
  }
  return lines;
}

std::string CellShown(const std::string& text, std::size_t limit, std::size_t around) {
  if (text.empty()) return "(empty)";
  const Points points = CodePointsOf(text);
  const auto isNoBlank = [](const CodePoint& point) { return point.value != ' '; };
  const auto isNoMark = [](const CodePoint& point) {
    return point.value != ' ' && point.value != MIDDLE_DOT;
  };
  const auto firstNoBlank = std::find_if(points.begin(), points.end(), isNoMark) - points.begin();
  const auto lastNoBlank =
      points.rend() - std::find_if(points.rbegin(), points.rend(), isNoMark) - 1;

  std::size_t begin = 0;
  std::size_t end = points.size();
  if (points.size() > limit) {
    // A third of the part comes before the place that matters.
    begin = around > limit / 3 ? std::min(around - limit / 3, points.size() - limit) : 0;
    end = begin + limit;
  }
  std::string shown = begin > 0 ? ELLIPSIS : "";
  for (std::size_t i = begin; i < end; ++i) {
    const auto at = static_cast<std::ptrdiff_t>(i);
    const bool atAnEnd = at < firstNoBlank || at > lastNoBlank;
    if (points[i].valid && points[i].value == '\\') {
      shown += "\\\\";
    } else if (atAnEnd && points[i].valid) {
      // A middle dot of the text itself is told from a blank.
      shown += isNoBlank(points[i]) ? Escaped(points[i]) : "\xC2\xB7";
    } else {
      AppendShown(shown, points[i]);
    }
  }
  if (end < points.size()) shown += ELLIPSIS;
  if (points.size() > limit) shown += " (" + Characters(points.size()) + ")";
  return shown;
}

std::string PathShown(const std::string& path) {
  // Nearly every path is plain.
  const bool isPlain =
      std::all_of(path.begin(), path.end(), [](char c) { return c >= ' ' && c <= '~'; });
  if (isPlain) return path;
  std::string shown;
  for (const CodePoint& point : CodePointsOf(path)) {
    if (point.valid) {
      AppendShown(shown, point);
    } else {
      shown += static_cast<char>(point.value);
    }
  }
  return shown;
}

std::string ColumnShown(const std::string& name) {
  std::string oneLine = name;
  std::replace(oneLine.begin(), oneLine.end(), '\n', ' ');
  return CellShown(oneLine, 60);
}

std::optional<std::size_t> FirstDifference(const std::string& one, const std::string& other) {
  if (one == other) return std::nullopt;
  return FirstDifferenceOf(CodePointsOf(one), CodePointsOf(other));
}

std::string HiddenDifference(const std::string& actual, const std::string& expected,
                             std::size_t limit) {
  if (actual == expected) return std::string();
  const Points actualPoints = CodePointsOf(actual);
  const Points expectedPoints = CodePointsOf(expected);
  const std::size_t at = FirstDifferenceOf(actualPoints, expectedPoints);
  const bool cut = actualPoints.size() > limit || expectedPoints.size() > limit;
  const bool bothGoOn = at < actualPoints.size() && at < expectedPoints.size();
  // The longer one may continue with a combining mark and look like the shorter one.
  const Points& longer = actualPoints.size() > at ? actualPoints : expectedPoints;
  const bool alike = bothGoOn ? LookAlike(actualPoints[at], expectedPoints[at])
                              : longer[at].valid && longer[at].value >= 0x80;
  if (!cut && !alike) return std::string();
  return "The texts differ first at character " + std::to_string(at + 1) + ": " +
         CharacterAt(actualPoints, at) + " stands there, " + CharacterAt(expectedPoints, at) +
         " is expected.";
}

std::size_t WidthOf(const std::string& text) {
  std::size_t width = 0;
  for (const CodePoint& point : CodePointsOf(text)) {
    const int places = point.valid ? wcwidth(static_cast<wchar_t>(point.value)) : 1;
    width += places < 0 ? 1 : static_cast<std::size_t>(places);
  }
  return width;
}

}  // namespace OmbreliaHost
