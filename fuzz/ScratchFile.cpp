#include "fuzz/ScratchFile.h"

#include <fcntl.h>
#include <unistd.h>
#include <wx/init.h>
#include <wx/log.h>

#include <cstdlib>
#include <filesystem>
#include <string>

namespace Fuzz {

void PrepareProcess() {
  // Never let go of: the plug-in object writes its report after main, and would log again without.
  if (!wxInitialize()) std::abort();
  wxLog::EnableLogging(false);
}

ScratchFile::ScratchFile(const char* name, const std::uint8_t* data, std::size_t size) {
  const std::string path = std::filesystem::temp_directory_path() /
                           ("ombrelia-fuzz-" + std::to_string(getpid()) + "-" + name + ".txt");
  const int file = open(path.c_str(), O_CREAT | O_TRUNC | O_WRONLY, 0600);
  if (file < 0 || write(file, data, size) != static_cast<ssize_t>(size)) std::abort();
  close(file);
  m_path = wxString::FromUTF8(path.c_str());
}

ScratchFile::~ScratchFile() { unlink(m_path.utf8_str()); }

}  // namespace Fuzz
