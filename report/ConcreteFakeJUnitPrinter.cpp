#include "report/ConcreteFakeJUnitPrinter.h"

#include <wx/dir.h>
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
#include <utility>

#include "report/TextsForAHuman.h"

namespace Ombrelia {

namespace {

const int TIME_OF_EVERY_TEST = 999;

const char* const END_OF_A_SUITE = "    </testsuite>";

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

// Text at the end of a piece, which is taken away again unless it is kept: a report holds whole entries
// only, also if memory runs out in the middle of one.
class Entry {
 public:
  explicit Entry(std::string& piece) : m_piece(piece), m_start(piece.size()) {}
  ~Entry() {
    if (!m_kept) m_piece.resize(m_start);
  }
  Entry(const Entry&) = delete;
  Entry& operator=(const Entry&) = delete;

  std::string& Text() { return m_piece; }
  void Keep() { m_kept = true; }

 private:
  std::string& m_piece;
  std::size_t m_start;
  bool m_kept = false;
};

// wxWidgets logging is silenced for the life of one operation when a human watches.
std::unique_ptr<wxLogNull> SilenceUnless(bool unattended) {
  return unattended ? nullptr : std::make_unique<wxLogNull>();
}

}  // namespace

int TimeOfTests(std::uint32_t tests, int perTestTime) {
  // Unsigned, so that it wraps round and is no overflow.
  return static_cast<int>(tests * static_cast<std::uint32_t>(perTestTime));
}

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
      m_processIdText(std::to_wstring(m_processId)),
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
  try {
    const auto silence = SilenceUnless(m_unattended);
    FinalizeTheTotalContentOfOurArray();
    FlushFileAndSaveToFinalDestination();
  } catch (...) {
    // The report is lost, as it is when it cannot be written, and the host goes on.
  }
}

void ConcreteFakeJUnitPrinter::NewTestSuite(const wxString& suiteName) {
  wxString name = suiteName + wxT("_pid_") + m_processIdText;
  const std::size_t pieces = m_reportPieces.size() + 2;
  if (m_reportPieces.capacity() < pieces) m_reportPieces.reserve(2 * pieces);
  if (!m_openSuiteName.empty()) CloseTheCurrentSuite();
  // Nothing throws from here on.
  m_openSuiteName.swap(name);
  m_headOfOpenSuite = m_reportPieces.size();
  m_reportPieces.resize(m_headOfOpenSuite + 2);  // the head and the first entries
}

void ConcreteFakeJUnitPrinter::AddPassingTestResult(const wxString& testName) {
  Entry entry(PieceForAnEntry());
  AppendStart(entry.Text(), testName);
  entry.Text().append("\" />").append(m_lineEnd);
  entry.Keep();
  ++m_openTests;
}

void ConcreteFakeJUnitPrinter::AddFailingTestResult(const wxString& testName,
                                                    const wxString& subject,
                                                    const wxString& location,
                                                    const wxString& message) {
  if (!m_unattended) static_cast<void>(TextOfAFailedTest(testName, subject, location, message));
  Entry entry(PieceForAnEntry());
  std::string& text = entry.Text();
  AppendStart(text, testName);
  text.append("\" >\n        <failure message=\"");
  AppendUtf8(text, subject);
  text.append("\" type=\"\">\n\n <![CDATA[");
  AppendUtf8(text, location);
  text.append("\n");
  AppendUtf8(text, message);
  text.append("]]>\n\n</failure>\n</testcase>").append(m_lineEnd);
  entry.Keep();
  ++m_openTests;
  ++m_openFailures;
}

bool ConcreteFakeJUnitPrinter::PreviousFlagFilesWereFound(const wxString& directory) {
  const wxString pattern = wxT("special_flag_file_*");
  // Says and finds what wxFindFirstFile would, which leaves the folder open until the process ends.
  const wxDir folder(directory);
  if (!folder.IsOpened()) {
    wxLogSysError(_("Cannot enumerate files '%s'"), directory + pattern);
    return false;
  }
  wxString name;
  return folder.GetFirst(&name, pattern, wxDIR_FILES);
}

void ConcreteFakeJUnitPrinter::CreateOurFlagFile() {
  CreateNewFileOnDisk(m_directory + wxT("special_flag_file_") + m_processIdText + wxT(".dat"));
}

