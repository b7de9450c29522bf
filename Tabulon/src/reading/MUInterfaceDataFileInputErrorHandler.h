// Where a reader reports, in words, what became of a file.
#ifndef OMBRELIA_TABULON_SRC_READING_MUINTERFACEDATAFILEINPUTERRORHANDLER_H
#define OMBRELIA_TABULON_SRC_READING_MUINTERFACEDATAFILEINPUTERRORHANDLER_H

#include <list>

#include "Tabulon/src/reading/MUInterfaceExperimentDataFileInputReader.h"

// Effect: is told what became of each file. It may be null everywhere: what went wrong then shows only in
// ErrorStatusIsPresent.
// Cost: one call per file.
// Lifetime: readers and the table borrow a handler, which must outlive them.
// Threads: called on the thread that constructs the reader.
// Failure: an exception of the handler ends the construction and passes through it.
class MUInterfaceDataFileInputErrorHandler {
 public:
  // Called while the reader is being constructed: once for a bad file, with one report or, when the
  // library logged several messages, one for each; once for a good file, with the success report.
  virtual void OnDataFileInputReports(
      std::list<MUInterfaceExperimentDataFileInputReader::DataFileInputError> reports) = 0;
  virtual ~MUInterfaceDataFileInputErrorHandler() = default;
};

#endif
