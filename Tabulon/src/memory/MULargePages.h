// Memory in the system's large pages.
#ifndef OMBRELIA_TABULON_SRC_MEMORY_MULARGEPAGES_H
#define OMBRELIA_TABULON_SRC_MEMORY_MULARGEPAGES_H

#include <cstddef>

constexpr std::size_t MU_LARGE_PAGE = std::size_t{2} << 20;

// The first touch of a page is what costs most of new memory, and a large page holds 512 small ones.
// bytes: a multiple of alignment, which is a power of two. wanted: false for small pages, where it matters
// that no more memory is used than is touched. A system without large pages gives small ones. Throws
// std::bad_alloc.
void* MUAllocateLargePages(std::size_t bytes, std::size_t alignment, bool wanted);
void MUFreeLargePages(void* memory) noexcept;

#endif
