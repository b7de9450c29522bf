// The columns that a user may name: those of the table, and those that tell where a row comes from.
#ifndef OMBRELIA_TABULON_CLI_COLUMNS_H
#define OMBRELIA_TABULON_CLI_COLUMNS_H

#include <wx/string.h>

#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace TabulonCli {

struct Column {
  enum class Kind {
    Data,    // of the table
    Merged,  // several of the table: the first text of theirs that is not empty
    File,    // the path as the user gave it; "-" for standard input
    Line,    // of the file, from 1, as an editor counts
    Title,   // of the experiment
    Date,    // at which it was run, as it stands in the file
    Participant
  };
  Kind kind = Kind::Data;
  wxString name;                  // the two heading rows with a line feed between them
  std::vector<wxString> sources;  // names in the table: one of Data, several of Merged, else none
  bool isCodeValue = false;       // has no cell in the first heading row
  std::string label;  // the name on one line, with number signs until no other column's equals it

  bool IsOrigin() const { return kind != Kind::Data && kind != Kind::Merged; }
};

class Columns {
 public:
  // The table's columns in their order; the columns of origin follow behind them.
  explicit Columns(std::vector<Column> dataColumns);

  const std::vector<Column>& All() const { return m_columns; }

  // The exact name comes first, then one whose line feed is typed as the two characters \n, then one whose
  // line feed is typed as a blank, then a label, then any of these in another case. Nothing if there is no
  // such column, or if more than one reads so.
  const Column* TryFind(const wxString& typed) const;
  // Ends the run (WrongUse) where TryFind finds nothing; names the column that was probably meant, and all.
  const Column& Find(const std::string& typed) const;

  // One column, or several with commas between them. * stands for any characters and ? for one. Ends the run
  // (WrongUse) where one is not found. With patterns, each column comes once.
  std::vector<const Column*> FindList(const std::string& typed) const;

  // The places of the columns whose name, on one line, begins with the prefix. Ends the run (WrongUse) if there
  // is none.
  std::vector<std::size_t> FindPrefix(const std::string& prefix) const;

  // The column whose label is nearest to the text, or null if none is near enough to be meant.
  const Column* Nearest(const std::string& typed) const;

  [[noreturn]] void RejectUnknown(const std::string& typed) const;

 private:
  std::vector<const Column*> TryFindPattern(const wxString& pattern) const;

  std::vector<Column> m_columns;
};

}  // namespace TabulonCli

#endif
