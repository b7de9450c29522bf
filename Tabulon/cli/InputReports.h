// Collects why files are no data files.
#ifndef OMBRELIA_TABULON_CLI_INPUTREPORTS_H
#define OMBRELIA_TABULON_CLI_INPUTREPORTS_H

#include <list>
#include <vector>

#include "Tabulon/src/reading/MUInterfaceDataFileInputErrorHandler.h"

namespace TabulonCli {

class InputReports : public MUInterfaceDataFileInputErrorHandler {
 public:
  using Report = MUInterfaceExperimentDataFileInputReader::DataFileInputError;

  void OnDataFileInputReports(std::list<Report> reports) override {
    for (const Report& report : reports) {
      if (report.code != MUInterfaceExperimentDataFileInputReader::MU_INPUT_SUCCESS) {
        m_problems.push_back(report);
      }
    }
  }

  // A file that the readers take for a data file although it is none.
  void AddProblem(const wxString& filePath, const wxString& message) {
    Report report;
    report.code = MUInterfaceExperimentDataFileInputReader::MU_INPUT_BAD_FORMAT;
    report.message = message;
    report.filePath = filePath;
    m_problems.push_back(report);
  }

  const std::vector<Report>& Problems() const { return m_problems; }

 private:
  std::vector<Report> m_problems;
};

}  // namespace TabulonCli

#endif
