#include "Tabulon/cli/Numerals.h"

#include <algorithm>
#include <cmath>

namespace TabulonCli {

std::optional<double> Numerals::Least() const {
  if (m_numbers.empty()) return std::nullopt;
  return *std::min_element(m_numbers.begin(), m_numbers.end());
}

std::optional<double> Numerals::Most() const {
  if (m_numbers.empty()) return std::nullopt;
  return *std::max_element(m_numbers.begin(), m_numbers.end());
}

// What each addition rounds off is kept and added at the end.
std::optional<double> Numerals::Sum() const {
  if (m_numbers.empty()) return std::nullopt;
  double sum = 0;
  double lost = 0;
  for (const double number : m_numbers) {
    const double next = sum + number;
    lost += std::abs(sum) >= std::abs(number) ? (sum - next) + number : (number - next) + sum;
    sum = next;
  }
  return std::isfinite(lost) ? sum + lost : sum;
}

std::optional<double> Numerals::Mean() const {
  if (m_numbers.empty()) return std::nullopt;
  return *Sum() / static_cast<double>(m_numbers.size());
}

std::optional<double> Numerals::Deviation() const {
  if (m_numbers.size() < 2) return std::nullopt;
  const double mean = *Mean();
  double squares = 0;
  for (const double number : m_numbers) squares += (number - mean) * (number - mean);
  return std::sqrt(squares / static_cast<double>(m_numbers.size() - 1));
}

std::optional<double> Numerals::Median() const {
  if (m_numbers.empty()) return std::nullopt;
  std::vector<double> numbers(m_numbers);
  const auto middle = numbers.begin() + static_cast<std::ptrdiff_t>(numbers.size() / 2);
  std::nth_element(numbers.begin(), middle, numbers.end());
  if (numbers.size() % 2 == 1) return *middle;
  const double below = *std::max_element(numbers.begin(), middle);
  return below + (*middle - below) / 2;
}

}  // namespace TabulonCli
