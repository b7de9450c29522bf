// The report writer as every check sees it.
#ifndef OMBRELIA_REPORT_FAKEJUNITPRINTER_H
#define OMBRELIA_REPORT_FAKEJUNITPRINTER_H

#include <wx/string.h>

namespace Ombrelia {

// Takes the results of all checks in order. Nothing is escaped: what callers pass stands in the
// report as it is. Used from the host's thread only.
class FakeJUnitPrinter {
 public:
  virtual ~FakeJUnitPrinter() = default;

  // Closes the open suite, if there is one, and opens another. All later results go into it.
  virtual void NewTestSuite(const wxString& suiteName) = 0;
  virtual void AddPassingTestResult(const wxString& testName) = 0;
  // subject: a short text; location: made by FailureLocationText; message: the detail.
  virtual void AddFailingTestResult(const wxString& testName, const wxString& subject,
                                    const wxString& location, const wxString& message) = 0;
};

}  // namespace Ombrelia

#endif
