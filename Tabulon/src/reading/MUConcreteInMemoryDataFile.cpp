#include "Tabulon/src/reading/MUConcreteInMemoryDataFile.h"

#include <wx/convauto.h>
#include <wx/debug.h>
#include <wx/file.h>
#include <wx/filename.h>
#include <wx/log.h>

#include <algorithm>
#include <string>
#include <vector>

#include "Tabulon/src/reading/MUDataFileColumns.h"
#include "Tabulon/src/reading/MUDataFileReports.h"
#include "Tabulon/src/reading/MUDataRowMaking.h"
#include "Tabulon/src/rows/MUColumnNamePlusProperties.h"
#include "Tabulon/src/rows/MUDataFileBlockBuilder.h"
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

// False if the length cannot be had or a read fails.
bool ReadAllBytes(wxFile* file, MUPoolVector<char>* bytes) {
  const wxFileOffset length = file ? file->Length() : wxFileOffset(wxInvalidOffset);
  if (length == wxInvalidOffset) return false;
  bytes->resize(static_cast<std::size_t>(length));
  std::size_t filled = 0;
  while (filled < bytes->size()) {
    const std::size_t piece = std::min(bytes->size() - filled, LARGEST_PIECE_OF_READING);
    const ssize_t read = file->Read(bytes->data() + filled, piece);
    if (read == wxInvalidOffset) return false;
    if (read == 0) break;  // the file has become shorter
    filled += static_cast<std::size_t>(read);
  }
  bytes->resize(filled);
  return true;
}

// The first such character, or end.
template <typename Char>
const Char* Find(const Char* begin, const Char* end, char character) {
  const auto length = static_cast<std::size_t>(end - begin);
  const Char* found = std::char_traits<Char>::find(begin, length, Char(character));
  return found ? found : end;
}

template <typename Char>
bool HasDosLineEnd(const Char* text, const Char* textEnd) {
  for (;;) {
    text = Find(text, textEnd, '\r');
    if (text == textEnd || ++text == textEnd) return false;
    if (*text == Char('\n')) return true;
  }
}

// Calls take(begin, end) for each line of the text, its terminator included: the tokens that
// wxStringTokenizer finds in mode wxTOKEN_RET_DELIMS, without those that a bare line feed ends in a
// text with a CR LF. As the tokenizer does, leaves out tokens of delimiters alone at the text's end,
// unless there is nothing else; then the first one counts.
template <typename Char, typename Take>
void ForEachLine(const Char* text, const Char* textEnd, const Take& take) {
  const bool isDosFile = HasDosLineEnd(text, textEnd);
  const Char* lastWords = textEnd;
  while (lastWords != text &&
         (lastWords[-1] == Char('\n') || (isDosFile && lastWords[-1] == Char('\r')))) {
    --lastWords;
  }
  for (const Char* begin = text; begin < lastWords || (begin == text && begin != textEnd);) {
    const Char* delimiter = Find(begin, textEnd, '\n');
    if (isDosFile) delimiter = Find(begin, delimiter, '\r');
    const Char* end = delimiter == textEnd ? textEnd : delimiter + 1;
    if (!isDosFile || end[-1] == Char('\r')) take(begin, end);
    begin = end;
  }
}

// False if a line is too long to be stored.
template <typename Char>
bool TakeLines(const Char* text, const Char* textEnd, MUDataFileBlockBuilder* builder,
               MUDataFileLines* lines) {
  bool allStored = true;
  ForEachLine(text, textEnd, [&](const Char* begin, const Char* end) {
    if (lines->header.size() < NUMBER_OF_HEADER_LINES) {
      lines->header.push_back(MUCellText(begin, static_cast<std::size_t>(end - begin)).ToString());
    } else {
      allStored = builder->AppendRow(begin, end) && allStored;
    }
  });
  lines->block = builder->Take();
  return allStored;
}

