#include "Tabulon/src/memory/MULargePages.h"

#include <cstdlib>
#include <new>

#if defined(__linux__)
#include <sys/mman.h>
#endif

void* MUAllocateLargePages(std::size_t bytes, std::size_t alignment, bool wanted) {
  void* const memory = std::aligned_alloc(alignment, bytes);
  if (memory == nullptr) throw std::bad_alloc();
#if defined(__linux__)
  if (wanted) madvise(memory, bytes, MADV_HUGEPAGE);
#else
  static_cast<void>(wanted);
#endif
  return memory;
}

void MUFreeLargePages(void* memory) noexcept { std::free(memory); }
