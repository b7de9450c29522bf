#include "Tabulon/src/reading/MUConcreteExperimentDataFileTxt.h"

#include <wx/convauto.h>
#include <wx/debug.h>
#include <wx/intl.h>

#include <vector>

#include "Tabulon/src/reading/MUDataFileColumns.h"
#include "Tabulon/src/reading/MUDataFileReports.h"
#include "Tabulon/src/reading/MUDataRowMaking.h"
#include "Tabulon/src/reading/MUEasyRedirectMinimalErrorLog.h"
#include "Tabulon/src/rows/MUColumnNamePlusProperties.h"
#include "Tabulon/src/rows/MUSingleRowDataPlusRowProperties.h"
#include "Tabulon/src/text/MUUtilitarianFunctions.h"

namespace {

const unsigned int NUMBER_OF_HEADER_LINES = 6;
const unsigned int LINE_OF_PARTICIPANT = 0;
const unsigned int LINE_OF_TITLE = 1;
const unsigned int LINE_OF_DATE = 2;
const unsigned int LINE_OF_FIRST_HEADINGS = 4;
const unsigned int LINE_OF_SECOND_HEADINGS = 5;

const std::uint64_t LARGEST_FILE = 1048576;

const std::uint32_t TYPE_NUMBER = 1;
const std::uint32_t TYPE_TEXT = 2;
const std::uint32_t TYPE_DATE_TIME = 3;

wxString Trimmed(wxString text) { return text.Trim(true).Trim(false); }

}  // namespace

const wxString MUConcreteExperimentDataFileTxt::SYMBOL_FOR_NEWLINE = wxT("\n");
const wxString MUConcreteExperimentDataFileTxt::OM_COL_TEXT_DELIMITER = wxT("\t");
const wxString
    MUConcreteExperimentDataFileTxt::WHITESPACE_MARKER_NECESSARY_TO_SIGNAL_A_CODE_COLUMN =
        wxT("\t");
const wxString MUConcreteExperimentDataFileTxt::CODE_VALUE_FOR_END_OF_ARRAY =
    wxT("<codeval>END_OF_LISTING</codeval>");

const wxString MUConcreteExperimentDataFileTxt::USERFRIENDLY_ERROR_TEXT_FILE_TOO_LARGE =
    wxGetTranslation(wxT("File too large.  This file is %u bytes in size.  Halvex Tabulon cannot "
                         "support opening such large files.  You may wish to split the file into "
                         "multiple smaller files and try again."));
const wxString MUConcreteExperimentDataFileTxt::USERFRIENDLY_ERROR_TEXT_NO_EXPERIMENT_NAME =
    wxGetTranslation(
        wxT("Input file is missing an experiment name.  The %s line of the file should "
            "contain the title of the experiment."));
const wxString MUConcreteExperimentDataFileTxt::USERFRIENDLY_ERROR_TEXT_NO_PERSONNAME_NAME =
    wxGetTranslation(
        wxT("Input file is missing a participant name.  The %s line of the file should "
            "contain the participant name for the experiment."));
const wxString MUConcreteExperimentDataFileTxt::USERFRIENDLY_ERROR_TEXT_NO_OM_TIMESTAMP =
    wxGetTranslation(
        wxT("Input file is missing information about the time the experiment was run.  "
            "The %s line of the file should contain this information."));
const wxString MUConcreteExperimentDataFileTxt::USERFRIENDLY_ERROR_TEXT_FILE_TOO_SHORT =
    wxGetTranslation(wxT("This file does not appear long enough to be a valid datafile.  There "
                         "should be %u lines of header information followed by one or more rows of "
                         "data."));
const wxString MUConcreteExperimentDataFileTxt::USERFRIENDLY_ERROR_TEXT_ZERO_COLUMN_NAMES =
    wxGetTranslation(wxT("This file does not appear to have any column headings.  There should be "
                         "column titles populated from row %u to row %u of the file."));
const wxString MUConcreteExperimentDataFileTxt::USERFRIENDLY_ERROR_TEXT_TOO_MANY_COLUMNS =
    wxGetTranslation(wxT("This file has too many cells beyond its column headings, or too many "
                         "column headings of one name."));

