// Reads a tab-separated data file that it opens by name.
#ifndef OMBRELIA_TABULON_SRC_READING_MUCONCRETEEXPERIMENTDATAFILETXT_H
#define OMBRELIA_TABULON_SRC_READING_MUCONCRETEEXPERIMENTDATAFILETXT_H

#include <wx/filename.h>
#include <wx/string.h>

#include <cstddef>
#include <cstdint>
#include <deque>
#include <list>

#include "Tabulon/src/memory/MUPooledMemory.h"
#include "Tabulon/src/reading/MUDataTextFile.h"
#include "Tabulon/src/reading/MUInterfaceDataFileInputErrorHandler.h"
#include "Tabulon/src/reading/MUInterfaceExperimentDataFileInputReader.h"
#include "Tabulon/src/rows/MUDataFileBlock.h"
#include "Tabulon/src/text/MUUniqueNameIndex.h"

// The file has six header lines: participant, title, date and time, one line that is never read, and two heading
// rows, whose cells are joined to column names by a line feed. One data row per line follows, at least one. Cells are
// separated by tabs; there is no quoting. The file has at most 1 MiB. Every row carries the five hidden cells.
//
// Cost: that of MUDataTextFile for the file; a row is then made without a look at its cells, but for the reaction time.
// Lifetime: the reader owns the file's text together with the rows. handler is borrowed as long as the reader lives.
// Threads: one for a reader and its rows. The constructor redirects the log meanwhile: on the main thread that of the
// whole process.
// Failure: a bad file is reported and sets ErrorStatusIsPresent; only want of memory throws.
class MUConcreteExperimentDataFileTxt : public MUInterfaceExperimentDataFileInputReader {
 public:
  // Does all the loading and stops at the first error, which it reports. With hasHeader false all lines are data
  // rows, of the fifteen known columns. handler may be null.
  MUConcreteExperimentDataFileTxt(const wxFileName& file, bool hasHeader,
                                  MUInterfaceDataFileInputErrorHandler* handler);
  MUConcreteExperimentDataFileTxt(const MUConcreteExperimentDataFileTxt&) = delete;
  MUConcreteExperimentDataFileTxt& operator=(const MUConcreteExperimentDataFileTxt&) = delete;

  wxString GetExperimentTitle() const override { return m_experimentTitle; }
  wxString GetExperimentDateTimeString() const override { return m_experimentDateTime; }
  std::uint32_t GetDataRowCount() const override { return m_dataRowCount; }
  void GoToDataRow(int row) override { m_currentRow = static_cast<std::uint32_t>(row); }
  bool ErrorStatusIsPresent() const override { return m_errorPresent; }
  std::deque<MUColumnNamePlusProperties*>* CreateAndReturnPositionallyOrderedColumnObjects()
      override;
  MUSingleRowDataPlusRowProperties* CreateAndReturnCurrentRowObject(bool advance) override;
  ~MUConcreteExperimentDataFileTxt() override;

  // See MUSortableNumericHash.
  static double CalculateSortableNumericHashFromString(const wxString& text);

  static const wxString SYMBOL_FOR_NEWLINE;
  static const wxString OM_COL_TEXT_DELIMITER;
  static const wxString WHITESPACE_MARKER_NECESSARY_TO_SIGNAL_A_CODE_COLUMN;
  static const wxString CODE_VALUE_FOR_END_OF_ARRAY;
  static const wxString USERFRIENDLY_ERROR_TEXT_FILE_TOO_LARGE;
  static const wxString USERFRIENDLY_ERROR_TEXT_NO_EXPERIMENT_NAME;
  static const wxString USERFRIENDLY_ERROR_TEXT_NO_PERSONNAME_NAME;
  static const wxString USERFRIENDLY_ERROR_TEXT_NO_OM_TIMESTAMP;
  static const wxString USERFRIENDLY_ERROR_TEXT_FILE_TOO_SHORT;
  static const wxString USERFRIENDLY_ERROR_TEXT_ZERO_COLUMN_NAMES;
  static const wxString USERFRIENDLY_ERROR_TEXT_TOO_MANY_COLUMNS;

  // Parallel arrays: a pattern belongs to the value at the same position, and the patterns end in
  // CODE_VALUE_FOR_END_OF_ARRAY. A column gets a flag if its raw name contains the pattern, and a type
  // if its raw name equals it.
  static const wxString PARALLEL_ARRAY_OF_COL_PATTERNS_FOR_FLAGS[];
  static const std::uint32_t PARALLEL_ARRAY_OF_COL_FLAGS[];
  static const wxString PARALLEL_ARRAY_OF_COL_PATTERNS_FOR_TYPES[];
  static const std::uint32_t PARALLEL_ARRAY_OF_COL_TYPES[];

 private:
  using Columns = std::deque<MUColumnNamePlusProperties*>;

  void OpenSimpleTextFile(const wxFileName& file);
  void ExtractHeaderInformation();
  void DoColumnHeadings(Columns& all);
  void DoHardCodedColumnHeadings();
  void MarkColumnsWithFlags(Columns& all);
  void MarkColumnsWithDataType(Columns& all);
  void EliminateDuplicatesAndCleanUpColumnNames(Columns& all);
  void PrepareForRows();
  void MakeOneNewColumn(MUColumnNamePlusProperties** made, const wxString& name,
                        const wxString& nameOfFile, short suppressed);
  void SendOneErrorMessageToCallbackObject(INPUT_ERROR code, const wxString& message,
                                           const wxString& filePath);
  void SendGeneralizedMessagesThatOriginatedInWxWidgetsCode(const std::list<wxString>& messages,
                                                            const wxString& filePath);
  void SendSuccessMessage();

  bool m_hasHeader;
  wxString m_experimentTitle;
  wxString m_experimentDateTime;
  wxString m_fullPath;
  wxString m_shortName;  // name, dot and extension, no folder; the dot also without an extension
  wxString m_participantName;
  std::uint32_t m_currentRow;
  std::uint32_t m_dataRowCount;
  MUDataTextFile* m_textFile;  // owned
  Columns* m_columns;          // owned until handed over
  bool m_columnsHandedOver;
  wxFileName m_fileName;
  MUInterfaceDataFileInputErrorHandler* m_errorHandler;  // not owned, may be null
  wxString m_reactionTimeHeading;
  std::size_t m_reactionTimePosition;
  MUPooledPieces m_places;         // for the rows that are made
  MUUniqueNameIndex m_namesInUse;  // the names of all columns
  bool m_errorPresent;
};

#endif
