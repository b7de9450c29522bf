// The duration and the expansion time of one run, read from its data file, and the bounds on them.
//
// IndividualTestCase_T leaves this work to one unit so that it is compiled once and not once per
// verifier. All times are in milliseconds. name is the experiment file's name.
#ifndef OMBRELIA_FRAMEWORK_RUNTIMES_H
#define OMBRELIA_FRAMEWORK_RUNTIMES_H

#include <wx/string.h>

class MUExperimentTextReaderMultiFile;

namespace Ombrelia {

class FakeJUnitPrinter;

// A column's heading consists of this text and, as digits, the expansion time.
constexpr const wxChar* EXPANSION_TIME_COLUMN_NAME = wxT("Expansion Time(ms): ");

namespace RunTimes {

// Returns the place of the first displayed column whose name starts with text, case-sensitively, or
// -1 if there is none.
int ColumnIndexFromText_StartsWith(const MUExperimentTextReaderMultiFile& reader,
                                   const wxString& text);

// Returns the number behind the first colon of the expansion column's name, clamped to int. Returns
// -123, which lies outside all bounds, if there is no such column or no number in it.
int ExpansionTime(const MUExperimentTextReaderMultiFile& reader);

// Records one result: does the time lie from min to max, both ends included? The time is the expansion
// time if isExpansion, and otherwise the last cell of the first column that starts with columnName; a
// text that is no number counts as -999. Records nothing without such a column.
void CheckBounds(const MUExperimentTextReaderMultiFile& reader, FakeJUnitPrinter* printer,
                 const wxString& name, int min, int max, const wxString& columnName,
                 bool isExpansion);

bool RunningOnSmallTestBox();
bool RunningOnMacServer();
bool RunningOnATestMachine();  // on one of the two that have separate bounds

// Both record one test that passes and has the measured time in its name, so that the build server's
// history of test names is a history of run times. Without its column the test fails.
void RecordTotalDuration(const MUExperimentTextReaderMultiFile& reader, FakeJUnitPrinter* printer,
                         const wxString& name);
void RecordExpansionTime(const MUExperimentTextReaderMultiFile& reader, FakeJUnitPrinter* printer,
                         const wxString& name);

}  // namespace RunTimes
}  // namespace Ombrelia

#endif
