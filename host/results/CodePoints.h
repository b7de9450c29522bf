// UTF-8, one code point after the other.
#ifndef OMBRELIA_HOST_RESULTS_CODEPOINTS_H
#define OMBRELIA_HOST_RESULTS_CODEPOINTS_H

#include <cstddef>
#include <string>
#include <vector>

namespace OmbreliaHost {

struct CodePoint {
  char32_t value = 0;  // of a byte that is no UTF-8: the byte
  bool valid = true;   // false: one byte that is no UTF-8
};

// All of a text. Overlong forms, surrogates and values beyond Unicode are no UTF-8.
std::vector<CodePoint> CodePointsOf(const std::string& text);

void AppendUtf8(std::string& text, char32_t value);

}  // namespace OmbreliaHost

#endif
