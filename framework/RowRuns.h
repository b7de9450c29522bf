// Comparing one run of rows of a column with another, or with literal texts.
#ifndef OMBRELIA_FRAMEWORK_ROWRUNS_H
#define OMBRELIA_FRAMEWORK_ROWRUNS_H

#include <wx/string.h>

#include <vector>

class MUExperimentTextReaderMultiFile;

namespace Ombrelia {

// Are the cells of rows first to first + length - 1 equal to those from row other on? Cells out of
// range read "?" and are compared like any other.
bool RunsAreEqual(const MUExperimentTextReaderMultiFile& reader, int column, int first, int other,
                  int length);

// Do the rows from first on hold these texts? Rows beyond them do not matter.
bool RunEquals(const MUExperimentTextReaderMultiFile& reader, int column, int first,
               const std::vector<wxString>& texts);

}  // namespace Ombrelia

#endif
