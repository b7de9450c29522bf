#include "Tabulon/src/reading/MUDataFileReports.h"

#include <wx/filename.h>
#include <wx/intl.h>

#include "Tabulon/src/reading/MUInterfaceDataFileInputErrorHandler.h"

using Reader = MUInterfaceExperimentDataFileInputReader;

namespace {

const wxString DOT = wxGetTranslation(wxT("."));
const wxString SUCCESS = wxGetTranslation(wxT("Success"));

}  // namespace

wxString MUShortNameOf(const wxFileName& file) { return file.GetName() + DOT + file.GetExt(); }

void MUSendReport(MUInterfaceDataFileInputErrorHandler* handler, Reader::INPUT_ERROR code,
                  const wxString& message, const wxString& filePath) {
  if (handler) handler->OnDataFileInputReports({{code, message, filePath}});
}

void MUSendLibraryMessages(MUInterfaceDataFileInputErrorHandler* handler,
                           const std::list<wxString>& messages, const wxString& filePath) {
  if (!handler) return;
  std::list<Reader::DataFileInputError> reports;
  for (const wxString& message : messages) {
    reports.push_back({Reader::MU_INPUT_LIBRARY_MESSAGE, message, filePath});
  }
  handler->OnDataFileInputReports(reports);
}

void MUSendSuccess(MUInterfaceDataFileInputErrorHandler* handler, const wxString& filePath) {
  MUSendReport(handler, Reader::MU_INPUT_SUCCESS, SUCCESS, filePath);
}
