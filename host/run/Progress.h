// Tells on standard error which data file is in hand.
#ifndef OMBRELIA_HOST_RUN_PROGRESS_H
#define OMBRELIA_HOST_RUN_PROGRESS_H

#include <cstddef>
#include <filesystem>

#include "host/run/CommandLine.h"

namespace OmbreliaHost {

class Progress {
 public:
  // Auto: shown if standard error is a terminal.
  Progress(ShowMode mode, std::size_t datafiles);
  void Next(const std::filesystem::path& datafile);

 private:
  bool m_shown;
  std::size_t m_datafiles;
  std::size_t m_current;
};

}  // namespace OmbreliaHost

#endif
