// From all that a check read to what decided it.
#ifndef OMBRELIA_HOST_RESULTS_EVIDENCEREDUCTION_H
#define OMBRELIA_HOST_RESULTS_EVIDENCEREDUCTION_H

#include <wx/string.h>

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "host/results/RunResults.h"
#include "host/results/VerificationRecorder.h"

namespace OmbreliaHost {

// Explains the failing checks of one finished verification.
class EvidenceReduction {
 public:
  // Borrows the recorder.
  explicit EvidenceReduction(const VerificationRecorder& recorder);

  // Why the check of this index failed. A single changed cell that made it fail is among the cells. Where
  // nothing but what was read is known, mostCells of it are listed.
  Evidence EvidenceOf(std::size_t index, std::size_t mostCells) const;

 private:
  std::optional<Evidence> ExplainComparison(const Comparison& comparison) const;
  std::optional<Evidence> Explain(const LengthComparison& comparison) const;
  std::optional<Evidence> Explain(const CellsComparison& comparison) const;
  std::optional<Evidence> Explain(const ScanComparison& comparison) const;
  std::optional<Evidence> Explain(const BoundComparison& comparison) const;
  std::optional<Evidence> Explain(const AreasComparison& comparison) const;
  Evidence ExplainLength(const wxString& column, int wantedRows,
                         const std::vector<wxString>& expected) const;
  std::optional<Evidence> ExplainMissingTexts(const ScanComparison& comparison) const;
  std::optional<Evidence> ExplainCount(const ScanComparison& comparison) const;
  Evidence MissingColumn(const wxString& name) const;
  Evidence ExplainLookups(const std::vector<ColumnLookup>& lookups) const;
  Evidence ExplainHeadings(std::size_t mostCells) const;
  Evidence LastReads(std::size_t index, std::size_t mostCells) const;
  void LeaveOutGoodCells(const std::vector<Comparison>& comparisons,
                         std::vector<CellPlace>& cells) const;

  int RowCount() const;
  int ColumnOf(const wxString& name) const;  // -1 if there is none
  wxString TextAt(int row, int column) const;
  std::vector<std::string> Headings() const;
  // The cell with whatever the table has there.
  EvidenceCell CellAt(int row, int column) const;
  EvidenceCell CellAt(int row, const wxString& columnName) const;
  // The first row from firstRow on whose cell is not the expected one; none if all are.
  std::optional<int> FirstDifference(int column, int firstRow,
                                     const std::vector<wxString>& expected) const;
  EvidenceContext ContextOf(int row, const wxString& columnName, int firstRow,
                            const std::vector<wxString>& expected) const;
  // The failed lookup that a cell of no column was read after; an empty text if there is none.
  wxString ColumnThatWasMissing(std::size_t index) const;

  const VerificationRecorder& m_recorder;
  std::vector<wxString> m_comparedColumns;  // of all checks, those that the table has
};

}  // namespace OmbreliaHost

#endif
