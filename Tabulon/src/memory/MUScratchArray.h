// Memory for what grows with the number of rows.
#ifndef OMBRELIA_TABULON_SRC_MEMORY_MUSCRATCHARRAY_H
#define OMBRELIA_TABULON_SRC_MEMORY_MUSCRATCHARRAY_H

#include <cstddef>
#include <memory>
#include <type_traits>
#include <vector>

// Many bytes come in large pages, few from the heap. Throws std::bad_alloc. Both sides must name the same
// number of bytes.
void* MUAllocateLarge(std::size_t bytes);
void MUFreeLarge(void* memory, std::size_t bytes) noexcept;

// For containers.
template <typename T>
struct MULargeAllocator {
  using value_type = T;

  MULargeAllocator() = default;
  template <typename OTHER>
  MULargeAllocator(const MULargeAllocator<OTHER>&) {}

  T* allocate(std::size_t count) { return static_cast<T*>(MUAllocateLarge(count * sizeof(T))); }
  void deallocate(T* items, std::size_t count) noexcept { MUFreeLarge(items, count * sizeof(T)); }

  friend bool operator==(const MULargeAllocator&, const MULargeAllocator&) { return true; }
  friend bool operator!=(const MULargeAllocator&, const MULargeAllocator&) { return false; }
};

template <typename T>
using MULargeVector = std::vector<T, MULargeAllocator<T>>;

// An array of a fixed size whose items have no values yet.
template <typename T>
class MUScratchArray {
  static_assert(std::is_trivially_copyable_v<T> && std::is_trivially_destructible_v<T>);

 public:
  explicit MUScratchArray(std::size_t size)
      : m_items(static_cast<T*>(MUAllocateLarge(size * sizeof(T))), Free{size}) {}

  std::size_t size() const { return m_items.get_deleter().size; }
  T* begin() { return m_items.get(); }
  T* end() { return begin() + size(); }
  const T* begin() const { return m_items.get(); }
  const T* end() const { return begin() + size(); }
  T& operator[](std::size_t index) { return m_items[index]; }
  const T& operator[](std::size_t index) const { return m_items[index]; }

 private:
  struct Free {
    void operator()(T* items) const { MUFreeLarge(items, size * sizeof(T)); }
    std::size_t size;
  };
  std::unique_ptr<T[], Free> m_items;
};

#endif
