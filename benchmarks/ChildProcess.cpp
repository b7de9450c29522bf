#include "benchmarks/ChildProcess.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <filesystem>
#include <sstream>

extern char** environ;

namespace Bench {

ChildResult RunChild(const std::vector<std::string>& command, int highestStatus) {
  ChildResult result;
  std::array<int, 2> ends{};
  if (pipe(ends.data()) != 0) return result;

  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
  posix_spawn_file_actions_addclose(&actions, ends[0]);
  posix_spawn_file_actions_addclose(&actions, ends[1]);
  std::vector<char*> arguments;
  for (const std::string& part : command) arguments.push_back(const_cast<char*>(part.c_str()));
  arguments.push_back(nullptr);

  const auto start = std::chrono::steady_clock::now();
  pid_t child = 0;
  const int failure =
      posix_spawnp(&child, arguments[0], &actions, nullptr, arguments.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  close(ends[1]);
  std::string output;
  std::array<char, 4096> buffer{};
  for (ssize_t count = 0; (count = read(ends[0], buffer.data(), buffer.size())) > 0;) {
    output.append(buffer.data(), static_cast<std::size_t>(count));
  }
  close(ends[0]);
  if (failure != 0) return result;
  int status = 0;
  if (waitpid(child, &status, 0) != child) return result;
  result.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  result.succeeded = WIFEXITED(status) && WEXITSTATUS(status) <= highestStatus;

  std::istringstream lines(output);
  for (std::string line; std::getline(lines, line);) {
    std::istringstream words(line);
    std::string name;
    double number = 0;
    if (words >> name >> number) result.figures[name] = number;
  }
  return result;
}

std::string ProgramBeside(const std::string& name) {
  return (std::filesystem::read_symlink("/proc/self/exe").parent_path() / name).string();
}

}  // namespace Bench
