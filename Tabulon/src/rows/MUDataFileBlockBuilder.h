// Makes the block of a file, from its raw bytes or line by line.
#ifndef OMBRELIA_TABULON_SRC_ROWS_MUDATAFILEBLOCKBUILDER_H
#define OMBRELIA_TABULON_SRC_ROWS_MUDATAFILEBLOCKBUILDER_H

#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

#include "Tabulon/src/rows/MUDataFileBlock.h"
#include "Tabulon/src/rows/MUDataFileLines.h"

class MUDataFileBlockBuilder {
 public:
  // NARROW keeps one byte per character and takes characters below 256 only.
  enum class Width { NARROW, WIDE };
  explicit MUDataFileBlockBuilder(Width width);

  // Takes the bytes of a whole file and makes them the block's text, without another copy, if they are
  // plain text (see MUMeasurePlainText). Otherwise, or if they are too many for the block's offsets,
  // answers false and leaves bytes and lines as they are. headerLines: how many of the first lines go
  // to lines->header, without their terminators.
  static bool TakePlainBytes(MUPoolVector<char>& bytes, std::size_t headerLines,
                             MUDataFileLines* lines);

  // The same for lines that were taken apart already, from the one at first on: one byte per character, none
  // a control character but the tabs between cells, a line feed behind every line. mostCells: no more cells
  // than these. The bytes must not be too many for the block's offsets.
  static MUDataFileBlockPtr TakeNarrowLines(MUPoolVector<char>& bytes, std::size_t first,
                                            std::size_t lineCount, std::size_t mostCells);
  static constexpr std::size_t LARGEST_OFFSET = std::numeric_limits<std::uint32_t>::max();

  // Room for so much text, rows and cells; more will fit too.
  void Reserve(std::size_t characters, std::size_t rows, std::size_t cells);

  // Appends the line [begin, end) as a row: split at tabs, control characters in visible form. A line of
  // bytes is for a narrow builder and must be plain. False, and nothing is appended, for a line for
  // which the block's offsets are too short.
  bool AppendRow(const char* begin, const char* end);
  bool AppendRow(const wchar_t* begin, const wchar_t* end);

  // The block; the builder is spent.
  MUDataFileBlockPtr Take();

 private:
  template <typename Out, typename Char>
  bool AppendRowTo(MUPoolVector<Out>& text, const Char* begin, const Char* end);
  // Splits the block's text from start on. False, with the block of no use, if a row is too long for END.
  template <typename END>
  bool AppendPlainRows(std::size_t start, std::size_t mostCells, MUPoolVector<END>& ends);
  void AppendRowEnds();
  // cellCount: cells of the block up to the row's end.
  void EndRow(std::size_t textStart, std::size_t cellCount);

  MUDataFileBlockPtr m_block;
  std::vector<std::uint32_t> m_rowEnds;  // of the row that is being made
};

#endif
