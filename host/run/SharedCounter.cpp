#include "host/run/SharedCounter.h"

#include <sys/mman.h>

#include <new>

#include "host/results/ExitStatus.h"

namespace OmbreliaHost {

SharedCounter::SharedCounter() : m_next(nullptr) {
  void* const memory =
      mmap(nullptr, sizeof(*m_next), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
  if (memory == MAP_FAILED) throw RunError(ExitStatus::NoReport, "no memory can be shared");
  m_next = new (memory) std::atomic<std::size_t>(0);
}

SharedCounter::~SharedCounter() { munmap(m_next, sizeof(*m_next)); }

}  // namespace OmbreliaHost