const wxString MUConcreteExperimentDataFileTxt::PARALLEL_ARRAY_OF_COL_PATTERNS_FOR_FLAGS[] = {
    SYMBOL_FOR_NEWLINE + wxGetTranslation(wxT("(Trial Variable)")),
    WHITESPACE_MARKER_NECESSARY_TO_SIGNAL_A_CODE_COLUMN + SYMBOL_FOR_NEWLINE,
    CODE_VALUE_FOR_END_OF_ARRAY};
const std::uint32_t MUConcreteExperimentDataFileTxt::PARALLEL_ARRAY_OF_COL_FLAGS[] = {
    MU_COL_FLAG_TRIAL_VARIABLE, MU_COL_FLAG_CODE_VALUE, 0};

// Not translated: these are the headings that the host writes. Also the columns, in this order, of a
// file without header.
const wxString MUConcreteExperimentDataFileTxt::PARALLEL_ARRAY_OF_COL_PATTERNS_FOR_TYPES[] = {
    wxT("Participant") + SYMBOL_FOR_NEWLINE + wxT("Group"),
    wxT("Participant") + SYMBOL_FOR_NEWLINE + wxT("Name"),
    wxT("Block") + SYMBOL_FOR_NEWLINE + wxT("Name"),
    wxT("Trial") + SYMBOL_FOR_NEWLINE + wxT("Name"),
    wxT("Event") + SYMBOL_FOR_NEWLINE + wxT("Name"),
    wxT("Participant") + SYMBOL_FOR_NEWLINE + wxT("Response"),
    wxT("Key"),
    wxT("Correct") + SYMBOL_FOR_NEWLINE + wxT("Response"),
    wxT("Error") + SYMBOL_FOR_NEWLINE + wxT("Code"),
    wxT("Reaction") + SYMBOL_FOR_NEWLINE + wxT("Time"),
    wxT("Reaction Time") + SYMBOL_FOR_NEWLINE + wxT("(Trial Variable)"),
    wxT("Font Color") + SYMBOL_FOR_NEWLINE + wxT("(Trial Variable)"),
    wxT("ISI Durations") + SYMBOL_FOR_NEWLINE + wxT("(Trial Variable)"),
    wxT("Screen Location") + SYMBOL_FOR_NEWLINE + wxT("(Trial Variable)"),
    wxT("Screen Location II") + SYMBOL_FOR_NEWLINE + wxT("(Trial Variable)"),
    CODE_VALUE_FOR_END_OF_ARRAY};
const std::uint32_t MUConcreteExperimentDataFileTxt::PARALLEL_ARRAY_OF_COL_TYPES[] = {
    TYPE_TEXT,   TYPE_TEXT, TYPE_TEXT,   TYPE_TEXT,   TYPE_TEXT, TYPE_TEXT,   TYPE_TEXT,
    TYPE_TEXT,   TYPE_TEXT, TYPE_NUMBER, TYPE_NUMBER, TYPE_TEXT, TYPE_NUMBER, TYPE_NUMBER,
    TYPE_NUMBER, 0};

MUConcreteExperimentDataFileTxt::MUConcreteExperimentDataFileTxt(
    const wxFileName& file, bool expectHeader, MUInterfaceDataFileInputErrorHandler* handler)
    : m_hasHeader(expectHeader),
      m_currentRow(0),
      m_dataRowCount(0),
      m_textFile(new MUDataTextFile(expectHeader ? NUMBER_OF_HEADER_LINES : 0, LARGEST_FILE)),
      m_columns(new Columns),
      m_columnsHandedOver(false),
      m_fileName(file),
      m_errorHandler(handler),
      m_reactionTimeHeading(GetStandardizedDataFileStringValue(RTIME_COLUMN_HEADING)),
      m_reactionTimePosition(MUDataFileBlock::NOT_FOUND),
      m_places(sizeof(MUSingleRowDataPlusRowProperties)),
      m_errorPresent(false) {
  OpenSimpleTextFile(file);
  if (m_errorPresent) return;
  ExtractHeaderInformation();
  if (m_errorPresent) return;
  DoColumnHeadings(*m_columns);
  if (m_errorPresent) return;
  PrepareForRows();
  if (m_errorPresent) return;
  SendSuccessMessage();
}

