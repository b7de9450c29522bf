#include "Tabulon/src/MUPlainTextScan.h"

#include <algorithm>

namespace {

std::size_t NumberOfBits(std::uint32_t mask) {
  std::size_t bits = 0;
  for (; mask != 0; mask &= mask - 1) ++bits;
  return bits;
}

}  // namespace

bool MUMeasurePlainText(const char* text, std::size_t length, MUPlainTextMeasure* measure) {
  MUPlainTextMeasure found = {0, 0};
  for (std::size_t from = 0; from < length; from += MU_SCAN_WIDTH) {
    const std::size_t left = std::min(length - from, MU_SCAN_WIDTH);
    const MUByteMasks masks = left == MU_SCAN_WIDTH ? MUExamineBytes(text + from)
                                                    : MUExamineBytesOneByOne(text + from, left);
    if (masks.notPlain != 0) return false;
    // Only the last byte's neighbour lies outside these masks.
    if (masks.carriageReturns & ~(masks.lineFeeds >> 1)) {
      const bool onlyTheLast = (masks.carriageReturns & ~(masks.lineFeeds >> 1)) == 1u << (left - 1);
      const bool lineFeedFollows = from + left < length && text[from + left] == '\n';
      if (!onlyTheLast || !lineFeedFollows) return false;
    }
    found.tabs += NumberOfBits(masks.tabs);
    found.lineFeeds += NumberOfBits(masks.lineFeeds);
  }
  *measure = found;
  return true;
}
