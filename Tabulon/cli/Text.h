// Between the bytes of the console and of file names, and the texts of the table. All bytes are UTF-8,
// whatever locale the program runs in.
#ifndef OMBRELIA_TABULON_CLI_TEXT_H
#define OMBRELIA_TABULON_CLI_TEXT_H

#include <wx/string.h>

#include <cstddef>
#include <filesystem>
#include <string>

#include "Tabulon/src/text/MUCellText.h"

namespace TabulonCli {

// File names that are no UTF-8 keep a text of their own, so that they are still found. Call once, after
// wx is initialised.
void UseUtf8Everywhere();

// Bytes that are no UTF-8 are read one character per byte.
wxString TextOf(const std::string& bytes);
wxString TextOf(const std::filesystem::path& path);

std::string Utf8(const wxString& text);
void AppendUtf8(std::string& bytes, const MUCellText& text);

// Columns of the terminal that the text takes.
std::size_t DisplayWidth(const MUCellText& text);
std::size_t DisplayWidth(const wxString& text);

// A column's name on one line.
wxString OnOneLine(const wxString& columnName);
// The text without any character that a terminal would act upon.
wxString Harmless(const wxString& text);

}  // namespace TabulonCli

#endif
