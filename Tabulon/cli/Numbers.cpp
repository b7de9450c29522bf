#include "Tabulon/cli/Numbers.h"

#include <fmt/format.h>

#include <array>
#include <charconv>
#include <cmath>

#include "Tabulon/src/text/MUTrimmedText.h"

namespace TabulonCli {

namespace {

// No number that anybody writes is longer; a longer text is not looked at.
constexpr std::size_t LONGEST_NUMBER = 400;

bool IsDigit(char character) { return character >= '0' && character <= '9'; }

// The trimmed text as bytes, copied into room if it is wide; empty if it cannot be a number.
std::string_view Digits(const MUCellText& text, std::array<char, LONGEST_NUMBER>& room) {
  const MUCellText trimmed = TrimmedText(text);
  const std::size_t length = trimmed.Length();
  if (length == 0 || length > LONGEST_NUMBER) return {};
  if (trimmed.Narrow() != nullptr) return {trimmed.Narrow(), length};
  for (std::size_t i = 0; i < length; ++i) {
    if (trimmed[i] < 0 || trimmed[i] > 127) return {};
    room[i] = static_cast<char>(trimmed[i]);
  }
  return {room.data(), length};
}

std::optional<double> Parse(std::string_view digits) {
  if (!digits.empty() && digits.front() == '+') digits.remove_prefix(1);
  std::string_view unsignedDigits = digits;
  if (!digits.empty() && digits.front() == '-') unsignedDigits.remove_prefix(1);
  // The library would also take "inf" and "nan".
  if (unsignedDigits.empty() || (!IsDigit(unsignedDigits.front()) && unsignedDigits.front() != '.'))
    return std::nullopt;
  double number = 0;
  const char* const end = digits.data() + digits.size();
  const auto [stop, error] = std::from_chars(digits.data(), end, number);
  if (error != std::errc() || stop != end) return std::nullopt;
  return number;
}

}  // namespace

std::optional<double> NumberIn(const MUCellText& text) {
  std::array<char, LONGEST_NUMBER> room;
  return Parse(Digits(text, room));
}

bool IsPlainNumber(const MUCellText& text) {
  std::array<char, LONGEST_NUMBER> room;
  const std::string_view digits = Digits(text, room);
  std::size_t at = !digits.empty() && digits.front() == '-' ? 1 : 0;
  const std::size_t first = at;
  while (at < digits.size() && IsDigit(digits[at])) ++at;
  if (at == first || (digits[first] == '0' && at > first + 1)) return false;
  if (at < digits.size() && digits[at] == '.' &&
      (at + 1 == digits.size() || !IsDigit(digits[at + 1])))
    return false;
  return at == digits.size() || Parse(digits).has_value();
}

bool IsBlank(const MUCellText& text) { return TrimmedText(text).IsEmpty(); }

const char* KindOfCells(std::size_t cells, std::size_t empty, std::size_t numbers) {
  if (empty == cells) return "empty";
  if (numbers == 0) return "text";
  return numbers + empty == cells ? "numbers" : "numbers and text";
}

std::string ShortestText(double number) {
  if (number == std::floor(number) && std::abs(number) < 1e15)
    return fmt::format("{:.0f}", number == 0 ? 0.0 : number);
  return fmt::format("{}", number);
}

}  // namespace TabulonCli