MUConcreteExperimentDataFileTxt::~MUConcreteExperimentDataFileTxt() {
  if (!m_columnsHandedOver) {
    for (MUColumnNamePlusProperties* column : *m_columns) delete column;
    delete m_columns;
  }
  m_textFile->Close();
  delete m_textFile;
}

void MUConcreteExperimentDataFileTxt::OpenSimpleTextFile(const wxFileName& file) {
  m_fullPath = file.GetFullPath();
  if (m_textFile->IsOpened()) m_textFile->Close();
  MUEasyRedirectMinimalErrorLog log;
  {
    // No message box may come up from a file that does not open.
    const MUActiveLogTarget redirection(&log);
    m_textFile->Open(m_fullPath, wxConvAuto());
  }
  if (m_textFile->IsTooLarge()) {
    SendOneErrorMessageToCallbackObject(
        MU_INPUT_FILE_TOO_LARGE,
        wxString::Format(USERFRIENDLY_ERROR_TEXT_FILE_TOO_LARGE,
                         static_cast<unsigned int>(m_textFile->Size() & 0xFFFFFFFFu)),
        m_fullPath);
  } else if (!m_textFile->IsOpened()) {
    SendGeneralizedMessagesThatOriginatedInWxWidgetsCode(log.CollectMessages(), m_fullPath);
  }
}

void MUConcreteExperimentDataFileTxt::ExtractHeaderInformation() {
  m_fullPath = m_textFile->GetName();
  m_shortName = MUShortNameOf(m_fileName);
  const std::size_t lineCount = m_textFile->Lines().Count();
  if (m_hasHeader) {
    const auto reportMissing = [this](const wxString& text, unsigned int line) {
      SendOneErrorMessageToCallbackObject(
          MU_INPUT_BAD_FORMAT,
          wxString::Format(text, MUUtilitarianFunctions::GetWrittenOrdinalTextForInteger(line)),
          m_fullPath);
    };
    const std::vector<wxString>& header = m_textFile->Lines().header;
    if (lineCount <= LINE_OF_TITLE) {
      m_experimentTitle.clear();
      reportMissing(USERFRIENDLY_ERROR_TEXT_NO_EXPERIMENT_NAME, LINE_OF_TITLE);
      return;
    }
    m_experimentTitle = Trimmed(header[LINE_OF_TITLE]);
    if (lineCount <= LINE_OF_PARTICIPANT) {
      reportMissing(USERFRIENDLY_ERROR_TEXT_NO_PERSONNAME_NAME, LINE_OF_PARTICIPANT);
      return;
    }
    m_participantName = Trimmed(header[LINE_OF_PARTICIPANT]);
    if (lineCount <= LINE_OF_DATE) {
      m_experimentDateTime.clear();
      reportMissing(USERFRIENDLY_ERROR_TEXT_NO_OM_TIMESTAMP, LINE_OF_DATE);
      return;
    }
    m_experimentDateTime = header[LINE_OF_DATE];
  }
  m_textFile->Lines().block->SetHiddenCells(
      {{STRING_FOR_PERSONNAME_SECRET_COL, m_participantName},
       {STRING_FOR_FILENAME_SECRET_COL, m_fullPath},
       {STRING_FOR_SHORTNAME_SECRET_COL, m_shortName},
       {STRING_FOR_EXPERIMENT_SECRET_COL, m_experimentTitle},
       {STRING_FOR_EXP_DATETIME_SECRET_COL, m_experimentDateTime}});
  m_dataRowCount = static_cast<std::uint32_t>(m_textFile->Lines().block->RowCount());
}

