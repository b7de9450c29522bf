#include "Tabulon/src/memory/MUScratchArray.h"

#include <new>

#include "Tabulon/src/memory/MULargePages.h"

namespace {

// From here on a large page is faster than the small ones, though a part of it is of no use.
constexpr std::size_t FEWEST_BYTES = MU_LARGE_PAGE / 4;

}  // namespace

void* MUAllocateLarge(std::size_t bytes) {
  if (bytes < FEWEST_BYTES) return ::operator new(bytes);
  const std::size_t pages = (bytes - 1) / MU_LARGE_PAGE + 1;
  return MUAllocateLargePages(pages * MU_LARGE_PAGE, MU_LARGE_PAGE, true);
}

void MUFreeLarge(void* memory, std::size_t bytes) noexcept {
  if (bytes < FEWEST_BYTES) {
    ::operator delete(memory);
  } else {
    MUFreeLargePages(memory);
  }
}
