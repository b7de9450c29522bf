#include "Tabulon/cli/Columns.h"

#include <algorithm>
#include <limits>
#include <unordered_set>

#include "Tabulon/cli/ExitStatus.h"
#include "Tabulon/cli/Text.h"

namespace TabulonCli {

namespace {

// How many characters must be put in, left out or changed to turn one text into the other.
std::size_t EditDistance(const wxString& a, const wxString& b) {
  std::vector<std::size_t> row(b.length() + 1);
  for (std::size_t i = 0; i < row.size(); ++i) row[i] = i;
  for (std::size_t i = 1; i <= a.length(); ++i) {
    std::size_t diagonal = row[0];
    row[0] = i;
    for (std::size_t j = 1; j <= b.length(); ++j) {
      const std::size_t changed = diagonal + (a[i - 1] == b[j - 1] ? 0 : 1);
      diagonal = row[j];
      row[j] = std::min({row[j] + 1, row[j - 1] + 1, changed});
    }
  }
  return row.back();
}

// See Columns::Nearest.
const Column* NearestOf(const std::vector<Column>& columns, const wxString& typed) {
  constexpr std::size_t LONGEST_COMPARED = 200;
  if (typed.length() > LONGEST_COMPARED) return nullptr;
  const Column* nearest = nullptr;
  std::size_t least = typed.length() / 3 + 1;
  for (const Column& column : columns) {
    const wxString label = OnOneLine(column.name);
    if (label.length() > LONGEST_COMPARED) continue;
    const std::size_t distance = EditDistance(label.Lower(), typed.Lower());
    if (distance < least) {
      least = distance;
      nearest = &column;
    }
  }
  return nearest;
}

Column OriginColumn(Column::Kind kind, const char* name) {
  Column column;
  column.kind = kind;
  column.name = wxString::FromAscii(name);
  return column;
}

}  // namespace

Columns::Columns(std::vector<Column> dataColumns) : m_columns(std::move(dataColumns)) {
  m_columns.push_back(OriginColumn(Column::Kind::File, "file"));
  m_columns.push_back(OriginColumn(Column::Kind::Line, "line"));
  m_columns.push_back(OriginColumn(Column::Kind::Title, "title"));
  m_columns.push_back(OriginColumn(Column::Kind::Date, "date"));
  m_columns.push_back(OriginColumn(Column::Kind::Participant, "participant"));
  std::unordered_set<std::string> taken;
  for (Column& column : m_columns) {
    wxString label = OnOneLine(column.name);
    while (!taken.insert(Utf8(label.Lower())).second) label += wxT('#');
    column.label = Utf8(label);
  }
}

const Column* Columns::TryFind(const wxString& typed) const {
  wxString withLineFeed(typed);
  withLineFeed.Replace(wxT("\\n"), wxT("\n"));
  for (const wxString& exact : {typed, withLineFeed}) {
    for (const Column& column : m_columns) {
      if (column.name == exact) return &column;
    }
  }
  const wxString line = OnOneLine(withLineFeed);
  const auto only = [this](auto matches) -> std::pair<const Column*, bool> {
    const Column* found = nullptr;
    for (const Column& column : m_columns) {
      if (!matches(column)) continue;
      if (found != nullptr) return {nullptr, true};
      found = &column;
    }
    return {found, found != nullptr};
  };
  auto result = only([&](const Column& column) { return OnOneLine(column.name) == line; });
  if (!result.second) {
    const std::string label = Utf8(line);
    result = only([&](const Column& column) { return column.label == label; });
  }
  if (!result.second) {
    result =
        only([&](const Column& column) { return OnOneLine(column.name).IsSameAs(line, false); });
  }
  return result.first;
}

const Column& Columns::Find(const std::string& typed) const {
  if (const Column* found = TryFind(TextOf(typed))) return *found;
  RejectUnknown(typed);
}

std::vector<const Column*> Columns::TryFindPattern(const wxString& pattern) const {
  std::vector<const Column*> found;
  if (pattern.find_first_of(wxT("*?")) == wxString::npos) return found;
  wxString withLineFeed(pattern);
  withLineFeed.Replace(wxT("\\n"), wxT("\n"));
  const wxString line = OnOneLine(withLineFeed).Lower();
  for (const Column& column : m_columns) {
    if (!column.IsOrigin() && OnOneLine(column.name).Lower().Matches(line))
      found.push_back(&column);
  }
  return found;
}

std::vector<const Column*> Columns::FindList(const std::string& typed) const {
  // A name may hold a comma itself.
  if (const Column* whole = TryFind(TextOf(typed))) return {whole};
  std::vector<const Column*> found;
  for (const std::string& name : SplitAtCommas(typed)) {
    std::vector<const Column*> matching = TryFindPattern(TextOf(name));
    if (const Column* exact = TryFind(TextOf(name))) matching = {exact};
    if (matching.empty()) RejectUnknown(name);
    for (const Column* column : matching) {
      if (matching.size() == 1 || std::find(found.begin(), found.end(), column) == found.end())
        found.push_back(column);
    }
  }
  return found;
}

std::vector<std::size_t> Columns::FindPrefix(const std::string& prefix) const {
  const wxString line = OnOneLine(TextOf(prefix));
  std::vector<std::size_t> places;
  for (std::size_t i = 0; i < m_columns.size(); ++i) {
    if (!m_columns[i].IsOrigin() && OnOneLine(m_columns[i].name).StartsWith(line))
      places.push_back(i);
  }
  if (places.empty()) {
    throw RunError(ExitStatus::WrongUse,
                   "--merge-headings: no column's name begins with \"" + prefix + "\"");
  }
  return places;
}

const Column* Columns::Nearest(const std::string& typed) const {
  return NearestOf(m_columns, OnOneLine(TextOf(typed)));
}

void Columns::RejectUnknown(const std::string& typed) const {
  const wxString line = OnOneLine(TextOf(typed));
  const auto count = std::count_if(
      m_columns.begin(), m_columns.end(),
      [&line](const Column& column) { return OnOneLine(column.name).IsSameAs(line, false); });
  std::string text = count > 1 ? "more than one column reads \"" + typed + "\" on one line; use \\n"
                               : "no column is named \"" + typed + "\"";
  const Column* const nearest = count == 0 ? Nearest(typed) : nullptr;
  text += nearest == nullptr ? "; the" : "; did you mean \"" + nearest->label + "\"? The";
  text += " columns are:";
  for (const Column& column : m_columns) {
    if (!column.IsOrigin()) text += "\n  " + Typeable(column.name);
  }
  throw RunError(ExitStatus::WrongUse, text);
}

}  // namespace TabulonCli
