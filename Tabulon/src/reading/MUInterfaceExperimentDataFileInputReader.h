// The contract between one data file and everything above it, and the words that all readers share.
#ifndef OMBRELIA_TABULON_SRC_READING_MUINTERFACEEXPERIMENTDATAFILEINPUTREADER_H
#define OMBRELIA_TABULON_SRC_READING_MUINTERFACEEXPERIMENTDATAFILEINPUTREADER_H

#include <wx/string.h>

#include <cstdint>
#include <deque>

struct MUColumnNamePlusProperties;
struct MUSingleRowDataPlusRowProperties;

// Effect: reads a single data file. All opening and checking happens in the constructor of the concrete reader
// (MUDataFileInputReaderFactory makes one).
// Cost: the constructor reads the whole file; a row is then a small record.
// Lifetime: rows share the file's text with the reader and may outlive it.
// Threads: a reader and its rows belong to one.
// Failure: ErrorStatusIsPresent tells of a bad file; only want of memory throws. The caller's order:
//   1. ErrorStatusIsPresent; if true, delete the reader and do nothing else;
//   2. GetDataRowCount, GoToDataRow(0), and CreateAndReturnCurrentRowObject(true) that many times;
//   3. only then CreateAndReturnPositionallyOrderedColumnObjects: reading a row may append columns;
//   4. delete the reader.
class MUInterfaceExperimentDataFileInputReader {
 public:
  // The kind of a report. The numbers 1 to 5 are not in use.
  enum INPUT_ERROR : int {
    MU_INPUT_SUCCESS = 0,         // the one report of a good file
    MU_INPUT_BAD_FORMAT = 6,      // the file is not shaped like a data file
    MU_INPUT_FILE_TOO_LARGE = 7,  // the file exceeds a size limit
    MU_INPUT_LIBRARY_MESSAGE = 8  // logged by the library that opens files, word for word
  };

  struct DataFileInputError {
    INPUT_ERROR code;
    wxString message;
    wxString filePath;  // full path
  };

  enum STANDARD_STRING : int {
    BLOCK_COLUMN_HEADING = 0,
    TRIAL_COLUMN_HEADING = 1,
    ERROR_COLUMN_HEADING = 2,
    RTIME_COLUMN_HEADING = 3
  };

  // Title line of the header, trimmed.
  virtual wxString GetExperimentTitle() const = 0;
  // Date and time line of the header, verbatim.
  virtual wxString GetExperimentDateTimeString() const = 0;
  // Known from the constructor on.
  virtual std::uint32_t GetDataRowCount() const = 0;
  // Moves the row cursor, counted from 0, without a check.
  virtual void GoToDataRow(int row) = 0;
  // True once any error was seen; stays true.
  virtual bool ErrorStatusIsPresent() const = 0;
  // Hands over the columns, left to right. From this call on the caller deletes the deque and the objects in it;
  // before it the reader does. A row that is read later adds no object to it.
  virtual std::deque<MUColumnNamePlusProperties*>*
  CreateAndReturnPositionallyOrderedColumnObjects() = 0;
  // A new row, made from the line under the cursor, which the caller deletes; null if the cursor stands on no data
  // row. advance moves the cursor on, unless the answer is null. May append columns.
  virtual MUSingleRowDataPlusRowProperties* CreateAndReturnCurrentRowObject(bool advance) = 0;
  virtual ~MUInterfaceExperimentDataFileInputReader();

  // One of four constant headings, such as "Reaction\nTime"; an empty text for any other value.
  static const wxString& GetStandardizedDataFileStringValue(STANDARD_STRING which);

  // Base name of a column made for a cell that stands beyond the last heading.
  static const wxString COL_HEAD_STRING_VALUE_WHEN_COLNAME_IS_MISSING;
  // Keys in a row's cell map that no column object stands for. They tell where a row came from once it is among the
  // rows of other files. No data file holds such a heading.
  static const wxString STRING_FOR_PERSONNAME_SECRET_COL;    // participant name
  static const wxString STRING_FOR_FILENAME_SECRET_COL;      // full path of the file
  static const wxString STRING_FOR_SHORTNAME_SECRET_COL;     // file name with extension, no folder
  static const wxString STRING_FOR_EXPERIMENT_SECRET_COL;    // experiment title
  static const wxString STRING_FOR_EXP_DATETIME_SECRET_COL;  // date and time line
};

#endif
