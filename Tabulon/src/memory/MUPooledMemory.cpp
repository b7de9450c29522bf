#include "Tabulon/src/memory/MUPooledMemory.h"

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <mutex>

#include "Tabulon/src/machine/MUMachine.h"
#include "Tabulon/src/memory/MULargePages.h"

namespace {

constexpr std::size_t CHUNK_SIZE = 2 * MU_LARGE_PAGE;
constexpr std::size_t MOST_BYTES = static_cast<std::size_t>(PTRDIFF_MAX) - 2 * CHUNK_SIZE;

}  // namespace

#if MU_HAS_ADDRESS_SANITIZER

// So that the sanitizer sees what is read beyond a piece or after its end.
void* MUAllocatePooled(std::size_t bytes) {
  if (bytes > MOST_BYTES) throw std::bad_alloc();
  return ::operator new(bytes);
}
void MUFreePooled(void* memory, std::size_t) noexcept { ::operator delete(memory); }

void MUPooledPieces::Refill(std::size_t) {
  m_next = static_cast<char*>(MUAllocatePooled(m_bytes));
  m_left = 1;
}

#else

namespace {

constexpr std::size_t ALIGNMENT = alignof(std::max_align_t);
// The first chunks stay with small pages, of which no more are used than are needed.
constexpr int CHUNKS_OF_SMALL_PAGES = 2;
// A piece this long holds a file's text, not a row; only then is reuse of its place checked.
constexpr std::size_t LONG_PIECE = std::size_t{16} * 1024;

// Stands at the beginning of a chunk. Chunks begin at multiples of their size, so a piece finds its own.
struct Chunk {
  std::atomic<std::size_t> pieces;
  std::size_t size;
  std::size_t used;  // bytes from the beginning, this head included
};

constexpr std::size_t RoundedUp(std::size_t bytes, std::size_t unit) {
  return (bytes + unit - 1) / unit * unit;
}
constexpr std::size_t HEAD = RoundedUp(sizeof(Chunk), 64);

// Guards the variables below and every change of a chunk's piece count from or to zero.
std::mutex guard;
Chunk* current = nullptr;  // the one that pieces come from
Chunk* spare = nullptr;    // an empty one for the next time
int chunkCount = 0;
bool maySpare = true;

// Frees the spare chunk when the library is unloaded.
struct Janitor {
  ~Janitor() {
    const std::lock_guard<std::mutex> lock(guard);
    maySpare = false;
    if (spare != nullptr) MUFreeLargePages(spare);
    spare = nullptr;
  }
} janitor;

Chunk* NewChunk(std::size_t size) {
  Chunk* chunk = nullptr;
  if (size == CHUNK_SIZE && spare != nullptr) {
    std::swap(chunk, spare);
  } else {
    const bool isMuch = chunkCount >= CHUNKS_OF_SMALL_PAGES || size > CHUNK_SIZE;
    void* const memory = MUAllocateLargePages(size, CHUNK_SIZE, isMuch);
    chunk = ::new (memory) Chunk{{0}, size, 0};
  }
  chunk->used = HEAD;
  ++chunkCount;
  return chunk;
}

void Discard(Chunk* chunk) {
  --chunkCount;
  if (chunk == current) current = nullptr;
  if (maySpare && spare == nullptr && chunk->size == CHUNK_SIZE) {
    spare = chunk;
  } else {
    MUFreeLargePages(chunk);
  }
}

std::size_t SizeOfPiece(std::size_t bytes) { return RoundedUp(bytes == 0 ? 1 : bytes, ALIGNMENT); }

// Allocates adjacent pieces; size is their total in bytes.
void* Allocate(std::size_t size, std::size_t pieces) {
  const std::lock_guard<std::mutex> lock(guard);
  Chunk* chunk = current;
  if (size > CHUNK_SIZE - HEAD) {
    chunk = NewChunk(RoundedUp(HEAD + size, CHUNK_SIZE));
  } else if (chunk == nullptr || size > chunk->size - chunk->used) {
    chunk = current = NewChunk(CHUNK_SIZE);
  }
  void* const memory = reinterpret_cast<char*>(chunk) + chunk->used;
  chunk->used += size;
  chunk->pieces.fetch_add(pieces, std::memory_order_relaxed);
  return memory;
}

}  // namespace

void* MUAllocatePooled(std::size_t bytes) {
  if (bytes > MOST_BYTES) throw std::bad_alloc();
  return Allocate(SizeOfPiece(bytes), 1);
}

void MUFreePooled(void* memory, std::size_t bytes) noexcept {
  const auto address = reinterpret_cast<std::uintptr_t>(memory);
  auto* const chunk = reinterpret_cast<Chunk*>(static_cast<char*>(memory) - address % CHUNK_SIZE);
  // While other pieces remain, the chunk stays, and no lock is needed.
  std::size_t pieces = chunk->pieces.load(std::memory_order_relaxed);
  while (pieces > 1 && bytes < LONG_PIECE) {
    if (chunk->pieces.compare_exchange_weak(pieces, pieces - 1, std::memory_order_acq_rel)) return;
  }
  const std::lock_guard<std::mutex> lock(guard);
  // What was handed out last can be handed out again.
  const std::size_t size = SizeOfPiece(bytes);
  const auto end = address - reinterpret_cast<std::uintptr_t>(chunk) + size;
  if (end == chunk->used) chunk->used -= size;
  if (chunk->pieces.fetch_sub(1, std::memory_order_acq_rel) == 1) Discard(chunk);
}

void MUPooledPieces::Refill(std::size_t most) {
  constexpr std::size_t LARGEST_SUPPLY = std::size_t{16} * 1024;
  if (m_bytes > MOST_BYTES) throw std::bad_alloc();
  m_stride = SizeOfPiece(m_bytes);
  const std::size_t count = std::min(most, std::max<std::size_t>(LARGEST_SUPPLY / m_stride, 1));
  m_next = static_cast<char*>(Allocate(count * m_stride, count));
  m_left = count;
}

#endif

MUPooledPieces::~MUPooledPieces() {
  for (; m_left > 0; --m_left, m_next += m_stride) MUFreePooled(m_next, m_bytes);
}
