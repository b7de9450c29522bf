// Reads a tab-separated data file through a file that somebody else holds open.
#ifndef OMBRELIA_TABULON_SRC_READING_MUCONCRETEINMEMORYDATAFILE_H
#define OMBRELIA_TABULON_SRC_READING_MUCONCRETEINMEMORYDATAFILE_H

#include <wx/string.h>

#include <cstddef>
#include <cstdint>
#include <deque>
#include <list>

#include "Tabulon/src/memory/MUPooledMemory.h"
#include "Tabulon/src/reading/MUInterfaceDataFileInputErrorHandler.h"
#include "Tabulon/src/reading/MUInterfaceExperimentDataFileInputReader.h"
#include "Tabulon/src/rows/MUDataFileBlockBuilder.h"
#include "Tabulon/src/rows/MUDataFileLines.h"
#include "Tabulon/src/text/MUUniqueNameIndex.h"

class wxFile;
class wxFileName;

// The format is that of MUConcreteExperimentDataFileTxt, but the two do not yield the same data:
// - there is no limit but memory and 4 GiB, and there are always six header lines;
// - lines end in LF. If a CR LF stands anywhere in the file, they end in CR: then lines that end in a bare LF, and
//   a last line without an end, are lost. Blank lines at the very end are none;
// - a line keeps its terminator: the last cell of a row ends in "^J" or "^M", a tab at the end of a line gives one
//   cell more, and the date text ends in the terminator;
// - columns have flags 0 and type 0, and rows have no hidden cells;
// - reports are short fixed words.
//
// Cost: one or two passes over the bytes of plain text, and a conversion more of any other.
// Lifetime: the reader owns the file's text together with the rows. file is borrowed by the constructor, handler as
// long as the reader lives.
// Threads: one for a reader and its rows; the file belongs to that thread meanwhile.
// Failure: "Seek failed" and "Failed to slurp into string." are logged as fatal errors where the file cannot be
// put at its start, or its bytes cannot be read: a folder, a file of 4 GiB or more, too little memory for what
// arrives. wxWidgets ends the program then. Should it return, the file counts as empty, which is an error. A file
// that was read but whose lines cannot be held is reported as MU_INPUT_FILE_TOO_LARGE, "file too large".
class MUConcreteInMemoryDataFile : public MUInterfaceExperimentDataFileInputReader {
 public:
  // Reads all of file, whatever its position, in pieces, and puts the position back. file is borrowed for that,
  // handler as long as the reader lives; handler may be null. name gives nothing but the names of the file. The
  // third argument is ignored. largestText: how many bytes the file may have, and how many characters its rows once
  // control characters are visible; at most 4 GiB less 1. Throws nothing of its own.
  MUConcreteInMemoryDataFile(wxFile* file, const wxFileName& name, bool hasHeader,
                             MUInterfaceDataFileInputErrorHandler* handler,
                             std::size_t largestText = MUDataFileBlockBuilder::LARGEST_OFFSET);
  MUConcreteInMemoryDataFile(const MUConcreteInMemoryDataFile&) = delete;
  MUConcreteInMemoryDataFile& operator=(const MUConcreteInMemoryDataFile&) = delete;

  wxString GetExperimentTitle() const override { return m_experimentTitle; }
  wxString GetExperimentDateTimeString() const override { return m_experimentDateTime; }
  std::uint32_t GetDataRowCount() const override { return m_dataRowCount; }
  void GoToDataRow(int row) override { m_currentRow = static_cast<std::uint32_t>(row); }
  bool ErrorStatusIsPresent() const override { return m_errorPresent; }
  std::deque<MUColumnNamePlusProperties*>* CreateAndReturnPositionallyOrderedColumnObjects()
      override;
  MUSingleRowDataPlusRowProperties* CreateAndReturnCurrentRowObject(bool advance) override;
  ~MUConcreteInMemoryDataFile() override;

  // See MUSortableNumericHash.
  static double CalculateSortableNumericHashFromString(const wxString& text);

 private:
  using Columns = std::deque<MUColumnNamePlusProperties*>;

  void Load(wxFile* file);
  void PopulateLinesCollection(wxFile* file);
  void ReportTooLarge();
  void ExtractHeaderInformation();
  void DoColumnHeadings(Columns& all);
  void EliminateDuplicatesAndCleanUpColumnNames(Columns& all);
  void PrepareForRows();
  void MakeOneNewColumn(MUColumnNamePlusProperties** made, const wxString& name,
                        const wxString& nameOfFile, short suppressed);
  void SendOneErrorMessageToCallbackObject(INPUT_ERROR code, const wxString& message,
                                           const wxString& filePath);
  void SendGeneralizedMessagesThatOriginatedInWxWidgetsCode(const std::list<wxString>& messages,
                                                            const wxString& filePath);
  void SendSuccessMessage();

  MUDataFileLines m_lines;  // each with its terminator
  wxString m_experimentTitle;
  wxString m_experimentDateTime;
  wxString m_fullPath;
  wxString m_shortName;
  wxString m_participantName;
  std::uint32_t m_currentRow;
  std::uint32_t m_dataRowCount;
  const std::size_t m_largestText;
  Columns* m_columns;  // owned until handed over
  bool m_columnsHandedOver;
  MUInterfaceDataFileInputErrorHandler* m_errorHandler;  // not owned, may be null
  wxString m_reactionTimeHeading;
  std::size_t m_reactionTimePosition;
  MUPooledPieces m_places;         // for the rows that are made
  MUUniqueNameIndex m_namesInUse;  // the names of all columns
  bool m_errorPresent;
};

#endif
