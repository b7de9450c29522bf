#include "report/ConcreteFakeJUnitPrinter.h"

#include <wx/file.h>
#include <wx/filefn.h>
#include <wx/filename.h>
#include <wx/intl.h>
#include <wx/log.h>
#include <wx/textfile.h>
#include <wx/utils.h>

#include <algorithm>
#include <memory>
#include <string>

namespace Ombrelia {

namespace {

const int TIME_OF_EVERY_TEST = 999;

// Few writes, and no block so large that the heap would ask the system for each anew.
const std::size_t PIECE_SIZE = std::size_t{64} * 1024;
const std::size_t ROOM_FOR_AN_ENTRY = 1024;  // a longer one makes its piece grow

// Is this no character of Unicode? A data file in UTF-32 can bring such a value into a test's name, and
// UTF-8 cannot hold it.
bool IsNoCharacter(wchar_t value) {
  const auto code = static_cast<std::uint32_t>(value);
  return code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF);
}

// With the replacement character in place of every value that UTF-8 cannot hold.
void AppendUtf8(std::string& bytes, const wxString& text) {
  const wchar_t* const from = text.wc_str();
  const std::size_t length = text.length();
  const std::size_t start = bytes.size();
  bytes.resize(start + length);
  char* const to = &bytes[start];
  std::uint32_t bitsSeen = 0;
  for (std::size_t i = 0; i < length; ++i) {
    bitsSeen |= static_cast<std::uint32_t>(from[i]);
    to[i] = static_cast<char>(from[i]);
  }
  if (bitsSeen < 0x80) return;  // ASCII, as nearly all texts are
  std::wstring characters(from, length);
  std::replace_if(characters.begin(), characters.end(), IsNoCharacter, wchar_t{0xFFFD});
  bytes.resize(start);
  bytes += wxString(characters).utf8_string();
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
      m_closedTests(0),
      m_openTests(0),
      m_closedFailures(0),
      m_openFailures(0),
      m_reportPieces(1),
      m_headOfOpenSuite(0),
      m_lineEnd(wxString(wxTextFile::GetEOL()).utf8_string()),
      m_renameUnconditionally(renameUnconditionally),
      m_directory(wxT("./scons-out/opt/tests/") + subDirectory + wxFileName::GetPathSeparator()),
      m_previousFlagFilesFound(PreviousFlagFilesWereFound(m_directory)),
      m_processId(wxGetProcessId()),
      m_processIdText(wxString::Format(wxT("%lu"), m_processId)),
      m_fileBaseName(fileBaseName),
      m_unattended(true),
      m_arrayPrinted(false) {
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
  m_headOfOpenSuite = m_reportPieces.size();
  m_reportPieces.resize(m_headOfOpenSuite + 2);  // the head and the first entries
}

void ConcreteFakeJUnitPrinter::AddPassingTestResult(const wxString& testName) {
  ++m_openTests;
  StartEntry(testName).append("\" />").append(m_lineEnd);
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
  std::string& entry = StartEntry(testName);
  entry.append("\" >\n        <failure message=\"");
  AppendUtf8(entry, subject);
  entry.append("\" type=\"\">\n\n <![CDATA[");
  AppendUtf8(entry, location);
  entry.append("\n");
  AppendUtf8(entry, message);
  entry.append("]]>\n\n</failure>\n</testcase>").append(m_lineEnd);
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

void ConcreteFakeJUnitPrinter::AppendLine(std::string& piece, const wxString& line) const {
  AppendUtf8(piece, line);
  piece.append(m_lineEnd);
}

std::string& ConcreteFakeJUnitPrinter::StartEntry(const wxString& testName) {
  if (m_reportPieces.back().size() > PIECE_SIZE - ROOM_FOR_AN_ENTRY) {
    m_reportPieces.emplace_back().reserve(PIECE_SIZE);
  }
  // Appended and not formatted: a report may hold very many results.
  std::string& entry = m_reportPieces.back();
  const std::string number = std::to_string(m_openTests + m_closedTests);
  entry.append("        <testcase name=\"test");
  if (number.length() < 3) entry.append(3 - number.length(), '0');
  entry.append(number);
  AppendUtf8(entry, testName);
  return entry.append("\" status=\"run\" time=\"").append(std::to_string(m_perTestTime));
}

int ConcreteFakeJUnitPrinter::TimeOf(std::uint32_t tests) const {
  // Unsigned, so that a report of millions of tests wraps around and is no overflow.
  return static_cast<int>(tests * static_cast<std::uint32_t>(m_perTestTime));
}

void ConcreteFakeJUnitPrinter::CloseTheCurrentSuite() {
  m_closedTests += m_openTests;
  m_closedFailures += m_openFailures;
  AppendLine(
      m_reportPieces[m_headOfOpenSuite],
      wxString::Format(
          wxT("    <testsuite name=\"%s\" tests=\"%u\" failures=\"%u\" disabled=\"0\" errors=\"0\" "
              "time=\"%d\">"),
          m_openSuiteName, m_openTests, m_openFailures, TimeOf(m_openTests)));
  AppendLine(m_reportPieces.back(), wxT("    </testsuite>"));
  m_openTests = 0;
  m_openFailures = 0;
}

void ConcreteFakeJUnitPrinter::FinalizeTheTotalContentOfOurArray() {
  CloseTheCurrentSuite();
  AppendLine(
      m_reportPieces.front(),
      wxString::Format(
          wxT("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
              "<testsuites tests=\"%u\" failures=\"%u\" disabled=\"0\" errors=\"0\" time=\"%d\" "
              "name=\"AllTests\">"),
          m_closedTests, m_closedFailures, TimeOf(m_closedTests)));
  AppendLine(m_reportPieces.back(), wxT("</testsuites>"));
}

void ConcreteFakeJUnitPrinter::FlushFileAndSaveToFinalDestination() {
  const wxString path = NameForOurFinalResultsFile();
  if (!wxFileExists(path)) CreateNewFileOnDisk(path);
  // Nothing of a former report is needed, but one that cannot be opened is worth a note in the log.
  wxFile().Open(path);
  wxTempFile file(path);
  const bool written = file.IsOpened() && PrintArrayIntoFile(&file);
  if (!written) wxLogError(_("can't write buffer '%s' to disk."), path);
  // Also if the disk is full: the beginning of a report is better than none.
  if (file.IsOpened()) file.Commit();
}

bool ConcreteFakeJUnitPrinter::PrintArrayIntoFile(wxTempFile* file) {
  m_arrayPrinted = true;
  return std::all_of(
      m_reportPieces.begin(), m_reportPieces.end(),
      [file](const std::string& piece) { return file->Write(piece.data(), piece.size()); });
}

}  // namespace Ombrelia
