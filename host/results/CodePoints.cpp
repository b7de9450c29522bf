#include "host/results/CodePoints.h"

namespace OmbreliaHost {

namespace {

// The length that the first byte of a sequence announces; 0 if it begins none.
std::size_t LengthOf(unsigned char first) {
  if (first < 0x80) return 1;
  if (first >= 0xC2 && first < 0xE0) return 2;
  if (first >= 0xE0 && first < 0xF0) return 3;
  if (first >= 0xF0 && first < 0xF5) return 4;
  return 0;
}

bool IsAllowed(char32_t value, std::size_t length) {
  if (length == 3) return value >= 0x800 && (value < 0xD800 || value > 0xDFFF);
  if (length == 4) return value >= 0x10000 && value <= 0x10FFFF;
  return true;
}

}  // namespace

std::vector<CodePoint> CodePointsOf(const std::string& text) {
  std::vector<CodePoint> points;
  points.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    const auto first = static_cast<unsigned char>(text[at]);
    const std::size_t length = LengthOf(first);
    bool valid = length != 0 && length <= text.size() - at;
    char32_t value = length > 1 ? first & (0x7Fu >> length) : first;
    for (std::size_t i = 1; valid && i < length; ++i) {
      const auto next = static_cast<unsigned char>(text[at + i]);
      valid = (next & 0xC0) == 0x80;
      value = value << 6 | (next & 0x3Fu);
    }
    valid = valid && IsAllowed(value, length);
    points.push_back(valid ? CodePoint{value, true} : CodePoint{first, false});
    at += valid ? length : 1;
  }
  return points;
}

void AppendUtf8(std::string& text, char32_t value) {
  const auto continuation = [&](unsigned shift) {
    text += static_cast<char>(0x80 | (value >> shift & 0x3F));
  };
  if (value < 0x80) {
    text += static_cast<char>(value);
  } else if (value < 0x800) {
    text += static_cast<char>(0xC0 | value >> 6);
    continuation(0);
  } else if (value < 0x10000) {
    text += static_cast<char>(0xE0 | value >> 12);
    continuation(6);
    continuation(0);
  } else {
    text += static_cast<char>(0xF0 | value >> 18);
    continuation(12);
    continuation(6);
    continuation(0);
  }
}

}  // namespace OmbreliaHost
