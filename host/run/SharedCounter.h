// The next piece of work, for processes side by side.
#ifndef OMBRELIA_HOST_RUN_SHAREDCOUNTER_H
#define OMBRELIA_HOST_RUN_SHAREDCOUNTER_H

#include <atomic>
#include <cstddef>

namespace OmbreliaHost {

// Counts from 0 in memory that this process shares with those that it forks later.
class SharedCounter {
 public:
  // Ends the run (NoReport) if there is no memory to share.
  SharedCounter();
  ~SharedCounter();
  SharedCounter(const SharedCounter&) = delete;
  SharedCounter& operator=(const SharedCounter&) = delete;

  // Each number is given once, to one of the processes.
  std::size_t Take() { return m_next->fetch_add(1); }
  // The number that would be given next.
  std::size_t Next() const { return m_next->load(); }

 private:
  static_assert(std::atomic<std::size_t>::is_always_lock_free);
  std::atomic<std::size_t>* m_next;
};

}  // namespace OmbreliaHost

#endif
