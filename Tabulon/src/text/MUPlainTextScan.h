// The fast look at text of one byte per character: is it plain, and where are its tabs and line ends?
//
// Cost: one pass over the text, sixteen bytes at a time where the machine can; a measure also takes a bit per byte.
// Lifetime: the text is borrowed for the call; the measure owns its masks.
// Threads: any number.
// Failure: the two measuring functions throw std::bad_alloc for want of memory for the masks; the measure is then as
// it was.
#ifndef OMBRELIA_TABULON_SRC_TEXT_MUPLAINTEXTSCAN_H
#define OMBRELIA_TABULON_SRC_TEXT_MUPLAINTEXTSCAN_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>

#include "Tabulon/src/machine/MUMachine.h"

// One mask stands for MU_MASK_WIDTH bytes, its lowest bit for the first one.
using MUByteMask = std::uint64_t;
constexpr std::size_t MU_MASK_WIDTH = 64;

// The tabs and line feeds of a text.
struct MUPlainTextMeasure {
  std::size_t tabs = 0;
  std::size_t lineFeeds = 0;
  std::unique_ptr<MUByteMask[]> masks;  // where they are, with a mask for every MU_MASK_WIDTH bytes
};

// True if every byte is from blank to '~', a tab, a line feed, or a carriage return directly before a line
// feed: then one byte is one character in any encoding that wxConvAuto may find, and lines end where
// wxTextFile ends them. Fills the measure only then. One pass over the text, which ends at the first byte
// that is none of these.
bool MUMeasurePlainText(const char* text, std::size_t length, MUPlainTextMeasure* measure);

// The same for text that is decoded already, one byte per character: true if no control character is in it
// but tabs, line feeds and carriage returns directly before line feeds.
bool MUMeasureVisibleText(const char* text, std::size_t length, MUPlainTextMeasure* measure);

// Fill one mask for every MU_MASK_WIDTH of the bytes; the bits beyond the last byte are 0.
// Control characters are those of MUIsControlCharacter, tabs included; odd ones are all but tabs and line feeds.
void MUMarkOddCharacters(const char* bytes, std::size_t count, MUByteMask* masks);
void MUMarkControlCharacters(const char* bytes, std::size_t count, MUByteMask* masks);

// Calls take(position) for each byte at or after the position from that mark marks, in order.
template <typename MARK, typename TAKE>
void MUForEachMarked(const char* text, std::size_t from, std::size_t length, const MARK& mark,
                     const TAKE& take) {
  constexpr std::size_t masksAtOnce = 16;
  MUByteMask masks[masksAtOnce];
  while (from < length) {
    const std::size_t count = std::min(length - from, masksAtOnce * MU_MASK_WIDTH);
    mark(text + from, count, masks);
    for (std::size_t first = 0; first < count; first += MU_MASK_WIDTH) {
      for (MUByteMask left = masks[first / MU_MASK_WIDTH]; left != 0; left &= left - 1) {
        take(from + first + MULowestBit(left));
      }
    }
    from += count;
  }
}

#endif
