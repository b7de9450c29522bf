#include "host/results/Digest.h"

// All of it is compiled in here, so that no library is needed at run time.
#define XXH_INLINE_ALL
#include <xxhash.h>

#include <array>
#include <fstream>
#include <memory>

namespace OmbreliaHost {

namespace {

std::string Hexadecimal(const XXH128_hash_t& hash) {
  XXH128_canonical_t bytes;
  XXH128_canonicalFromHash(&bytes, hash);
  const std::string digits = "0123456789abcdef";
  std::string text;
  for (const unsigned char byte : bytes.digest) {
    text += digits[byte >> 4];
    text += digits[byte & 0xF];
  }
  return text;
}

}  // namespace

std::string DigestOf(const std::filesystem::path& file) {
  const std::unique_ptr<XXH3_state_t, decltype(&XXH3_freeState)> state(XXH3_createState(),
                                                                       &XXH3_freeState);
  if (state == nullptr || XXH3_128bits_reset(state.get()) != XXH_OK) return std::string();
  std::ifstream in(file, std::ios::binary);
  std::array<char, 65536> block{};
  while (in.read(block.data(), block.size()) || in.gcount() > 0) {
    XXH3_128bits_update(state.get(), block.data(), static_cast<std::size_t>(in.gcount()));
  }
  return in.eof() && !in.bad() ? Hexadecimal(XXH3_128bits_digest(state.get())) : std::string();
}

std::string DigestOfText(const std::string& text) {
  return Hexadecimal(XXH3_128bits(text.data(), text.size()));
}

}  // namespace OmbreliaHost
