// Data files of one shape and any size, the same on every machine for the same seed.
#ifndef OMBRELIA_BENCHMARKS_DATAFILEMAKER_H
#define OMBRELIA_BENCHMARKS_DATAFILEMAKER_H

#include <wx/string.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace Bench {

// What the cells hold besides plain ASCII, and how the file spells them.
enum class Spelling {
  Ascii,
  Utf8Accents,       // an accented letter in the participant's name and in one row of a hundred
  Latin1Accents,     // the same text, one byte per letter
  Utf16,             // the same text, two bytes per letter, with a byte-order mark
  ControlCharacters  // a control character in a cell of one row of a hundred
};

constexpr std::size_t LARGEST_FILE = 1048576;  // bytes; the table takes none that is larger
constexpr std::size_t MANY_FILES = 200;
constexpr std::size_t MANY_FILES_SIZE = 262144;  // bytes of each

// The columns of every file, 20 in all; a row takes some 124 bytes. The ones that the benchmarks ask for:
constexpr const wchar_t* FEW_VALUES = L"Condition";  // 12 texts
constexpr const wchar_t* MANY_VALUES = L"Stimulus";  // 7 characters, four in five appear once only
constexpr const wchar_t* LONG_TEXTS = L"Sentence";   // 30 characters, built of 16 words
constexpr const wchar_t* REACTION_TIME =
    L"Reaction\nTime";  // a number, or nothing in one row of eight
constexpr const wchar_t* ONE_OF_FEW_VALUES = L"condition_07";
constexpr std::size_t COLUMN_COUNT = 20;

// The bytes of a data file of as many whole rows as fit into the size.
std::string MakeDataFile(std::size_t largestSize, std::uint64_t seed,
                         Spelling spelling = Spelling::Ascii);

// The bytes of a UTF-8 file of one column, FEW_VALUES, in which all rows have different texts of 16 accented letters.
// alike: whether the letters' numbers are equal in their low eight bits, as one would choose them for a hash that
// looks at no more.
std::string MakeFileOfLetters(std::size_t largestSize, bool alike);

// Writes the file. Ends the program with a message if that fails.
void WriteDataFile(const std::filesystem::path& file, const std::string& bytes);

// Writes count files data0000.txt ... of at most size bytes each into the folder, which must exist.
std::vector<std::filesystem::path> WriteDataFiles(const std::filesystem::path& folder,
                                                  std::size_t count, std::size_t size,
                                                  Spelling spelling = Spelling::Ascii);

// Number of data rows in the bytes of a plain file.
std::size_t RowsIn(const std::string& bytes);

}  // namespace Bench

#endif
