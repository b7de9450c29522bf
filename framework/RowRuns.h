// Comparing a run of rows of a column with literal texts.
#ifndef OMBRELIA_FRAMEWORK_ROWRUNS_H
#define OMBRELIA_FRAMEWORK_ROWRUNS_H

#include <wx/string.h>

#include <vector>

class MUExperimentTextReaderMultiFile;

namespace Ombrelia {

// Do the rows from first on hold these texts, one each? All of them are read, also after a difference.
// Other rows do not matter. Rows count from 0; rows out of range and a missing column read "?".
bool RunEquals(const MUExperimentTextReaderMultiFile& reader, const wxString& columnName, int first,
               const std::vector<wxString>& texts);
// The same in any order: each text stands in the rows as often as it is listed. scripts/new-verifier
// writes calls of it; no verifier here has one.
bool RunEqualsInAnyOrder(const MUExperimentTextReaderMultiFile& reader, const wxString& columnName,
                         int first, const std::vector<wxString>& texts);

}  // namespace Ombrelia

#endif
