// Data files on disk and a table whose inside can be looked at.
#ifndef OMBRELIA_TESTS_TABULON_TABLE_TABLETESTSUPPORT_H
#define OMBRELIA_TESTS_TABULON_TABLE_TABLETESTSUPPORT_H

#include <wx/string.h>

#include <deque>
#include <string>
#include <vector>

#include "Tabulon/src/table/MUExperimentTextReaderMultiFile.h"
#include "Tabulon/src/table/MUInterfaceStatusTextPrinterManager.h"
#include "tests/support/Files.h"

namespace Tests {

using Names = std::vector<wxString>;
using Cells = std::vector<std::vector<std::string>>;

// A separate folder for each test, removed with everything in it.
class TemporaryFolder {
 public:
  // The full path of a file of that name, there or not.
  wxString PathOf(const std::string& name) const;
  // Writes the bytes as they are.
  wxString Write(const std::string& name, const std::string& bytes) const;
  // Writes a data file of these columns and rows.
  wxString WriteData(const std::string& name, const std::vector<std::string>& columns,
                     const Cells& rows) const;

 private:
  ScratchFolder m_folder;
};

// Four header lines, two heading rows, one line per row; a column's two heading cells are joined by a line
// feed in its name.
std::string DataText(const std::vector<std::string>& columns, const Cells& rows);

// The table with its protected state in the open.
class ProbeTable : public MUExperimentTextReaderMultiFile {
 public:
  ProbeTable() : MUExperimentTextReaderMultiFile(nullptr) {}
  explicit ProbeTable(MUInterfaceDataFileInputErrorHandler* handler)
      : MUExperimentTextReaderMultiFile(handler) {}

  using MUExperimentTextReaderMultiFile::RowKeys;

  using MUExperimentTextReaderMultiFile::m_activeRowKeys;
  using MUExperimentTextReaderMultiFile::m_allRowKeys;
  using MUExperimentTextReaderMultiFile::m_cacheColumnNames;
  using MUExperimentTextReaderMultiFile::m_cacheRowIndexHolders;
  using MUExperimentTextReaderMultiFile::m_cacheRowIndicesByFlags;
  using MUExperimentTextReaderMultiFile::m_cacheStringSelects;
  using MUExperimentTextReaderMultiFile::m_columnHasText;
  using MUExperimentTextReaderMultiFile::m_columns;
  using MUExperimentTextReaderMultiFile::m_currentColumnNames;
  using MUExperimentTextReaderMultiFile::m_currentShownRowKeys;
  using MUExperimentTextReaderMultiFile::m_emptySearchColumn;
  using MUExperimentTextReaderMultiFile::m_emptySearchFinished;
  using MUExperimentTextReaderMultiFile::m_emptySearchRow;
  using MUExperimentTextReaderMultiFile::m_files;
  using MUExperimentTextReaderMultiFile::m_insertNewColumnsInPlace;
  using MUExperimentTextReaderMultiFile::m_lastStatusMessageId;
  using MUExperimentTextReaderMultiFile::m_nextRowKey;
  using MUExperimentTextReaderMultiFile::m_nonCachedHolders;
  using MUExperimentTextReaderMultiFile::m_notificationPending;
  using MUExperimentTextReaderMultiFile::m_previousColumnNames;
  using MUExperimentTextReaderMultiFile::m_previousShownRowKeys;
  using MUExperimentTextReaderMultiFile::m_redFlagDependentKeys;
  using MUExperimentTextReaderMultiFile::m_rows;
  using MUExperimentTextReaderMultiFile::m_sortMilliseconds;
  using MUExperimentTextReaderMultiFile::m_sortRanSinceNotification;

  // Loads the file and makes it visible at once. The result is that of the table.
  bool Load(const wxString& path);
  // A notification, as an idle moment would bring it.
  void Notify() { IdleTimeProcessAllNotifications(); }

  Names ColumnNames() const { return *m_currentColumnNames; }
  // The shown rows' texts in one column, through the plain access.
  std::vector<std::string> Column(const wxString& name) const;
  std::string Cell(int row, int column) const;
};

// Loads the file into any table, an object of the class itself too, and makes it visible at once. Such an
// object's protected state is seen by the members that ProbeTable names: table.*&ProbeTable::m_rows.
bool LoadAndShow(MUExperimentTextReaderMultiFile& table, const wxString& path);
// The shown rows' texts in one column, through the plain access.
std::vector<std::string> ColumnOf(const MUExperimentTextReaderMultiFile& table,
                                  const wxString& name);

// Keeps what it is asked to print: "text @slot ^id of the replaced message". Elapsed times read "N".
class RecordingStatusPrinter : public MUInterfaceStatusTextPrinterManager {
 public:
  int GetDefaultStatusSlot() override { return 7; }
  long PrintStatusText(const wxString& text, int slot, long replacedMessageId) override;

  std::vector<std::string> lines;
  std::vector<unsigned long> milliseconds;  // the numbers that are replaced in the lines
  long nextId = 100;
};

std::string Utf8(const wxString& text);
std::vector<std::string> Utf8(const std::vector<wxString>& texts);
std::vector<std::string> Utf8(const std::deque<wxString>& texts);

}  // namespace Tests

#endif
