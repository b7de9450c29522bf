// The duration and the expansion time of one run, read from its data file, and the bounds on them.
//
// The work of IndividualTestCase_T that does not depend on the verifier's class: it is compiled once
// and not once per verifier. All times are in milliseconds; name is the experiment file's name.
#ifndef OMBRELIA_FRAMEWORK_RUNTIMES_H
#define OMBRELIA_FRAMEWORK_RUNTIMES_H

#include <wx/string.h>

class MUExperimentTextReaderMultiFile;

namespace Ombrelia {

class FakeJUnitPrinter;

// The host writes the expansion time as digits behind this text into a column's heading.
constexpr const wxChar* EXPANSION_TIME_COLUMN_NAME = wxT("Expansion Time(ms): ");

namespace RunTimes {

// The place of the first displayed column whose name starts with text, case-sensitively; -1 if none.
int ColumnIndexFromText_StartsWith(const MUExperimentTextReaderMultiFile& reader,
                                   const wxString& text);

// The number behind the first colon of the expansion column's name; -123, which lies outside all
// bounds, if there is no such column or no number in it.
int ExpansionTime(const MUExperimentTextReaderMultiFile& reader);

// Records one result, or nothing if there is no column that starts with columnName, or if
// exceptTestMachines and this is one of the two machines that have bounds of their own. min and max
// lie within the bounds. A cell that is no number counts as -999.
void CheckBounds(const MUExperimentTextReaderMultiFile& reader, FakeJUnitPrinter* printer,
                 const wxString& name, int min, int max, const wxString& columnName,
                 bool isExpansion, bool exceptTestMachines);

bool RunningOnSmallTestBox();
bool RunningOnMacServer();

// Tracking: the measured number stands in the name of a passing test, so that the build server's
// history of test names is a history of run times. A missing column is a failing test.
void RecordTotalDuration(const MUExperimentTextReaderMultiFile& reader, FakeJUnitPrinter* printer,
                         const wxString& name);
void RecordExpansionTime(const MUExperimentTextReaderMultiFile& reader, FakeJUnitPrinter* printer,
                         const wxString& name);

}  // namespace RunTimes
}  // namespace Ombrelia

#endif
