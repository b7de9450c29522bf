#include "framework/ExpectedCells.h"
#include "framework/TemporaryExpectation.h"
#include "framework/TestCaseWithFullColumnStringComp_T.h"

namespace Ombrelia {

namespace {

wxString FOCUS_OF_THIS_TEST() {
  static const wxString name = wxT("two_sublists_synchronization.om5");
  return name;
}

const std::vector<wxString>& GetExpectedCellValuesForEventNames() {
  static const std::vector<wxString> cells = {wxT("numbers (2, 2)"), wxT("numbers (3, 3)"),
                                              wxT("numbers (5, 5)"), wxT("letters (1, a)"),
                                              wxT("letters (4, d)")};
  return cells;
}

const std::vector<wxString>& GetExpectedCellValuesForEventNames_Mac_TEMPORARY_tolmey3661() {
  static const std::vector<wxString> cells = {wxT("numbers (1, 1)"), wxT("numbers (2, 2)"),
                                              wxT("numbers (5, 5)"), wxT("letters (3, c)"),
                                              wxT("letters (4, d)")};
  return cells;
}

const std::vector<wxString>& GetExpectedCellValuesForTags() {
  static const std::vector<wxString> cells = ExpectedCells().Repeat(5, wxT("red")).Cells();
  return cells;
}

}  // namespace

class TwoSublistsSynchronization
    : public TestCaseWithFullColumnStringComp_T<TwoSublistsSynchronization> {
 public:
  TwoSublistsSynchronization() : TestCaseWithFullColumnStringComp_T(FOCUS_OF_THIS_TEST(), false) {}

  void RunAllVerificationTests(VerificationNecessities) override {
    VerifyVerbatimColumnContent(wxT("Event\nName"),
                                Tolmey3661ListAppliesToday()
                                    ? GetExpectedCellValuesForEventNames_Mac_TEMPORARY_tolmey3661()
                                    : GetExpectedCellValuesForEventNames());
    VerifyVerbatimColumnContent(wxT("color"), GetExpectedCellValuesForTags());

    PerformDurationBoundsTest(500, 5200, true);
    PerformDurationBoundsTest_MacServer(500, 650);
    PerformDurationBoundsTest_SmallTestBox(500, 11600);
    PerformBoundsTest(0, 400, EXPANSION_TIME_COLUMN_NAME, true, true);
    PerformExpansionBoundsTest_MacServer(150, 250);
  }
};

}  // namespace Ombrelia

OMBRELIA_DEFINE_VERIFIER(TwoSublistsSynchronization, false);
