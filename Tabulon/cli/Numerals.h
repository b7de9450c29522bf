// The numbers among the cells of a column, and what can be said of them.
#ifndef OMBRELIA_TABULON_CLI_NUMERALS_H
#define OMBRELIA_TABULON_CLI_NUMERALS_H

#include <cstddef>
#include <optional>
#include <vector>

namespace TabulonCli {

// Measures of the added numbers. Absent without numbers; the deviation also with only one.
class Numerals {
 public:
  void Add(double number) { m_numbers.push_back(number); }

  std::size_t Count() const { return m_numbers.size(); }
  std::optional<double> Least() const;
  std::optional<double> Most() const;
  std::optional<double> Sum() const;
  std::optional<double> Mean() const;
  // Sample standard deviation: the squares are divided by one less than the count.
  std::optional<double> Deviation() const;
  // For an even count, the mean of the two in the middle.
  std::optional<double> Median() const;

 private:
  std::vector<double> m_numbers;
};

}  // namespace TabulonCli

#endif
