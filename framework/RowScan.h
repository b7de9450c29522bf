// Rules on which texts a column holds, and in which rows.
#ifndef OMBRELIA_FRAMEWORK_ROWSCAN_H
#define OMBRELIA_FRAMEWORK_ROWSCAN_H

#include <wx/string.h>

#include <vector>

class MUExperimentTextReaderMultiFile;

namespace Ombrelia {

// A rule as a value. "Last" is the index of the last row, from 0; it is 0 also for a table without
// rows, which fails every rule all the same, because no text occurs in it.
class RowScan {
 public:
  // The first rows hold these texts, one each, and there are no more rows.
  static RowScan Positional(std::vector<wxString> texts);
  // Each text occurs in some row, and the last row has this index.
  static RowScan Anywhere(std::vector<wxString> texts, int last);
  // The text occurs exactly count times, and the last row has this index.
  static RowScan Count(const wxString& text, int count, int last);

  // Cells are compared exactly. A column that is missing reads "?" in every row.
  bool HoldsFor(const MUExperimentTextReaderMultiFile& reader, const wxString& columnName) const;

 private:
  enum class Kind { POSITIONAL, ANYWHERE, COUNT };

  Kind m_kind = Kind::POSITIONAL;
  std::vector<wxString> m_texts;
  int m_count = 0;
  int m_last = 0;
};

}  // namespace Ombrelia

#endif
