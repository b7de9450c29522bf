// Recording the result of one check.
#ifndef OMBRELIA_FRAMEWORK_CHECKREPORT_H
#define OMBRELIA_FRAMEWORK_CHECKREPORT_H

#include <wx/string.h>

namespace Ombrelia {

class FakeJUnitPrinter;

// What a failing check says.
struct CheckFailure {
  wxString subject;
  long line;  // a fixed number that identifies the check in the report
  wxString message;
};

// Both record one result. experiment: the experiment file's name, which the location of a failure
// shows together with the line. The printer is not null and is not kept.

// Records a pass, or else this failure.
void ReportCheck(FakeJUnitPrinter* printer, const wxString& experiment, bool passed,
                 const wxString& testName, const CheckFailure& failure);
void ReportFailure(FakeJUnitPrinter* printer, const wxString& experiment, const wxString& testName,
                   const CheckFailure& failure);

}  // namespace Ombrelia

#endif
