#include "benchmarks/ReportWork.h"

#include <wx/string.h>

#include "report/ConcreteFakeJUnitPrinter.h"

namespace Bench {

ReportFolder::ReportFolder() : m_before(std::filesystem::current_path()) {
  std::filesystem::current_path(m_folder.Path());
  std::filesystem::create_directories("scons-out/opt/tests/bench");
}

ReportFolder::~ReportFolder() { std::filesystem::current_path(m_before); }

void WriteReport(int results) {
  Ombrelia::ConcreteFakeJUnitPrinter printer(wxT("Bench"), wxT("bench"), true);
  printer.NewTestSuite(wxT("a_suite_of_many_results"));
  const wxString name(wxT("Verify_That_The_Column_Holds_What_Was_Expected"));
  for (int i = 0; i < results; ++i) {
    if (i % 10 == 9) {
      printer.AddFailingTestResult(name, wxT("a cell differs"), wxT("some_file.om5:120"),
                                   wxT("expected one text and found another one in this row"));
    } else {
      printer.AddPassingTestResult(name);
    }
  }
}

}  // namespace Bench
