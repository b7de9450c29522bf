#include "framework/TemporaryExpectation.h"
#include "framework/TestCaseWithFullColumnStringComp_T.h"

namespace Ombrelia {

namespace {

wxString FOCUS_OF_THIS_TEST() {
  static const wxString name = wxT("one_sublist_group_randomization.om5");
  return name;
}

const std::vector<wxString>& GetExpectedCellValuesForEventNames() {
  static const std::vector<wxString> cells = {wxT("e (2, 2)"), wxT("e (3, 3)"), wxT("e (4, 4)"),
                                              wxT("e (5, 5)")};
  return cells;
}

const std::vector<wxString>& GetExpectedCellValuesForEventNames_Mac_TEMPORARY_tolmey3661() {
  static const std::vector<wxString> cells = {wxT("e (1, 1)"), wxT("e (2, 2)"), wxT("e (4, 4)"),
                                              wxT("e (5, 5)")};
  return cells;
}

}  // namespace

class OneSublistGroupRandomization
    : public TestCaseWithFullColumnStringComp_T<OneSublistGroupRandomization> {
 public:
  OneSublistGroupRandomization()
      : TestCaseWithFullColumnStringComp_T(FOCUS_OF_THIS_TEST(), false) {}

  void RunAllVerificationTests(VerificationNecessities) override {
    VerifyVerbatimColumnContent(wxT("Event\nName"),
                                Tolmey3661ListAppliesToday()
                                    ? GetExpectedCellValuesForEventNames_Mac_TEMPORARY_tolmey3661()
                                    : GetExpectedCellValuesForEventNames());

    PerformDurationBoundsTest(400, 5200, true);
    PerformDurationBoundsTest_MacServer(410, 500);
    PerformDurationBoundsTest_SmallTestBox(400, 11600);
    PerformBoundsTest(0, 400, EXPANSION_TIME_COLUMN_NAME, true, true);
    PerformExpansionBoundsTest_MacServer(190, 250);
  }
};

}  // namespace Ombrelia

OMBRELIA_DEFINE_VERIFIER(OneSublistGroupRandomization, false);