bool TakeLinesOfBytes(const MUPoolVector<char>& bytes, MUDataFileLines* lines) {
  using Builder = MUDataFileBlockBuilder;
  MUPlainTextMeasure plain;
  if (MUMeasurePlainText(bytes.data(), bytes.size(), &plain)) {
    // The conversion would give the same characters. A terminator becomes two.
    const std::size_t lineCount = plain.lineFeeds + 1;
    Builder builder(Builder::Width::NARROW);
    builder.Reserve(bytes.size() + lineCount, lineCount, plain.tabs + lineCount);
    return TakeLines(bytes.data(), bytes.data() + bytes.size(), &builder, lines);
  }
  const wxString text(bytes.data(), wxConvAuto(), bytes.size());
  const auto wide = text.wc_str();
  const wchar_t* begin = wide;
  const wchar_t* end = begin + text.length();
  MUVisibleMeasure measure;
  measure.Add(begin, end);
  const auto lineCount = static_cast<std::size_t>(std::count(begin, end, wxT('\n'))) + 1;
  Builder builder(measure.isNarrow ? Builder::Width::NARROW : Builder::Width::WIDE);
  builder.Reserve(measure.characters, lineCount, measure.tabs + lineCount);
  return TakeLines(begin, end, &builder, lines);
}

}  // namespace

MUConcreteInMemoryDataFile::MUConcreteInMemoryDataFile(
    wxFile* file, const wxFileName& name, bool, MUInterfaceDataFileInputErrorHandler* handler)
    : fullPath(name.GetFullPath()),
      shortName(MUShortNameOf(name)),
      currentRow(0),
      dataRowCount(0),
      columns(nullptr),
      columnsHandedOver(false),
      errorHandler(handler),
      reactionTimeHeading(GetStandardizedDataFileStringValue(RTIME_COLUMN_HEADING)),
      reactionTimePosition(MUDataFileBlock::NOT_FOUND),
      errorPresent(false) {
  const wxFileOffset position = file ? file->Tell() : wxFileOffset(wxInvalidOffset);
  if (!file || file->Seek(0) == wxInvalidOffset) wxLogFatalError(wxT("Seek failed"));
  PopulateLinesCollection(file);
  if (file) file->Seek(position);
  columns = new Columns;
  ExtractHeaderInformation();
  if (errorPresent) return;
  DoColumnHeadings(*columns);
  if (errorPresent) return;
  PrepareForRows();
  if (errorPresent) return;
  SendSuccessMessage();
}

MUConcreteInMemoryDataFile::~MUConcreteInMemoryDataFile() {
  if (columnsHandedOver) return;
  for (MUColumnNamePlusProperties* column : *columns) delete column;
  delete columns;
}

void MUConcreteInMemoryDataFile::PopulateLinesCollection(wxFile* file) {
  MUPoolVector<char> bytes;
  if (!ReadAllBytes(file, &bytes) || !TakeLinesOfBytes(bytes, &lines)) {
    wxLogFatalError(wxT("Failed to slurp into string."));
    // Should that return, the file counts as empty.
    lines = MUDataFileLines();
  }
}

void MUConcreteInMemoryDataFile::ExtractHeaderInformation() {
  const std::size_t lineCount = lines.Count();
  if (lineCount <= 1) {
    SendOneErrorMessageToCallbackObject(MU_INPUT_BAD_FORMAT, wxT("missing exp name"), fullPath);
    experimentTitle.clear();
    return;
  }
  experimentTitle = Trimmed(lines.header[LINE_OF_TITLE]);
  participantName = Trimmed(lines.header[LINE_OF_PARTICIPANT]);
  if (lineCount == 2) {
    SendOneErrorMessageToCallbackObject(MU_INPUT_BAD_FORMAT, wxT("missing date"), fullPath);
    experimentDateTime.clear();
    return;
  }
  experimentDateTime = lines.header[LINE_OF_DATE];
  dataRowCount = static_cast<std::uint32_t>(lines.block->RowCount());
}

