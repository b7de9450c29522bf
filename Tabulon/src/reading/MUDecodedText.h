// The characters of a file.
#ifndef OMBRELIA_TABULON_SRC_READING_MUDECODEDTEXT_H
#define OMBRELIA_TABULON_SRC_READING_MUDECODEDTEXT_H

#include "Tabulon/src/memory/MUPooledMemory.h"

// One byte per character, as Latin-1 has it, where every character is below 256; else the characters themselves.
// Only one of the two is filled.
struct MUDecodedText {
  bool IsEmpty() const { return narrow.empty() && wide.empty(); }

  MUPoolVector<char> narrow;
  MUPoolVector<wchar_t> wide;
};

// Effect: decodes the bytes exactly as a wxString made of them with a wxConvAuto would have them.
// Cost: UTF-8 that is valid beyond doubt, bytes that cannot be UTF-8 and count as Latin-1, and UTF-16 of single units
// are decoded here, in two passes or less; everything else takes the library's conversion and a copy.
// Lifetime: the bytes are left in place or used up; the result is the caller's.
// Threads: any number, each with its bytes.
// Failure: a text that cannot be decoded is empty. Throws std::bad_alloc or std::length_error.
MUDecodedText MUDecode(MUPoolVector<char>& bytes);

#endif
