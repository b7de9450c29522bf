#include "tests/Tabulon/reading/TranslatedTexts.h"

#include <wx/filename.h>

#include "Tabulon/src/reading/MUConcreteExperimentDataFileTxt.h"
#include "Tabulon/src/reading/MUDataFileReports.h"
#include "Tabulon/src/reading/MUInterfaceDataFileInputErrorHandler.h"
#include "Tabulon/src/text/MUUtilitarianFunctions.h"

namespace {

using Reader = MUInterfaceExperimentDataFileInputReader;
using Txt = MUConcreteExperimentDataFileTxt;

class LastMessage : public MUInterfaceDataFileInputErrorHandler {
 public:
  void OnDataFileInputReports(std::list<Reader::DataFileInputError> reports) override {
    m_message = reports.back().message;
  }

  wxString m_message;
};

wxString Heading(int which) {
  return Reader::GetStandardizedDataFileStringValue(static_cast<Reader::STANDARD_STRING>(which));
}

wxString SuccessReport() {
  LastMessage handler;
  MUSendSuccess(&handler, wxString());
  return handler.m_message;
}

wxString ShortNameOfFileX() { return MUShortNameOf(wxFileName(wxT("/folder/x.y"))); }

}  // namespace

extern "C" __attribute__((visibility("default"))) void GetTranslatedTexts(TranslatedTexts* texts) {
  texts->madeAtLoad = {Reader::COL_HEAD_STRING_VALUE_WHEN_COLNAME_IS_MISSING,
                       Txt::USERFRIENDLY_ERROR_TEXT_FILE_TOO_LARGE,
                       Txt::USERFRIENDLY_ERROR_TEXT_NO_EXPERIMENT_NAME,
                       Txt::USERFRIENDLY_ERROR_TEXT_NO_PERSONNAME_NAME,
                       Txt::USERFRIENDLY_ERROR_TEXT_NO_OM_TIMESTAMP,
                       Txt::USERFRIENDLY_ERROR_TEXT_FILE_TOO_SHORT,
                       Txt::USERFRIENDLY_ERROR_TEXT_ZERO_COLUMN_NAMES,
                       Txt::USERFRIENDLY_ERROR_TEXT_TOO_MANY_COLUMNS,
                       SuccessReport()};
  for (const wxString& ordinal : MUUtilitarianFunctions::MUUTIL_WRITTEN_ORDINAL_NUMBER_TEXT) {
    texts->madeAtLoad.push_back(ordinal);
  }
  texts->trialVariablePattern = Txt::PARALLEL_ARRAY_OF_COL_PATTERNS_FOR_FLAGS[0];
  const wxString* const names = Txt::PARALLEL_ARRAY_OF_COL_PATTERNS_FOR_TYPES;
  texts->namesThatTheHostWrites.assign(names, names + 15);
  texts->heading = Heading;
  texts->shortNameOfFileX = ShortNameOfFileX;
}
