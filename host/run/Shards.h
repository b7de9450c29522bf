// Which share of the data files this process is to verify.
#ifndef OMBRELIA_HOST_RUN_SHARDS_H
#define OMBRELIA_HOST_RUN_SHARDS_H

#include <optional>

#include "host/results/RunResults.h"

namespace OmbreliaHost {

// The share that a build system asks for: TEST_TOTAL_SHARDS with TEST_SHARD_INDEX, or GTEST_TOTAL_SHARDS
// with GTEST_SHARD_INDEX, the index from 0. Ends the run (WrongUse) at half a pair, at a value that is no
// whole number, at an index beyond the last share, and if the two pairs do not say the same.
std::optional<Shard> ShardOfEnvironment();

// Makes the file that TEST_SHARD_STATUS_FILE names, if it is set: so the build system knows that its
// shares are heeded. Ends the run (WrongUse) if it cannot be made.
void ConfirmShards();

}  // namespace OmbreliaHost

#endif
