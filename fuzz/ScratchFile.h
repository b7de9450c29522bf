// One file on disk that is rewritten for every input, and the set-up that all fuzzers share.
#ifndef OMBRELIA_FUZZ_SCRATCHFILE_H
#define OMBRELIA_FUZZ_SCRATCHFILE_H

#include <wx/string.h>

#include <cstddef>
#include <cstdint>

namespace Fuzz {

// Initialises wx for the rest of the process, without its log on the console.
void PrepareProcess();

// A file with these bytes below the system's folder for temporary files, removed by the destructor.
// Files that live at the same time need different names.
class ScratchFile {
 public:
  ScratchFile(const char* name, const std::uint8_t* data, std::size_t size);
  ~ScratchFile();
  ScratchFile(const ScratchFile&) = delete;
  ScratchFile& operator=(const ScratchFile&) = delete;

  const wxString& Path() const { return m_path; }

 private:
  wxString m_path;  // absolute
};

}  // namespace Fuzz

#endif
