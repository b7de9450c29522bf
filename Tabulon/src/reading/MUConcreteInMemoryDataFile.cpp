#include "Tabulon/src/reading/MUConcreteInMemoryDataFile.h"

#include <wx/debug.h>
#include <wx/file.h>
#include <wx/filename.h>
#include <wx/log.h>

#include <algorithm>
#include <new>
#include <stdexcept>
#include <vector>

#include "Tabulon/src/reading/MUDataFileColumns.h"
#include "Tabulon/src/reading/MUDataFileReports.h"
#include "Tabulon/src/reading/MUDataRowMaking.h"
#include "Tabulon/src/reading/MUDecodedText.h"
#include "Tabulon/src/reading/MUFileBytes.h"
#include "Tabulon/src/reading/MULineEnds.h"
#include "Tabulon/src/rows/MUColumnNamePlusProperties.h"
#include "Tabulon/src/rows/MUDataFileBlockBuilder.h"
#include "Tabulon/src/rows/MUSingleRowDataPlusRowProperties.h"
#include "Tabulon/src/text/MUCellSplitting.h"
#include "Tabulon/src/text/MUPlainTextScan.h"

namespace {

const std::size_t NUMBER_OF_HEADER_LINES = 6;
const std::size_t LINE_OF_PARTICIPANT = 0;
const std::size_t LINE_OF_TITLE = 1;
const std::size_t LINE_OF_DATE = 2;
const std::size_t LINE_OF_FIRST_HEADINGS = 4;
const std::size_t LINE_OF_SECOND_HEADINGS = 5;

const std::size_t LARGEST_PIECE_OF_READING = 4096;

wxString Trimmed(wxString text) { return text.Trim(true).Trim(false); }

// The destructor restores a file's position.
class PositionKeeper {
 public:
  explicit PositionKeeper(wxFile* file)
      : m_file(file), m_position(file ? file->Tell() : wxFileOffset(wxInvalidOffset)) {}
  ~PositionKeeper() {
    // A file without positions, such as a pipe, has none to go back to.
    if (m_position != wxInvalidOffset) m_file->Seek(m_position);
  }
  PositionKeeper(const PositionKeeper&) = delete;
  PositionKeeper& operator=(const PositionKeeper&) = delete;

 private:
  wxFile* const m_file;
  const wxFileOffset m_position;
};

// False if the length cannot be had, if a read fails, or if there is more than can be held.
bool ReadAllBytes(wxFile* file, std::size_t largestText, MUPoolVector<char>* bytes) {
  const wxFileOffset length = file ? file->Length() : wxFileOffset(wxInvalidOffset);
  if (length < 0 || static_cast<std::uint64_t>(length) > largestText) {
    return false;
  }
  const auto most = static_cast<std::size_t>(length);
  return MUReadBytes(*file, most, most, LARGEST_PIECE_OF_READING, bytes);
}

template <typename CHAR>
bool HasDosLineEnd(const CHAR* text, const CHAR* textEnd) {
  MULineEnds<CHAR> ends(text, textEnd);
  for (;;) {
    text = ends.NextReturn(text);
    if (text == textEnd || ++text == textEnd) return false;
    if (*text == CHAR('\n')) return true;
  }
}

// Calls take(begin, end) for each line of the text, its terminator included: the tokens that
// wxStringTokenizer finds in mode wxTOKEN_RET_DELIMS, without those that a bare line feed ends in a text with a
// CR LF. As the tokenizer does, leaves out tokens of delimiters alone at the text's end, unless there is nothing
// else; then the first one counts.
template <typename CHAR, typename TAKE>
void ForEachLine(const CHAR* text, const CHAR* textEnd, const TAKE& take) {
  const bool isDosFile = HasDosLineEnd(text, textEnd);
  const CHAR* lastWords = textEnd;
  while (lastWords != text &&
         (lastWords[-1] == CHAR('\n') || (isDosFile && lastWords[-1] == CHAR('\r')))) {
    --lastWords;
  }
  MULineEnds<CHAR> ends(text, textEnd);
  for (const CHAR* begin = text; begin < lastWords || (begin == text && begin != textEnd);) {
    const CHAR* delimiter = isDosFile ? ends.Next(begin) : ends.NextFeed(begin);
    const CHAR* end = delimiter == textEnd ? textEnd : delimiter + 1;
    if (!isDosFile || end[-1] == CHAR('\r')) take(begin, end);
    begin = end;
  }
}

// False if a line is too long to be stored.
template <typename CHAR>
bool TakeLines(const MUPoolVector<CHAR>& text, MUDataFileBlockBuilder* builder,
               MUDataFileLines* lines) {
  bool allStored = true;
  ForEachLine(text.data(), text.data() + text.size(), [&](const CHAR* begin, const CHAR* end) {
    if (lines->header.size() < NUMBER_OF_HEADER_LINES) {
      lines->header.push_back(MUCellText(begin, static_cast<std::size_t>(end - begin)).ToString());
    } else {
      allStored = allStored && builder->AppendRow(begin, end);
    }
  });
  lines->block = builder->Take();
  return allStored;
}

template <typename CHAR>
bool TakeMeasuredLines(const MUPoolVector<CHAR>& text, std::size_t largestText,
                       MUDataFileLines* lines) {
  using Builder = MUDataFileBlockBuilder;
  MUVisibleMeasure measure;
  measure.Add(text.data(), text.data() + text.size());
  const auto feeds = static_cast<std::size_t>(std::count(text.begin(), text.end(), CHAR('\n')));
  Builder builder(measure.isNarrow ? Builder::Width::NARROW : Builder::Width::WIDE, largestText);
  builder.Reserve(measure.characters, feeds + 1, measure.tabs + feeds + 1);
  return TakeLines(text, &builder, lines);
}

// May use the bytes up.
bool TakeLinesOfBytes(MUPoolVector<char>& bytes, std::size_t largestText, MUDataFileLines* lines) {
  using Builder = MUDataFileBlockBuilder;
  MUPlainTextMeasure plain;
  if (MUMeasurePlainText(bytes.data(), bytes.size(), &plain)) {
    // The conversion would give the same characters. A terminator becomes two.
    const std::size_t lineCount = plain.lineFeeds + 1;
    Builder builder(Builder::Width::NARROW, largestText);
    builder.Reserve(bytes.size() + lineCount, lineCount, plain.tabs + lineCount);
    return TakeLines(bytes, &builder, lines);
  }
  const MUDecodedText text = MUDecode(bytes);
  MUPoolVector<char>().swap(bytes);
  return text.wide.empty() ? TakeMeasuredLines(text.narrow, largestText, lines)
                           : TakeMeasuredLines(text.wide, largestText, lines);
}

}  // namespace

