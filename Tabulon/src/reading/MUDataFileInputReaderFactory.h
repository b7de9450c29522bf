// Chooses the concrete reader of a data file.
#ifndef OMBRELIA_TABULON_SRC_READING_MUDATAFILEINPUTREADERFACTORY_H
#define OMBRELIA_TABULON_SRC_READING_MUDATAFILEINPUTREADERFACTORY_H

class wxFile;
class wxFileName;
class MUInterfaceDataFileInputErrorHandler;
class MUInterfaceExperimentDataFileInputReader;

// Any other value acts as MU_INPUTFILE_TXT.
enum MU_DATAFILE_INPUTFILE_TYPE : int {
  MU_INPUTFILE_TXT = 0,  // opened by name
  MU_INPUTFILE_TXT_HEADERLESS =
      1,                           // opened by name; data rows only, with the fifteen known columns
  MU_INPUTFILE_TXT_ALTERNATE = 2,  // same as MU_INPUTFILE_TXT
  MU_INPUTFILE_IN_MEMORY = 3       // read through an open file
};

class MUDataFileInputReaderFactory {
 public:
  // Effect: a new reader, which has read the file; never null. openFile is used for MU_INPUTFILE_IN_MEMORY only. It
  // must then be an open file; it is read in this call and keeps its position.
  // Cost: that of reading the whole file.
  // Lifetime: the caller deletes the reader. handler is borrowed as long as the reader lives, and may be null.
  // Threads: one for a file; the reader stays with the thread that made it.
  // Failure: a bad file gives a reader whose ErrorStatusIsPresent is true; only want of memory throws.
  static MUInterfaceExperimentDataFileInputReader* GetExperimentDataFileInputReader(
      const wxFileName& file, MU_DATAFILE_INPUTFILE_TYPE type,
      MUInterfaceDataFileInputErrorHandler* handler, wxFile* openFile);
  // Whether the reader's class is one of those that are made here. Such a reader keeps none of the rows and
  // columns that it made.
  static bool MakesReadersLike(const MUInterfaceExperimentDataFileInputReader& reader);
};

#endif
