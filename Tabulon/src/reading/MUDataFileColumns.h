// What both readers do alike with the columns of a data file.
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

// Names that are made unique grow by number signs, so that a small file of many equal headings, or with
// one very long line, could ask for any amount of memory. A file may have this many signs appended in
// all, which is enough for 4,096 columns of one name.
constexpr std::size_t MU_LARGEST_NUMBER_OF_APPENDED_SIGNS = std::size_t{1} << 23;

// A new column, owned by the caller, of flags 0 and type 0, with one file status.
MUColumnNamePlusProperties* MUNewColumn(const wxString& name, const wxString& fileName,
                                        short suppressed);

// The cells of a heading line.
std::vector<wxString> MUSplitAtTabs(const wxString& line);

// The cells of the first heading row make columns, left to right.
// A cell of the second appends a line feed and its text to the name of the column above it; beyond the
// last column it makes one named tab, line feed, text: the tab marks a column without a cell in the
// first row until flags are set.
using MUColumnMaker = std::function<MUColumnNamePlusProperties*(const wxString& name)>;
void MUAddFirstHeadingRow(const std::vector<wxString>& cells, const MUColumnMaker& make,
                          MUColumns& columns);
void MUAddSecondHeadingRow(const std::vector<wxString>& cells, const MUColumnMaker& make,
                           MUColumns& columns);

// Trims all names at both ends and makes each unique among those to its left, without regard to case.
// namesInUse is cleared and then holds all names. False if too many number signs would be needed; the
// columns then are in no order to be used.
bool MUTrimNamesAndMakeThemUnique(MUColumns& columns, MUUniqueNameIndex* namesInUse);

// True if the block has so many cells beyond the last column that their columns would need too many
// number signs.
bool MUHasTooManyCellsBeyondColumns(const MUDataFileBlock& block, std::size_t columnCount);

// Tells the block the names of the columns.
void MUNameColumnsOfBlock(const MUColumns& columns, MUDataFileBlock* block);

// The words for a developer who fills a collection of columns that is not empty.
wxString MUWordsForNonEmptyColumns(const wxString& fileName);

#endif
