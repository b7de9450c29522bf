#include "framework/IndividualTestCase_T.h"

namespace Ombrelia {

namespace {

const wxString FOCUS_OF_THIS_TEST = wxT("2011-11-1_tolmey_2552_Randomization.om4");

// The part of all rows that is blue, in single precision; not a number for a table without rows.
float ProportionOfBlue(const MUExperimentTextReaderMultiFile& reader) {
  const int column = reader.GetColumnPositionNumberFromText(wxT("Font Color\n(Trial Variable)"));
  const int rows = reader.GetNumberOfDataRows();
  float blue = 0.0f;
  for (int row = 0; row < rows; ++row) {
    if (reader.GetDataCellValue(row, column) == wxT("Blue")) blue += 1.0f;
  }
  return blue / static_cast<float>(rows);
}

}  // namespace

// A trial variable of two levels is drawn like the flips of a fair coin. How long the experiment
// runs is not bounded.
class Test_2011_11_1_tolmey_2552_Randomization
    : public IndividualTestCase_T<Test_2011_11_1_tolmey_2552_Randomization, false> {
 public:
  Test_2011_11_1_tolmey_2552_Randomization() : IndividualTestCase_T(FOCUS_OF_THIS_TEST, false) {}

  void RunAllVerificationTests(VerificationNecessities) override {
    static const wxString testName = wxT("Experiment_is_a_bunch_of_coinflips_as_expected");
    const float proportion = ProportionOfBlue(*m_reader);
    // The precisions decide at the edges of the band: 43 of 100 in single precision lies just above
    // the double-precision 0.43.
    const double widened = proportion;
    if (0.43 < widened && widened < 0.57) {
      ReportPass(wxString::Format(wxT("%s_and_percent_was_%d"), testName,
                                  static_cast<int>(proportion * 100.0f)));
    } else {
      ReportFailure(
          testName,
          {wxT("The trial variable Font Color occurs too often or not often enough"), 63,
           wxString::Format(wxT("We expected very close to a proportion of 0.50 blue to red. "
                                "Instead, we got %f."),
                            widened)});
    }

    PerformBoundsTest(350, 900, EXPANSION_TIME_COLUMN_NAME, true, true);
    PerformExpansionBoundsTest_MacServer(1000, 1400);
  }
};

}  // namespace Ombrelia

OMBRELIA_DEFINE_VERIFIER(Test_2011_11_1_tolmey_2552_Randomization, false);