void MUConcreteExperimentDataFileTxt::DoColumnHeadings(Columns& all) {
  if (!m_hasHeader) {
    DoHardCodedColumnHeadings();
    return;
  }
  if (m_textFile->Lines().Count() <= NUMBER_OF_HEADER_LINES) {
    SendOneErrorMessageToCallbackObject(
        MU_INPUT_BAD_FORMAT,
        wxString::Format(USERFRIENDLY_ERROR_TEXT_FILE_TOO_SHORT, NUMBER_OF_HEADER_LINES),
        m_fullPath);
    return;
  }
  const wxString wordsOfAssertion = MUWordsForNonEmptyColumns(m_fileName.GetFullPath());
  wxUnusedVar(wordsOfAssertion);

  const auto make = [this](const wxString& name) {
    MUColumnNamePlusProperties* made = nullptr;
    MakeOneNewColumn(&made, name, m_fullPath, 0);
    return made;
  };
  const std::vector<wxString>& header = m_textFile->Lines().header;
  MUAddFirstHeadingRow(MUSplitAtTabs(header[LINE_OF_FIRST_HEADINGS]), make, all);
  MUAddSecondHeadingRow(MUSplitAtTabs(header[LINE_OF_SECOND_HEADINGS]), make, all);
  if (all.empty()) {
    SendOneErrorMessageToCallbackObject(
        MU_INPUT_BAD_FORMAT,
        wxString::Format(USERFRIENDLY_ERROR_TEXT_ZERO_COLUMN_NAMES, LINE_OF_FIRST_HEADINGS,
                         LINE_OF_SECOND_HEADINGS),
        m_fullPath);
    return;
  }
  // Flags and types go by the raw names, which still tell a column without a first heading.
  MarkColumnsWithFlags(all);
  MarkColumnsWithDataType(all);
  EliminateDuplicatesAndCleanUpColumnNames(all);
}

void MUConcreteExperimentDataFileTxt::DoHardCodedColumnHeadings() {
  for (std::size_t i = 0;
       PARALLEL_ARRAY_OF_COL_PATTERNS_FOR_TYPES[i] != CODE_VALUE_FOR_END_OF_ARRAY; ++i) {
    MUColumnNamePlusProperties* column = nullptr;
    MakeOneNewColumn(&column, PARALLEL_ARRAY_OF_COL_PATTERNS_FOR_TYPES[i], m_fullPath, 0);
    column->m_dataType = static_cast<std::int32_t>(PARALLEL_ARRAY_OF_COL_TYPES[i]);
    m_columns->push_back(column);
    m_namesInUse.Add(column->m_columnName);
  }
  MarkColumnsWithFlags(*m_columns);
}

void MUConcreteExperimentDataFileTxt::MarkColumnsWithFlags(Columns& all) {
  for (MUColumnNamePlusProperties* column : all) {
    for (std::size_t i = 0;
         PARALLEL_ARRAY_OF_COL_PATTERNS_FOR_FLAGS[i] != CODE_VALUE_FOR_END_OF_ARRAY; ++i) {
      if (column->m_columnName.Contains(PARALLEL_ARRAY_OF_COL_PATTERNS_FOR_FLAGS[i])) {
        column->m_columnPropertyFlags |= PARALLEL_ARRAY_OF_COL_FLAGS[i];
      }
    }
  }
}

void MUConcreteExperimentDataFileTxt::MarkColumnsWithDataType(Columns& all) {
  for (MUColumnNamePlusProperties* column : all) {
    const wxString& name = column->m_columnName;
    std::uint32_t type = TYPE_TEXT;
    if (name == STRING_FOR_EXP_DATETIME_SECRET_COL) type = TYPE_DATE_TIME;
    for (std::size_t i = 0;
         PARALLEL_ARRAY_OF_COL_PATTERNS_FOR_TYPES[i] != CODE_VALUE_FOR_END_OF_ARRAY; ++i) {
      if (name != PARALLEL_ARRAY_OF_COL_PATTERNS_FOR_TYPES[i]) continue;
      type = PARALLEL_ARRAY_OF_COL_TYPES[i] != 0 ? PARALLEL_ARRAY_OF_COL_TYPES[i] : TYPE_TEXT;
      break;
    }
    column->m_dataType = static_cast<std::int32_t>(type);
  }
}

