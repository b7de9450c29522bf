// A report writer that keeps what it is told, in order.
#ifndef OMBRELIA_TESTS_SUPPORT_RECORDINGPRINTER_H
#define OMBRELIA_TESTS_SUPPORT_RECORDINGPRINTER_H

#include <string>
#include <vector>

#include "report/FakeJUnitPrinter.h"

namespace Tests {

class RecordingPrinter : public Ombrelia::FakeJUnitPrinter {
 public:
  void NewTestSuite(const wxString& suiteName) override {
    m_lines.push_back("suite " + suiteName.ToStdString(wxConvUTF8));
  }
  void AddPassingTestResult(const wxString& testName) override {
    m_lines.push_back("pass " + testName.ToStdString(wxConvUTF8));
  }
  void AddFailingTestResult(const wxString& testName, const wxString& subject,
                            const wxString& location, const wxString& message) override {
    m_lines.push_back("FAIL " + testName.ToStdString(wxConvUTF8) + " | " +
                      subject.ToStdString(wxConvUTF8) + " | " + location.ToStdString(wxConvUTF8) +
                      " | " + message.ToStdString(wxConvUTF8));
  }

  std::vector<std::string> m_lines;
};

}  // namespace Tests

#endif
