#include "tests/support/Files.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>

namespace fs = std::filesystem;

namespace Tests {

ScratchFolder::ScratchFolder() : m_path((fs::temp_directory_path() / "ombrelia-XXXXXX").string()) {
  if (mkdtemp(m_path.data()) == nullptr) std::abort();
}

ScratchFolder::~ScratchFolder() {
  std::error_code ignored;
  fs::remove_all(m_path, ignored);
}

void ScratchFolder::MakeReportFolder() const { fs::create_directories(ReportFolder()); }

WorkingDirectory::WorkingDirectory(const std::string& path)
    : m_former(fs::current_path().string()) {
  fs::current_path(path);
}

WorkingDirectory::~WorkingDirectory() { fs::current_path(m_former); }

std::string ReadFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  EXPECT_TRUE(file) << path;
  return std::string(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
}

void WriteFile(const std::string& path, const std::string& content) {
  std::ofstream file(path, std::ios::binary);
  file << content;
  ASSERT_TRUE(file.flush()) << path;
}

bool Exists(const std::string& path) { return fs::exists(path); }

std::vector<std::string> NamesIn(const std::string& folder) {
  std::vector<std::string> names;
  for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
    names.push_back(entry.path().filename().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

std::string PidBlanked(std::string report, pid_t pid) {
  const std::string actual = "_pid_" + std::to_string(pid) + "\"";
  const std::string blanked = "_pid_@PID@\"";
  for (std::size_t at = report.find(actual); at != std::string::npos;
       at = report.find(actual, at + blanked.size())) {
    report.replace(at, actual.size(), blanked);
  }
  return report;
}

std::string ReportName(pid_t pid) {
  return "FakeUnitTestsDataHookExperimentRunning_" + std::to_string(pid) + ".xml";
}

std::string FlagFileName(pid_t pid) { return "special_flag_file_" + std::to_string(pid) + ".dat"; }

std::vector<std::string> TestCasesOf(const std::string& report) {
  const std::string start = "        <testcase name=\"";
  std::vector<std::string> cases;
  std::istringstream lines(report);
  for (std::string line; std::getline(lines, line);) {
    if (line.compare(0, start.size(), start) != 0) continue;
    const std::string name = line.substr(start.size(), line.find("\" status=") - start.size());
    const bool passed = line.find("/>", line.size() - 2) != std::string::npos;
    cases.push_back(passed ? name : "FAIL " + name);
  }
  return cases;
}

}  // namespace Tests