void MUConcreteInMemoryDataFile::DoColumnHeadings(Columns& all) {
  if (lines.Count() <= NUMBER_OF_HEADER_LINES) {
    SendOneErrorMessageToCallbackObject(MU_INPUT_BAD_FORMAT, wxT("file too short"), fullPath);
    return;
  }
  const wxString wordsOfAssertion = MUWordsForNonEmptyColumns(fullPath);
  wxUnusedVar(wordsOfAssertion);

  const auto make = [this](const wxString& name) {
    MUColumnNamePlusProperties* made = nullptr;
    MakeOneNewColumn(&made, name, fullPath, 0);
    return made;
  };
  // Trimming takes off the line's terminator.
  const auto cellsOf = [this](std::size_t line) {
    std::vector<wxString> cells = MUSplitAtTabs(lines.header[line]);
    for (wxString& cell : cells) cell.Trim(true);
    return cells;
  };
  MUAddFirstHeadingRow(cellsOf(LINE_OF_FIRST_HEADINGS), make, all);
  MUAddSecondHeadingRow(cellsOf(LINE_OF_SECOND_HEADINGS), make, all);
  if (all.empty()) {
    SendOneErrorMessageToCallbackObject(MU_INPUT_BAD_FORMAT, wxT("no column names"), fullPath);
    return;
  }
  EliminateDuplicatesAndCleanUpColumnNames(all);
}

void MUConcreteInMemoryDataFile::EliminateDuplicatesAndCleanUpColumnNames(Columns& all) {
  if (!MUTrimNamesAndMakeThemUnique(all, &namesInUse)) {
    SendOneErrorMessageToCallbackObject(MU_INPUT_FILE_TOO_LARGE, wxT("too many columns"), fullPath);
    return;
  }
  if (all.empty()) {
    SendOneErrorMessageToCallbackObject(MU_INPUT_BAD_FORMAT, wxT("Missing Header"), fullPath);
  }
}

// Tells the block what its rows need to know of the columns.
void MUConcreteInMemoryDataFile::PrepareForRows() {
  if (MUHasTooManyCellsBeyondColumns(*lines.block, columns->size())) {
    SendOneErrorMessageToCallbackObject(MU_INPUT_FILE_TOO_LARGE, wxT("too many columns"), fullPath);
    return;
  }
  MUNameColumnsOfBlock(*columns, lines.block.get());
  reactionTimePosition = lines.block->PositionOf(reactionTimeHeading);
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
  errorPresent = true;
  MUSendReport(errorHandler, code, message, filePath);
}

void MUConcreteInMemoryDataFile::SendGeneralizedMessagesThatOriginatedInWxWidgetsCode(
    const std::list<wxString>& messages, const wxString& filePath) {
  errorPresent = true;
  MUSendLibraryMessages(errorHandler, messages, filePath);
}

void MUConcreteInMemoryDataFile::SendSuccessMessage() { MUSendSuccess(errorHandler, fullPath); }

std::deque<MUColumnNamePlusProperties*>*
MUConcreteInMemoryDataFile::CreateAndReturnPositionallyOrderedColumnObjects() {
  columnsHandedOver = true;
  return columns;
}

MUSingleRowDataPlusRowProperties* MUConcreteInMemoryDataFile::CreateAndReturnCurrentRowObject(
    bool advance) {
  // A negative cursor is above every count as well.
  if (currentRow >= dataRowCount || errorPresent) return nullptr;
  const auto make = [this](const wxString& name) {
    MUColumnNamePlusProperties* made = nullptr;
    MakeOneNewColumn(&made, name, fullPath, 0);
    return made;
  };
  MUAppendColumnsForCellsBeyondHeadings(lines.block.get(), currentRow, &namesInUse, make,
                                        columnsHandedOver ? nullptr : columns);
  MUSingleRowDataPlusRowProperties* row = MUNewRow(lines.block, currentRow, reactionTimePosition);
  if (advance) ++currentRow;
  return row;
}
