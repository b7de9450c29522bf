// Many processes that append to one history.
#include "host/results/HistoryFile.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include "tests/support/Files.h"

namespace Tests {
namespace {

using namespace OmbreliaHost;

// A long line, so that a write in pieces would be torn apart.
HistoryLine LineOf(int process, int number) {
  HistoryLine line;
  line.time = "2026-03-01T12:00:00Z";
  line.experiment = std::to_string(process);
  line.digest = std::to_string(number);
  line.failed = {std::string(static_cast<std::size_t>(5000 + 700 * process), 'x')};
  return line;
}

// Another process, which appends that many lines, one by one.
pid_t StartAppending(const std::string& path, int process, int lines) {
  const pid_t child = fork();
  if (child != 0) return child;
  HistoryFile file(path, HistoryFile::Use::Append);
  for (int i = 0; i < lines; ++i) file.Append({LineOf(process, i)});
  _exit(0);
}

TEST(HistoryFile, EveryLineOfEveryProcessIsWhole) {
  const ScratchFolder folder;
  const std::string path = folder / "history.jsonl";
  constexpr int PROCESSES = 8;
  constexpr int LINES = 150;
  std::vector<pid_t> children;
  for (int i = 0; i < PROCESSES; ++i) children.push_back(StartAppending(path, i, LINES));
  for (const pid_t child : children) {
    int status = -1;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
  }
  const HistoryContent content = HistoryFile(path, HistoryFile::Use::Read).Read();
  EXPECT_EQ(content.skipped, std::vector<std::string>());
  EXPECT_EQ(content.lines.size(), static_cast<std::size_t>(PROCESSES) * LINES);
  std::vector<int> next(PROCESSES);
  for (const HistoryLine& line : content.lines)
    EXPECT_EQ(line.digest, std::to_string(next[std::stoul(line.experiment)]++));
}

TEST(HistoryFile, AKilledProcessCostsItsLastLineAtMost) {
  const ScratchFolder folder;
  const std::string path = folder / "history.jsonl";
  for (int i = 0; i < 10; ++i) {
    const pid_t child = StartAppending(path, i, 100000000);
    usleep(static_cast<useconds_t>(3000 + 1000 * i));
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
  }
  HistoryFile(path, HistoryFile::Use::Append).Append({LineOf(99, 0)});
  const HistoryContent content = HistoryFile(path, HistoryFile::Use::Read).Read();
  EXPECT_LE(content.skipped.size(), 10u);
  ASSERT_FALSE(content.lines.empty());
  EXPECT_EQ(content.lines.back().experiment, "99");
}

}  // namespace
}  // namespace Tests
