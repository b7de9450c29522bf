#include "Tabulon/cli/Diff.h"

#include <algorithm>
#include <cmath>
#include <map>

#include "Tabulon/cli/DrivenTable.h"
#include "Tabulon/cli/Numbers.h"
#include "Tabulon/cli/RowAlignment.h"
#include "Tabulon/cli/RowGroups.h"
#include "Tabulon/cli/SelectedRows.h"
#include "Tabulon/cli/Text.h"

namespace TabulonCli {

namespace {

const char* const HEADINGS[] = {"change", "at A", "at B", "column", "A", "B"};

// One of the two.
struct Side {
  Side(const CommandLine& commandLine, const std::filesystem::path& input)
      : inputs(std::vector<std::filesystem::path>{input}), driven(inputs) {
    for (const auto& problem : driven.Problems())
      throw RunError(ExitStatus::WrongUse, input.string() + ": " + Utf8(problem.message));
    columns.emplace(driven.MakeColumns(commandLine.mergedPrefixes));
    rows = SelectedRows(commandLine, driven, *columns).rows;
    Column file;
    file.kind = Column::Kind::File;
    files.emplace(file, inputs);
    Column line;
    line.kind = Column::Kind::Line;
    lines.emplace(line, inputs);
  }

  // "file:line".
  std::string PlaceOf(const DataRow& row) {
    std::string room;
    const std::string file(Utf8View(files->TextOf(row), room));
    return file + ":" + std::string(Utf8View(lines->TextOf(row), room));
  }

  Inputs inputs;
  DrivenTable driven;
  std::optional<Columns> columns;
  std::vector<DataRow*> rows;
  std::optional<ColumnCells> files;
  std::optional<ColumnCells> lines;
};

// A column that both sides have.
struct SharedColumn {
  Column column;
  std::optional<double> tolerance;
};

class Differing {
 public:
  explicit Differing(const CommandLine& commandLine)
      : m_line(commandLine),
        m_a(commandLine, commandLine.inputs.at(0)),
        m_b(commandLine, commandLine.inputs.at(1)) {
    MatchColumns();
    TakeTolerances();
    for (const SharedColumn& shared : m_shared) {
      m_cellsA.emplace_back(shared.column, m_a.inputs);
      m_cellsB.emplace_back(shared.column, m_b.inputs);
    }
  }

  ExitStatus Run() {
    for (const AlignedRows& rows : Align()) Compare(rows);
    if (m_differences.empty() && !m_line.hasFormat) return ExitStatus::Fine;
    Print(*MakePrinter(m_line.print));
    return m_differences.empty() ? ExitStatus::Fine : ExitStatus::Different;
  }

 private:
  void MatchColumns() {
    for (const Column& column : m_a.columns->All()) {
      if (column.IsOrigin()) continue;
      const Column* const other = FindExactly(*m_b.columns, column.name);
      if (other == nullptr) {
        Report({"column only in A", "", "", column.label, "", ""});
        continue;
      }
      SharedColumn shared{column, std::nullopt};
      for (const wxString& source : other->sources) {
        if (std::find(column.sources.begin(), column.sources.end(), source) == column.sources.end())
          shared.column.sources.push_back(source);
      }
      if (shared.column.sources.size() > 1) shared.column.kind = Column::Kind::Merged;
      m_shared.push_back(shared);
    }
    for (const Column& column : m_b.columns->All()) {
      if (!column.IsOrigin() && FindExactly(*m_a.columns, column.name) == nullptr)
        Report({"column only in B", "", "", column.label, "", ""});
    }
  }

  static const Column* FindExactly(const Columns& columns, const wxString& name) {
    for (const Column& column : columns.All()) {
      if (!column.IsOrigin() && column.name == name) return &column;
    }
    return nullptr;
  }

  // The place of a column among the shared ones.
  std::size_t PlaceOf(const Column& column) const {
    for (std::size_t i = 0; i < m_shared.size(); ++i) {
      if (m_shared[i].column.name == column.name && !column.IsOrigin()) return i;
    }
    throw RunError(ExitStatus::WrongUse, "\"" + column.label + "\" is no column of both");
  }

  // COLUMN=N, split at the first equals sign in front of which a column's name stands.
  void TakeTolerances() {
    for (const std::string& typed : m_line.tolerances) {
      const Column* column = nullptr;
      std::size_t equals = typed.find('=');
      for (; equals != std::string::npos; equals = typed.find('=', equals + 1)) {
        column = m_a.columns->TryFind(TextOf(typed.substr(0, equals)));
        if (column != nullptr) break;
      }
      if (column == nullptr) {
        if (typed.find('=') == std::string::npos) RejectTolerance(typed);
        m_a.columns->RejectUnknown(typed.substr(0, typed.find('=')));
      }
      const std::optional<double> tolerance = NumberIn(CellOf(typed.substr(equals + 1)));
      if (!tolerance || *tolerance < 0) RejectTolerance(typed);
      m_shared[PlaceOf(*column)].tolerance = tolerance;
    }
  }

