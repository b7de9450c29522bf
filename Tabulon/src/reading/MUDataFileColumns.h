// What both readers do alike with the columns of a data file.
//
// Cost: one pass over the headings; a unique name takes time in the logarithm of their number.
// Lifetime: arguments are borrowed for the call. A new column is the caller's, or that of the columns that it is
// appended to.
// Threads: one at a time for the columns of a file.
// Failure: throws std::bad_alloc, and what make throws; the columns made so far then stay in the collection.
#ifndef OMBRELIA_TABULON_SRC_READING_MUDATAFILECOLUMNS_H
#define OMBRELIA_TABULON_SRC_READING_MUDATAFILECOLUMNS_H

#include <wx/string.h>

#include <cstddef>
#include <deque>
#include <functional>
#include <vector>

#include "Tabulon/src/rows/MUDataFileBlock.h"
#include "Tabulon/src/text/MUUniqueNameIndex.h"

struct MUColumnNamePlusProperties;
using MUColumns = std::deque<MUColumnNamePlusProperties*>;

// Names that are made unique grow by number signs, so a small file of many equal headings, or with one very long
// line, could demand any amount of memory. All names of a file together may get this many signs, which suffices for
// 4,096 columns of one name.
constexpr std::size_t MU_LARGEST_NUMBER_OF_APPENDED_SIGNS = std::size_t{1} << 23;

// A new column of flags 0 and type 0, with one file status.
MUColumnNamePlusProperties* MUNewColumn(const wxString& name, const wxString& fileName,
                                        short suppressed);

// The cells of a heading line, as MUForEachCell splits it.
std::vector<wxString> MUSplitAtTabs(const wxString& line);

// Make columns from the two heading rows, left to right, and append them. A cell of the first row makes a column of
// its name. A cell of the second row appends a line feed and its text to the name of the column above it; beyond the
// last column it makes a column named tab, line feed, text. The tab tells, until flags are set, that the column has
// no cell in the first row. make gives a new column, which belongs to columns from then on.
using MUColumnMaker = std::function<MUColumnNamePlusProperties*(const wxString& name)>;
void MUAddFirstHeadingRow(const std::vector<wxString>& cells, const MUColumnMaker& make,
                          MUColumns& columns);
void MUAddSecondHeadingRow(const std::vector<wxString>& cells, const MUColumnMaker& make,
                           MUColumns& columns);

// Trims all names at both ends and makes each unique among those to its left, without regard to case. namesInUse
// is emptied first and holds all names afterwards. False if that takes too many number signs; some names are not
// unique then.
bool MUTrimNamesAndMakeThemUnique(MUColumns& columns, MUUniqueNameIndex* namesInUse);

// True if the block has a line so long that the names of the columns beyond the last one would take
// too many number signs. Looks at all rows.
bool MUHasTooManyCellsBeyondColumns(const MUDataFileBlock& block, std::size_t columnCount);

// Gives the block the names of the columns.
void MUNameColumnsOfBlock(const MUColumns& columns, MUDataFileBlock* block);

// The words for a developer whose collection of columns is not empty before the headings are read. They are
// prescribed, and composed for every file.
wxString MUWordsForNonEmptyColumns(const wxString& fileName);

#endif
