// The frame of verifiers that compare whole columns, cell by cell, with literal texts.
#ifndef OMBRELIA_FRAMEWORK_TESTCASEWITHFULLCOLUMNSTRINGCOMP_T_H
#define OMBRELIA_FRAMEWORK_TESTCASEWITHFULLCOLUMNSTRINGCOMP_T_H

#include "framework/IndividualTestCase_T.h"
#include "framework/VerbatimComparison.h"

namespace Ombrelia {

// A verifier of one column overrides the two Get operations and inherits the rest. A verifier of
// several columns calls VerifyVerbatimColumnContent once for each. The tests of all columns have the
// same names; the report's running numbers tell them apart.
template <typename X>
class TestCaseWithFullColumnStringComp_T : public IndividualTestCase_T<X, false> {
 public:
  using IndividualTestCase_T<X, false>::IndividualTestCase_T;

  void RunAllVerificationTests(VerificationNecessities necessities) override {
    if (TestLengthOfData(necessities.reader, necessities.printer)) {
      TestContentOfData(necessities.reader, necessities.printer);
    }
  }

  virtual const std::vector<wxString>& GetExpectedCellValuesForTargetedColumn() {
    static const std::vector<wxString> none;
    return none;
  }
  virtual const wxString& GetTargetedColumnName() {
    static const wxString none;
    return none;
  }

 protected:
  using Reader = boost::shared_ptr<MUExperimentTextReaderMultiFile>;

  bool TestLengthOfData(Reader reader, FakeJUnitPrinter* printer) {
    return TestLengthOfData_Internal(reader, printer, GetTargetedColumnName(),
                                     GetExpectedCellValuesForTargetedColumn());
  }
  bool TestContentOfData(Reader reader, FakeJUnitPrinter* printer) {
    return TestContentOfData_Internal(reader, printer, GetTargetedColumnName(),
                                      GetExpectedCellValuesForTargetedColumn());
  }
  // Compares row counts only; columnName is passed on to the listener.
  bool TestLengthOfData_Internal(Reader reader, FakeJUnitPrinter* printer,
                                 const wxString& columnName,
                                 const std::vector<wxString>& expected) {
    return VerbatimComparison::CheckLength(*reader, printer, this->m_name, columnName, expected);
  }
  bool TestContentOfData_Internal(Reader reader, FakeJUnitPrinter* printer,
                                  const wxString& columnName,
                                  const std::vector<wxString>& expected) {
    return VerbatimComparison::CheckContent(reader, printer, this->m_name, columnName, expected);
  }
  // Compares a column with its expected cells, one per row. Records a wrong length, or else one
  // result for the content. Returns whether the column is as expected.
  bool VerifyVerbatimColumnContent(const wxString& columnName,
                                   const std::vector<wxString>& expected) {
    return VerifyVerbatimColumnContent(this->m_reader, this->m_printer, columnName, expected);
  }
  bool VerifyVerbatimColumnContent(Reader reader, FakeJUnitPrinter* printer,
                                   const wxString& columnName,
                                   const std::vector<wxString>& expected) {
    return TestLengthOfData_Internal(reader, printer, columnName, expected) &&
           TestContentOfData_Internal(reader, printer, columnName, expected);
  }
};

}  // namespace Ombrelia

#endif
