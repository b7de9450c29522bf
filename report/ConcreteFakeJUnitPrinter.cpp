#include "report/ConcreteFakeJUnitPrinter.h"

#include <wx/filefn.h>
#include <wx/filename.h>
#include <wx/log.h>
#include <wx/textfile.h>
#include <wx/utils.h>

#include <algorithm>
#include <memory>
#include <string>

namespace Ombrelia {

namespace {

const int TIME_OF_EVERY_TEST = 999;

// The entry's text moves into the array; entry is empty afterwards.
void AddEntry(wxArrayString& lines, wxString& entry) {
  lines.Add(wxEmptyString);
  lines.Last().swap(entry);
}

// Is this no character of Unicode? A data file in UTF-32 can bring such a value into a test's name, and
// the one conversion of all lines to UTF-8 would fail by it and lose the whole report.
bool IsNoCharacter(wchar_t value) {
  const auto code = static_cast<std::uint32_t>(value);
  return code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF);
}

// With the replacement character in place of every value that UTF-8 cannot hold.
void MakeConvertible(wxString& line) {
  const wchar_t* const begin = line.wc_str();
  const wchar_t* const end = begin + line.length();
  if (std::none_of(begin, end, IsNoCharacter)) return;
  std::wstring text(begin, end);
  std::replace_if(text.begin(), text.end(), IsNoCharacter, wchar_t{0xFFFD});
  line = text;
}

wxString DecimalText(std::uint32_t number) {
  wxChar digits[10];
  wxChar* const end = digits + 10;
  wxChar* first = end;
  do {
    *--first = static_cast<wxChar>(wxT('0') + number % 10);
    number /= 10;
  } while (number != 0);
  return wxString(first, static_cast<size_t>(end - first));
}

// wxWidgets logging is silenced for the life of one operation when a human watches.
std::unique_ptr<wxLogNull> SilenceUnless(bool unattended) {
  return unattended ? nullptr : std::make_unique<wxLogNull>();
}

}  // namespace

ConcreteFakeJUnitPrinter::ConcreteFakeJUnitPrinter(const wxString& fileBaseName,
                                                   const wxString& subDirectory,
                                                   bool renameUnconditionally)
    : m_perTestTime(TIME_OF_EVERY_TEST),
      m_perTestTimeText(wxString::Format(wxT("%d"), TIME_OF_EVERY_TEST)),
      m_closedTests(0),
      m_openTests(0),
      m_closedFailures(0),
      m_openFailures(0),
      m_renameUnconditionally(renameUnconditionally),
      m_directory(wxT("./scons-out/opt/tests/") + subDirectory + wxFileName::GetPathSeparator()),
      m_previousFlagFilesFound(PreviousFlagFilesWereFound(m_directory)),
      m_processId(wxGetProcessId()),
      m_processIdText(wxString::Format(wxT("%lu"), m_processId)),
      m_fileBaseName(fileBaseName),
      m_unattended(true),
      m_arrayPrinted(false) {
  m_reportLines.Add(wxEmptyString);
  m_openSuiteLines.Add(wxEmptyString);
  if (wxGetEnv(wxT("MAKE_TEST_FAILURES_POP_UP_FOR_INTERACTIVE_HUMAN"), nullptr)) {
    m_unattended = false;
  }
  const auto silence = SilenceUnless(m_unattended);
  CreateOurFlagFile();
  if (m_renameUnconditionally || !m_previousFlagFilesFound) {
    const wxString preexisting = ExpectedNameOfPreexistingFile();
    // Nothing to move is the ordinary case, and wxRenameFile would log it as an error.
    if (wxFileExists(preexisting)) {
      wxRenameFile(preexisting, NameForOurFinalResultsFile(), false);
    }
  }
  NewTestSuite(wxT("DefaultInitialTestSuite_ConcreteFakeJUnitPrinter"));
}

ConcreteFakeJUnitPrinter::~ConcreteFakeJUnitPrinter() {
  const auto silence = SilenceUnless(m_unattended);
  FinalizeTheTotalContentOfOurArray();
  FlushFileAndSaveToFinalDestination();
}

void ConcreteFakeJUnitPrinter::NewTestSuite(const wxString& suiteName) {
  if (!m_openSuiteName.empty()) CloseTheCurrentSuite();
  m_openSuiteName = wxString::Format(wxT("%s_pid_%lu"), suiteName, m_processId);
}

void ConcreteFakeJUnitPrinter::AddPassingTestResult(const wxString& testName) {
  ++m_openTests;
  wxString entry = StartOfEntry(testName, testName.length() + 70);
  entry.append(wxT("\" />"));
  AddEntry(m_openSuiteLines, entry);
}

