// A rule on the texts of a column, as a value.
#ifndef OMBRELIA_FRAMEWORK_ROWSCAN_H
#define OMBRELIA_FRAMEWORK_ROWSCAN_H

#include <wx/string.h>

#include <vector>

class MUExperimentTextReaderMultiFile;

namespace Ombrelia {

// Each rule demands certain texts and a last row. Rows count from 0. No rule that demands a text
// holds for a table without rows.
class RowScan {
 public:
  enum class Kind { POSITIONAL, ANYWHERE, COUNT };

  // The column holds these texts, one per row in this order, and nothing else.
  static RowScan Positional(std::vector<wxString> texts);
  // Each text stands in some row, in any order, and the last row has the index last.
  static RowScan Anywhere(std::vector<wxString> texts, int last);
  // The text stands in exactly count rows, and the last row has the index last.
  static RowScan Count(const wxString& text, int count, int last);

  // Cells are compared exactly. A missing column reads "?" in every row.
  bool HoldsFor(const MUExperimentTextReaderMultiFile& reader, const wxString& columnName) const;

  // The parts of the rule, for the program that explains failures.
  Kind RuleKind() const { return m_kind; }
  const std::vector<wxString>& Texts() const { return m_texts; }
  int WantedCount() const { return m_count; }  // of a COUNT rule
  int LastRow() const { return m_last; }

 private:
  RowScan(Kind kind, std::vector<wxString> texts, int count, int last);

  Kind m_kind;
  std::vector<wxString> m_texts;
  int m_count;  // of the one text of a COUNT rule
  int m_last;
};

}  // namespace Ombrelia

#endif
