#include "framework/CheckReport.h"

#include "framework/CommonTestHelperLogic.h"
#include "report/FakeJUnitPrinter.h"

namespace Ombrelia {

void ReportCheck(FakeJUnitPrinter* printer, bool passed, const wxString& testName,
                 const CheckFailure& failure) {
  if (passed) {
    printer->AddPassingTestResult(testName);
  } else {
    ReportFailure(printer, testName, failure);
  }
}

void ReportFailure(FakeJUnitPrinter* printer, const wxString& testName,
                   const CheckFailure& failure) {
  printer->AddFailingTestResult(
      testName, failure.subject,
      CommonTestHelperLogic::GetFileStringForLine(failure.line, failure.focus), failure.message);
}

}  // namespace Ombrelia
