// Memory for the rows of data files and what they look at.
#ifndef OMBRELIA_TABULON_SRC_MEMORY_MUPOOLEDMEMORY_H
#define OMBRELIA_TABULON_SRC_MEMORY_MUPOOLEDMEMORY_H

#include <cstddef>
#include <new>
#include <utility>
#include <vector>

// Hands out pieces side by side from a few large chunks. Rows that follow each other lie side by side, and a
// table of many files has its memory in the system's large pages, where the first touch of each byte is far
// cheaper. A chunk goes when its last piece is freed: pieces shall live and die together, as a file's do.
// Any thread may free what another one got. Throws std::bad_alloc.
void* MUAllocatePooled(std::size_t bytes);
// bytes: as they were asked for.
void MUFreePooled(void* memory, std::size_t bytes) noexcept;

// For containers. Items without an initial value are left as they are.
template <typename T>
struct MUPoolAllocator {
  using value_type = T;

  MUPoolAllocator() = default;
  template <typename OTHER>
  MUPoolAllocator(const MUPoolAllocator<OTHER>&) {}

  T* allocate(std::size_t count) {
    if (count > static_cast<std::size_t>(-1) / sizeof(T)) throw std::bad_alloc();
    return static_cast<T*>(MUAllocatePooled(count * sizeof(T)));
  }
  void deallocate(T* items, std::size_t count) noexcept { MUFreePooled(items, count * sizeof(T)); }

  template <typename OTHER>
  void construct(OTHER* place) {
    ::new (static_cast<void*>(place)) OTHER;
  }
  template <typename OTHER, typename... ARGUMENTS>
  void construct(OTHER* place, ARGUMENTS&&... arguments) {
    ::new (static_cast<void*>(place)) OTHER(std::forward<ARGUMENTS>(arguments)...);
  }

  friend bool operator==(const MUPoolAllocator&, const MUPoolAllocator&) { return true; }
  friend bool operator!=(const MUPoolAllocator&, const MUPoolAllocator&) { return false; }
};

template <typename T>
using MUPoolVector = std::vector<T, MUPoolAllocator<T>>;

#endif
