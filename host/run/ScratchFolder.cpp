#include "host/run/ScratchFolder.h"

#include <stdlib.h>

#include <string>
#include <system_error>
#include <vector>

#include "host/results/ExitStatus.h"

namespace fs = std::filesystem;

namespace OmbreliaHost {

ScratchFolder::ScratchFolder() {
  std::error_code error;
  std::vector<fs::path> places = {"/dev/shm", fs::temp_directory_path(error)};
  for (const fs::path& place : places) {
    if (place.empty()) continue;
    std::string name = place / "verify-datafiles-XXXXXX";
    if (mkdtemp(name.data()) == nullptr) continue;
    m_path = name;
    return;
  }
  throw RunError(ExitStatus::NoReport, "there is no place for files that are read once");
}

ScratchFolder::~ScratchFolder() {
  std::error_code ignored;
  fs::remove_all(m_path, ignored);
}

}  // namespace OmbreliaHost
