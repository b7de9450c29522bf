#include "host/run/Shards.h"

#include <charconv>
#include <cstdlib>
#include <fstream>
#include <string>

#include "host/results/ExitStatus.h"

namespace OmbreliaHost {

namespace {

[[noreturn]] void Reject(const std::string& variable, const std::string& why) {
  throw RunError(ExitStatus::WrongUse, variable + " " + why);
}

std::optional<std::size_t> NumberIn(const std::string& variable) {
  const char* const text = std::getenv(variable.c_str());
  if (text == nullptr) return std::nullopt;
  const std::string digits = text;
  std::size_t number = 0;
  const char* const end = digits.data() + digits.size();
  const auto [stop, error] = std::from_chars(digits.data(), end, number);
  if (error != std::errc() || stop != end) {
    Reject(variable, "is \"" + digits + "\", which is no whole number");
  }
  return number;
}

std::optional<Shard> ShardIn(const std::string& total, const std::string& index) {
  const std::optional<std::size_t> count = NumberIn(total);
  const std::optional<std::size_t> number = NumberIn(index);
  if (!count && !number) return std::nullopt;
  if (!count) Reject(index, "is set and " + total + " is not");
  if (!number) Reject(total, "is set and " + index + " is not");
  if (*number >= *count) {
    Reject(index, "is " + std::to_string(*number) + ", which is beyond the " +
                      std::to_string(*count) + " of " + total);
  }
  return Shard{*number + 1, *count};
}

}  // namespace

std::optional<Shard> ShardOfEnvironment() {
  const std::optional<Shard> shard = ShardIn("TEST_TOTAL_SHARDS", "TEST_SHARD_INDEX");
  const std::optional<Shard> other = ShardIn("GTEST_TOTAL_SHARDS", "GTEST_SHARD_INDEX");
  if (shard && other && (shard->index != other->index || shard->count != other->count)) {
    Reject("TEST_SHARD_INDEX", "and GTEST_SHARD_INDEX ask for different shares");
  }
  return shard ? shard : other;
}

void ConfirmShards() {
  const char* const file = std::getenv("TEST_SHARD_STATUS_FILE");
  if (file == nullptr || *file == '\0') return;
  if (!std::ofstream(file, std::ios::app)) Reject(file, "cannot be written");
}

}  // namespace OmbreliaHost