void ConcreteFakeJUnitPrinter::AddFailingTestResult(const wxString& testName,
                                                    const wxString& subject,
                                                    const wxString& location,
                                                    const wxString& message) {
  if (!m_unattended) {
    // What a build that serves a human would show.
    const wxString shown = wxString::Format(
        wxT("\n\nName of test: %s\n\nSubject: %s\n\nLocation: %s\n\nMessage: %s\n\n"), testName,
        subject, location, message);
    static_cast<void>(shown);
  }
  ++m_openTests;
  ++m_openFailures;
  wxString entry = StartOfEntry(
      testName, testName.length() + subject.length() + location.length() + message.length() + 160);
  entry.append(wxT("\" >\n        <failure message=\"")).append(subject);
  entry.append(wxT("\" type=\"\">\n\n <![CDATA[")).append(location);
  entry.append(wxT("\n")).append(message);
  entry.append(wxT("]]>\n\n</failure>\n</testcase>"));
  AddEntry(m_openSuiteLines, entry);
}

bool ConcreteFakeJUnitPrinter::PreviousFlagFilesWereFound(const wxString& directory) {
  const wxString found = wxFindFirstFile(directory + wxT("special_flag_file_") + wxT("*"), wxFILE);
  return !found.empty();
}

void ConcreteFakeJUnitPrinter::CreateOurFlagFile() {
  CreateNewFileOnDisk(
      wxString::Format(wxT("%s%s%lu.dat"), m_directory, wxT("special_flag_file_"), m_processId));
}

void ConcreteFakeJUnitPrinter::CreateNewFileOnDisk(const wxString& path) {
  {
    wxTextFile file;
    file.Create(path);
    file.AddLine(wxEmptyString);
    file.Write(wxTextFileType_None, wxConvAuto());
    file.Close();
  }
  // Composed also after success: the words of a message that a build for a human would show.
  wxString diagnostic =
      wxString::Format(wxT("\n\nFakeJUnitPrinter failed to write to the file %s"), path);
  if (m_unattended) {
    diagnostic += wxT("\n\nPLEASE CREATE THAT PATH.\n\nerror is reported relative to current "
                      "working dir (CWD). CWD is:\n\n") +
                  wxGetCwd() + wxT("\n\n");
  }
}

wxString ConcreteFakeJUnitPrinter::ExpectedNameOfPreexistingFile() const {
  return m_directory + m_fileBaseName + wxT(".xml");
}

wxString ConcreteFakeJUnitPrinter::NameForOurFinalResultsFile() const {
  return m_directory + m_fileBaseName + wxT("_") + m_processIdText + wxT(".xml");
}

wxString ConcreteFakeJUnitPrinter::StartOfEntry(const wxString& testName, size_t length) const {
  // Appended and not formatted: a report may hold very many results.
  wxString entry;
  entry.reserve(length);
  entry.append(wxT("        <testcase name=\"test"));
  const wxString number = DecimalText(m_openTests + m_closedTests);
  if (number.length() < 3) entry.append(3 - number.length(), wxT('0'));
  entry.append(number).append(testName);
  entry.append(wxT("\" status=\"run\" time=\"")).append(m_perTestTimeText);
  return entry;
}

int ConcreteFakeJUnitPrinter::TimeOf(std::uint32_t tests) const {
  // Unsigned, so that a report of millions of tests wraps around and is no overflow.
  return static_cast<int>(tests * static_cast<std::uint32_t>(m_perTestTime));
}

void ConcreteFakeJUnitPrinter::CloseTheCurrentSuite() {
  m_closedTests += m_openTests;
  m_closedFailures += m_openFailures;
  m_openSuiteLines[0] = wxString::Format(
      wxT("    <testsuite name=\"%s\" tests=\"%u\" failures=\"%u\" disabled=\"0\" errors=\"0\" "
          "time=\"%d\">"),
      m_openSuiteName, m_openTests, m_openFailures, TimeOf(m_openTests));
  m_openSuiteLines.Add(wxT("    </testsuite>"));
  for (wxString& line : m_openSuiteLines) AddEntry(m_reportLines, line);
  m_openTests = 0;
  m_openFailures = 0;
  m_openSuiteLines.Clear();
  m_openSuiteLines.Add(wxEmptyString);
}

void ConcreteFakeJUnitPrinter::FinalizeTheTotalContentOfOurArray() {
  CloseTheCurrentSuite();
  m_reportLines[0] = wxString::Format(
      wxT("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
          "<testsuites tests=\"%u\" failures=\"%u\" disabled=\"0\" errors=\"0\" time=\"%d\" "
          "name=\"AllTests\">"),
      m_closedTests, m_closedFailures, TimeOf(m_closedTests));
  m_reportLines.Add(wxT("</testsuites>"));
}

void ConcreteFakeJUnitPrinter::FlushFileAndSaveToFinalDestination() {
  const wxString path = NameForOurFinalResultsFile();
  if (!wxFileExists(path)) CreateNewFileOnDisk(path);
  const auto file = std::make_unique<wxTextFile>();
  file->Open(path, wxConvAuto());
  PrintArrayIntoFile(file.get());
  file->Write(wxTextFileType_None, wxConvAuto());
  file->Close();
}

void ConcreteFakeJUnitPrinter::PrintArrayIntoFile(wxTextFile* file) {
  file->Clear();
  for (wxString& line : m_reportLines) {
    MakeConvertible(line);
    file->AddLine(wxEmptyString);
    file->GetLine(file->GetLineCount() - 1).swap(line);
  }
  m_arrayPrinted = true;
}

}  // namespace Ombrelia
