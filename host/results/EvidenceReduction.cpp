#include "host/results/EvidenceReduction.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>

#include "framework/CellNumbers.h"
#include "framework/RunTimes.h"
#include "host/results/NameSuggestion.h"
#include "host/results/StimulusAreaWords.h"
#include "host/results/WideText.h"

namespace OmbreliaHost {

namespace {

using Ombrelia::RowScan;

// A column's name stands in two lines of the data file, in front of the rows.
constexpr long LINE_OF_HEADINGS = 5;
constexpr long LINE_OF_FIRST_ROW = 7;

constexpr int ROWS_OF_CONTEXT = 2;

std::string Quoted(const wxString& text) {
  wxString shown = text;
  shown.Replace(wxT("\n"), wxT(" "));
  return "\"" + Utf8OfText(shown) + "\"";
}

// As in "1 row", "2 rows".
std::string Amount(long count, const std::string& noun) {
  return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

// How often each text stands in a column.
std::map<wxString, int> CountTexts(const std::vector<wxString>& texts) {
  std::map<wxString, int> counts;
  for (const wxString& text : texts) ++counts[text];
  return counts;
}

}  // namespace

EvidenceReduction::EvidenceReduction(const VerificationRecorder& recorder) : m_recorder(recorder) {
  for (const RecordedCheck& check : recorder.Checks()) {
    for (const Comparison& comparison : check.comparisons) {
      const auto* const cells = std::get_if<CellsComparison>(&comparison);
      if (cells == nullptr || ColumnOf(cells->column) < 0 ||
          std::find(m_comparedColumns.begin(), m_comparedColumns.end(), cells->column) !=
              m_comparedColumns.end())
        continue;
      m_comparedColumns.push_back(cells->column);
    }
  }
}

Evidence EvidenceReduction::EvidenceOf(std::size_t index, std::size_t mostCells) const {
  const RecordedCheck& check = m_recorder.Checks()[index];
  if (m_recorder.Table() == nullptr) return {};
  if (!m_recorder.DatafileWasRead()) {
    Evidence evidence;
    evidence.kind = Evidence::Kind::Reader;
    for (const wxString& words : m_recorder.WordsOfReader())
      evidence.words.push_back(Utf8OfText(words));
    return evidence;
  }
  // A later comparison is nearer to the result.
  for (auto comparison = check.comparisons.rbegin(); comparison != check.comparisons.rend();
       ++comparison) {
    if (const auto evidence = ExplainComparison(*comparison)) return *evidence;
  }
  const std::vector<CellPlace>& cells = check.reads.cells;
  if (std::any_of(cells.begin(), cells.end(),
                  [](const CellPlace& cell) { return cell.column < 0; })) {
    const wxString missing = ColumnThatWasMissing(index);
    if (!missing.empty()) return MissingColumn(missing);
  }
  if (cells.empty() && !check.reads.lookups.empty()) return ExplainLookups(check.reads.lookups);
  if (cells.empty() && check.reads.headings) return ExplainHeadings(mostCells);
  return LastReads(index, mostCells);
}

std::optional<Evidence> EvidenceReduction::ExplainComparison(const Comparison& comparison) const {
  return std::visit([this](const auto& one) { return Explain(one); }, comparison);
}

std::optional<Evidence> EvidenceReduction::Explain(const LengthComparison& comparison) const {
  const int wanted = static_cast<int>(comparison.expected.size());
  if (RowCount() == wanted) return std::nullopt;
  return ExplainLength(comparison.column, wanted, comparison.expected);
}

std::optional<Evidence> EvidenceReduction::Explain(const CellsComparison& comparison) const {
  const int column = ColumnOf(comparison.column);
  if (column < 0) return MissingColumn(comparison.column);
  const auto row = FirstDifference(column, comparison.firstRow, comparison.expected);
  if (!row) return std::nullopt;
  Evidence evidence;
  evidence.kind = Evidence::Kind::Cell;
  EvidenceCell cell = CellAt(*row, comparison.column);
  cell.expected =
      Utf8OfText(comparison.expected[static_cast<std::size_t>(*row - comparison.firstRow)]);
  evidence.cells.push_back(cell);
  evidence.context = ContextOf(*row, comparison.column, comparison.firstRow, comparison.expected);
  return evidence;
}

std::optional<Evidence> EvidenceReduction::Explain(const ScanComparison& comparison) const {
  const RowScan& rule = comparison.rule;
  const bool isPositional = rule.RuleKind() == RowScan::Kind::POSITIONAL;
  // The last row of a table without rows is 0, too.
  if (std::max(RowCount() - 1, 0) != rule.LastRow())
    return ExplainLength(comparison.column, rule.LastRow() + 1,
                         isPositional ? rule.Texts() : std::vector<wxString>());
  if (ColumnOf(comparison.column) < 0) return MissingColumn(comparison.column);
  if (rule.RuleKind() == RowScan::Kind::ANYWHERE) return ExplainMissingTexts(comparison);
  if (rule.RuleKind() == RowScan::Kind::COUNT) return ExplainCount(comparison);
  auto evidence = Explain(CellsComparison{comparison.column, 0, rule.Texts()});
  if (evidence) evidence->kind = Evidence::Kind::Row;
  return evidence;
}

std::optional<Evidence> EvidenceReduction::Explain(const BoundComparison& comparison) const {
  const auto& [column, min, max, actual] = comparison;
  if (min <= actual && actual <= max) return std::nullopt;
  Evidence evidence;
  evidence.kind = Evidence::Kind::Bound;
  const wxString heading = m_recorder.Table()->GetColumnNameText(column);
  const bool isExpansion = heading.StartsWith(Ombrelia::EXPANSION_TIME_COLUMN_NAME);
  EvidenceCell cell;
  wxString text;
  if (isExpansion) {
    cell = {Utf8OfText(heading), std::nullopt, LINE_OF_HEADINGS, Utf8OfText(heading), std::nullopt};
    text = heading.AfterFirst(wxT(':'));
  } else {
    cell = CellAt(RowCount() - 1, column);
    text = TextAt(RowCount() - 1, column);
  }
  evidence.cells.push_back(cell);
  long number = 0;
  if (!Ombrelia::ReadLong(text, number))
    evidence.words.push_back(Quoted(text) + " is no whole number, so " + std::to_string(actual) +
                             " stands for it.");
  return evidence;
}

std::optional<Evidence> EvidenceReduction::Explain(const AreasComparison& comparison) const {
  Evidence evidence;
  const auto& [actual, expected] = comparison;
  if (actual.size() != expected.size()) {
    evidence.actualCount = static_cast<long>(actual.size());
    evidence.expectedCount = static_cast<long>(expected.size());
    evidence.words.push_back("The host handed over " +
                             Amount(*evidence.actualCount, "stimulus area") + "; the check wants " +
                             std::to_string(expected.size()) + ".");
    return evidence;
  }
  for (std::size_t i = 0; i < actual.size(); ++i) {
    if (actual[i].SatisfiesLooseEqualityWith(expected[i])) continue;
    evidence.words.push_back("Stimulus area " + std::to_string(i) + ", counted from 0, is " +
                             WordsOfStimulusArea(actual[i]) + "; the check wants " +
                             WordsOfStimulusArea(expected[i]) + ".");
    return evidence;
  }
  return std::nullopt;
}

Evidence EvidenceReduction::ExplainLength(const wxString& columnName, int wantedRows,
                                          const std::vector<wxString>& expected) const {
  const int rows = RowCount();
  Evidence evidence;
  evidence.kind = Evidence::Kind::Length;
  evidence.actualCount = rows;
  evidence.expectedCount = wantedRows;
  const int first = std::min(rows, wantedRows);
  EvidenceCell cell = CellAt(first, columnName);
  cell.line = LINE_OF_FIRST_ROW + first;  // where a missing row would stand
  if (static_cast<std::size_t>(first) < expected.size())
    cell.expected = Utf8OfText(expected[static_cast<std::size_t>(first)]);
  evidence.cells.push_back(cell);
  const int column = ColumnOf(columnName);
  if (column < 0) return evidence;
  evidence.context = ContextOf(first, columnName, 0, expected);
  // A row that was lost or put in moves all that stand below it.
  const auto different = FirstDifference(column, 0, expected);
  if (different && *different < first) {
    evidence.words.push_back("The first row that differs from the expected ones is row " +
                             std::to_string(*different) + ".");
    EvidenceCell early = CellAt(*different, column);
    early.expected = Utf8OfText(expected[static_cast<std::size_t>(*different)]);
    evidence.cells.push_back(early);
  }
  return evidence;
}

std::optional<Evidence> EvidenceReduction::ExplainMissingTexts(
    const ScanComparison& comparison) const {
  const int column = ColumnOf(comparison.column);
  std::vector<wxString> cells;
  for (int row = 0; row < RowCount(); ++row) cells.push_back(TextAt(row, column));
  const std::map<wxString, int> found = CountTexts(cells);
  const std::vector<wxString>& wanted = comparison.rule.Texts();
  const std::map<wxString, int> wantedCounts = CountTexts(wanted);

  Evidence evidence;
  evidence.kind = Evidence::Kind::MissingText;
  for (const wxString& text : wanted) {
    if (found.count(text) != 0) continue;
    EvidenceCell cell;
    cell.column = Utf8OfText(comparison.column);
    cell.expected = Utf8OfText(text);
    evidence.cells.push_back(cell);
  }
  if (evidence.cells.empty()) return std::nullopt;
  // The rows that could have it: those of no wanted text, then those of one that is there too often.
  for (const bool isWanted : {false, true}) {
    for (int row = 0; row < RowCount(); ++row) {
      const wxString& text = cells[static_cast<std::size_t>(row)];
      const auto place = wantedCounts.find(text);
      if ((place != wantedCounts.end()) != isWanted) continue;
      if (!isWanted || found.at(text) > place->second)
        evidence.cells.push_back(CellAt(row, column));
    }
  }
  return evidence;
}

std::optional<Evidence> EvidenceReduction::ExplainCount(const ScanComparison& comparison) const {
  const int column = ColumnOf(comparison.column);
  const wxString& wanted = comparison.rule.Texts().front();
  std::vector<wxString> cells;
  for (int row = 0; row < RowCount(); ++row) cells.push_back(TextAt(row, column));
  const std::map<wxString, int> counts = CountTexts(cells);
  const auto place = counts.find(wanted);
  const int found = place == counts.end() ? 0 : place->second;
  if (found == comparison.rule.WantedCount()) return std::nullopt;

  Evidence evidence;
  evidence.kind = Evidence::Kind::Count;
  evidence.actualCount = found;
  evidence.expectedCount = comparison.rule.WantedCount();
  evidence.words.push_back("The text that is counted is " + Quoted(wanted) + ".");
  std::vector<int> withIt;
  std::vector<int> others;
  for (int row = 0; row < RowCount(); ++row)
    (cells[static_cast<std::size_t>(row)] == wanted ? withIt : others).push_back(row);
  // A text that stands nowhere else is the likeliest to be wrong.
  std::stable_sort(others.begin(), others.end(), [&](int a, int b) {
    return counts.at(cells[static_cast<std::size_t>(a)]) <
           counts.at(cells[static_cast<std::size_t>(b)]);
  });
  if (found < comparison.rule.WantedCount()) {
    for (const int row : others) {
      EvidenceCell cell = CellAt(row, column);
      cell.expected = Utf8OfText(wanted);
      evidence.cells.push_back(cell);
    }
  }
  for (const int row : withIt) evidence.cells.push_back(CellAt(row, column));
  return evidence;
}

Evidence EvidenceReduction::MissingColumn(const wxString& name) const {
  Evidence evidence;
  evidence.kind = Evidence::Kind::Cell;
  evidence.words.push_back("The data file has no column " + Quoted(name) + ".");
  EvidenceCell cell;
  cell.column = Utf8OfText(name);
  cell.line = LINE_OF_HEADINGS;
  cell.expected = cell.column;
  cell.actual = NearestName(cell.column, Headings());
  evidence.cells.push_back(cell);
  return evidence;
}

Evidence EvidenceReduction::ExplainLookups(const std::vector<ColumnLookup>& lookups) const {
  Evidence evidence;
  evidence.kind = Evidence::Kind::LastReads;
  evidence.words.push_back("The check looked for columns by their names and read no cell.");
  for (const ColumnLookup& lookup : lookups) {
    EvidenceCell cell;
    cell.column = Utf8OfText(lookup.name);
    cell.line = LINE_OF_HEADINGS;
    if (lookup.column < 0) {
      evidence.words.push_back("The data file has no column " + Quoted(lookup.name) + ".");
      cell.actual = NearestName(cell.column, Headings());
    } else {
      evidence.words.push_back("Column " + std::to_string(lookup.column) + ", counted from 0, is " +
                               Quoted(lookup.name) + ".");
      cell.actual = cell.column;
    }
    evidence.cells.push_back(cell);
  }
  return evidence;
}

Evidence EvidenceReduction::ExplainHeadings(std::size_t mostCells) const {
  Evidence evidence;
  evidence.kind = Evidence::Kind::LastReads;
  evidence.words.push_back("The check read the names of the columns and no cell.");
  for (const std::string& heading : Headings()) {
    EvidenceCell cell;
    cell.column = heading;
    cell.line = LINE_OF_HEADINGS;
    cell.actual = heading;
    if (evidence.cells.size() < mostCells) evidence.cells.push_back(cell);
  }
  return evidence;
}

Evidence EvidenceReduction::LastReads(std::size_t index, std::size_t mostCells) const {
  const std::vector<RecordedCheck>& checks = m_recorder.Checks();
  Evidence evidence;
  evidence.kind = Evidence::Kind::LastReads;
  std::vector<CellPlace> cells = checks[index].reads.cells;
  const auto addReadsOf = [&cells](const RecordedCheck& check) {
    cells.insert(cells.end(), check.reads.cells.begin(), check.reads.cells.end());
  };
  LeaveOutGoodCells(checks[index].comparisons, cells);
  if (!cells.empty()) {
    evidence.words.push_back("The cell that was read last stands first.");
    // A failure on the way, as of a cell that is no number, is often why the whole check fails.
    for (std::size_t before = index; before-- > 0 && cells.size() <= mostCells;) {
      if (!checks[before].failed || !checks[before].comparisons.empty()) break;
      addReadsOf(checks[before]);
    }
  } else {
    // Use the cells read for earlier checks that compared nothing.
    for (std::size_t before = index; before-- > 0 && cells.size() <= mostCells;) {
      if (checks[before].comparisons.empty()) addReadsOf(checks[before]);
    }
    evidence.words.push_back(
        cells.empty()
            ? "The check read no cell. The data file has " + Amount(RowCount(), "row") + "."
            : "The check read no cell of its own. These were read before it; the last one "
              "stands first.");
  }
  if (cells.size() > mostCells) {
    evidence.words.push_back("More cells were read than the " + std::to_string(mostCells) +
                             " that are listed.");
    cells.resize(mostCells);
  }
  for (const CellPlace& cell : cells) {
    if (cell.column >= 0) evidence.cells.push_back(CellAt(cell.row, cell.column));
  }
  return evidence;
}

// Those that equal what the check compared them with did not decide it.
void EvidenceReduction::LeaveOutGoodCells(const std::vector<Comparison>& comparisons,
                                          std::vector<CellPlace>& cells) const {
  for (const Comparison& comparison : comparisons) {
    const auto* const compared = std::get_if<CellsComparison>(&comparison);
    if (compared == nullptr || ExplainComparison(comparison)) continue;
    const int column = ColumnOf(compared->column);
    const int endRow = compared->firstRow + static_cast<int>(compared->expected.size());
    cells.erase(std::remove_if(cells.begin(), cells.end(),
                               [&](const CellPlace& cell) {
                                 return cell.column == column && cell.row >= compared->firstRow &&
                                        cell.row < endRow;
                               }),
                cells.end());
  }
}

int EvidenceReduction::RowCount() const { return m_recorder.Table()->GetNumberOfDataRows(); }

int EvidenceReduction::ColumnOf(const wxString& name) const {
  const auto* const table = m_recorder.Table();
  return table->MUExperimentTextReaderMultiFile::GetColumnPositionNumberFromText(name);
}

wxString EvidenceReduction::TextAt(int row, int column) const {
  return m_recorder.Table()->GetDataCellText(row, column).ToString();
}

std::vector<std::string> EvidenceReduction::Headings() const {
  std::vector<std::string> headings;
  for (int column = 0; column < m_recorder.Table()->GetNumberOfDataColumns(); ++column)
    headings.push_back(Utf8OfText(m_recorder.Table()->GetColumnNameText(column)));
  return headings;
}

EvidenceCell EvidenceReduction::CellAt(int row, int column) const {
  EvidenceCell cell;
  cell.column = Utf8OfText(m_recorder.Table()->GetColumnNameText(column));
  cell.row = row;
  if (row >= 0 && row < RowCount()) {
    cell.line = LINE_OF_FIRST_ROW + row;
    cell.actual = Utf8OfText(TextAt(row, column));
  }
  return cell;
}

EvidenceCell EvidenceReduction::CellAt(int row, const wxString& columnName) const {
  const int column = ColumnOf(columnName);
  if (column >= 0) return CellAt(row, column);
  EvidenceCell cell;
  cell.column = Utf8OfText(columnName);
  cell.row = row;
  return cell;
}

std::optional<int> EvidenceReduction::FirstDifference(int column, int firstRow,
                                                      const std::vector<wxString>& expected) const {
  int row = firstRow;
  for (const wxString& text : expected) {
    // A cell out of range reads as a text that an expected one could equal.
    if (TextAt(row, column) != text) return row;
    ++row;
  }
  return std::nullopt;
}

EvidenceContext EvidenceReduction::ContextOf(int row, const wxString& columnName, int firstRow,
                                             const std::vector<wxString>& expected) const {
  EvidenceContext context;
  std::vector<wxString> columns = {columnName};
  for (const wxString& compared : m_comparedColumns) {
    if (compared != columnName) columns.push_back(compared);
  }
  for (const wxString& column : columns) context.columns.push_back(Utf8OfText(column));
  const int begin = std::max(row - ROWS_OF_CONTEXT, 0);
  const int end = std::min(row + ROWS_OF_CONTEXT + 1, RowCount());
  for (int shown = begin; shown < end; ++shown) {
    EvidenceContext::Row line;
    line.line = LINE_OF_FIRST_ROW + shown;
    line.row = shown;
    line.decides = shown == row;
    for (const wxString& column : columns)
      line.cells.push_back(Utf8OfText(TextAt(shown, ColumnOf(column))));
    const int place = shown - firstRow;
    if (place >= 0 && static_cast<std::size_t>(place) < expected.size())
      line.expected = Utf8OfText(expected[static_cast<std::size_t>(place)]);
    context.rows.push_back(line);
  }
  return context;
}

wxString EvidenceReduction::ColumnThatWasMissing(std::size_t index) const {
  for (std::size_t i = index + 1; i-- > 0;) {
    const std::vector<ColumnLookup>& lookups = m_recorder.Checks()[i].reads.lookups;
    for (auto lookup = lookups.rbegin(); lookup != lookups.rend(); ++lookup) {
      if (lookup->column < 0) return lookup->name;
    }
  }
  return wxString();
}

}  // namespace OmbreliaHost