MUConcreteInMemoryDataFile::MUConcreteInMemoryDataFile(
    wxFile* file, const wxFileName& name, bool, MUInterfaceDataFileInputErrorHandler* handler,
    std::size_t largestText)
    : m_fullPath(name.GetFullPath()),
      m_shortName(MUShortNameOf(name)),
      m_currentRow(0),
      m_dataRowCount(0),
      m_largestText(largestText),
      m_columns(new Columns),
      m_columnsHandedOver(false),
      m_errorHandler(handler),
      m_reactionTimeHeading(GetStandardizedDataFileStringValue(RTIME_COLUMN_HEADING)),
      m_reactionTimePosition(MUDataFileBlock::NOT_FOUND),
      m_places(sizeof(MUSingleRowDataPlusRowProperties)),
      m_errorPresent(false) {
  try {
    Load(file);
  } catch (const std::bad_alloc&) {
    ReportTooLarge();
  } catch (const std::length_error&) {
    ReportTooLarge();
  }
  if (!m_errorPresent) SendSuccessMessage();
}

// Stops at the first error.
void MUConcreteInMemoryDataFile::Load(wxFile* file) {
  {
    const PositionKeeper keeper(file);
    if (!file || file->Seek(0) == wxInvalidOffset) wxLogFatalError(wxT("Seek failed"));
    PopulateLinesCollection(file);
  }
  if (m_errorPresent) return;
  ExtractHeaderInformation();
  if (m_errorPresent) return;
  DoColumnHeadings(*m_columns);
  if (m_errorPresent) return;
  PrepareForRows();
}

MUConcreteInMemoryDataFile::~MUConcreteInMemoryDataFile() {
  if (m_columnsHandedOver) return;
  for (MUColumnNamePlusProperties* column : *m_columns) delete column;
  delete m_columns;
}

void MUConcreteInMemoryDataFile::PopulateLinesCollection(wxFile* file) {
  MUPoolVector<char> bytes;
  if (!ReadAllBytes(file, m_largestText, &bytes)) {
    // Should that return, the file counts as empty.
    wxLogFatalError(wxT("Failed to slurp into string."));
  } else if (!TakeLinesOfBytes(bytes, m_largestText, &m_lines)) {
    ReportTooLarge();
  }
}

// For a file that was read and cannot be held.
void MUConcreteInMemoryDataFile::ReportTooLarge() {
  m_lines = MUDataFileLines();
  m_dataRowCount = 0;
  SendOneErrorMessageToCallbackObject(MU_INPUT_FILE_TOO_LARGE, wxT("file too large"), m_fullPath);
}

void MUConcreteInMemoryDataFile::ExtractHeaderInformation() {
  const std::size_t lineCount = m_lines.Count();
  if (lineCount <= 1) {
    SendOneErrorMessageToCallbackObject(MU_INPUT_BAD_FORMAT, wxT("missing exp name"), m_fullPath);
    m_experimentTitle.clear();
    return;
  }
  m_experimentTitle = Trimmed(m_lines.header[LINE_OF_TITLE]);
  m_participantName = Trimmed(m_lines.header[LINE_OF_PARTICIPANT]);
  if (lineCount == 2) {
    SendOneErrorMessageToCallbackObject(MU_INPUT_BAD_FORMAT, wxT("missing date"), m_fullPath);
    m_experimentDateTime.clear();
    return;
  }
  m_experimentDateTime = m_lines.header[LINE_OF_DATE];
  m_dataRowCount = static_cast<std::uint32_t>(m_lines.block->RowCount());
}

