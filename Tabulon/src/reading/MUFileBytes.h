// The bytes of an open file.
#ifndef OMBRELIA_TABULON_SRC_READING_MUFILEBYTES_H
#define OMBRELIA_TABULON_SRC_READING_MUFILEBYTES_H

#include <cstddef>

#include "Tabulon/src/memory/MUPooledMemory.h"

class wxFile;

// Effect: replaces bytes by what the file holds from its position on, up to its end or to most bytes.
// Cost: memory is taken as the bytes arrive: expected, the length that the file claims to have, only says how much
// they may become.
// Lifetime: file is borrowed for the call; bytes is the caller's.
// Threads: one at a time for a file.
// Failure: false, with no bytes, if a read fails, which the library logs, or if memory does not suffice. Throws
// nothing.
//
// largestPiece: how many bytes are asked for at once, at least 1.
bool MUReadBytes(wxFile& file, std::size_t expected, std::size_t most, std::size_t largestPiece,
                 MUPoolVector<char>* bytes);

#endif
