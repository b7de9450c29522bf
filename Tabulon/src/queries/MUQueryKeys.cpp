#include "Tabulon/src/queries/MUQueryKeys.h"

#include <algorithm>

namespace MUQueryKeys {

namespace {

// The delimiter before a fixed text keeps it from being taken for a column's name.
wxString Marked(const wxChar* text) {
  return MUQueryWords::DELIMITER_FOR_USE_IN_CONCATENATION + text;
}

wxString Joined(const wxString& left, const wxString& right) {
  return left + MUQueryWords::DELIMITER_FOR_USE_IN_CONCATENATION + right;
}

wxString Number(int number) { return wxString::Format(wxT("%d"), number); }
wxString Number(unsigned number) { return Number(static_cast<int>(number)); }

const wxChar* RowSetTag(RowSet set) {
  switch (set) {
    case MUQueryWords::ONLY_FULLY_SHOWN_ROWS:
      return wxT("0");
    case MUQueryWords::ACTIVE_SHOWN_AND_ACTIVE_SEMIHIDDEN:
      return wxT("1");
    default:
      return wxT("2");
  }
}

}  // namespace

MUCachingKeySelectedData RowsByFlag(unsigned flags, RowSet set) {
  return {Marked(wxT("GETROWINDICES")), Marked(wxT("WHEREBITSTRINGMATCHES")),
          Joined(RowSetTag(set), Number(flags))};
}

MUCachingKeySelectedData RowsByAbsentFlag(unsigned flags, RowSet set) {
  return {Marked(wxT("GETROWINDICES")), Marked(wxT("WHEREBITSTRINGABSENT")),
          Joined(RowSetTag(set), Number(flags))};
}

MUCachingKeySelectedData RowsByFlagAndAbsentFlag(unsigned x, unsigned y) {
  return {Marked(wxT("GETROWINDICES")), Marked(wxT("WHEREBITSTRINGHASXABSENTY")),
          Joined(Number(x), Number(y))};
}

MUCachingKeySelectedData RowsByPredicate(const wxString& identity, RowSet set, unsigned first,
                                         unsigned last) {
  const wxString range =
      Joined(wxString::Format(wxT("%u"), first), wxString::Format(wxT("%u"), last));
  return {Marked(wxT("GETROWINDICES")), Marked(wxT("WHEREPREDICATERETURNSTRUE")),
          Joined(set == MUQueryWords::ALL_ROWS ? wxT("1") : wxT("0"), Joined(identity, range))};
}

MUCachingKeySelectedData ColumnNamesByFlag(unsigned flags) {
  return {Marked(wxT("GETCOLUMNNAMES")), Marked(wxT("WHEREBITSTRINGMATCHES")), Number(flags)};
}

MUCachingKeySelectedData ColumnNamesByAbsentFlag(unsigned flags) {
  return {Marked(wxT("GETCOLUMNNAMES")), Marked(wxT("WHEREBITSTRINGABSENT")), Number(flags)};
}

MUCachingKeySelectedData ColumnNamesByFlagAndAbsentFlag(unsigned x, unsigned y) {
  return {Marked(wxT("GETCOLUMNNAMES")), Marked(wxT("WHEREBITSTRINGHASXABSENTY")),
          Joined(Number(x), Number(y))};
}

MUCachingKeySelectedData DistinctValues(const wxString& column, RowSet set, bool trim) {
  return {column, wxT("SELECTDISTINCTPERCOLUMN"),
          Joined(Number(static_cast<int>(set)), Number(static_cast<int>(trim)))};
}

MUCachingKeySelectedData OneColumnWhere(const wxString& columnX, const wxString& fieldY,
                                        const wxString& valueZ, bool includeAllRows) {
  return {columnX, fieldY, Joined(valueZ, Number(static_cast<int>(includeAllRows)))};
}

MUCachingKeySelectedData SeveralColumnsWhere(const std::deque<wxString>& columnsX,
                                             const wxString& fieldY, const wxString& valueZ,
                                             bool includeAllRows) {
  std::deque<wxString> sorted(columnsX);
  std::sort(sorted.begin(), sorted.end());
  wxString select;
  for (const wxString& column : sorted)
    select += column + MUQueryWords::DELIMITER_FOR_USE_IN_CONCATENATION;
  const bool matchesAll = valueZ == MUQueryWords::SPECIAL_CODE_TO_REQUEST_MATCH_ALL_ROWS;
  return {select, matchesAll ? wxString() : fieldY,
          Joined(valueZ, Number(static_cast<int>(includeAllRows)))};
}

}  // namespace MUQueryKeys
