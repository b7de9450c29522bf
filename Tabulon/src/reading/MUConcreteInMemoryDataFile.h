// Reads a tab-separated data file through a file that somebody else holds open.
#ifndef OMBRELIA_TABULON_SRC_READING_MUCONCRETEINMEMORYDATAFILE_H
#define OMBRELIA_TABULON_SRC_READING_MUCONCRETEINMEMORYDATAFILE_H

#include <wx/string.h>

#include <cstddef>
#include <cstdint>
#include <deque>
#include <list>

#include "Tabulon/src/reading/MUInterfaceDataFileInputErrorHandler.h"
#include "Tabulon/src/reading/MUInterfaceExperimentDataFileInputReader.h"
#include "Tabulon/src/rows/MUDataFileLines.h"
#include "Tabulon/src/text/MUUniqueNameIndex.h"

class wxFile;
class wxFileName;

// The format is that of MUConcreteExperimentDataFileTxt, but the two do not yield the same data:
// - any size; always six header lines;
// - lines end in LF, or, if a CR LF stands anywhere in the file, in CR: then lines that end in a bare
//   LF, and a last line without an end, are lost; blank lines at the very end are none;
// - a line keeps its terminator: the last cell of a row ends in "^J" or "^M", a tab at the end of a
//   line gives one cell more, and the date text ends in the terminator;
// - columns have flags 0 and type 0; rows have no hidden cells;
// - reports are short fixed words.
class MUConcreteInMemoryDataFile : public MUInterfaceExperimentDataFileInputReader {
 public:
  // Reads all of file, whatever its position, and puts the position back; file is not used after that.
  // name gives nothing but the names of the file. The third argument is ignored. handler is borrowed
  // while the reader is made, and may be null.
  MUConcreteInMemoryDataFile(wxFile* file, const wxFileName& name, bool hasHeader,
                             MUInterfaceDataFileInputErrorHandler* handler);
  MUConcreteInMemoryDataFile(const MUConcreteInMemoryDataFile&) = delete;
  MUConcreteInMemoryDataFile& operator=(const MUConcreteInMemoryDataFile&) = delete;

  wxString GetExperimentTitle() const override { return experimentTitle; }
  wxString GetExperimentDateTimeString() const override { return experimentDateTime; }
  std::uint32_t GetDataRowCount() const override { return dataRowCount; }
  void GoToDataRow(int row) override { currentRow = static_cast<std::uint32_t>(row); }
  bool ErrorStatusIsPresent() const override { return errorPresent; }
  std::deque<MUColumnNamePlusProperties*>* CreateAndReturnPositionallyOrderedColumnObjects()
      override;
  MUSingleRowDataPlusRowProperties* CreateAndReturnCurrentRowObject(bool advance) override;
  ~MUConcreteInMemoryDataFile() override;

  // See MUSortableNumericHash.
  static double CalculateSortableNumericHashFromString(const wxString& text);

 private:
  using Columns = std::deque<MUColumnNamePlusProperties*>;

  void PopulateLinesCollection(wxFile* file);
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

  MUDataFileLines lines;  // each with its terminator
  wxString experimentTitle;
  wxString experimentDateTime;
  wxString fullPath;
  wxString shortName;
  wxString participantName;
  std::uint32_t currentRow;
  std::uint32_t dataRowCount;
  Columns* columns;  // owned until handed over
  bool columnsHandedOver;
  MUInterfaceDataFileInputErrorHandler* errorHandler;  // not owned, may be null
  wxString reactionTimeHeading;
  std::size_t reactionTimePosition;
  MUUniqueNameIndex namesInUse;  // the names of all columns
  bool errorPresent;
};

#endif
