// Tells contents apart.
#ifndef OMBRELIA_HOST_RESULTS_DIGEST_H
#define OMBRELIA_HOST_RESULTS_DIGEST_H

#include <filesystem>
#include <string>

namespace OmbreliaHost {

// XXH3 of 128 bits of the file's bytes, in hexadecimal digits as every tool for it prints them; empty if they
// cannot be read.
std::string DigestOf(const std::filesystem::path& file);

// The same of a text's bytes.
std::string DigestOfText(const std::string& text);

}  // namespace OmbreliaHost

#endif
