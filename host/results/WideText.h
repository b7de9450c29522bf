// Between the file names of the system, which are bytes, and the texts of the plug-in's interface.
#ifndef OMBRELIA_HOST_RESULTS_WIDETEXT_H
#define OMBRELIA_HOST_RESULTS_WIDETEXT_H

#include <wx/string.h>

#include <filesystem>
#include <string>

namespace OmbreliaHost {

// File names are taken as UTF-8 whatever locale the program runs in; bytes that are none keep a place
// of their own in the text, so that the file is still found. Call once, after wx is initialised.
void ReadFileNamesAsUtf8();

wxString TextOfPath(const std::filesystem::path& path);
// Values that no UTF-8 can hold become the replacement character.
std::string Utf8OfText(const wxString& text);

// A path as UTF-8 and back, whatever the locale and before wx is initialised. Bytes that are no UTF-8 get the
// same characters of private use as above.
std::string Utf8OfPath(const std::filesystem::path& path);
std::filesystem::path PathOfUtf8(const std::string& utf8);

}  // namespace OmbreliaHost

#endif
