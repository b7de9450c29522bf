#include "tests/support/Process.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>

#include "tests/BuildPaths.h"
#include "tests/support/Files.h"

namespace Tests {

namespace {

std::string NewFile() {
  std::string path = (std::filesystem::temp_directory_path() / "ombrelia-output-XXXXXX").string();
  const int descriptor = mkstemp(path.data());
  if (descriptor < 0) std::abort();
  close(descriptor);
  return path;
}

void RedirectTo(const std::string& path, int descriptor) {
  const int file = open(path.c_str(), O_WRONLY | O_TRUNC);
  if (file < 0 || dup2(file, descriptor) < 0) _exit(125);
}

[[noreturn]] void Start(const std::vector<std::string>& command, const ProcessSetup& setup) {
  if (!setup.workingDirectory.empty() && chdir(setup.workingDirectory.c_str()) != 0) _exit(124);
  for (const std::string& variable : setup.environment) {
    const std::size_t sign = variable.find('=');
    if (sign == std::string::npos) {
      unsetenv(variable.c_str());
    } else {
      setenv(variable.substr(0, sign).c_str(), variable.substr(sign + 1).c_str(), 1);
    }
  }
  if (setup.beforeStart) {
    const int status = setup.beforeStart();
    if (status != 0) _exit(status);
  }
  std::vector<char*> arguments;
  for (const std::string& argument : command) {
    arguments.push_back(const_cast<char*>(argument.c_str()));
  }
  arguments.push_back(nullptr);
  execvp(arguments[0], arguments.data());
  _exit(127);
}

}  // namespace

Process::Process(const std::vector<std::string>& command, const ProcessSetup& setup)
    : m_pid(-1), m_outFile(NewFile()), m_errFile(NewFile()) {
  m_pid = fork();
  if (m_pid < 0) std::abort();
  if (m_pid == 0) {
    RedirectTo(m_outFile, STDOUT_FILENO);
    RedirectTo(m_errFile, STDERR_FILENO);
    Start(command, setup);
  }
}

Process::~Process() {
  unlink(m_outFile.c_str());
  unlink(m_errFile.c_str());
}

Finished Process::Wait() {
  Finished finished;
  finished.pid = m_pid;
  int status = 0;
  if (waitpid(m_pid, &status, 0) != m_pid) std::abort();
  if (WIFEXITED(status)) finished.status = WEXITSTATUS(status);
  if (WIFSIGNALED(status)) finished.signal = WTERMSIG(status);
  finished.out = ReadFile(m_outFile);
  finished.err = ReadFile(m_errFile);
  return finished;
}

std::string Process::OutSoFar() const { return ReadFile(m_outFile); }

Finished RunProgram(const std::vector<std::string>& command, const ProcessSetup& setup) {
  return Process(command, setup).Wait();
}

int TakeHostName(const char* name) {
#ifdef __linux__
  if (unshare(CLONE_NEWUTS) != 0 && unshare(CLONE_NEWUSER | CLONE_NEWUTS) != 0)
    return NOT_PERMITTED;
  return sethostname(name, std::strlen(name)) == 0 ? 0 : NOT_PERMITTED;
#else
  static_cast<void>(name);
  return NOT_PERMITTED;
#endif
}

Finished DrivePlugin(const std::string& folder, const std::vector<std::string>& steps,
                     const std::vector<std::string>& environment) {
  std::vector<std::string> command = {std::string(OMBRELIA_BIN_DIR) + "/drive-plugin",
                                      OMBRELIA_PLUGIN_FILE};
  command.insert(command.end(), steps.begin(), steps.end());
  ProcessSetup setup;
  setup.workingDirectory = folder;
  setup.environment = environment;
  return RunProgram(command, setup);
}

}  // namespace Tests
