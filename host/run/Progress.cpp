#include "host/run/Progress.h"

#include <unistd.h>

#include <iostream>

namespace OmbreliaHost {

Progress::Progress(ShowMode mode, std::size_t datafiles)
    : m_shown(mode == ShowMode::Always || (mode == ShowMode::Auto && isatty(STDERR_FILENO) != 0)),
      m_datafiles(datafiles),
      m_current(0) {}

void Progress::Next(const std::filesystem::path& datafile) {
  ++m_current;
  if (!m_shown) return;
  std::cerr << "[" << m_current << "/" << m_datafiles << "] " << datafile.filename().string()
            << std::endl;
}

}  // namespace OmbreliaHost
