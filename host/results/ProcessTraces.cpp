#include "host/results/ProcessTraces.h"

#include <charconv>
#include <map>
#include <optional>
#include <system_error>
#include <utility>

#include "host/results/ExitStatus.h"

namespace fs = std::filesystem;

namespace OmbreliaHost {

namespace {

// The number in START<number>END, written as the plug-in writes it; absent if the name is another.
std::optional<unsigned long> NumberIn(const std::string& name, const std::string& start,
                                      const std::string& end) {
  if (name.size() <= start.size() + end.size() || name.compare(0, start.size(), start) != 0 ||
      name.compare(name.size() - end.size(), end.size(), end) != 0) {
    return std::nullopt;
  }
  const char* const last = name.data() + name.size() - end.size();
  unsigned long number = 0;
  const auto [stop, error] = std::from_chars(name.data() + start.size(), last, number);
  if (error != std::errc() || stop != last || name[start.size()] == '0') return std::nullopt;
  return number;
}

class Search {
 public:
  explicit Search(const fs::path& root) : m_root(root) {}
  void Folder(const fs::path& folder);
  std::vector<ProcessTraces> Found() const;

 private:
  void File(const fs::path& file);
  ProcessTraces& TracesOf(unsigned long process, const fs::path& file);

  const fs::path m_root;
  std::map<std::pair<fs::path, unsigned long>, ProcessTraces> m_found;
};

void Search::Folder(const fs::path& folder) {
  std::error_code error;
  std::vector<fs::path> folders;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error)) {
    std::error_code ignored;  // a file removed meanwhile is skipped
    if (fs::is_directory(entry->symlink_status(ignored))) {
      folders.push_back(entry->path());
    } else if (fs::is_regular_file(entry->status(ignored))) {
      File(entry->path());
    }
  }
  if (error) {
    throw RunError(ExitStatus::WrongUse,
                   folder.string() + ": the folder cannot be read: " + error.message());
  }
  for (const fs::path& one : folders) Folder(one);
}

ProcessTraces& Search::TracesOf(unsigned long process, const fs::path& file) {
  const fs::path folder = file.parent_path();
  ProcessTraces& traces = m_found[{folder, process}];
  traces.process = process;
  traces.folder = folder.lexically_relative(m_root);
  if (traces.folder == ".") traces.folder.clear();
  return traces;
}

void Search::File(const fs::path& file) {
  const std::string name = file.filename().string();
  const std::string report = "FakeUnitTestsDataHookExperimentRunning_";
  if (const auto process = NumberIn(name, "special_flag_file_", ".dat")) {
    TracesOf(*process, file).flagFile = file;
  } else if (const auto ofReport = NumberIn(name, report, ".xml")) {
    TracesOf(*ofReport, file).report = file;
  } else if (const auto ofCopy = NumberIn(name, report, ".repaired.xml")) {
    ProcessTraces& traces = TracesOf(*ofCopy, file);
    if (traces.report.empty()) traces.report = file;
  }
}

std::vector<ProcessTraces> Search::Found() const {
  std::vector<ProcessTraces> found;
  for (const auto& [key, traces] : m_found) found.push_back(traces);
  return found;
}

}  // namespace

std::vector<ProcessTraces> FindProcessTraces(const fs::path& folder) {
  // Without a separator at the end, which would make an empty last part of the path.
  const fs::path root = folder.has_filename() ? folder : folder.parent_path();
  Search search(root);
  search.Folder(root);
  return search.Found();
}

std::string NameOf(const ProcessTraces& traces) {
  const std::string name = "process " + std::to_string(traces.process);
  return traces.folder.empty() ? name : name + " in " + traces.folder.string();
}

}  // namespace OmbreliaHost
