// Memory for the rows of data files and what they look at.
#ifndef OMBRELIA_TABULON_SRC_MEMORY_MUPOOLEDMEMORY_H
#define OMBRELIA_TABULON_SRC_MEMORY_MUPOOLEDMEMORY_H

#include <cstddef>
#include <new>
#include <utility>
#include <vector>

// Effect: a piece of memory, without values, aligned for every type. Pieces lie side by side in a few large chunks, in
// the order in which they are asked for. Where two chunks are in use already, or a piece alone needs more than an
// ordinary chunk, the new chunk asks for the system's large pages.
// Cost: a lock, and a system call for every chunk.
// Lifetime: a piece lives until it is freed, and a chunk as long as one of its pieces, so pieces should be freed
// together, as those of a file are.
// Threads: any number; each may free what another one got.
// Failure: throws std::bad_alloc.
void* MUAllocatePooled(std::size_t bytes);
// Frees a piece. bytes: as many as were asked for.
void MUFreePooled(void* memory, std::size_t bytes) noexcept;

// Effect: pieces of one size that are asked for one after the other.
// Cost: one lock for many pieces.
// Lifetime: each piece is freed by itself, with MUFreePooled, and may outlive this object; what was not taken is
// freed with it.
// Threads: one at a time.
// Failure: Take throws std::bad_alloc; the pieces that were taken stay.
class MUPooledPieces {
 public:
  explicit MUPooledPieces(std::size_t bytes) : m_bytes(bytes) {}
  ~MUPooledPieces();
  MUPooledPieces(const MUPooledPieces&) = delete;
  MUPooledPieces& operator=(const MUPooledPieces&) = delete;

  // most: how many pieces will be asked for at most, this one included; at least 1.
  void* Take(std::size_t most) {
    if (m_left == 0) Refill(most);
    --m_left;
    void* const piece = m_next;
    m_next += m_stride;
    return piece;
  }

 private:
  void Refill(std::size_t most);

  const std::size_t m_bytes;
  std::size_t m_stride = 0;  // from one piece to the next
  char* m_next = nullptr;
  std::size_t m_left = 0;
};

// Lets a container live in pooled memory. Items that are made without a value are left without one.
template <typename ITEM>
struct MUPoolAllocator {
  using value_type = ITEM;

  MUPoolAllocator() = default;
  template <typename OTHER>
  MUPoolAllocator(const MUPoolAllocator<OTHER>&) {}

  ITEM* allocate(std::size_t count) {
    if (count > static_cast<std::size_t>(-1) / sizeof(ITEM)) throw std::bad_alloc();
    return static_cast<ITEM*>(MUAllocatePooled(count * sizeof(ITEM)));
  }
  void deallocate(ITEM* items, std::size_t count) noexcept {
    MUFreePooled(items, count * sizeof(ITEM));
  }

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

template <typename ITEM>
using MUPoolVector = std::vector<ITEM, MUPoolAllocator<ITEM>>;

#endif
