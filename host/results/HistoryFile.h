// A history: a file of lines that many runs append to, also side by side.
#ifndef OMBRELIA_HOST_RESULTS_HISTORYFILE_H
#define OMBRELIA_HOST_RESULTS_HISTORYFILE_H

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

#include "host/results/HistoryLine.h"

namespace OmbreliaHost {

struct HistoryContent {
  // In the order of their times, and of the file within the same one.
  std::vector<HistoryLine> lines;
  std::vector<std::string> skipped;  // "line 17 is skipped: ...", for each line that is none
};

class HistoryFile {
 public:
  enum class Use { Read, Append };

  // To append makes a file that is not there. Ends the run (WrongUse) if it cannot be opened or is no regular
  // file.
  HistoryFile(const std::filesystem::path& path, Use use);
  ~HistoryFile();
  HistoryFile(const HistoryFile&) = delete;
  HistoryFile& operator=(const HistoryFile&) = delete;

  // Appends them behind what other processes have appended meanwhile, each by one write, under a lock on the file.
  // A torn last line gets its end first. Ends the run (NoReport) if a line cannot be written; then nothing of that
  // line is left.
  void Append(const std::vector<HistoryLine>& lines);

  // What is in it now. Ends the run (WrongUse) if it cannot be read.
  HistoryContent Read() const;

 private:
  std::string Bytes() const;

  std::filesystem::path m_path;
  int m_descriptor;
};

}  // namespace OmbreliaHost

#endif
