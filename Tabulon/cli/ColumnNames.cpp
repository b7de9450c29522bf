#include "Tabulon/cli/ColumnNames.h"

#include <algorithm>
#include <sstream>

#include "Tabulon/cli/ExitStatus.h"
#include "Tabulon/cli/Text.h"

namespace TabulonCli {

std::optional<wxString> ColumnNames::TryFind(const wxString& typed) const {
  wxString withLineFeed(typed);
  withLineFeed.Replace(wxT("\\n"), wxT("\n"));
  for (const wxString& exact : {typed, withLineFeed}) {
    if (std::find(m_names.begin(), m_names.end(), exact) != m_names.end()) return exact;
  }
  std::optional<wxString> found;
  for (const wxString& name : m_names) {
    if (OnOneLine(name) != OnOneLine(withLineFeed)) continue;
    if (found) return std::nullopt;
    found = name;
  }
  return found;
}

wxString ColumnNames::Find(const std::string& typed) const {
  if (const auto found = TryFind(TextOf(typed))) return *found;
  RejectUnknown(typed);
}

std::vector<wxString> ColumnNames::FindList(const std::string& typed) const {
  // A name may hold a comma itself.
  if (const auto whole = TryFind(TextOf(typed))) return {*whole};
  std::vector<wxString> found;
  std::istringstream list(typed);
  for (std::string name; std::getline(list, name, ',');) found.push_back(Find(name));
  return found;
}

std::pair<wxString, wxString> ColumnNames::SplitCondition(const std::string& condition) const {
  const wxString text = TextOf(condition);
  if (text.find(wxT('=')) == wxString::npos) {
    throw RunError(ExitStatus::WrongUse,
                   "--where: \"" + condition + "\" is not of the form COLUMN=VALUE");
  }
  for (std::size_t equals = text.find(wxT('=')); equals != wxString::npos;
       equals = text.find(wxT('='), equals + 1)) {
    if (const auto found = TryFind(text.substr(0, equals)))
      return {*found, text.substr(equals + 1)};
  }
  RejectUnknown(condition.substr(0, condition.find('=')));
}

void ColumnNames::RejectUnknown(const std::string& typed) const {
  const wxString line = OnOneLine(TextOf(typed));
  const auto count = std::count_if(m_names.begin(), m_names.end(), [&line](const wxString& name) {
    return OnOneLine(name) == line;
  });
  std::string text = count > 1 ? "more than one column reads \"" + typed + "\" on one line; use \\n"
                               : "no column is named \"" + typed + "\"";
  text += "; the columns are:";
  for (const wxString& name : m_names) {
    wxString shown(name);
    shown.Replace(wxT("\n"), wxT("\\n"));
    text += "\n  " + Utf8(Harmless(shown));
  }
  throw RunError(ExitStatus::WrongUse, text);
}

}  // namespace TabulonCli
