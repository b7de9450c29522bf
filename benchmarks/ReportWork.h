// What the benchmarks do with the report writer.
#ifndef OMBRELIA_BENCHMARKS_REPORTWORK_H
#define OMBRELIA_BENCHMARKS_REPORTWORK_H

#include <filesystem>

#include "benchmarks/ScratchFolder.h"

namespace Bench {

// Makes a new folder the working directory, with the folder in it that reports are written to; the
// destructor changes back.
class ReportFolder {
 public:
  ReportFolder();
  ~ReportFolder();
  ReportFolder(const ReportFolder&) = delete;
  ReportFolder& operator=(const ReportFolder&) = delete;

 private:
  ScratchFolder m_folder;
  std::filesystem::path m_before;
};

// Records this number of results in one suite, every tenth a failure, and writes the report.
void WriteReport(int results);

}  // namespace Bench

#endif
