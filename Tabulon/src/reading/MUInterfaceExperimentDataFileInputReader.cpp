#include "Tabulon/src/reading/MUInterfaceExperimentDataFileInputReader.h"

#include <wx/intl.h>

const wxString
    MUInterfaceExperimentDataFileInputReader::COL_HEAD_STRING_VALUE_WHEN_COLNAME_IS_MISSING =
        wxGetTranslation(wxT("[Missing\nCol Name]"));
const wxString MUInterfaceExperimentDataFileInputReader::STRING_FOR_PERSONNAME_SECRET_COL =
    wxT("PNPNPN_PNPNPN_01zx");
const wxString MUInterfaceExperimentDataFileInputReader::STRING_FOR_FILENAME_SECRET_COL =
    wxT("FFFFF1");
const wxString MUInterfaceExperimentDataFileInputReader::STRING_FOR_SHORTNAME_SECRET_COL =
    wxT("SFSFSF1");
const wxString MUInterfaceExperimentDataFileInputReader::STRING_FOR_EXPERIMENT_SECRET_COL =
    wxT("EXPEXPEXPEXPEXP");
const wxString MUInterfaceExperimentDataFileInputReader::STRING_FOR_EXP_DATETIME_SECRET_COL =
    wxT("EXPDT_EXPDT_EXPDT_");

MUInterfaceExperimentDataFileInputReader::~MUInterfaceExperimentDataFileInputReader() = default;

const wxString& MUInterfaceExperimentDataFileInputReader::GetStandardizedDataFileStringValue(
    STANDARD_STRING which) {
  static const wxString BLOCK_HEADING = wxGetTranslation(wxT("Block\nName"));
  static const wxString TRIAL_HEADING = wxGetTranslation(wxT("Trial\nName"));
  static const wxString ERROR_HEADING = wxGetTranslation(wxT("Error\nCode"));
  static const wxString RTIME_HEADING = wxGetTranslation(wxT("Reaction\nTime"));
  static const wxString INVALID_RESULT = wxGetTranslation(wxString());
  switch (which) {
    case BLOCK_COLUMN_HEADING:
      return BLOCK_HEADING;
    case TRIAL_COLUMN_HEADING:
      return TRIAL_HEADING;
    case ERROR_COLUMN_HEADING:
      return ERROR_HEADING;
    case RTIME_COLUMN_HEADING:
      return RTIME_HEADING;
  }
  return INVALID_RESULT;
}
