#include "Tabulon/src/MUScratchArray.h"

#include <cstdlib>
#include <new>

#if defined(__linux__)
#include <sys/mman.h>
#endif

namespace {

constexpr std::size_t LARGE_PAGE = std::size_t{2} << 20;
// From here on, half a large page or more is used.
constexpr std::size_t FEWEST_BYTES = LARGE_PAGE / 2;

}  // namespace

void* MUAllocateLarge(std::size_t bytes) {
  if (bytes < FEWEST_BYTES) return ::operator new(bytes);
  const std::size_t rounded = (bytes + LARGE_PAGE - 1) / LARGE_PAGE * LARGE_PAGE;
  void* memory = rounded < bytes ? nullptr : std::aligned_alloc(LARGE_PAGE, rounded);
  if (memory == nullptr) throw std::bad_alloc();
#if defined(__linux__)
  // A wish; without large pages the memory is as good, only slower.
  madvise(memory, rounded, MADV_HUGEPAGE);
#endif
  return memory;
}

void MUFreeLarge(void* memory, std::size_t bytes) noexcept {
  if (bytes < FEWEST_BYTES) {
    ::operator delete(memory);
  } else {
    std::free(memory);
  }
}
