// The report writer as every check sees it.
#ifndef OMBRELIA_REPORT_FAKEJUNITPRINTER_H
#define OMBRELIA_REPORT_FAKEJUNITPRINTER_H

#include <wx/string.h>

namespace Ombrelia {

// Takes the results of all checks in order. Nothing is escaped: the texts that callers pass stand in
// the report as they are. Used from the host's thread only. An operation that throws, for want of
// memory, has added nothing to the report.
class FakeJUnitPrinter {
 public:
  virtual ~FakeJUnitPrinter() = default;

  // Closes the open suite, if there is one, and opens another, which takes all later results.
  virtual void NewTestSuite(const wxString& suiteName) = 0;
  // The report prefixes every test's name with the test's running number.
  virtual void AddPassingTestResult(const wxString& testName) = 0;
  // subject: a short text. location: made by FailureLocationText. message: the detail.
  virtual void AddFailingTestResult(const wxString& testName, const wxString& subject,
                                    const wxString& location, const wxString& message) = 0;
};

}  // namespace Ombrelia

#endif
