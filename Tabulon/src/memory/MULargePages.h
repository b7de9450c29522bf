// Memory in the system's large pages.
#ifndef OMBRELIA_TABULON_SRC_MEMORY_MULARGEPAGES_H
#define OMBRELIA_TABULON_SRC_MEMORY_MULARGEPAGES_H

#include <cstddef>

constexpr std::size_t MU_LARGE_PAGE = std::size_t{2} << 20;

// Effect: new memory, without values, at a multiple of alignment. A system without large pages gives small ones.
// Cost: a system call. Most of it is the first touch of each page, and a large page holds as much as 512 small ones.
// Lifetime: the caller frees it with MUFreeLargePages.
// Threads: any number.
// Failure: throws std::bad_alloc.
//
// bytes: a multiple of alignment, which is a power of two. wanted: false for small pages, of which only those that
// are touched take memory.
void* MUAllocateLargePages(std::size_t bytes, std::size_t alignment, bool wanted);
// Gives the memory back to the system; null is nothing.
void MUFreeLargePages(void* memory) noexcept;

#endif
