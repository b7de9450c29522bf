// Makes the block of a file, from its raw bytes or line by line.
#ifndef OMBRELIA_TABULON_SRC_ROWS_MUDATAFILEBLOCKBUILDER_H
#define OMBRELIA_TABULON_SRC_ROWS_MUDATAFILEBLOCKBUILDER_H

#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

#include "Tabulon/src/rows/MUDataFileBlock.h"
#include "Tabulon/src/rows/MUDataFileLines.h"
#include "Tabulon/src/text/MUPlainTextScan.h"

// Effect: makes one block, either of a text as a whole or row by row.
// Cost: a text is taken in one or two passes, unless said otherwise.
// Lifetime: texts are borrowed for the call, or become the block's; the block is shared by those who hold it.
// Threads: one.
// Failure: throws std::bad_alloc and std::length_error for want of memory.
class MUDataFileBlockBuilder {
 public:
  // Block offsets reach this far.
  static constexpr std::size_t LARGEST_OFFSET = std::numeric_limits<std::uint32_t>::max();

  // A narrow block keeps one byte per character and takes characters below 256 only.
  enum class Width { NARROW, WIDE };
  // largestOffset: how many characters fit, at most LARGEST_OFFSET.
  explicit MUDataFileBlockBuilder(Width width, std::size_t largestOffset = LARGEST_OFFSET);

  // Takes the bytes of a whole file and makes them the block's text, without another copy, if they are plain
  // text (see MUMeasurePlainText). Otherwise, or if they are too many for the block's offsets, answers false and
  // leaves bytes and lines as they are. headerLines: how many of the first lines become texts in lines->header,
  // without their ends.
  static bool TakePlainBytes(MUPoolVector<char>& bytes, std::size_t headerLines,
                             MUDataFileLines* lines);

  // The same for text of one byte per character with no control character in it but tabs and line ends, beginning
  // at first. delimiters: what MUMeasurePlainText or MUMeasureVisibleText found in the text from measuredFrom on,
  // which is not behind first. The text must not be too long for the block's offsets.
  static MUDataFileBlockPtr TakeNarrowLines(MUPoolVector<char>& text, std::size_t first,
                                            const MUPlainTextMeasure& delimiters,
                                            std::size_t measuredFrom);

  // The same for text of one byte per character of any kind: a line may also end in a carriage return alone, and
  // control characters become visible. Two passes more and a copy. Null if the text becomes too long for the
  // block's offsets.
  static MUDataFileBlockPtr TakeOddLines(const char* begin, const char* end);

  // Takes memory for this much text and this many rows and cells at once. More will fit, too.
  void Reserve(std::size_t characters, std::size_t rows, std::size_t cells);

  // Appends the line [begin, end) as a row: split at tabs, control characters in visible form. A narrow line is
  // for a narrow builder. False, and nothing is appended, if the block's offsets are too short for the row.
  bool AppendRow(const char* begin, const char* end);
  bool AppendRow(const wchar_t* begin, const wchar_t* end);

  // Hands the block over. The builder must not be used any more.
  MUDataFileBlockPtr Take();

 private:
  template <typename OUT, typename CHAR>
  bool AppendRowTo(MUPoolVector<OUT>& text, const CHAR* begin, const CHAR* end);
  // Splits the block's text from start on. False if a row is too long for END; the rows are of no use then.
  template <typename END>
  bool AppendPlainRows(std::size_t start, const MUPlainTextMeasure& delimiters,
                       std::size_t measuredFrom, MUPoolVector<END>& ends);
  void AppendRowEnds();
  // cellCount: cells of the block up to the row's end.
  void EndRow(std::size_t textStart, std::size_t cellCount);

  MUDataFileBlockPtr m_block;
  const std::size_t m_largestOffset;
  std::vector<std::uint32_t> m_rowEnds;  // the cell ends of the row that is being made
};

#endif
