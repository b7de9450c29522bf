// Sorting the rows of a column into kinds by how their texts begin.
#ifndef OMBRELIA_FRAMEWORK_ROWPREFIXES_H
#define OMBRELIA_FRAMEWORK_ROWPREFIXES_H

#include <wx/string.h>

#include <vector>

class MUExperimentTextReaderMultiFile;

namespace Ombrelia {

// How many cells of the column begin with each prefix, case-sensitively. A cell counts for the first
// prefix that fits, and nowhere if none does. A column that is missing reads "?" in every row.
std::vector<int> CountRowsByPrefix(const MUExperimentTextReaderMultiFile& reader,
                                   const wxString& columnName,
                                   const std::vector<wxString>& prefixes);

}  // namespace Ombrelia

#endif
