// A table that is driven the way a viewer drives it, without the window.
#ifndef OMBRELIA_TABULON_CLI_DRIVENTABLE_H
#define OMBRELIA_TABULON_CLI_DRIVENTABLE_H

#include <set>
#include <string>
#include <vector>

#include "Tabulon/cli/Columns.h"
#include "Tabulon/cli/Condition.h"
#include "Tabulon/cli/InputReports.h"
#include "Tabulon/cli/Inputs.h"
#include "Tabulon/src/table/MUExperimentTextReaderMultiFile.h"
#include "Tabulon/src/table/MUInterfaceExperimentDataObserver.h"

namespace TabulonCli {

// One file that was loaded.
struct LoadedFile {
  wxString path;  // as the table knows it
  wxString title;
  wxString date;
  wxString participant;
  std::size_t rows = 0;
};

class DrivenTable : private MUInterfaceExperimentDataObserver {
 public:
  // Loads the files in one batch. Files that are no data files are left out; Problems says why. The inputs must
  // outlive this.
  explicit DrivenTable(const Inputs& inputs);
  virtual ~DrivenTable() = default;
  DrivenTable(const DrivenTable&) = delete;
  DrivenTable& operator=(const DrivenTable&) = delete;

  MUExperimentTextReaderMultiFile& Table() { return m_table; }
  const Inputs& Files() const { return m_inputs; }
  // In the order in which they were loaded.
  const std::vector<LoadedFile>& Loaded() const { return m_loaded; }
  const std::vector<InputReports::Report>& Problems() const { return m_reports.Problems(); }

  // All columns. Those whose name begins with one of the prefixes become one per prefix. Ends the run (WrongUse)
  // at a prefix that no column has.
  Columns MakeColumns(const std::vector<std::string>& mergedPrefixes);

  // Hides the rows that do not fit all of the conditions.
  void KeepRowsWhere(const std::vector<Condition>& conditions);
  // Hides the columns without any text in the shown rows.
  void HideEmptyColumns();
  std::set<wxString> HiddenColumns();

 private:
  void OnDataShapeChanged(unsigned shownRows, unsigned shownColumns, unsigned long activeRows,
                          int lastPreservedRow, int lastPreservedColumn) override;
  void OnRefreshRequest(wxCommandEvent& event) override;

  void Request(const std::vector<wxString>& paths, bool wanted);
  void RunIdleLoop();
  void ListLoadedFiles();
  void DropPlainTables();

  const Inputs& m_inputs;
  InputReports m_reports;
  MUExperimentTextReaderMultiFile m_table;
  std::vector<LoadedFile> m_loaded;
};

}  // namespace TabulonCli

#endif
