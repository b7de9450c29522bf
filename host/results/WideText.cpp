#include "host/results/WideText.h"

#include <wx/strconv.h>

#include <clocale>

namespace OmbreliaHost {

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

std::string Utf8OfText(const wxString& text) { return text.utf8_string(); }

}  // namespace OmbreliaHost
