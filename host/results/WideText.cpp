#include "host/results/WideText.h"

#include <wx/strconv.h>

#include <algorithm>
#include <clocale>
#include <cstdint>
#include <string>

namespace OmbreliaHost {

namespace {

// Is this no character of Unicode, as a data file in UTF-32 may hold?
bool IsNoCharacter(wchar_t value) {
  const auto code = static_cast<std::uint32_t>(value);
  return code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF);
}

const wxMBConvUTF8& PathConversion() {
  static const wxMBConvUTF8 conversion(wxMBConvUTF8::MAP_INVALID_UTF8_TO_PUA);
  return conversion;
}

}  // namespace

void ReadFileNamesAsUtf8() {
#ifdef __APPLE__
  // wx knows how this system decomposes its UTF-8.
  std::setlocale(LC_CTYPE, "UTF-8");
#else
  static wxMBConvUTF8 conversion(wxMBConvUTF8::MAP_INVALID_UTF8_TO_PUA);
  wxConvFileName = &conversion;
  std::setlocale(LC_CTYPE, "C.UTF-8");
#endif
}

wxString TextOfPath(const std::filesystem::path& path) {
  return wxString(path.c_str(), *wxConvFileName);
}

std::string Utf8OfText(const wxString& text) {
  std::wstring characters = text.ToStdWstring();
  std::replace_if(characters.begin(), characters.end(), IsNoCharacter, wchar_t{0xFFFD});
  return wxString(characters).utf8_string();
}

std::string Utf8OfPath(const std::filesystem::path& path) {
  return Utf8OfText(wxString(path.c_str(), PathConversion()));
}

std::filesystem::path PathOfUtf8(const std::string& utf8) {
  const wxCharBuffer bytes = wxString::FromUTF8(utf8).mb_str(PathConversion());
  return std::string(bytes.data(), bytes.length());
}

}  // namespace OmbreliaHost
