#include "Tabulon/cli/StandardInputCopy.h"

#include <vector>

#include "Tabulon/cli/ExitStatus.h"

namespace TabulonCli {

namespace {

// One byte more than the largest data file that a reader takes.
constexpr std::size_t ENOUGH = (std::size_t{1} << 20) + 1;

}  // namespace

StandardInputCopy::StandardInputCopy() : m_file(std::tmpfile()) {
  if (m_file == nullptr) throw RunError(ExitStatus::NoOutput, "-: no temporary file can be made");
  std::vector<char> bytes(ENOUGH);
  const std::size_t count = std::fread(bytes.data(), 1, bytes.size(), stdin);
  if (std::ferror(stdin) != 0) throw RunError(ExitStatus::WrongUse, "-: cannot be read");
  if (std::fwrite(bytes.data(), 1, count, m_file.get()) != count || std::fflush(m_file.get()) != 0)
    throw RunError(ExitStatus::NoOutput, "-: the temporary file cannot be written");
  std::rewind(m_file.get());
}

std::filesystem::path StandardInputCopy::Path() const {
  return "/dev/fd/" + std::to_string(fileno(m_file.get()));
}

}  // namespace TabulonCli
