// Texts of data files as a person can read them: what cannot be seen is made visible, what is long is cut.
#ifndef OMBRELIA_HOST_PRINT_VISIBLETEXT_H
#define OMBRELIA_HOST_PRINT_VISIBLETEXT_H

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace OmbreliaHost {

// One line of running text. Control characters, characters that cannot be seen and bytes that are no UTF-8
// are written as \t, \x1B, \u{200B}; all else stays, backslashes, too.
std::string LineShown(const std::string& text);

// The lines of a text, each as above and cut at 2000 characters with its length told. At least one line.
std::vector<std::string> LinesShown(const std::string& text);

// A cell, unambiguously: as above, with blanks at either end as middle dots, a backslash doubled, and
// "(empty)" for no text at all. Of more than limit characters a part remains that holds the character at
// around, counted from 0, with an ellipsis where it is cut and the whole length told.
std::string CellShown(const std::string& text, std::size_t limit, std::size_t around = 0);

// A path by its bytes, also those that are no UTF-8; only what would steer a terminal is made visible.
std::string PathShown(const std::string& path);

// The name of a column, of which a line feed shows as a blank.
std::string ColumnShown(const std::string& name);

// Where two texts differ first, counted in characters from 0; absent if they are equal.
std::optional<std::size_t> FirstDifference(const std::string& one, const std::string& other);

// A sentence on how actual and expected differ, for those that do not show it: they look alike, or have more
// than limit characters. Empty if the eye sees the difference.
std::string HiddenDifference(const std::string& actual, const std::string& expected,
                             std::size_t limit);

// The number of places on a terminal that a text takes.
std::size_t WidthOf(const std::string& text);

}  // namespace OmbreliaHost

#endif
