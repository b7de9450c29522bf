// Between the bytes of the console and of file names, and the texts of the table. All bytes are UTF-8,
// whatever locale the program runs in.
#ifndef OMBRELIA_TABULON_CLI_TEXT_H
#define OMBRELIA_TABULON_CLI_TEXT_H

#include <wx/string.h>

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "Tabulon/src/text/MUCellText.h"

namespace TabulonCli {

// File names that are no UTF-8 become distinct texts, so that they are still found. Call once, after
// wx is initialised.
void UseUtf8Everywhere();

// Bytes that are no UTF-8 are read one character per byte.
wxString TextOf(const std::string& bytes);
wxString TextOf(const std::filesystem::path& path);

std::string Utf8(const wxString& text);
void AppendUtf8(std::string& bytes, const MUCellText& text);
// The cell as UTF-8 without a copy where its memory is UTF-8 already; else converted into room. Borrowed from
// the cell or from room.
std::string_view Utf8View(const MUCellText& text, std::string& room);
// A view of plain bytes as a cell's text. Borrowed from the bytes, which must be ASCII.
inline MUCellText CellOf(std::string_view ascii) { return {ascii.data(), ascii.size()}; }

// Columns of the terminal that the text takes.
std::size_t DisplayWidth(const MUCellText& text);
std::size_t DisplayWidth(std::string_view utf8);
// The longest beginning that fits into this number of terminal columns.
std::string_view CutToWidth(std::string_view utf8, std::size_t width);

// A column's name on one line.
wxString OnOneLine(const wxString& columnName);
// The text without any character that a terminal would act upon.
wxString Harmless(const wxString& text);
// The same of bytes; appended.
void AppendHarmless(std::string& bytes, std::string_view utf8);

// A name with its line feed as the two characters \n, as a user may type it.
std::string Typeable(const wxString& columnName);

// The pieces between commas; at least one.
std::vector<std::string> SplitAtCommas(const std::string& list);

// 400,000 for 400000.
std::string WithSeparators(std::size_t number);
// "1 row", "2 rows".
std::string Counted(std::size_t count, const std::string& noun);

}  // namespace TabulonCli

#endif
