// Which cells are numbers.
#ifndef OMBRELIA_TABULON_CLI_NUMBERS_H
#define OMBRELIA_TABULON_CLI_NUMBERS_H

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "Tabulon/src/text/MUCellText.h"

namespace TabulonCli {

// The cell's number: decimal digits with an optional sign, point and exponent, blanks around them allowed, in any
// locale. Nothing for any other text, nor for a number beyond the range of a double.
std::optional<double> NumberIn(const MUCellText& text);

// Whether NumberIn finds a number that may also stand in JSON as it is written. "007", "+1" and ".5" may not: they
// may be codes, whose spelling would be lost.
bool IsPlainNumber(const MUCellText& text);

// Nothing but blanks.
bool IsBlank(const MUCellText& text);

// What the cells of a column are, by the number of all, of blank ones and of numbers:
// "empty", "text", "numbers" or "numbers and text".
const char* KindOfCells(std::size_t cells, std::size_t empty, std::size_t numbers);

// The shortest decimal text that reads back as the same number.
std::string ShortestText(double number);

}  // namespace TabulonCli

#endif
