// Counting the cells of a column by their texts.
#ifndef OMBRELIA_FRAMEWORK_CELLCOUNTS_H
#define OMBRELIA_FRAMEWORK_CELLCOUNTS_H

#include <wx/string.h>

#include <vector>

class MUExperimentTextReaderMultiFile;

namespace Ombrelia {

// Both compare case-sensitively and look at all rows. A missing column reads "?" in every row.

// Returns how many cells of the column equal text.
int CountCells(const MUExperimentTextReaderMultiFile& reader, const wxString& columnName,
               const wxString& text);

// Returns, for each prefix, how many cells of the column begin with it. A cell that begins with
// several prefixes counts for the first of them.
std::vector<int> CountCellsByPrefix(const MUExperimentTextReaderMultiFile& reader,
                                    const wxString& columnName,
                                    const std::vector<wxString>& prefixes);

}  // namespace Ombrelia

#endif
