#include "Tabulon/src/reading/MUDataTextFile.h"

#include <wx/file.h>
#include <wx/filefn.h>
#include <wx/filename.h>
#include <wx/intl.h>
#include <wx/log.h>

#include <algorithm>
#include <limits>

#include "Tabulon/src/rows/MUDataFileBlockBuilder.h"

namespace {

// All bytes of an ordinary file that is not empty. Anything else is left to the library, and so is
// what it has to say about it.
bool ReadOrdinaryFile(const wxString& path, MUPoolVector<char>* bytes) {
  const wxLogNull silence;
  wxFile file;
  // Opening a pipe could wait for ever.
  if (!wxFileName::FileExists(path) || !file.Open(path)) return false;
  const wxFileOffset length = file.Length();
  if (length <= 0 || length > std::numeric_limits<std::int32_t>::max()) return false;
  bytes->resize(static_cast<std::size_t>(length));
  for (std::size_t filled = 0; filled < bytes->size();) {
    const ssize_t read = file.Read(bytes->data() + filled, bytes->size() - filled);
    if (read <= 0) return false;
    filled += static_cast<std::size_t>(read);
  }
  return true;
}

const wchar_t* Begin(const wxString& line) { return line.wc_str(); }

}  // namespace

bool MUDataTextFile::OnRead(const wxMBConv& conv) {
  m_lines = MUDataFileLines();
  if (TakeBytesOfPlainFile()) return true;
  if (wxDirExists(GetName())) {
    // It opens, but pretends to be as long as a file can be.
    wxLogError(_("\"%s\" is a directory."), GetName());
    return false;
  }
  return wxTextFile::OnRead(conv) && TakeLinesOfBase();
}

bool MUDataTextFile::TakeBytesOfPlainFile() {
  MUPoolVector<char> bytes;
  return ReadOrdinaryFile(GetName(), &bytes) &&
         MUDataFileBlockBuilder::TakePlainBytes(bytes, m_headerLines, &m_lines);
}

bool MUDataTextFile::TakeLinesOfBase() {
  const std::size_t lineCount = GetLineCount();
  const std::size_t headerCount = std::min(lineCount, m_headerLines);
  MUVisibleMeasure measure;
  for (std::size_t i = 0; i < lineCount; ++i) {
    const wxString& line = GetLine(i);
    if (i < headerCount) {
      m_lines.header.push_back(line);
    } else {
      measure.Add(Begin(line), Begin(line) + line.length());
    }
  }
  const std::size_t rowCount = lineCount - headerCount;
  if (measure.isNarrow && !measure.hasControlCharacters &&
      measure.characters < MUDataFileBlockBuilder::LARGEST_OFFSET - rowCount) {
    m_lines.block = TakeNarrowLinesFrom(headerCount, measure);
  } else if (!TakeOtherLinesFrom(headerCount, measure)) {
    wxLogError(_("A line of the file \"%s\" is too long."), GetName());
    return false;
  }
  Clear();
  return true;
}

MUDataFileBlockPtr MUDataTextFile::TakeNarrowLinesFrom(std::size_t first,
                                                       const MUVisibleMeasure& measure) const {
  const std::size_t rowCount = GetLineCount() - first;
  MUPoolVector<char> bytes(measure.characters + rowCount);
  char* to = bytes.data();
  for (std::size_t i = first; i < GetLineCount(); ++i) {
    const wxString& line = GetLine(i);
    const wchar_t* const begin = Begin(line);
    to = std::transform(begin, begin + line.length(), to,
                        [](wchar_t character) { return static_cast<char>(character); });
    *to++ = '\n';
  }
  return MUDataFileBlockBuilder::TakeNarrowLines(bytes, 0, rowCount, measure.tabs + rowCount);
}

bool MUDataTextFile::TakeOtherLinesFrom(std::size_t first, const MUVisibleMeasure& measure) {
  using Builder = MUDataFileBlockBuilder;
  const std::size_t rowCount = GetLineCount() - first;
  Builder builder(measure.isNarrow ? Builder::Width::NARROW : Builder::Width::WIDE);
  builder.Reserve(measure.characters, rowCount, measure.tabs + rowCount);
  for (std::size_t i = first; i < GetLineCount(); ++i) {
    const wxString& line = GetLine(i);
    if (!builder.AppendRow(Begin(line), Begin(line) + line.length())) return false;
  }
  m_lines.block = builder.Take();
  return true;
}
