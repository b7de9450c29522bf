// Makes the block of a file, from its raw bytes or line by line.
#ifndef TABULON_MUDATAFILEBLOCKBUILDER_H
#define TABULON_MUDATAFILEBLOCKBUILDER_H

#include <cstddef>
#include <vector>

#include "Tabulon/src/MUDataFileBlock.h"
#include "Tabulon/src/MUDataFileLines.h"

class MUDataFileBlockBuilder {
 public:
  // ASCII keeps one byte per character and takes characters below 128 only.
  enum class Width { ASCII, WIDE };
  explicit MUDataFileBlockBuilder(Width width);

  // Takes the bytes of a whole file and makes them the block's text, without another copy, if they are
  // plain text (see MUMeasurePlainText). Otherwise, or if they are too many for the block's offsets,
  // answers false and leaves bytes and lines as they are. headerLines: how many of the first lines go
  // to lines->header, without their terminators.
  static bool TakePlainBytes(MUPoolVector<char>& bytes, std::size_t headerLines,
                             MUDataFileLines* lines);

  // Room for so much text, rows and cells; more will fit too.
  void Reserve(std::size_t characters, std::size_t rows, std::size_t cells);

  // Appends the line [begin, end) as a row: split at tabs, control characters in visible form. The
  // operation must be the one of the builder's width. False, and nothing is appended, for a line for
  // which the block's offsets are too short.
  bool AppendRow(const char* begin, const char* end);
  bool AppendRow(const wchar_t* begin, const wchar_t* end);

  // The block; the builder is spent.
  MUDataFileBlockPtr Take();

 private:
  template <typename Char>
  bool AppendRowTo(MUPoolVector<Char>& text, const Char* begin, const Char* end);
  void EndPlainRow(std::size_t textStart, std::size_t textEnd);
  void EndRow(std::size_t textStart);

  MUDataFileBlockPtr m_block;
  std::size_t m_firstCell;  // of the row that is being made
};

#endif
