// Collects what readers say of files that are no data files.
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

  const std::vector<Report>& Problems() const { return m_problems; }

 private:
  std::vector<Report> m_problems;
};

}  // namespace TabulonCli

#endif
