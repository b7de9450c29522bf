#include "Tabulon/src/reading/MUFileBytes.h"

#include <wx/file.h>

#include <algorithm>
#include <exception>

namespace {

// An ordinary data file is not larger and gets all its memory at once.
constexpr std::size_t MOST_BYTES_ON_TRUST = std::size_t{1} << 20;

bool ReadAll(wxFile& file, std::size_t expected, std::size_t most, std::size_t largestPiece,
             MUPoolVector<char>& bytes) {
  bytes.resize(std::min({expected, most, MOST_BYTES_ON_TRUST}));
  std::size_t filled = 0;
  char more[4096];
  for (;;) {
    const bool isFull = filled == bytes.size();
    char* const to = isFull ? more : bytes.data() + filled;
    const std::size_t room = isFull ? sizeof more : bytes.size() - filled;
    const ssize_t answer = file.Read(to, std::min(room, largestPiece));
    if (answer == wxInvalidOffset) return false;
    if (answer == 0) break;
    const std::size_t count = std::min(static_cast<std::size_t>(answer), most - filled);
    if (isFull) {
      // Twice as much as there is, but no more than the file claims to have.
      std::size_t size = 2 * filled;
      if (filled < expected) size = std::min(size, expected);
      bytes.resize(std::min(std::max(size, filled + count), most));
      std::copy(more, more + count, bytes.data() + filled);
    }
    filled += count;
    if (filled == most) break;
  }
  bytes.resize(filled);
  return true;
}

}  // namespace

bool MUReadBytes(wxFile& file, std::size_t expected, std::size_t most, std::size_t largestPiece,
                 MUPoolVector<char>* bytes) {
  try {
    if (ReadAll(file, expected, most, largestPiece, *bytes)) return true;
  } catch (const std::exception&) {
    // No memory for what arrived.
  }
  MUPoolVector<char>().swap(*bytes);
  return false;
}
