#include "Tabulon/cli/Text.h"

#include <wx/strconv.h>

#include <algorithm>
#include <clocale>
#include <cwchar>

#include "Tabulon/src/rows/MUColumnReader.h"
#include "Tabulon/src/text/MUUtilitarianFunctions.h"

namespace TabulonCli {

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
  const auto isAscii = [](char byte) { return static_cast<unsigned char>(byte) < 128; };
  if (narrow != nullptr && std::all_of(narrow, narrow + text.Length(), isAscii)) {
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

std::size_t DisplayWidth(const wxString& text) {
  return DisplayWidth(MUColumnReader::ViewOf(text));
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

}  // namespace TabulonCli
