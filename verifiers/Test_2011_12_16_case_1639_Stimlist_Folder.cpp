#include <algorithm>

#include "framework/IndividualTestCase_T.h"

namespace Ombrelia {

namespace {

const wxString FOCUS_OF_THIS_TEST = wxT("2011-12-16_test_for_case_1639_Stimlist_Folder.om4");

const std::vector<wxString>& GetPossibleEventNames() {
  static const std::vector<wxString> names = {
      wxT("picturestimlist_w_folder (1, 01_foreveralone.png)"),
      wxT("picturestimlist_w_folder (2, 02_foreveralonelaugh.jpg)"),
      wxT("picturestimlist_w_folder (3, 03_scasi.jpg)"),
      wxT("picturestimlist_w_files (1, 01_foreveralone.png)"),
      wxT("picturestimlist_w_files (2, 02_foreveralonelaugh.jpg)"),
      wxT("picturestimlist_w_files (3, 03_scasi.jpg)"),
  };
  return names;
}

}  // namespace

class Test_2011_12_16_case_1639_Stimlist_Folder
    : public IndividualTestCase_T<Test_2011_12_16_case_1639_Stimlist_Folder, false> {
 public:
  Test_2011_12_16_case_1639_Stimlist_Folder() : IndividualTestCase_T(FOCUS_OF_THIS_TEST, false) {}

  void RunAllVerificationTests(VerificationNecessities) override {
    const int column = ColumnOf(wxT("Event\nName"));
    const int rows = RowCount();
    const std::vector<wxString>& names = GetPossibleEventNames();
    bool allAreProper = true;
    wxString cell;
    for (int row = 0; row < rows && allAreProper; ++row) {
      cell = CellAt(row, column);
      cell.MakeLower();
      allAreProper = std::find(names.begin(), names.end(), cell) != names.end();
    }
    // The passing and the failing test have different names.
    if (allAreProper) {
      ReportPass(wxT("All the entries in the Event Name column are as they should be."));
    } else {
      ReportFailure(
          wxT("Filenames show up in the data file as expected."),
          {wxT("One or more strings contained in the Event Name column of the datafile is "
               "somehow improper."),
           77,
           wxString::Format(
               wxT("At least one Event Name entry isn't correct. First such offending string: %s"),
               cell)});
    }

    PerformBoundsTest(5, 40, EXPANSION_TIME_COLUMN_NAME, true, true);
    PerformExpansionBoundsTest_MacServer(300, 500);
  }
};

}  // namespace Ombrelia

OMBRELIA_DEFINE_VERIFIER(Test_2011_12_16_case_1639_Stimlist_Folder, false);
