// A table that is driven the way a viewer drives it, without the window.
#ifndef OMBRELIA_TABULON_CLI_DRIVENTABLE_H
#define OMBRELIA_TABULON_CLI_DRIVENTABLE_H

#include <filesystem>
#include <vector>

#include "Tabulon/cli/ColumnNames.h"
#include "Tabulon/cli/CommandLine.h"
#include "Tabulon/cli/InputReports.h"
#include "Tabulon/src/table/MUExperimentTextReaderMultiFile.h"
#include "Tabulon/src/table/MUInterfaceExperimentDataObserver.h"

namespace TabulonCli {

class DrivenTable : private MUInterfaceExperimentDataObserver {
 public:
  // Loads the files in one batch. Files that are no data files are left out; Problems says why.
  explicit DrivenTable(const std::vector<std::filesystem::path>& files);
  virtual ~DrivenTable() = default;
  DrivenTable(const DrivenTable&) = delete;
  DrivenTable& operator=(const DrivenTable&) = delete;

  MUExperimentTextReaderMultiFile& Table() { return m_table; }
  const std::vector<InputReports::Report>& Problems() const { return m_reports.Problems(); }
  // All columns, also the hidden ones.
  ColumnNames Columns();

  // Filters, hides, sorts and marks as the command line says. Ends the run (WrongUse) at a column or a
  // marked row that is not there.
  void Arrange(const CommandLine& commandLine);

  // The shape that the table last announced.
  int ShownRows() const { return m_shownRows; }
  int ShownColumns() const { return m_shownColumns; }

 private:
  void OnDataShapeChanged(unsigned shownRows, unsigned shownColumns, unsigned long activeRows,
                          int lastPreservedRow, int lastPreservedColumn) override;
  void OnRefreshRequest(wxCommandEvent& event) override;

  void RunIdleLoop();
  void KeepRowsWhere(const wxString& column, const wxString& value);
  void ShowOnly(const std::vector<wxString>& columns);

  InputReports m_reports;
  MUExperimentTextReaderMultiFile m_table;
  int m_shownRows = 0;
  int m_shownColumns = 0;
};

}  // namespace TabulonCli

#endif
