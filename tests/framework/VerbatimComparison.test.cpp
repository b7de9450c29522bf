// The verbatim comparison of a column, and the road of a verifier that declares one.
#include <gtest/gtest.h>

#include <functional>

#include "framework/TestCaseWithFullColumnStringComp_T.h"
#include "tests/support/DataFile.h"
#include "tests/support/RecordingPrinter.h"

namespace Ombrelia {

namespace {
const wxString FOCUS_OF_THIS_TEST = wxT("Column_Probe.om5");
}  // namespace

// Declares a column that a test may change; default-constructed it declares nothing.
class ColumnProbe : public TestCaseWithFullColumnStringComp_T<ColumnProbe> {
 public:
  ColumnProbe() : TestCaseWithFullColumnStringComp_T(FOCUS_OF_THIS_TEST, false) {}
  const std::vector<wxString>& GetExpectedCellValuesForTargetedColumn() override {
    return m_useDefaults
               ? TestCaseWithFullColumnStringComp_T::GetExpectedCellValuesForTargetedColumn()
               : m_expected;
  }
  const wxString& GetTargetedColumnName() override {
    return m_useDefaults ? TestCaseWithFullColumnStringComp_T::GetTargetedColumnName() : m_column;
  }
  using IndividualTestCase_T::m_printer;
  using IndividualTestCase_T::m_reader;
  using TestCaseWithFullColumnStringComp_T::TestContentOfData_Internal;
  using TestCaseWithFullColumnStringComp_T::VerifyVerbatimColumnContent;

  bool m_useDefaults = false;
  wxString m_column;
  std::vector<wxString> m_expected;
};

}  // namespace Ombrelia

OMBRELIA_DEFINE_VERIFIER(ColumnProbe, false);

