#include "benchmarks/ScratchFolder.h"

#include <stdlib.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <system_error>

namespace Bench {

ScratchFolder::ScratchFolder() {
  std::string pattern = (std::filesystem::temp_directory_path() / "ombrelia-bench-XXXXXX").string();
  if (mkdtemp(pattern.data()) == nullptr) {
    std::perror(pattern.c_str());
    std::exit(1);
  }
  m_path = pattern;
}

ScratchFolder::~ScratchFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(m_path, ignored);
}

}  // namespace Bench
