#include "framework/CheckReport.h"

#include "framework/CommonTestHelperLogic.h"
#include "report/FakeJUnitPrinter.h"

namespace Ombrelia {

void ReportCheck(FakeJUnitPrinter* printer, const wxString& experiment, bool passed,
                 const wxString& testName, const CheckFailure& failure) {
  if (passed) {
    printer->AddPassingTestResult(testName);
  } else {
    ReportFailure(printer, experiment, testName, failure);
  }
}

void ReportFailure(FakeJUnitPrinter* printer, const wxString& experiment, const wxString& testName,
                   const CheckFailure& failure) {
  printer->AddFailingTestResult(
      testName, failure.subject,
      CommonTestHelperLogic::GetFileStringForLine(failure.line, experiment), failure.message);
}

}  // namespace Ombrelia
