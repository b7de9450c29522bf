// Files that are written whole or not at all.
#ifndef OMBRELIA_HOST_RESULTS_WHOLEFILE_H
#define OMBRELIA_HOST_RESULTS_WHOLEFILE_H

#include <filesystem>
#include <string>

namespace OmbreliaHost {

// Puts the text in place of what the file held. Whoever looks meanwhile, and after a failure, finds what stood there
// before; a device or a pipe gets the text as it is. Ends the run: WrongUse if the file cannot be written,
// NoReport if it cannot be written to its end.
void WriteWholeFile(const std::filesystem::path& path, const std::string& text);

}  // namespace OmbreliaHost

#endif