void ConcreteFakeJUnitPrinter::CreateNewFileOnDisk(const wxString& path) {
  {
    wxTextFile file;
    file.Create(path);
    file.AddLine(wxEmptyString);
    file.Write(wxTextFileType_None, wxConvAuto());
    file.Close();
  }
  static_cast<void>(TextOfAnUnwrittenFile(path, m_unattended));
}

wxString ConcreteFakeJUnitPrinter::ExpectedNameOfPreexistingFile() const {
  return m_directory + m_fileBaseName + wxT(".xml");
}

wxString ConcreteFakeJUnitPrinter::NameForOurFinalResultsFile() const {
  return m_directory + m_fileBaseName + wxT("_") + m_processIdText + wxT(".xml");
}

std::string& ConcreteFakeJUnitPrinter::PieceForAnEntry() {
  if (m_reportPieces.back().size() > PIECE_SIZE - ROOM_FOR_AN_ENTRY) {
    std::string piece;
    piece.reserve(PIECE_SIZE);
    m_reportPieces.push_back(std::move(piece));
  }
  return m_reportPieces.back();
}

void ConcreteFakeJUnitPrinter::AppendStart(std::string& text, const wxString& testName) const {
  // Appended and not formatted: a report may hold very many results.
  const std::string number = std::to_string(m_openTests + m_closedTests + 1);
  text.append("        <testcase name=\"test");
  if (number.length() < 3) text.append(3 - number.length(), '0');
  text.append(number);
  AppendUtf8(text, testName);
  text.append("\" status=\"run\" time=\"").append(std::to_string(m_perTestTime));
}

void ConcreteFakeJUnitPrinter::CloseTheCurrentSuite() {
  Entry head(m_reportPieces[m_headOfOpenSuite]);
  AppendHeadOfTheOpenSuite(head.Text());
  Entry end(m_reportPieces.back());
  end.Text().append(END_OF_A_SUITE).append(m_lineEnd);
  head.Keep();
  end.Keep();
  m_closedTests += m_openTests;
  m_closedFailures += m_openFailures;
  m_openTests = 0;
  m_openFailures = 0;
}

void ConcreteFakeJUnitPrinter::FinalizeTheTotalContentOfOurArray() {
  if (!m_finalPath.empty()) return;
  // All of these lines, or none if memory runs out.
  Entry suiteHead(m_reportPieces[m_headOfOpenSuite]);
  AppendHeadOfTheOpenSuite(suiteHead.Text());
  Entry reportHead(m_reportPieces.front());
  reportHead.Text()
      .append("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<testsuites")
      .append(Counts(m_closedTests + m_openTests, m_closedFailures + m_openFailures))
      .append(" name=\"AllTests\">")
      .append(m_lineEnd);
  Entry ends(m_reportPieces.back());
  ends.Text().append(END_OF_A_SUITE).append(m_lineEnd).append("</testsuites>").append(m_lineEnd);
  m_finalPath = NameForOurFinalResultsFile();
  suiteHead.Keep();
  reportHead.Keep();
  ends.Keep();
}

std::string ConcreteFakeJUnitPrinter::Counts(std::uint32_t tests, std::uint32_t failures) const {
  return " tests=\"" + std::to_string(tests) + "\" failures=\"" + std::to_string(failures) +
         "\" disabled=\"0\" errors=\"0\" time=\"" +
         std::to_string(TimeOfTests(tests, m_perTestTime)) + "\"";
}

void ConcreteFakeJUnitPrinter::AppendHeadOfTheOpenSuite(std::string& text) const {
  text.append("    <testsuite name=\"");
  AppendUtf8(text, m_openSuiteName);
  text.append("\"").append(Counts(m_openTests, m_openFailures)).append(">").append(m_lineEnd);
}

void ConcreteFakeJUnitPrinter::FlushFileAndSaveToFinalDestination() {
  if (!wxFileExists(m_finalPath)) CreateNewFileOnDisk(m_finalPath);
  // Nothing of a former report is needed, but one that cannot be opened is worth a note in the log.
  wxFile().Open(m_finalPath);
  wxTempFile file(m_finalPath);
  const bool written = file.IsOpened() && PrintArrayIntoFile(&file);
  if (!written) wxLogError(_("can't write buffer '%s' to disk."), m_finalPath);
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
