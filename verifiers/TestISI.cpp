#include <cstdlib>

#include "framework/CellNumbers.h"
#include "framework/ClampedNumbers.h"
#include "framework/ExpectedCells.h"
#include "framework/TestCaseWithFullColumnStringComp_T.h"

namespace Ombrelia {

namespace {

const wxString FOCUS_OF_THIS_TEST = wxT("2015-10-29_test_long_isi.om5");

const std::vector<wxString>& GetExpectedCellValuesForEventName() {
  static const std::vector<wxString> cells =
      ExpectedCells().RepeatAll(17, {wxT("timestamp-002"), wxT("timestamp-003")}).Cells();
  return cells;
}

// In milliseconds, one for each pair of rows.
const std::vector<int>& GetExpectedISIs() {
  static const std::vector<int> intervals = {10,  20,  30,  40,  50,  60,  70,  80, 90,
                                             100, 200, 300, 400, 500, 600, 700, 800};
  return intervals;
}

}  // namespace

class TestISI : public TestCaseWithFullColumnStringComp_T<TestISI> {
 public:
  TestISI() : TestCaseWithFullColumnStringComp_T(FOCUS_OF_THIS_TEST, false) {}

  void RunAllVerificationTests(VerificationNecessities) override {
    VerifyVerbatimColumnContent(wxT("Event\nName"), GetExpectedCellValuesForEventName());
    EnsureExpectedISI_Lengths();

    PerformDurationBoundsTest(4084, 5000, true);
    PerformDurationBoundsTest_MacServer(4084, 5000);
    PerformDurationBoundsTest_SmallTestBox(4084, 5000);
  }

 private:
  void EnsureExpectedISI_Lengths() {
    const int column = ColumnOf(wxT("Cumulative\nTime"));
    int goodIntervals = 0;
    int row = -1;
    for (const int expected : GetExpectedISIs()) {
      row += 2;
      long time = 0;
      long previousTime = 0;
      if (!ReadLong(CellAt(row, column), time) ||
          !ReadLong(CellAt(row - 1, column), previousTime)) {
        ReportFailure(wxT("NON_NUMERIC_TIME_VALUE"),
                      {wxT("Cum time string should always be convertible to a number"), 150,
                       wxT("we called the wx function ToLong on a string, and it failed to "
                           "produce a number")});
        break;
      }
      const int found = ClampedDifference(time, previousTime);
      if (CloseEnough(found, expected, 5)) {
        ++goodIntervals;
      } else {
        ReportFailure(
            wxT("UNEXPECTED_ISI_VALUE"),
            {wxT("Cum time on some row reflects an unexpected ISI__see details"), 174,
             wxString::Format(
                 wxT("the isi leading to row %d should have an isi of %d but we found %d"), row,
                 expected, found)});
      }
    }
    if (goodIntervals == 17) ReportPass(wxT("ISI_LENGTHS_OK"));
  }

  // Do a and b lie at most tolerance apart?
  bool CloseEnough(int a, int b, int tolerance) const {
    return std::abs(static_cast<long>(a) - static_cast<long>(b)) <= tolerance;
  }
};

}  // namespace Ombrelia

OMBRELIA_DEFINE_VERIFIER(TestISI, false);