namespace Tests {
namespace {

const char* const PROBE = "Column_Probe.om5";

Ombrelia::ColumnProbe& Probe() {
  return *Ombrelia::IndividualTestCase_T<Ombrelia::ColumnProbe, false>::m_singletonVerifier;
}

DataFile Rows(const std::vector<std::string>& cells) {
  std::vector<std::vector<std::string>> rows;
  for (const std::string& cell : cells) rows.push_back({cell, "1", "x"});
  return DataFile::Of(PROBE, {"Event\nName", "Cumulative\nTime", "End"}, rows);
}

// What the declared comparison records on a column of these cells.
Lines Compare(const std::vector<std::string>& cells, const std::vector<wxString>& expected,
              const wxString& column = wxT("Event\nName")) {
  Probe().m_expected = expected;
  Probe().m_column = column;
  Lines lines = Rows(cells).Verify();
  lines.erase(lines.begin(), lines.begin() + 2);
  lines.resize(lines.size() - 2);
  return lines;
}

std::string Mismatch(const std::string& message) {
  return Fail("Data_appears_completely_and_in_order",
              "Mismatch in the ordering of data cells in datafile.", PROBE, 144, message);
}

TEST(VerbatimComparison, RecordsOnePassOnAnExactMatch) {
  EXPECT_EQ(Compare({"a", "b", "c"}, {wxT("a"), wxT("b"), wxT("c")}),
            Lines{"pass Data_appears_completely_and_in_order"});
}

TEST(VerbatimComparison, FailsByLengthAloneOnOneRowTooMany) {
  EXPECT_EQ(Compare({"a", "b", "c"}, {wxT("a"), wxT("b")}),
            Lines{Fail("Correct_quantity_of_data_cells", "Too many data cells. More than expected.",
                       PROBE, 89, "No extra info.")});
}

TEST(VerbatimComparison, FailsByLengthAloneOnOneRowTooFew) {
  EXPECT_EQ(Compare({"a"}, {wxT("a"), wxT("b")}),
            Lines{Fail("Correct_quantity_of_data_cells", "Too few data cells. Fewer than expected.",
                       PROBE, 98, "No extra info.")});
}

TEST(VerbatimComparison, NamesTheFirstRowThatDiffers) {
  EXPECT_EQ(Compare({"a", "b", "X", "Y"}, {wxT("a"), wxT("b"), wxT("c"), wxT("d")}),
            Lines{Mismatch(
                "At datafile row index 2 we expected {c}, but that was not the actual content.")});
}

TEST(VerbatimComparison, CountsCaseAndBlanks) {
  EXPECT_EQ(Compare({"a "}, {wxT("a")}),
            Lines{Mismatch(
                "At datafile row index 0 we expected {a}, but that was not the actual content.")});
  EXPECT_EQ(Compare({"A"}, {wxT("a")}).size(), 1U);
  EXPECT_EQ(FailuresOf(Compare({"A"}, {wxT("a")})).size(), 1U);
}

TEST(VerbatimComparison, MatchesEmptyCells) {
  EXPECT_EQ(Compare({"", ""}, {wxT(""), wxT("")}),
            Lines{"pass Data_appears_completely_and_in_order"});
}

// Don't-care values belong to stimulus areas alone.
TEST(VerbatimComparison, KnowsNoDontCareValue) {
  EXPECT_EQ(FailuresOf(Compare({"a"}, {Ombrelia::STIM_DONT_CARE_STR})).size(), 1U);
}

TEST(VerbatimComparison, ReadsUndefinedCellsInAColumnThatIsMissing) {
  EXPECT_EQ(Compare({"a"}, {wxT("a")}, wxT("Trial\nName")),
            Lines{Mismatch(
                "At datafile row index 0 we expected {a}, but that was not the actual content.")});
  EXPECT_EQ(Compare({"a"}, {wxT("?")}, wxT("Trial\nName")),
            Lines{"pass Data_appears_completely_and_in_order"});
}

TEST(VerbatimComparison, ExpectsNothingByDefault) {
  Probe().m_useDefaults = true;
  EXPECT_EQ(FailuresOf(Compare({"a"}, {})),
            Lines{Fail("Correct_quantity_of_data_cells", "Too many data cells. More than expected.",
                       PROBE, 89, "No extra info.")});
  Probe().m_useDefaults = false;
}

// No rows and nothing expected: the length is right, and still nothing matched.
TEST(VerbatimComparison, FailsWithoutRowsEvenIfNothingIsExpected) {
  RecordingPrinter printer;
  const boost::shared_ptr<MUExperimentTextReaderMultiFile> empty(
      new MUExperimentTextReaderMultiFile(nullptr));
  EXPECT_FALSE(Probe().VerifyVerbatimColumnContent(empty, &printer, wxT("Event\nName"), {}));
  EXPECT_EQ(printer.m_lines,
            Lines{Mismatch("At datafile row index 0 we expected {ERRORERROR}, but that was not the "
                           "actual content.")});
}

// The short form compares the table in hand and reports to the printer in hand.
TEST(VerbatimComparison, ComparesTheTableOfTheFrame) {
  RecordingPrinter printer;
  Rows({"a", "b"}).Verify();
  Probe().m_printer = &printer;
  EXPECT_TRUE(Probe().VerifyVerbatimColumnContent(wxT("Event\nName"), {wxT("a"), wxT("b")}));
  EXPECT_FALSE(Probe().VerifyVerbatimColumnContent(wxT("Event\nName"), {wxT("a"), wxT("c")}));
  EXPECT_FALSE(Probe().VerifyVerbatimColumnContent(wxT("Event\nName"), {wxT("a")}));
  Probe().m_printer = nullptr;
  EXPECT_EQ(printer.m_lines,
            (Lines{"pass Data_appears_completely_and_in_order",
                   Mismatch("At datafile row index 1 we expected {c}, but that was not the actual "
                            "content."),
                   Fail("Correct_quantity_of_data_cells",
                        "Too many data cells. More than expected.", PROBE, 89, "No extra info.")}));
}

TEST(VerbatimComparison, AnswersWhetherAllIsWell) {
  Rows({"a", "b"}).Verify();
  RecordingPrinter printer;
  const auto reader = Probe().m_reader;
  EXPECT_TRUE(Probe().VerifyVerbatimColumnContent(reader, &printer, wxT("Event\nName"),
                                                  {wxT("a"), wxT("b")}));
  EXPECT_FALSE(
      Probe().VerifyVerbatimColumnContent(reader, &printer, wxT("Event\nName"), {wxT("a")}));
  EXPECT_FALSE(Probe().VerifyVerbatimColumnContent(reader, &printer, wxT("Event\nName"),
                                                   {wxT("b"), wxT("a")}));
}

}  // namespace
}  // namespace Tests
