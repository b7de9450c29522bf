// One condition on a row, as a user types it: COLUMN OPERATOR VALUES.
//
//   COLUMN=TEXT     exactly this text          COLUMN!=TEXT   any other text
//   COLUMN<VALUE    also <=, >, >=             COLUMN~TEXT    the text is contained
//   COLUMN/REGEX/   the pattern matches, also written COLUMN~/REGEX/
//
// Values are parted by |, and one of them must fit; for != none of them may. \| is the character itself. In a
// pattern | is the pattern's own. Where the value of <, <=, > or >= is a number, numbers are compared and a cell
// that is none does not fit; else texts are compared, character by character.
#ifndef OMBRELIA_TABULON_CLI_CONDITION_H
#define OMBRELIA_TABULON_CLI_CONDITION_H

#include <wx/regex.h>
#include <wx/string.h>

#include <deque>
#include <memory>
#include <optional>
#include <string>

#include "Tabulon/cli/Columns.h"
#include "Tabulon/src/text/MUCellText.h"

namespace TabulonCli {

class Condition {
 public:
  // The operator is the first one in front of which a column's name stands. Ends the run (WrongUse) where
  // there is none, where the column is not known and where the pattern is none.
  Condition(const std::string& typed, const Columns& columns);

  const Column& WhichColumn() const { return *m_column; }
  bool Fits(const MUCellText& cell) const;

 private:
  enum class Operator {
    Equal,
    NotEqual,
    Less,
    LessOrEqual,
    Greater,
    GreaterOrEqual,
    Contains,
    Matches
  };
  struct Value {
    wxString text;
    std::optional<double> number;
  };

  static std::optional<Operator> OperatorAt(const wxString& typed, std::size_t place,
                                            std::size_t& length);
  void TakeValues(const wxString& values);
  void TakePattern(const wxString& pattern);
  bool FitsOne(const MUCellText& cell, const Value& value) const;

  const Column* m_column = nullptr;
  Operator m_operator = Operator::Equal;
  std::deque<Value> m_values;
  std::deque<MUWantedText> m_wanted;  // views of the values
  std::unique_ptr<wxRegEx> m_pattern;
};

}  // namespace TabulonCli

#endif
