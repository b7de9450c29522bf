// Where a reader reports, in words, what became of a file.
#ifndef OMBRELIA_TABULON_SRC_READING_MUINTERFACEDATAFILEINPUTERRORHANDLER_H
#define OMBRELIA_TABULON_SRC_READING_MUINTERFACEDATAFILEINPUTERRORHANDLER_H

#include <list>

#include "Tabulon/src/reading/MUInterfaceExperimentDataFileInputReader.h"

// Readers and the table borrow a handler, which must outlive them. It may be null everywhere: what went wrong then
// shows only in ErrorStatusIsPresent.
class MUInterfaceDataFileInputErrorHandler {
 public:
  // Called while the reader is being constructed: once for a bad file, with one report or, when the
  // library logged several messages, one for each; once for a good file, with the success report.
  virtual void OnDataFileInputReports(
      std::list<MUInterfaceExperimentDataFileInputReader::DataFileInputError> reports) = 0;
  virtual ~MUInterfaceDataFileInputErrorHandler() = default;
};

#endif
