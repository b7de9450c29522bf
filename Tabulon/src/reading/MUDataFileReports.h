// What both readers send to the handler of reports.
//
// Cost: a list of the reports, and what the handler does. Lifetime: all arguments are borrowed for the call.
// Threads: the handler is called on the thread that calls. Failure: throws std::bad_alloc and what the handler throws.
#ifndef OMBRELIA_TABULON_SRC_READING_MUDATAFILEREPORTS_H
#define OMBRELIA_TABULON_SRC_READING_MUDATAFILEREPORTS_H

#include <wx/string.h>

#include <list>

#include "Tabulon/src/reading/MUInterfaceExperimentDataFileInputReader.h"

class wxFileName;
class MUInterfaceDataFileInputErrorHandler;

// The file's name and extension without folder, with a dot between them also if there is no extension.
wxString MUShortNameOf(const wxFileName& file);

// Each sends one list of reports to the handler, or nothing if that is null: one report, one for each message in
// their order, or the report of a good file.
void MUSendReport(MUInterfaceDataFileInputErrorHandler* handler,
                  MUInterfaceExperimentDataFileInputReader::INPUT_ERROR code,
                  const wxString& message, const wxString& filePath);
void MUSendLibraryMessages(MUInterfaceDataFileInputErrorHandler* handler,
                           const std::list<wxString>& messages, const wxString& filePath);
void MUSendSuccess(MUInterfaceDataFileInputErrorHandler* handler, const wxString& filePath);

#endif
