#include "Tabulon/src/reading/MUDataTextFile.h"

#include <sys/stat.h>
#include <wx/filefn.h>
#include <wx/intl.h>
#include <wx/log.h>

#include <algorithm>

#include "Tabulon/src/reading/MUFileBytes.h"
#include "Tabulon/src/reading/MULineEnds.h"
#include "Tabulon/src/rows/MUDataFileBlockBuilder.h"
#include "Tabulon/src/text/MUCellSplitting.h"
#include "Tabulon/src/text/MUCellText.h"
#include "Tabulon/src/text/MUPlainTextScan.h"

namespace {

using Builder = MUDataFileBlockBuilder;

// Calls take(line, its end, next line) for each line of the text as long as that answers true. Lines end in a
// carriage return, a line feed or both.
template <typename CHAR, typename TAKE>
void ForEachLine(const CHAR* begin, const CHAR* end, const TAKE& take) {
  MULineEnds<CHAR> ends(begin, end);
  while (begin != end) {
    const CHAR* const lineEnd = ends.Next(begin);
    const CHAR* next = lineEnd;
    if (next != end && *next == CHAR('\r')) ++next;
    if (next != end && *next == CHAR('\n')) ++next;
    if (!take(begin, lineEnd, next)) return;
    begin = next;
  }
}

}  // namespace

bool MUDataTextFile::OnOpen(const wxString& name, wxTextBufferOpenMode) {
  m_lines = MUDataFileLines();
  if (m_file.Open(name)) return true;
  // A file that may not be read has a size, too.
  wxStructStat status;
  m_size = wxStat(name, &status) == 0 ? static_cast<std::uint64_t>(status.st_size) : 0;
  return false;
}

bool MUDataTextFile::OnClose() { return m_file.Close(); }

bool MUDataTextFile::OnRead(const wxMBConv&) {
  MUPoolVector<char> bytes;
  if (!ReadBytes(&bytes)) return false;
  if (Builder::TakePlainBytes(bytes, m_headerLines, &m_lines)) return true;
  // A text that cannot be decoded has no lines, which is no failure of the opening.
  MUDecodedText text = MUDecode(bytes);
  if (TakeLines(text)) return true;
  wxLogError(_("A line of the file \"%s\" is too long."), GetName());
  return false;
}

bool MUDataTextFile::ReadBytes(MUPoolVector<char>* bytes) {
  wxStructStat status;
  const bool isKnown = fstat(m_file.fd(), &status) == 0;
  m_size = isKnown ? static_cast<std::uint64_t>(status.st_size) : 0;
  if (IsTooLarge()) return false;
  if (isKnown && S_ISDIR(status.st_mode)) {
    wxLogError(_("\"%s\" is a directory."), GetName());
    return false;
  }
  const auto expected = static_cast<std::size_t>(m_size);
  const auto most = static_cast<std::size_t>(m_largestSize) + 1;
  if (!MUReadBytes(m_file, expected, most, most, bytes)) return false;
  // The size of a file that grows, or of a device, is known only now.
  m_size = std::max<std::uint64_t>(m_size, bytes->size());
  return !IsTooLarge();
}

bool MUDataTextFile::TakeLines(MUDecodedText& text) {
  if (!text.wide.empty()) {
    const wchar_t* const end = text.wide.data() + text.wide.size();
    return TakeWideRows(TakeHeader<wchar_t>(text.wide.data(), end), end);
  }
  const char* const begin = text.narrow.data();
  const char* const end = begin + text.narrow.size();
  const char* const rows = TakeHeader(begin, end);
  MUPlainTextMeasure measure;
  const auto length = static_cast<std::size_t>(end - rows);
  if (!MUMeasureVisibleText(rows, length, &measure)) {
    m_lines.block = Builder::TakeOddLines(rows, end);
    return m_lines.block != nullptr;
  }
  m_lines.block =
      Builder::TakeNarrowLines(text.narrow, static_cast<std::size_t>(rows - begin),
                               measure.lineFeeds + 1, measure.tabs + measure.lineFeeds + 1);
  return true;
}

// Answers where the rows begin.
template <typename CHAR>
const CHAR* MUDataTextFile::TakeHeader(const CHAR* begin, const CHAR* end) {
  if (m_headerLines == 0) return begin;
  const CHAR* rows = begin;
  ForEachLine(begin, end, [&](const CHAR* line, const CHAR* lineEnd, const CHAR* next) {
    m_lines.header.push_back(MUCellText(line, static_cast<std::size_t>(lineEnd - line)).ToString());
    rows = next;
    return m_lines.header.size() < m_headerLines;
  });
  return rows;
}

bool MUDataTextFile::TakeWideRows(const wchar_t* begin, const wchar_t* end) {
  MUVisibleMeasure measure;
  std::size_t rowCount = 0;
  ForEachLine(begin, end, [&](const wchar_t* line, const wchar_t* lineEnd, const wchar_t*) {
    measure.Add(line, lineEnd);
    ++rowCount;
    return true;
  });
  Builder builder(measure.isNarrow ? Builder::Width::NARROW : Builder::Width::WIDE);
  builder.Reserve(measure.characters, rowCount, measure.tabs + rowCount);
  bool allFit = true;
  ForEachLine(begin, end, [&](const wchar_t* line, const wchar_t* lineEnd, const wchar_t*) {
    allFit = builder.AppendRow(line, lineEnd);
    return allFit;
  });
  m_lines.block = builder.Take();
  return allFit;
}
