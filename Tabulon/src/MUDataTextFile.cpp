#include "Tabulon/src/MUDataTextFile.h"

#include <wx/file.h>
#include <wx/filefn.h>
#include <wx/filename.h>
#include <wx/intl.h>
#include <wx/log.h>

#include <algorithm>
#include <limits>

#include "Tabulon/src/MUCellSplitting.h"
#include "Tabulon/src/MUDataFileBlockBuilder.h"

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
  std::size_t characters = 0;
  std::size_t cells = 0;
  for (std::size_t i = headerCount; i < lineCount; ++i) {
    const auto wide = GetLine(i).wc_str();
    const wchar_t* begin = wide;
    const MUVisibleMeasure measure = MUMeasureVisibly(begin, begin + GetLine(i).length());
    characters += measure.characters;
    cells += measure.tabs + 1;
  }
  MUDataFileBlockBuilder builder(MUDataFileBlockBuilder::Width::WIDE);
  builder.Reserve(characters, lineCount - headerCount, cells);
  for (std::size_t i = 0; i < lineCount; ++i) {
    const wxString& line = GetLine(i);
    if (i < headerCount) {
      m_lines.header.push_back(line);
      continue;
    }
    const auto wide = line.wc_str();
    const wchar_t* begin = wide;
    if (!builder.AppendRow(begin, begin + line.length())) {
      wxLogError(_("A line of the file \"%s\" is too long."), GetName());
      return false;
    }
  }
  m_lines.block = builder.Take();
  Clear();
  return true;
}
