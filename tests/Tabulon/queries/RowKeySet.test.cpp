#include <gtest/gtest.h>

#include <iterator>
#include <random>
#include <set>
#include <vector>

#include "Tabulon/src/queries/MURowKeySet.h"

namespace {

TEST(RowKeySet, HoldsCountsAndRanksAsASetDoes) {
  std::mt19937 random(20261121);
  for (const unsigned long limit : {1ul, 63ul, 64ul, 65ul, 1000ul}) {
    for (const unsigned share : {1u, 2u, 50u}) {
      MURowKeySet keys(limit);
      std::set<unsigned long> model;
      for (unsigned long i = 0; i < limit; ++i) {
        if (random() % share != 0) continue;
        const unsigned long key = limit - 1 - i;  // in no ascending order
        keys.Add(key);
        model.insert(key);
      }
      ASSERT_EQ(keys.CountRanks(), model.size());
      std::vector<unsigned long> inOrder;
      keys.ForEach([&](unsigned long key) { inOrder.push_back(key); });
      ASSERT_EQ(inOrder, std::vector<unsigned long>(model.begin(), model.end()));
      for (std::size_t rank = 0; rank < inOrder.size(); ++rank) {
        ASSERT_EQ(keys.RankOf(inOrder[rank]), rank);
      }
      for (unsigned long key = 0; key < limit + 200; ++key) {
        ASSERT_EQ(keys.Holds(key), model.count(key) != 0) << key;
      }
    }
  }
}

}  // namespace
