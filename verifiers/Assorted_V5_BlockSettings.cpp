#include <algorithm>

#include "framework/ExpectedCells.h"
#include "framework/TestCaseWithFullColumnStringComp_T.h"

namespace Ombrelia {

namespace {

wxString FOCUS_OF_THIS_TEST() {
  static const wxString focus = wxT("2013-01_assorted_new_block_options.om5");
  return focus;
}

// The experiment draws on two stimulus lists, vehicles and animals.
bool IsVehicle(const wxString& cell) {
  return cell.Contains(wxT("Car")) || cell.Contains(wxT("Truck")) || cell.Contains(wxT("Bus")) ||
         cell.Contains(wxT("Motorcycle"));
}

bool IsAnimal(const wxString& cell) {
  return cell.Contains(wxT("Bird")) || cell.Contains(wxT("Dog")) || cell.Contains(wxT("Cat")) ||
         cell.Contains(wxT("Snake"));
}

const std::vector<wxString>& GetExpectedCellValuesForBlockNames() {
  static const std::vector<wxString> cells =
      ExpectedCells()
          .Repeat(16, wxT("V4 Random"))
          .Repeat(16, wxT("V5 Random"))
          .Repeat(32, wxT("V5 Random and Loop 2 times"))
          .Repeat(22, wxT("V5 Random and Loop, Pause, Max 10 trials"))
          .Repeat(4, wxT("V4 Random. extra-action versus block-end macro. BOTH should work "))
          .Repeat(2, wxT("V5 Random. extra-action versus block-end macro. BOTH should work "))
          .Add(wxT("done!"))
          .Cells();
  return cells;
}

}  // namespace

class Assorted_V5_BlockSettings
    : public TestCaseWithFullColumnStringComp_T<Assorted_V5_BlockSettings> {
 public:
  Assorted_V5_BlockSettings() : TestCaseWithFullColumnStringComp_T(FOCUS_OF_THIS_TEST(), false) {}

  void RunAllVerificationTests(VerificationNecessities) override {
    m_eventNameColumn = ColumnOf(wxT("Event\nName"));

    VerifyVerbatimColumnContent(wxT("Block\nName"), GetExpectedCellValuesForBlockNames());
    VerifyThatFirstBlockIsJumbled();
    VerifyThatSecondBlockIsV5();
    VerifyThatThirdBlockIsV5_and_OncePerRun();
    VerifyFourthBlock();

    PerformDurationBoundsTest(2500, 2900, true);
    PerformDurationBoundsTest_MacServer(2600, 2900);
    PerformDurationBoundsTest_SmallTestBox(3600, 4100);
    PerformBoundsTest(10, 100, EXPANSION_TIME_COLUMN_NAME, true, true);
    PerformExpansionBoundsTest_MacServer(600, 800);
  }

 private:
  // Counts vehicles only; four animals in a row pass. A correct host fails this occasionally, as the
  // failure text says.
  void VerifyThatFirstBlockIsJumbled() {
    static const wxString testName = wxT("Block_One_Is_V4_Jumbled");
    int vehiclesInARow = 0;
    bool vehiclesStoodTogether = false;
    for (int row = 1; row <= 15; row += 2) {
      const wxString event = EventName(row);
      if (IsVehicle(event)) {
        ++vehiclesInARow;
        if (vehiclesInARow >= 4) vehiclesStoodTogether = true;
      } else {
        vehiclesInARow = 0;
        if (!IsAnimal(event)) ReportThatNeitherWasFound();
      }
    }
    ReportCheck(!vehiclesStoodTogether, testName,
                {wxT("first block may not have been jumble-randomized -- this OCCASIONALLY FAILS "
                     "PERMISSIBLY. ALLOW THIS TO HAPPEN RARELY"),
                 244,
                 wxT("unexpectedly found that all the vehicle-events were together instead of "
                     "jumbled with the animals. -- this OCCASIONALLY FAILS PERMISSIBLY. ALLOW THIS "
                     "TO HAPPEN RARELY")});
  }

  void ReportThatNeitherWasFound() {
    static const wxString testName = wxT("TEST_MISBEHAVING");
    ReportFailure(testName,
                  {wxT("this loop should ALWAYS find vehicle or animal each time"), 229,
                   wxT("as we loop over the events in the first block, each event MUST MATCH ONE "
                       "OF: vehicle or animal")});
  }

  void VerifyThatSecondBlockIsV5() {
    static const wxString testName = wxT("Block_Two_Is_V5_Random");
    CheckForFourFromListAThenFourFromListB(testName, 17);
  }

  void VerifyThatThirdBlockIsV5_and_OncePerRun() {
    static const wxString testName = wxT("Block_Three_Is_V5_Random");
    CheckForFourFromListAThenFourFromListB(testName, 33);

    static const wxString repeatTestName = wxT("Block_Three_Repeats_Twice_Verbatim");
    bool repeats = true;
    for (int row = 33; repeats && row <= 47; row += 2) {
      repeats = EventName(row) == EventName(row + 16);
    }
    ReportCheck(repeats, repeatTestName,
                {wxT("the third block was supposed to loop twice verbatim"), 363,
                 wxT("the third block should show the EXACT SAME SEQUENCE of events twice in a "
                     "row, verbatim")});
  }

  // A break after every fourth trial takes one row more, so the rows are not evenly spaced.
  void VerifyFourthBlock() {
    static const wxString testName = wxT("Block_Four_Runs_As_Intended");
    const bool animalsFirst = IsAnimal(EventName(65));
    const auto isFirstKind = animalsFirst ? IsAnimal : IsVehicle;
    const auto isSecondKind = animalsFirst ? IsVehicle : IsAnimal;
    const bool asIntended = EachEventIs(isFirstKind, {65, 67, 69, 71}) &&
                            EachEventIs(isSecondKind, {74, 76, 78, 80}) &&
                            EachEventIs(isFirstKind, {83, 85});
    ReportCheck(asIntended, testName,
                {wxT("the fourth block is supposed to use two extra-actions and one looping "
                     "option"),
                 420,
                 wxT("for the fourth block, we expect four of vehicle-or-animal, break, four of "
                     "the other, break, then two more of the FIRST thing")});
  }

  void CheckForFourFromListAThenFourFromListB(const wxString& testName, int start) {
    ReportCheck(FourOfOneListThenFourOfTheOther(start), testName,
                {wxT("block does not display the expected v5 randomization"), 326,
                 wxT("we thought that only the CHOICE OF STIMLIST was random. either start with "
                     "vehicles or start with animals, but then do 4 of one followed by 4 of the "
                     "other")});
  }

  // Either list may come first, but they may not mix.
  bool FourOfOneListThenFourOfTheOther(int start) const {
    int animals = 0;
    int vehicles = 0;
    bool lastWasAnimal = true;
    const int end = start + 15;
    for (int row = start; row < end; row += 2) {
      const wxString event = EventName(row);
      if (IsAnimal(event)) {
        if (!lastWasAnimal && vehicles != 4) return false;
        ++animals;
        lastWasAnimal = true;
      } else if (IsVehicle(event)) {
        if (lastWasAnimal && animals != 0 && animals != 4) return false;
        ++vehicles;
        lastWasAnimal = false;
      } else {
        return false;
      }
    }
    return animals >= 4 && vehicles >= 4;
  }

  bool EachEventIs(bool (*isOfKind)(const wxString&), const std::vector<int>& rows) const {
    return std::all_of(rows.begin(), rows.end(),
                       [this, isOfKind](int row) { return isOfKind(EventName(row)); });
  }

  wxString EventName(int row) const { return CellAt(row, m_eventNameColumn); }

  int m_eventNameColumn = 0;
};

}  // namespace Ombrelia

OMBRELIA_DEFINE_VERIFIER(Assorted_V5_BlockSettings, false);
