// The characters of a file.
#ifndef OMBRELIA_TABULON_SRC_READING_MUDECODEDTEXT_H
#define OMBRELIA_TABULON_SRC_READING_MUDECODEDTEXT_H

#include "Tabulon/src/memory/MUPooledMemory.h"

class wxMBConv;

// One byte per character, as Latin-1 has it, where every character is below 256; else the characters themselves.
// Only one of the two is filled.
struct MUDecodedText {
  bool IsEmpty() const { return narrow.empty() && wide.empty(); }

  MUPoolVector<char> narrow;
  MUPoolVector<wchar_t> wide;
};

// Decodes the bytes exactly as a wxString made of them with that conversion would have them; a text that cannot
// be decoded is empty. The bytes are left in place or taken over. A conversion that adapts itself, as wxConvAuto
// does, serves one text. Throws std::bad_alloc or std::length_error.
MUDecodedText MUDecode(MUPoolVector<char>& bytes, const wxMBConv& conversion);

#endif
