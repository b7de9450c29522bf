#include "Tabulon/src/reading/MUDataFileInputReaderFactory.h"

#include <typeinfo>

#include "Tabulon/src/reading/MUConcreteExperimentDataFileTxt.h"
#include "Tabulon/src/reading/MUConcreteInMemoryDataFile.h"

MUInterfaceExperimentDataFileInputReader*
MUDataFileInputReaderFactory::GetExperimentDataFileInputReader(
    const wxFileName& file, MU_DATAFILE_INPUTFILE_TYPE type,
    MUInterfaceDataFileInputErrorHandler* handler, wxFile* openFile) {
  switch (type) {
    case MU_INPUTFILE_IN_MEMORY:
      return new MUConcreteInMemoryDataFile(openFile, file, true, handler);
    case MU_INPUTFILE_TXT_HEADERLESS:
      return new MUConcreteExperimentDataFileTxt(file, false, handler);
    case MU_INPUTFILE_TXT:
    case MU_INPUTFILE_TXT_ALTERNATE:
      break;
  }
  return new MUConcreteExperimentDataFileTxt(file, true, handler);
}

bool MUDataFileInputReaderFactory::MakesReadersLike(
    const MUInterfaceExperimentDataFileInputReader& reader) {
  return typeid(reader) == typeid(MUConcreteExperimentDataFileTxt) ||
         typeid(reader) == typeid(MUConcreteInMemoryDataFile);
}
