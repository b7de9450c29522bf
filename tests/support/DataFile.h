// A data file in memory that a test changes and hands to its verifier.
#ifndef OMBRELIA_TESTS_SUPPORT_DATAFILE_H
#define OMBRELIA_TESTS_SUPPORT_DATAFILE_H

#include <string>
#include <vector>

#include "framework/StimAreaData.h"
#include "report/FakeJUnitPrinter.h"
#include "tests/support/HostNameIs.h"

namespace Tests {

// What a suite recorded, one line per event, in order:
//   "suite NAME", "pass NAME", "FAIL NAME | SUBJECT | LOCATION | MESSAGE"
using Lines = std::vector<std::string>;

// The line of a failing test whose location names this experiment and line.
std::string Fail(const std::string& name, const std::string& subject, const std::string& experiment,
                 int line, const std::string& message);

// The failing lines of a record.
Lines FailuresOf(const Lines& lines);

// A test that asks for what is not there, a sample, a column or a verifier, ends with an exception,
// which fails it.
class DataFile {
 public:
  // A sample of this experiment, with its stimulus areas if it has any. run: counts from 1. The variable
  // OMBRELIA_SAMPLES names another folder of samples.
  static DataFile Sample(const std::string& experiment, int run = 1);
  // A new file of this experiment: column names, with a line feed between the two heading rows, and
  // rows of cells.
  static DataFile Of(const std::string& experiment, const std::vector<std::string>& columns,
                     const std::vector<std::vector<std::string>>& rows);

  std::size_t RowCount() const { return m_rows.size(); }
  const std::vector<std::string>& Columns() const { return m_columns; }
  std::string Cell(std::size_t row, const std::string& column) const;
  std::vector<std::string> Column(const std::string& column) const;

  DataFile& Set(std::size_t row, const std::string& column, const std::string& text);
  DataFile& SetColumn(const std::string& column, const std::vector<std::string>& cells);
  DataFile& RemoveRow(std::size_t row);
  // Adds a copy of the last row, whose time the total duration is read from.
  DataFile& RepeatLastRow();
  // Inserts a copy of the row before it.
  DataFile& RepeatRow(std::size_t row);
  DataFile& KeepRows(std::size_t count);
  DataFile& SwapRows(std::size_t a, std::size_t b);
  DataFile& RemoveColumn(const std::string& column);
  DataFile& RenameColumn(const std::string& column, const std::string& name);
  // Puts the column into the first place.
  DataFile& MoveColumnToFront(const std::string& column);
  // The cell of the last row that the duration is read from.
  DataFile& SetDuration(const std::string& text);
  // What stands behind "Expansion Time(ms): " in the heading.
  DataFile& SetExpansion(const std::string& text);

  std::vector<Ombrelia::StimAreaData>& StimAreas() { return m_areas; }

  // The bytes of the file.
  std::string Text() const;
  // Writes the file and has the registered verifier of its experiment check it, on a machine of this
  // name. Returns all that was recorded.
  Lines Verify(const std::string& machine = ORDINARY_MACHINE) const;
  // The same, recorded on printer as it happens.
  void VerifyOn(Ombrelia::FakeJUnitPrinter& printer,
                const std::string& machine = ORDINARY_MACHINE) const;
  // The failing lines alone.
  Lines Failures(const std::string& machine = ORDINARY_MACHINE) const;

 private:
  std::size_t ColumnIndex(const std::string& column) const;

  std::string m_experiment;
  std::vector<std::string> m_header;
  std::vector<std::string> m_columns;
  std::vector<std::vector<std::string>> m_rows;
  std::vector<Ombrelia::StimAreaData> m_areas;
};

// Has the verifier of this experiment check a file of these bytes, on a machine of this name and on the
// day that TodayIs says.
Lines VerifyBytes(const std::string& experiment, const std::string& bytes,
                  const std::vector<Ombrelia::StimAreaData>& areas = {},
                  const std::string& machine = ORDINARY_MACHINE);

}  // namespace Tests

#endif
