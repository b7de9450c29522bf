#include "Tabulon/cli/Condition.h"

#include <wx/log.h>

#include <algorithm>

#include "Tabulon/cli/ExitStatus.h"
#include "Tabulon/cli/Numbers.h"
#include "Tabulon/cli/Text.h"
#include "Tabulon/src/rows/MUColumnReader.h"

namespace TabulonCli {

namespace {

// What wx logs while it lives.
class LoggedMessages : public wxLog {
 public:
  LoggedMessages() : m_former(SetActiveTarget(this)) {}
  ~LoggedMessages() override { SetActiveTarget(m_former); }
  const wxString& Text() const { return m_text; }

 protected:
  void DoLogRecord(wxLogLevel, const wxString& message, const wxLogRecordInfo&) override {
    m_text = message;
  }

 private:
  wxLog* const m_former;
  wxString m_text;
};

bool IsContained(const MUCellText& part, const MUCellText& whole) {
  if (part.Narrow() != nullptr && whole.Narrow() != nullptr) {
    const std::string_view text(whole.Narrow(), whole.Length());
    return text.find({part.Narrow(), part.Length()}) != std::string_view::npos;
  }
  return whole.ToString().find(part.ToString()) != wxString::npos;
}

}  // namespace

Condition::Condition(const std::string& typed, const Columns& columns) {
  const wxString text = TextOf(typed);
  std::optional<std::size_t> firstPlace;
  for (std::size_t place = 0; place < text.length(); ++place) {
    std::size_t length = 0;
    const std::optional<Operator> found = OperatorAt(text, place, length);
    if (!found) continue;
    if (!firstPlace) firstPlace = place;
    m_column = columns.TryFind(text.substr(0, place));
    if (m_column == nullptr) continue;
    m_operator = *found;
    const wxString values = text.substr(place + length);
    const bool isPattern = values.length() > 1 && values[0] == '/' && values.Last() == '/';
    if (m_operator == Operator::Matches) {
      TakePattern(values.substr(0, values.length() - 1));
    } else if (m_operator == Operator::Contains && isPattern) {
      m_operator = Operator::Matches;
      TakePattern(values.substr(1, values.length() - 2));
    } else {
      TakeValues(values);
    }
    return;
  }
  if (!firstPlace) {
    throw RunError(ExitStatus::WrongUse,
                   "--where: \"" + typed + "\" is not of the form COLUMN=VALUE");
  }
  columns.RejectUnknown(Utf8(text.substr(0, *firstPlace)));
}

std::optional<Condition::Operator> Condition::OperatorAt(const wxString& typed, std::size_t place,
                                                         std::size_t& length) {
  const auto isNext = [&](wchar_t character) {
    return place + 1 < typed.length() && typed[place + 1] == character;
  };
  const wchar_t character = typed[place];
  const bool withEquals = isNext(L'=');
  length = withEquals ? 2 : 1;
  switch (character) {
    case L'!':
      return withEquals ? std::optional(Operator::NotEqual) : std::nullopt;
    case L'<':
      return withEquals ? Operator::LessOrEqual : Operator::Less;
    case L'>':
      return withEquals ? Operator::GreaterOrEqual : Operator::Greater;
  }
  length = 1;
  switch (character) {
    case L'=':
      return Operator::Equal;
    case L'~':
      return Operator::Contains;
    case L'/':
      return place + 2 < typed.length() && typed.Last() == L'/' ? std::optional(Operator::Matches)
                                                                : std::nullopt;
  }
  return std::nullopt;
}

void Condition::TakeValues(const wxString& values) {
  m_values.emplace_back();
  for (std::size_t i = 0; i < values.length(); ++i) {
    if (values[i] == L'\\' && i + 1 < values.length() && values[i + 1] == L'|') {
      m_values.back().text += values[++i];
    } else if (values[i] == L'|') {
      m_values.emplace_back();
    } else {
      m_values.back().text += values[i];
    }
  }
  for (Value& value : m_values) {
    value.number = NumberIn(MUColumnReader::ViewOf(value.text));
    m_wanted.emplace_back(value.text);
  }
}

void Condition::TakePattern(const wxString& pattern) {
  LoggedMessages logged;
  m_pattern = std::make_unique<wxRegEx>();
  if (!m_pattern->Compile(pattern, wxRE_ADVANCED | wxRE_NOSUB))
    throw RunError(ExitStatus::WrongUse, "--where: " + Utf8(logged.Text()));
}

bool Condition::Fits(const MUCellText& cell) const {
  switch (m_operator) {
    case Operator::Matches:
      return m_pattern->Matches(cell.ToString());
    case Operator::Equal:
      return std::any_of(m_wanted.begin(), m_wanted.end(),
                         [&](const MUWantedText& wanted) { return wanted.Equals(cell); });
    case Operator::NotEqual:
      return std::none_of(m_wanted.begin(), m_wanted.end(),
                          [&](const MUWantedText& wanted) { return wanted.Equals(cell); });
    case Operator::Contains:
      return std::any_of(m_wanted.begin(), m_wanted.end(), [&](const MUWantedText& wanted) {
        return IsContained(wanted.View(), cell);
      });
    default:
      return std::any_of(m_values.begin(), m_values.end(),
                         [&](const Value& value) { return FitsOne(cell, value); });
  }
}

bool Condition::FitsOne(const MUCellText& cell, const Value& value) const {
  double order = 0;
  if (value.number) {
    const std::optional<double> number = NumberIn(cell);
    if (!number) return false;
    order = *number < *value.number ? -1 : *number > *value.number ? 1 : 0;
  } else {
    order = cell.Compare(MUColumnReader::ViewOf(value.text));
  }
  switch (m_operator) {
    case Operator::Less:
      return order < 0;
    case Operator::LessOrEqual:
      return order <= 0;
    case Operator::Greater:
      return order > 0;
    default:
      return order >= 0;
  }
}

}  // namespace TabulonCli