void MUConcreteInMemoryDataFile::DoColumnHeadings(Columns& all) {
  if (m_lines.Count() <= NUMBER_OF_HEADER_LINES) {
    SendOneErrorMessageToCallbackObject(MU_INPUT_BAD_FORMAT, wxT("file too short"), m_fullPath);
    return;
  }
  const wxString wordsOfAssertion = MUWordsForNonEmptyColumns(m_fullPath);
  wxUnusedVar(wordsOfAssertion);

  const auto make = [this](const wxString& name) {
    MUColumnNamePlusProperties* made = nullptr;
    MakeOneNewColumn(&made, name, m_fullPath, 0);
    return made;
  };
  // Trimming takes off the line's terminator.
  const auto cellsOf = [this](std::size_t line) {
    std::vector<wxString> cells = MUSplitAtTabs(m_lines.header[line]);
    for (wxString& cell : cells) cell.Trim(true);
    return cells;
  };
  MUAddFirstHeadingRow(cellsOf(LINE_OF_FIRST_HEADINGS), make, all);
  MUAddSecondHeadingRow(cellsOf(LINE_OF_SECOND_HEADINGS), make, all);
  if (all.empty()) {
    SendOneErrorMessageToCallbackObject(MU_INPUT_BAD_FORMAT, wxT("no column names"), m_fullPath);
    return;
  }
  EliminateDuplicatesAndCleanUpColumnNames(all);
}

void MUConcreteInMemoryDataFile::EliminateDuplicatesAndCleanUpColumnNames(Columns& all) {
  if (!MUTrimNamesAndMakeThemUnique(all, &m_namesInUse)) {
    SendOneErrorMessageToCallbackObject(MU_INPUT_FILE_TOO_LARGE, wxT("too many columns"),
                                        m_fullPath);
    return;
  }
  if (all.empty()) {
    SendOneErrorMessageToCallbackObject(MU_INPUT_BAD_FORMAT, wxT("Missing Header"), m_fullPath);
  }
}

// Tells the block what its rows need to know of the columns.
void MUConcreteInMemoryDataFile::PrepareForRows() {
  if (MUHasTooManyCellsBeyondColumns(*m_lines.block, m_columns->size())) {
    SendOneErrorMessageToCallbackObject(MU_INPUT_FILE_TOO_LARGE, wxT("too many columns"),
                                        m_fullPath);
    return;
  }
  MUNameColumnsOfBlock(*m_columns, m_lines.block.get());
  m_reactionTimePosition = m_lines.block->PositionOf(m_reactionTimeHeading);
}

void MUConcreteInMemoryDataFile::MakeOneNewColumn(MUColumnNamePlusProperties** made,
                                                  const wxString& name, const wxString& nameOfFile,
                                                  short suppressed) {
  *made = MUNewColumn(name, nameOfFile, suppressed);
}

double MUConcreteInMemoryDataFile::CalculateSortableNumericHashFromString(const wxString& text) {
  return MUSortableNumericHash(text);
}

void MUConcreteInMemoryDataFile::SendOneErrorMessageToCallbackObject(INPUT_ERROR code,
                                                                     const wxString& message,
                                                                     const wxString& filePath) {
  m_errorPresent = true;
  MUSendReport(m_errorHandler, code, message, filePath);
}

void MUConcreteInMemoryDataFile::SendGeneralizedMessagesThatOriginatedInWxWidgetsCode(
    const std::list<wxString>& messages, const wxString& filePath) {
  m_errorPresent = true;
  MUSendLibraryMessages(m_errorHandler, messages, filePath);
}

void MUConcreteInMemoryDataFile::SendSuccessMessage() { MUSendSuccess(m_errorHandler, m_fullPath); }

std::deque<MUColumnNamePlusProperties*>*
MUConcreteInMemoryDataFile::CreateAndReturnPositionallyOrderedColumnObjects() {
  m_columnsHandedOver = true;
  return m_columns;
}

MUSingleRowDataPlusRowProperties* MUConcreteInMemoryDataFile::CreateAndReturnCurrentRowObject(
    bool advance) {
  // A negative cursor is above every count as well.
  if (m_currentRow >= m_dataRowCount || m_errorPresent) return nullptr;
  if (MUHasCellsBeyondHeadings(*m_lines.block, m_currentRow)) {
    const auto make = [this](const wxString& name) {
      MUColumnNamePlusProperties* made = nullptr;
      MakeOneNewColumn(&made, name, m_fullPath, 0);
      return made;
    };
    MUAppendColumnsForCellsBeyondHeadings(m_lines.block.get(), m_currentRow, &m_namesInUse, make,
                                          m_columnsHandedOver ? nullptr : m_columns);
  }
  MUSingleRowDataPlusRowProperties* row =
      MUNewRow(m_lines.block, m_currentRow, m_reactionTimePosition, &m_places);
  if (advance) ++m_currentRow;
  return row;
}
