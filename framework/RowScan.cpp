#include "framework/RowScan.h"

#include <algorithm>
#include <utility>

#include "Tabulon/src/table/MUExperimentTextReaderMultiFile.h"
#include "framework/CellCounts.h"
#include "framework/RowRuns.h"
#include "framework/VerificationListener.h"

namespace Ombrelia {

RowScan::RowScan(Kind kind, std::vector<wxString> texts, int count, int last)
    : m_kind(kind), m_texts(std::move(texts)), m_count(count), m_last(last) {}

RowScan RowScan::Positional(std::vector<wxString> texts) {
  const int last = static_cast<int>(texts.size()) - 1;
  return RowScan(Kind::POSITIONAL, std::move(texts), 0, last);
}

RowScan RowScan::Anywhere(std::vector<wxString> texts, int last) {
  return RowScan(Kind::ANYWHERE, std::move(texts), 0, last);
}

RowScan RowScan::Count(const wxString& text, int count, int last) {
  return RowScan(Kind::COUNT, {text}, count, last);
}

bool RowScan::HoldsFor(const MUExperimentTextReaderMultiFile& reader,
                       const wxString& columnName) const {
  if (VerificationListener* const listener = VerificationListener::Current())
    listener->OnScan(columnName, *this);
  const int rows = reader.GetNumberOfDataRows();
  const int last = std::max(rows - 1, 0);
  if (last != m_last) return false;
  switch (m_kind) {
    case Kind::POSITIONAL:
      return rows > 0 && RunEquals(reader, columnName, 0, m_texts);
    case Kind::ANYWHERE:
      return std::all_of(m_texts.begin(), m_texts.end(), [&](const wxString& text) {
        return CountCells(reader, columnName, text) > 0;
      });
    case Kind::COUNT:
      return CountCells(reader, columnName, m_texts.front()) == m_count;
  }
  return false;
}

}  // namespace Ombrelia