void MUConcreteExperimentDataFileTxt::EliminateDuplicatesAndCleanUpColumnNames(Columns& all) {
  if (!MUTrimNamesAndMakeThemUnique(all, &m_namesInUse)) {
    SendOneErrorMessageToCallbackObject(MU_INPUT_FILE_TOO_LARGE,
                                        USERFRIENDLY_ERROR_TEXT_TOO_MANY_COLUMNS, m_fullPath);
    return;
  }
  if (all.empty()) {
    SendOneErrorMessageToCallbackObject(
        MU_INPUT_BAD_FORMAT,
        wxString::Format(USERFRIENDLY_ERROR_TEXT_ZERO_COLUMN_NAMES, LINE_OF_FIRST_HEADINGS,
                         LINE_OF_SECOND_HEADINGS),
        m_fullPath);
  }
}

// Tells the block what its rows need to know of the columns.
void MUConcreteExperimentDataFileTxt::PrepareForRows() {
  MUDataFileBlock& block = *m_textFile->Lines().block;
  if (MUHasTooManyCellsBeyondColumns(block, m_columns->size())) {
    SendOneErrorMessageToCallbackObject(MU_INPUT_FILE_TOO_LARGE,
                                        USERFRIENDLY_ERROR_TEXT_TOO_MANY_COLUMNS, m_fullPath);
    return;
  }
  MUNameColumnsOfBlock(*m_columns, &block);
  m_reactionTimePosition = block.PositionOf(m_reactionTimeHeading);
}

void MUConcreteExperimentDataFileTxt::MakeOneNewColumn(MUColumnNamePlusProperties** made,
                                                       const wxString& name,
                                                       const wxString& nameOfFile,
                                                       short suppressed) {
  *made = MUNewColumn(name, nameOfFile, suppressed);
}

double MUConcreteExperimentDataFileTxt::CalculateSortableNumericHashFromString(
    const wxString& text) {
  return MUSortableNumericHash(text);
}

void MUConcreteExperimentDataFileTxt::SendOneErrorMessageToCallbackObject(
    INPUT_ERROR code, const wxString& message, const wxString& filePath) {
  m_errorPresent = true;
  MUSendReport(m_errorHandler, code, message, filePath);
}

void MUConcreteExperimentDataFileTxt::SendGeneralizedMessagesThatOriginatedInWxWidgetsCode(
    const std::list<wxString>& messages, const wxString& filePath) {
  m_errorPresent = true;
  MUSendLibraryMessages(m_errorHandler, messages, filePath);
}

void MUConcreteExperimentDataFileTxt::SendSuccessMessage() {
  MUSendSuccess(m_errorHandler, m_fullPath);
}

std::deque<MUColumnNamePlusProperties*>*
MUConcreteExperimentDataFileTxt::CreateAndReturnPositionallyOrderedColumnObjects() {
  m_columnsHandedOver = true;
  return m_columns;
}

MUSingleRowDataPlusRowProperties* MUConcreteExperimentDataFileTxt::CreateAndReturnCurrentRowObject(
    bool advance) {
  // A negative cursor is above every count as well.
  if (m_currentRow >= m_dataRowCount || m_errorPresent) return nullptr;
  const MUDataFileBlockPtr& block = m_textFile->Lines().block;
  if (MUHasCellsBeyondHeadings(*block, m_currentRow)) {
    const auto make = [this](const wxString& name) {
      MUColumnNamePlusProperties* made = nullptr;
      MakeOneNewColumn(&made, name, m_fullPath, 0);
      return made;
    };
    MUAppendColumnsForCellsBeyondHeadings(block.get(), m_currentRow, &m_namesInUse, make,
                                          m_columnsHandedOver ? nullptr : m_columns);
  }
  MUSingleRowDataPlusRowProperties* row =
      MUNewRow(block, m_currentRow, m_reactionTimePosition, &m_places);
  if (advance) ++m_currentRow;
  return row;
}
