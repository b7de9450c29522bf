#include "Tabulon/cli/RowAlignment.h"

#include <algorithm>
#include <unordered_map>

namespace TabulonCli {

namespace {

using Equal = std::function<bool(std::size_t, std::size_t)>;

// Deletions and insertions up to which the shortest way from one list to the other is looked for; the memory for
// it grows with their square.
constexpr std::ptrdiff_t MOST_CHANGES = 2000;

struct Match {
  std::size_t a;
  std::size_t b;
};

// The shortest way by deletions and insertions (E. Myers, 1986). at(k) is how far along the first list one comes on
// diagonal k, where k is the place in the first list less that in the second.
class ShortestWay {
 public:
  ShortestWay(std::size_t countA, std::size_t countB, const Equal& areEqual)
      : m_countA(static_cast<std::ptrdiff_t>(countA)),
        m_countB(static_cast<std::ptrdiff_t>(countB)),
        m_areEqual(areEqual) {}

  // The rows that stay. Nothing if there are too many changes.
  std::optional<std::vector<Match>> FindMatches() {
    std::vector<std::ptrdiff_t> reached = {0, 0, 0};
    for (std::ptrdiff_t changes = 0; changes <= std::min(m_countA + m_countB, MOST_CHANGES);
         ++changes) {
      // Room for the diagonals -changes - 1 to changes + 1.
      std::vector<std::ptrdiff_t> next(static_cast<std::size_t>(2 * changes + 3), 0);
      for (std::ptrdiff_t k = -changes; k <= changes; k += 2) {
        std::ptrdiff_t a = changes == 0 ? 0 : Begin(reached, changes - 1, k, changes);
        while (a < m_countA && a - k < m_countB && a - k >= 0 &&
               m_areEqual(static_cast<std::size_t>(a), static_cast<std::size_t>(a - k)))
          ++a;
        next[static_cast<std::size_t>(k + changes + 1)] = a;
        if (k == m_countA - m_countB && a >= m_countA) {
          m_history.push_back(std::move(next));
          return WalkBack(changes);
        }
      }
      m_history.push_back(next);
      reached = std::move(next);
    }
    return std::nullopt;
  }

 private:
  static std::ptrdiff_t At(const std::vector<std::ptrdiff_t>& reached, std::ptrdiff_t changes,
                           std::ptrdiff_t k) {
    return reached[static_cast<std::size_t>(k + changes + 1)];
  }
  // Whether the diagonal is best come to by an insertion, from the diagonal above.
  static bool ByInsertion(const std::vector<std::ptrdiff_t>& reached, std::ptrdiff_t before,
                          std::ptrdiff_t k, std::ptrdiff_t changes) {
    return k == -changes ||
           (k != changes && At(reached, before, k - 1) < At(reached, before, k + 1));
  }
  static std::ptrdiff_t Begin(const std::vector<std::ptrdiff_t>& reached, std::ptrdiff_t before,
                              std::ptrdiff_t k, std::ptrdiff_t changes) {
    return ByInsertion(reached, before, k, changes) ? At(reached, before, k + 1)
                                                    : At(reached, before, k - 1) + 1;
  }

  std::vector<Match> WalkBack(std::ptrdiff_t changes) const {
    std::vector<Match> matches;
    std::ptrdiff_t k = m_countA - m_countB;
    std::ptrdiff_t a = m_countA;
    for (; changes >= 0; --changes) {
      std::ptrdiff_t begin = 0;
      bool byInsertion = false;
      if (changes > 0) {
        const auto& reached = m_history[static_cast<std::size_t>(changes - 1)];
        byInsertion = ByInsertion(reached, changes - 1, k, changes);
        begin = Begin(reached, changes - 1, k, changes);
      }
      for (; a > begin; --a)
        matches.push_back({static_cast<std::size_t>(a - 1), static_cast<std::size_t>(a - 1 - k)});
      if (!byInsertion) --a;
      k += byInsertion ? 1 : -1;
    }
    std::reverse(matches.begin(), matches.end());
    return matches;
  }

  const std::ptrdiff_t m_countA;
  const std::ptrdiff_t m_countB;
  const Equal& m_areEqual;
  std::vector<std::vector<std::ptrdiff_t>> m_history;
};

}  // namespace

std::vector<AlignedRows> AlignInOrder(std::size_t countA, std::size_t countB,
                                      const Equal& areEqual) {
  std::size_t begin = 0;
  while (begin < countA && begin < countB && areEqual(begin, begin)) ++begin;
  std::size_t end = 0;
  while (begin + end < countA && begin + end < countB &&
         areEqual(countA - 1 - end, countB - 1 - end))
    ++end;
  const Equal equalInside = [&](std::size_t a, std::size_t b) {
    return areEqual(begin + a, begin + b);
  };
  std::vector<Match> matches = ShortestWay(countA - begin - end, countB - begin - end, equalInside)
                                   .FindMatches()
                                   .value_or(std::vector<Match>());

  std::vector<AlignedRows> aligned;
  std::size_t a = 0;
  std::size_t b = 0;
  const auto takeUpTo = [&](std::size_t stopA, std::size_t stopB) {
    while (a < stopA || b < stopB) {
      AlignedRows rows;
      if (a < stopA) rows.a = a++;
      if (b < stopB) rows.b = b++;
      aligned.push_back(rows);
    }
  };
  takeUpTo(begin, begin);
  for (const Match& match : matches) {
    takeUpTo(begin + match.a, begin + match.b);
    takeUpTo(begin + match.a + 1, begin + match.b + 1);
  }
  takeUpTo(countA - end, countB - end);
  takeUpTo(countA, countB);
  return aligned;
}

std::vector<AlignedRows> AlignByKey(const std::vector<std::string>& keysA,
                                    const std::vector<std::string>& keysB) {
  struct Places {
    std::vector<std::size_t> places;
    std::size_t taken = 0;
  };
  std::unordered_map<std::string, Places> placesInB;
  for (std::size_t b = 0; b < keysB.size(); ++b) placesInB[keysB[b]].places.push_back(b);
  std::vector<bool> taken(keysB.size());
  std::vector<AlignedRows> aligned;
  for (std::size_t a = 0; a < keysA.size(); ++a) {
    AlignedRows rows;
    rows.a = a;
    const auto found = placesInB.find(keysA[a]);
    if (found != placesInB.end() && found->second.taken < found->second.places.size()) {
      rows.b = found->second.places[found->second.taken++];
      taken[*rows.b] = true;
    }
    aligned.push_back(rows);
  }
  for (std::size_t b = 0; b < keysB.size(); ++b) {
    if (!taken[b]) aligned.push_back({std::nullopt, b});
  }
  return aligned;
}

}  // namespace TabulonCli
