#include "Tabulon/cli/Text.h"

#include <wx/strconv.h>

#include <algorithm>
#include <clocale>
#include <cstdint>
#include <cstring>
#include <cwchar>

#include "Tabulon/src/rows/MUColumnReader.h"
#include "Tabulon/src/text/MUUtilitarianFunctions.h"

namespace TabulonCli {

namespace {

constexpr std::uint64_t EACH_BYTE = 0x0101010101010101u;
constexpr std::uint64_t HIGH_BITS = 0x80 * EACH_BYTE;

// Whether no word of eight bytes has a high bit in what test makes of it. Bytes beyond the end are blanks.
template <typename TEST>
bool PassesEverywhere(std::string_view text, TEST test) {
  std::uint64_t failures = 0;
  std::uint64_t word = 0;
  std::size_t i = 0;
  for (; i + sizeof word <= text.size(); i += sizeof word) {
    std::memcpy(&word, text.data() + i, sizeof word);
    failures |= test(word);
  }
  if (i < text.size()) {
    word = ' ' * EACH_BYTE;
    std::memcpy(&word, text.data() + i, text.size() - i);
    failures |= test(word);
  }
  return (failures & HIGH_BITS) == 0;
}

bool IsAscii(std::string_view text) {
  return PassesEverywhere(text, [](std::uint64_t word) { return word; });
}

// ASCII without control characters.
bool IsPlain(std::string_view text) {
  return PassesEverywhere(text, [](std::uint64_t word) {
    const std::uint64_t below32 = (word - ' ' * EACH_BYTE) & ~word;
    const std::uint64_t differsFrom127 = word ^ (0x7F * EACH_BYTE);
    const std::uint64_t is127 = (differsFrom127 - EACH_BYTE) & ~differsFrom127;
    return word | below32 | is127;
  });
}

}  // namespace

void UseUtf8Everywhere() {
#ifdef __APPLE__
  std::setlocale(LC_CTYPE, "UTF-8");
#else
  static wxMBConvUTF8 conversion(wxMBConvUTF8::MAP_INVALID_UTF8_TO_PUA);
  wxConvFileName = &conversion;
  std::setlocale(LC_CTYPE, "C.UTF-8");
#endif
}

wxString TextOf(const std::string& bytes) {
  const wxString text = wxString::FromUTF8(bytes.data(), bytes.size());
  return text.empty() ? wxString(bytes.data(), wxConvISO8859_1, bytes.size()) : text;
}

wxString TextOf(const std::filesystem::path& path) {
  return wxString(path.c_str(), *wxConvFileName);
}

std::string Utf8(const wxString& text) { return text.utf8_string(); }

void AppendUtf8(std::string& bytes, const MUCellText& text) {
  const char* const narrow = text.Narrow();
  if (narrow != nullptr && IsAscii({narrow, text.Length()})) {
    bytes.append(narrow, text.Length());
  } else if (!text.IsEmpty()) {
    bytes += Utf8(text.ToString());
  }
}

std::size_t DisplayWidth(const MUCellText& text) {
  if (text.Wide() == nullptr) return text.Length();
  std::size_t width = 0;
  for (std::size_t i = 0; i < text.Length(); ++i) {
    const int columns = wcwidth(text[i]);
    width += columns < 0 ? 1 : static_cast<std::size_t>(columns);
  }
  return width;
}

std::string_view Utf8View(const MUCellText& text, std::string& room) {
  const char* const narrow = text.Narrow();
  if (narrow != nullptr && IsAscii({narrow, text.Length()})) return {narrow, text.Length()};
  room = text.IsEmpty() ? std::string() : Utf8(text.ToString());
  return room;
}

std::size_t DisplayWidth(std::string_view utf8) {
  if (IsAscii(utf8)) return utf8.size();
  const wxString text = wxString::FromUTF8(utf8.data(), utf8.size());
  return DisplayWidth(MUColumnReader::ViewOf(text));
}

std::string_view CutToWidth(std::string_view utf8, std::size_t width) {
  if (IsAscii(utf8)) return utf8.substr(0, width);
  std::size_t end = 0;
  while (end < utf8.size()) {
    std::size_t next = end + 1;
    while (next < utf8.size() && (utf8[next] & '\xC0') == '\x80') ++next;
    const std::size_t taken = DisplayWidth(utf8.substr(end, next - end));
    if (taken > width) break;
    width -= taken;
    end = next;
  }
  return utf8.substr(0, end);
}

wxString OnOneLine(const wxString& columnName) {
  wxString line(columnName);
  line.Replace(wxT("\n"), wxT(" "));
  return Harmless(line);
}

wxString Harmless(const wxString& text) {
  wxString harmless(text);
  MUUtilitarianFunctions::TranslateControlChars(harmless);
  return harmless;
}

void AppendHarmless(std::string& bytes, std::string_view utf8) {
  if (IsPlain(utf8)) {
    bytes.append(utf8);
    return;
  }
  // 0xC2 leads the characters 128 to 191, of which the lower half are control characters.
  bool plain = true;
  for (const char byte : utf8) {
    const auto value = static_cast<unsigned char>(byte);
    plain = plain && value >= 32 && value != 127 && value != 0xC2;
  }
  if (plain) {
    bytes.append(utf8);
  } else {
    wxString text = wxString::FromUTF8(utf8.data(), utf8.size());
    text.Replace(wxT("\n"), wxT(" "));
    text.Replace(wxT("\t"), wxT(" "));
    bytes += Utf8(Harmless(text));
  }
}

std::string Typeable(const wxString& columnName) {
  wxString shown(columnName);
  shown.Replace(wxT("\n"), wxT("\\n"));
  return Utf8(Harmless(shown));
}

std::vector<std::string> SplitAtCommas(const std::string& list) {
  std::vector<std::string> pieces;
  std::size_t begin = 0;
  for (std::size_t comma = list.find(','); comma != std::string::npos;
       comma = list.find(',', begin)) {
    pieces.push_back(list.substr(begin, comma - begin));
    begin = comma + 1;
  }
  pieces.push_back(list.substr(begin));
  return pieces;
}

std::string WithSeparators(std::size_t number) {
  std::string digits = std::to_string(number);
  for (std::size_t place = digits.size(); place > 3;) digits.insert(place -= 3, ",");
  return digits;
}

std::string Counted(std::size_t count, const std::string& noun) {
  return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

}  // namespace TabulonCli
