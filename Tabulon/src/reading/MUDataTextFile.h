// A text file whose lines become a block of rows as it is opened.
#ifndef OMBRELIA_TABULON_SRC_READING_MUDATATEXTFILE_H
#define OMBRELIA_TABULON_SRC_READING_MUDATATEXTFILE_H

#include <wx/textfile.h>

#include <cstddef>
#include <vector>

#include "Tabulon/src/rows/MUDataFileLines.h"
#include "Tabulon/src/text/MUCellSplitting.h"

// wxTextFile decides what can be opened, in which encoding, and where lines end. Only where that answer
// is known beforehand, for plain ASCII, the bytes are taken as they are and no line becomes a text of
// its own. After Open the lines stand in Lines() and no longer in the base class's lines.
class MUDataTextFile : public wxTextFile {
 public:
  // headerLines: how many of the first lines are kept as texts.
  explicit MUDataTextFile(std::size_t headerLines) : m_headerLines(headerLines) {}

  // The lines of the last successful Open; none before.
  const MUDataFileLines& Lines() const { return m_lines; }

 protected:
  bool OnRead(const wxMBConv& conv) override;

 private:
  bool TakeBytesOfPlainFile();
  bool TakeLinesOfBase();
  MUDataFileBlockPtr TakeNarrowLinesFrom(std::size_t first, const MUVisibleMeasure& measure) const;
  bool TakeOtherLinesFrom(std::size_t first, const MUVisibleMeasure& measure);

  std::size_t m_headerLines;
  MUDataFileLines m_lines;
};

#endif
