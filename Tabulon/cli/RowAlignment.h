// Which rows of two lists belong together.
#ifndef OMBRELIA_TABULON_CLI_ROWALIGNMENT_H
#define OMBRELIA_TABULON_CLI_ROWALIGNMENT_H

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace TabulonCli {

// A row of the first list, one of the second, or both, as places from 0.
struct AlignedRows {
  std::optional<std::size_t> a;
  std::optional<std::size_t> b;
};

// Keeps the rows that both lists have in the same order together, as many as can be, and pairs the others between
// them one by one. Lists that differ in more than some thousand rows are paired by place from there on.
std::vector<AlignedRows> AlignInOrder(
    std::size_t countA, std::size_t countB,
    const std::function<bool(std::size_t, std::size_t)>& areEqual);

// Puts rows with equal keys together, the first one with the first and so on. In the order of the first list; what
// only the second one has comes behind.
std::vector<AlignedRows> AlignByKey(const std::vector<std::string>& keysA,
                                    const std::vector<std::string>& keysB);

}  // namespace TabulonCli

#endif
