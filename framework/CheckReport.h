// One check, one result.
#ifndef OMBRELIA_FRAMEWORK_CHECKREPORT_H
#define OMBRELIA_FRAMEWORK_CHECKREPORT_H

#include <wx/string.h>

namespace Ombrelia {

class FakeJUnitPrinter;

// Where and how a check tells of its failure. focus: the experiment file's name; line: a fixed number
// that identifies the check.
struct CheckFailure {
  wxString subject;
  long line;
  wxString focus;
  wxString message;
};

// Records testName as passing, or as failing with the words given.
void ReportCheck(FakeJUnitPrinter* printer, bool passed, const wxString& testName,
                 const CheckFailure& failure);
void ReportFailure(FakeJUnitPrinter* printer, const wxString& testName,
                   const CheckFailure& failure);

}  // namespace Ombrelia

#endif