  [[noreturn]] static void RejectTolerance(const std::string& typed) {
    throw RunError(ExitStatus::WrongUse,
                   "--tolerance: \"" + typed + "\" is not of the form COLUMN=N");
  }

  std::vector<AlignedRows> Align() {
    std::vector<std::size_t> keys;
    for (const std::string& list : m_line.keys) {
      for (const Column* column : m_a.columns->FindList(list)) keys.push_back(PlaceOf(*column));
    }
    if (!keys.empty()) return AlignByKey(KeysOf(m_a, m_cellsA, keys), KeysOf(m_b, m_cellsB, keys));
    return AlignInOrder(m_a.rows.size(), m_b.rows.size(), RowEquality());
  }

  static std::vector<std::string> KeysOf(const Side& side, std::deque<ColumnCells>& cells,
                                         const std::vector<std::size_t>& places) {
    std::vector<std::string> keys;
    for (const DataRow* row : side.rows) {
      keys.emplace_back();
      for (const std::size_t place : places) {
        // No cell holds a control character.
        AppendUtf8(keys.back(), cells[place].TextOf(*row));
        keys.back() += '\x01';
      }
    }
    return keys;
  }

  // Rows of both sides are numbered by their texts, where no tolerance is allowed, so that two can be compared at
  // once.
  std::function<bool(std::size_t, std::size_t)> RowEquality() {
    std::vector<const Column*> exact;
    std::vector<std::size_t> tolerant;
    for (std::size_t i = 0; i < m_shared.size(); ++i) {
      if (m_shared[i].tolerance) {
        tolerant.push_back(i);
      } else {
        exact.push_back(&m_shared[i].column);
      }
    }
    std::vector<DataRow*> rows(m_a.rows);
    rows.insert(rows.end(), m_b.rows.begin(), m_b.rows.end());
    const RowGroups groups(exact, rows, m_a.inputs);
    return [this, tolerant, numbers = groups.OfRows()](std::size_t a, std::size_t b) {
      return numbers[a] == numbers[m_a.rows.size() + b] &&
             std::all_of(tolerant.begin(), tolerant.end(), [&](std::size_t column) {
               return AreEqual(column, *m_a.rows[a], *m_b.rows[b]);
             });
    };
  }

  bool AreEqual(std::size_t column, const DataRow& a, const DataRow& b) {
    const MUCellText textA = m_cellsA[column].TextOf(a);
    const MUCellText textB = m_cellsB[column].TextOf(b);
    if (textA == textB) return true;
    const std::optional<double> tolerance = m_shared[column].tolerance;
    if (!tolerance) return false;
    const std::optional<double> numberA = NumberIn(textA);
    const std::optional<double> numberB = NumberIn(textB);
    return numberA && numberB && std::abs(*numberA - *numberB) <= *tolerance;
  }

  void Compare(const AlignedRows& rows) {
    if (!rows.b) {
      const DataRow& row = *m_a.rows[*rows.a];
      Report({"row only in A", m_a.PlaceOf(row), "", "", Joined(m_cellsA, row), ""});
    } else if (!rows.a) {
      const DataRow& row = *m_b.rows[*rows.b];
      Report({"row only in B", "", m_b.PlaceOf(row), "", "", Joined(m_cellsB, row)});
    } else {
      const DataRow& a = *m_a.rows[*rows.a];
      const DataRow& b = *m_b.rows[*rows.b];
      for (std::size_t i = 0; i < m_shared.size(); ++i) {
        if (AreEqual(i, a, b)) continue;
        Report({"cell", m_a.PlaceOf(a), m_b.PlaceOf(b), m_shared[i].column.label,
                Utf8(m_cellsA[i].TextOf(a).ToString()), Utf8(m_cellsB[i].TextOf(b).ToString())});
      }
    }
  }

  // The row's texts.
  static std::string Joined(std::deque<ColumnCells>& cells, const DataRow& row) {
    std::string joined;
    for (std::size_t i = 0; i < cells.size(); ++i) {
      if (i > 0) joined += '\t';
      AppendUtf8(joined, cells[i].TextOf(row));
    }
    return joined;
  }

  void Report(std::vector<std::string> difference) {
    m_differences.push_back(std::move(difference));
  }

  void Print(ResultPrinter& printer) const {
    std::vector<ResultColumn> headings;
    for (const char* name : HEADINGS) {
      headings.emplace_back();
      headings.back().name = headings.back().upper = name;
    }
    printer.Begin(headings);
    for (const std::vector<std::string>& difference : m_differences) {
      ResultRow cells;
      for (const std::string& text : difference) cells.push_back({text});
      printer.Row(cells);
    }
    printer.End(m_differences.size());
  }

  const CommandLine& m_line;
  Side m_a;
  Side m_b;
  std::vector<SharedColumn> m_shared;
  std::deque<ColumnCells> m_cellsA;  // of the shared columns
  std::deque<ColumnCells> m_cellsB;
  std::vector<std::vector<std::string>> m_differences;
};

}  // namespace

ExitStatus Diff(const CommandLine& commandLine) { return Differing(commandLine).Run(); }

}  // namespace TabulonCli
