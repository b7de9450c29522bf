// A text file whose lines become a block of rows as it is opened.
#ifndef OMBRELIA_TABULON_SRC_READING_MUDATATEXTFILE_H
#define OMBRELIA_TABULON_SRC_READING_MUDATATEXTFILE_H

#include <wx/file.h>
#include <wx/textfile.h>

#include <cstddef>
#include <cstdint>

#include "Tabulon/src/reading/MUDecodedText.h"
#include "Tabulon/src/rows/MUDataFileLines.h"

// Effect: a wxTextFile that keeps its lines in another form. Open reads the whole file, decodes it as a wxConvAuto would,
// whatever conversion it is given, ends lines where wxTextFile ends them and logs what wxTextFile would log. After it
// the lines stand in Lines() and not in the base class. The file is opened once, and its size and its bytes come from
// there; Open closes it again.
// Cost: one or two passes over the bytes of plain text, and a conversion more of any other.
// Lifetime: the lines share their block, which may outlive the object.
// Threads: one at a time.
// Failure: Open answers false for a file that cannot be opened or read and,
// without a message, for one that is too large. A file that cannot be decoded has no lines.
class MUDataTextFile : public wxTextFile {
 public:
  // headerLines: how many of the first lines are kept as texts. largestSize: in bytes, of a file that Open reads.
  MUDataTextFile(std::size_t headerLines, std::uint64_t largestSize)
      : m_headerLines(headerLines), m_largestSize(largestSize) {}

  // The lines of the last successful Open; none before. Borrowed until the next Open.
  const MUDataFileLines& Lines() const { return m_lines; }

  // The size in bytes of the file that Open tried last, also if it was too large; 0 if there is no such file.
  std::uint64_t Size() const { return m_size; }
  bool IsTooLarge() const { return m_size > m_largestSize; }

 protected:
  bool OnOpen(const wxString& name, wxTextBufferOpenMode mode) override;
  bool OnRead(const wxMBConv& conversion) override;
  bool OnClose() override;

 private:
  bool ReadBytes(MUPoolVector<char>* bytes);
  // False if a line is too long for a block.
  bool TakeLines(MUDecodedText& text);
  template <typename CHAR>
  const CHAR* TakeHeader(const CHAR* begin, const CHAR* end);
  bool TakeWideRows(const wchar_t* begin, const wchar_t* end);

  const std::size_t m_headerLines;
  const std::uint64_t m_largestSize;
  wxFile m_file;
  std::uint64_t m_size = 0;
  MUDataFileLines m_lines;
};

#endif
