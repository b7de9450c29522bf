#include "Tabulon/src/reading/MUDecodedText.h"

#include <wx/strconv.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace {

bool IsNarrow(const MUPoolVector<wchar_t>& text) {
  std::uint32_t allBits = 0;
  for (const wchar_t character : text) allBits |= static_cast<std::uint32_t>(character);
  return allBits < 256;
}

}  // namespace

MUDecodedText MUDecode(MUPoolVector<char>& bytes, const wxMBConv& conversion) {
  MUDecodedText text;
  const std::size_t length = conversion.ToWChar(nullptr, 0, bytes.data(), bytes.size());
  if (length == wxCONV_FAILED || length == 0) return text;
  text.wide.resize(length);
  if (conversion.ToWChar(text.wide.data(), length, bytes.data(), bytes.size()) == wxCONV_FAILED) {
    text.wide.clear();
    return text;
  }
  if (IsNarrow(text.wide)) {
    text.narrow.resize(length);
    std::transform(text.wide.begin(), text.wide.end(), text.narrow.begin(),
                   [](wchar_t character) { return static_cast<char>(character); });
    MUPoolVector<wchar_t>().swap(text.wide);
  }
  return text;
}
