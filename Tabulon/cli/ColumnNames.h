// Finding a column by what a user types.
#ifndef OMBRELIA_TABULON_CLI_COLUMNNAMES_H
#define OMBRELIA_TABULON_CLI_COLUMNNAMES_H

#include <wx/string.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace TabulonCli {

class ColumnNames {
 public:
  explicit ColumnNames(std::vector<wxString> names) : m_names(std::move(names)) {}

  // The exact name comes first, then one whose line feed is typed as the two characters \n, then one whose
  // line feed is typed as a blank. Nothing if there is no such column, or if more than one reads so on
  // one line.
  std::optional<wxString> TryFind(const wxString& typed) const;
  // Ends the run (WrongUse) where TryFind finds nothing, and lists the columns.
  wxString Find(const std::string& typed) const;

  // One column, or several with commas between them. Ends the run (WrongUse) where one is not found.
  std::vector<wxString> FindList(const std::string& typed) const;

  // COLUMN=VALUE, split at the first equals sign in front of which a column's name stands. Ends the run
  // (WrongUse) if there is none.
  std::pair<wxString, wxString> SplitCondition(const std::string& condition) const;

 private:
  [[noreturn]] void RejectUnknown(const std::string& typed) const;

  std::vector<wxString> m_names;
};

}  // namespace TabulonCli

#endif
