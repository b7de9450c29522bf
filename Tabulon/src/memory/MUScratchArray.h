// Memory for what grows with the number of rows.
#ifndef OMBRELIA_TABULON_SRC_MEMORY_MUSCRATCHARRAY_H
#define OMBRELIA_TABULON_SRC_MEMORY_MUSCRATCHARRAY_H

#include <cstddef>
#include <memory>
#include <type_traits>
#include <vector>

// Effect: new memory, without values: from half a mebibyte on in separate large pages, else from the heap.
// Cost: that of the heap, or a system call and the first touch of each page.
// Lifetime: the caller frees it with MUFreeLarge.
// Threads: any number.
// Failure: throws std::bad_alloc.
void* MUAllocateLarge(std::size_t bytes);
// Gives the memory back. bytes: as many as were asked for.
void MUFreeLarge(void* memory, std::size_t bytes) noexcept;

// Lets a container live in such memory.
template <typename ITEM>
struct MULargeAllocator {
  using value_type = ITEM;

  MULargeAllocator() = default;
  template <typename OTHER>
  MULargeAllocator(const MULargeAllocator<OTHER>&) {}

  ITEM* allocate(std::size_t count) {
    return static_cast<ITEM*>(MUAllocateLarge(count * sizeof(ITEM)));
  }
  void deallocate(ITEM* items, std::size_t count) noexcept {
    MUFreeLarge(items, count * sizeof(ITEM));
  }

  friend bool operator==(const MULargeAllocator&, const MULargeAllocator&) { return true; }
  friend bool operator!=(const MULargeAllocator&, const MULargeAllocator&) { return false; }
};

template <typename ITEM>
using MULargeVector = std::vector<ITEM, MULargeAllocator<ITEM>>;

// Effect: an array of a fixed size whose items have no values at first.
// Cost: that of MUAllocateLarge, without a pass over the items.
// Lifetime: it owns its memory; pointers hold as long as the array.
// Threads: one at a time.
// Failure: an index must be below size(), unchecked. The constructor throws std::bad_alloc.
template <typename ITEM>
class MUScratchArray {
  static_assert(std::is_trivially_copyable_v<ITEM> && std::is_trivially_destructible_v<ITEM>);

 public:
  explicit MUScratchArray(std::size_t size)
      : m_items(static_cast<ITEM*>(MUAllocateLarge(size * sizeof(ITEM))), Free{size}) {}

  std::size_t size() const { return m_items.get_deleter().size; }
  ITEM* begin() { return m_items.get(); }
  ITEM* end() { return begin() + size(); }
  const ITEM* begin() const { return m_items.get(); }
  const ITEM* end() const { return begin() + size(); }
  ITEM& operator[](std::size_t index) { return m_items[index]; }
  const ITEM& operator[](std::size_t index) const { return m_items[index]; }

 private:
  struct Free {
    void operator()(ITEM* items) const { MUFreeLarge(items, size * sizeof(ITEM)); }
    std::size_t size;
  };
  std::unique_ptr<ITEM[], Free> m_items;
};

#endif
