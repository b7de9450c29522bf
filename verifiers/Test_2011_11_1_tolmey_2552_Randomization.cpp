#include <algorithm>

#include "framework/CellCounts.h"
#include "framework/IndividualTestCase_T.h"

namespace Ombrelia {

namespace {

const wxString FOCUS_OF_THIS_TEST = wxT("2011-11-1_tolmey_2552_Randomization.om4");

// The share of blue rows among all rows, in single precision. It is no number for a table without
// rows.
float ProportionOfBlue(const MUExperimentTextReaderMultiFile& reader) {
  // Adding 1 to a float changes nothing from here on.
  constexpr int GREATEST_COUNT = 1 << 24;
  const int blue = CountCells(reader, wxT("Font Color\n(Trial Variable)"), wxT("Blue"));
  return static_cast<float>(std::min(blue, GREATEST_COUNT)) /
         static_cast<float>(reader.GetNumberOfDataRows());
}

}  // namespace

// The duration of the experiment is not bounded on purpose.
class Test_2011_11_1_tolmey_2552_Randomization
    : public IndividualTestCase_T<Test_2011_11_1_tolmey_2552_Randomization, false> {
 public:
  Test_2011_11_1_tolmey_2552_Randomization() : IndividualTestCase_T(FOCUS_OF_THIS_TEST, false) {}

  void RunAllVerificationTests(VerificationNecessities) override {
    static const wxString testName = wxT("Experiment_is_a_bunch_of_coinflips_as_expected");
    const float proportion = ProportionOfBlue(*m_reader);
    // The band is strict, but exactly 43 or 57 per cent blue rows pass: their single-precision
    // proportions lie just inside the double-precision bounds.
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
