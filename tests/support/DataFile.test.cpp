#include "tests/support/DataFile.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace Tests {
namespace {

// A missing verifier or sample fails the test that asks for it; the next test runs.
TEST(DataFile, ThrowsIfNoVerifierHasThatName) {
  EXPECT_THROW(VerifyBytes("renamed.om4", ""), std::runtime_error);
}

TEST(DataFile, ThrowsIfThereIsNoSample) {
  EXPECT_THROW(DataFile::Sample("renamed.om4"), std::runtime_error);
}

TEST(DataFile, ThrowsIfThereIsNoSuchColumn) {
  EXPECT_THROW(DataFile::Of("x", {"a"}, {{"1"}}).Cell(0, "b"), std::runtime_error);
}

}  // namespace
}  // namespace Tests
