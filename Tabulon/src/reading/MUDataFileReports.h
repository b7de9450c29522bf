// What both readers send to the handler of reports.
#ifndef OMBRELIA_TABULON_SRC_READING_MUDATAFILEREPORTS_H
#define OMBRELIA_TABULON_SRC_READING_MUDATAFILEREPORTS_H

#include <wx/string.h>

#include <list>

#include "Tabulon/src/reading/MUInterfaceExperimentDataFileInputReader.h"

class wxFileName;
class MUInterfaceDataFileInputErrorHandler;

// The file's name and extension without folder, with a dot between them also if there is no extension.
wxString MUShortNameOf(const wxFileName& file);

// Each sends one list of reports; a null handler means that nothing is sent.
void MUSendReport(MUInterfaceDataFileInputErrorHandler* handler,
                  MUInterfaceExperimentDataFileInputReader::INPUT_ERROR code,
                  const wxString& message, const wxString& filePath);
void MUSendLibraryMessages(MUInterfaceDataFileInputErrorHandler* handler,
                           const std::list<wxString>& messages, const wxString& filePath);
void MUSendSuccess(MUInterfaceDataFileInputErrorHandler* handler, const wxString& filePath);

#endif
