#include "host/results/ReportRepair.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <map>
#include <set>
#include <utility>

#include "host/results/CodePoints.h"
#include "host/results/XmlText.h"

namespace OmbreliaHost {

namespace {

const std::string START_OF_DATAFILE =
    "DataHookOutputTestingPlugin_PerformPostProcessing_was_called";
const std::string ASSERTION_FAILURE = "TestingPluginDH_AssertionFailure_";

// The frame of the report as the plug-in writes it.
const std::string ENTRY = "        <testcase name=\"test";
const std::string AFTER_NAME = "\" status=\"run\" time=\"";
const std::string PASSED = "\" />\n";
const std::string BEFORE_SUBJECT = "\" >\n        <failure message=\"";
const std::string AFTER_SUBJECT = "\" type=\"\">\n\n <![CDATA[";
const std::string AFTER_DETAIL = "]]>\n\n</failure>\n</testcase>\n";
const std::string SUITE = "    <testsuite name=\"";
const std::string END_OF_SUITE = "    </testsuite>\n";
const std::string END_OF_SUITES = "</testsuites>";
const std::string HEAD = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<testsuites";

// "        <testcase name="test007" before the name of the seventh test.
std::string EntryStart(int number) {
  std::array<char, 16> digits{};
  std::snprintf(digits.data(), digits.size(), "%03d", number);
  return ENTRY + digits.data();
}

// The texts of one test, as the report should have held them.
struct Entry {
  std::string name;  // without running number
  std::string time;  // the attribute's digits
  bool failed = false;
  std::string subject;
  std::string detail;  // the location, a line feed, the message
};

class Repair {
 public:
  Repair(const std::string& report, const std::vector<DatafileResult>& datafiles)
      : m_report(report), m_datafiles(datafiles) {}
  RepairedReport Run();

 private:
  bool StandsAt(std::size_t at, const std::string& text) const {
    return m_report.compare(at, text.size(), text) == 0;
  }
  std::size_t Find(const std::string& text, std::size_t from);
  std::size_t FindNextEntry(std::size_t from);
  bool EntryMayEndAt(std::size_t at) const;
  std::optional<Entry> TakeKnownEntry();
  std::optional<Entry> TakeEntryByFrame();
  const TestOutcome* KnownTest() const;
  void TakeHead();
  void TakeLine();
  void TakeUnknown();
  bool PassOverMissingTests();
  void AddEntry(const Entry& entry);
  void FollowKnownTests(const Entry& entry);
  void NoteFaults(const Entry& entry, const TestOutcome* known);
  void OpenSuite();

  const std::string& m_report;
  const std::vector<DatafileResult>& m_datafiles;
  RepairedReport m_repaired;
  std::size_t m_at = 0;  // how far the report has been taken
  int m_number = 1;      // of the next test
  int m_endless = 0;     // the number of a test whose end was looked for in vain
  std::map<std::string, std::pair<std::size_t, std::size_t>> m_found;  // from where, and where
  bool m_suiteIsOpen = false;
  std::optional<std::size_t> m_datafile;  // the one that is in hand
  std::size_t m_known = 0;                // its test that comes next
};

// As the report's own find, but nothing is looked through twice: a report may imitate its frame without end.
std::size_t Repair::Find(const std::string& text, std::size_t from) {
  const auto [last, isNew] = m_found.try_emplace(text);
  auto& [begin, found] = last->second;
  if (isNew || from < begin || from > found) {
    begin = from;
    found = m_report.find(text, from);
  }
  return found;
}

// Where a line begins that is the start of the next entry or of the one after it.
std::size_t Repair::FindNextEntry(std::size_t from) {
  std::size_t at = Find("\n" + ENTRY, from);
  while (at != std::string::npos && !StandsAt(at + 1, EntryStart(m_number)) &&
         !StandsAt(at + 1, EntryStart(m_number + 1))) {
    at = Find("\n" + ENTRY, at + 1);
  }
  return at;
}

// After an entry there is the next one or the end of the suite; nothing else ends one.
bool Repair::EntryMayEndAt(std::size_t at) const {
  return StandsAt(at, EntryStart(m_number + 1)) ||
         (StandsAt(at, END_OF_SUITE) && (StandsAt(at + END_OF_SUITE.size(), SUITE) ||
                                         StandsAt(at + END_OF_SUITE.size(), END_OF_SUITES)));
}

const TestOutcome* Repair::KnownTest() const {
  if (!m_datafile || *m_datafile >= m_datafiles.size()) return nullptr;
  const std::vector<TestOutcome>& tests = m_datafiles[*m_datafile].tests;
  return m_known < tests.size() ? &tests[m_known] : nullptr;
}

// The entry as the second verification has it, if the report holds it word by word. Nothing that its texts
// imitate can mislead here.
std::optional<Entry> Repair::TakeKnownEntry() {
  const TestOutcome* const test = KnownTest();
  if (test == nullptr) return std::nullopt;
  const std::string nameAndMore = EntryStart(m_number) + test->name + AFTER_NAME;
  if (!StandsAt(m_at, nameAndMore)) return std::nullopt;
  Entry entry;
  entry.name = test->name;
  std::size_t at = m_at + nameAndMore.size();
  const std::size_t timeEnd = std::min(m_report.find('"', at), m_report.size());
  entry.time = m_report.substr(at, timeEnd - at);
  at = timeEnd;
  std::string rest = PASSED;
  if (test->outcome != Outcome::Passed) {
    entry.failed = true;
    entry.subject = test->subject;
    entry.detail = test->location + "\n" + test->message;
    rest = BEFORE_SUBJECT + entry.subject + AFTER_SUBJECT + entry.detail + AFTER_DETAIL;
  }
  if (!StandsAt(at, rest)) return std::nullopt;
  m_at = at + rest.size();
  return entry;
}

std::optional<Entry> Repair::TakeEntryByFrame() {
  Entry entry;
  const std::size_t nameBegin = m_at + EntryStart(m_number).size();
  const std::size_t nameEnd = Find(AFTER_NAME, nameBegin);
  if (nameEnd == std::string::npos) return std::nullopt;
  entry.name = m_report.substr(nameBegin, nameEnd - nameBegin);
  const std::size_t timeBegin = nameEnd + AFTER_NAME.size();
  const std::size_t timeEnd = m_report.find_first_not_of("0123456789", timeBegin);
  if (timeEnd == std::string::npos) return std::nullopt;
  entry.time = m_report.substr(timeBegin, timeEnd - timeBegin);
  if (StandsAt(timeEnd, PASSED)) {
    m_at = timeEnd + PASSED.size();
    return entry;
  }
  if (!StandsAt(timeEnd, BEFORE_SUBJECT)) return std::nullopt;
  entry.failed = true;
  const std::size_t subjectBegin = timeEnd + BEFORE_SUBJECT.size();
  const std::size_t subjectEnd = Find(AFTER_SUBJECT, subjectBegin);
  if (subjectEnd == std::string::npos) return std::nullopt;
  entry.subject = m_report.substr(subjectBegin, subjectEnd - subjectBegin);
  const std::size_t detailBegin = subjectEnd + AFTER_SUBJECT.size();
  if (m_endless == m_number) return std::nullopt;
  std::size_t detailEnd = Find(AFTER_DETAIL, detailBegin);
  while (detailEnd != std::string::npos && !EntryMayEndAt(detailEnd + AFTER_DETAIL.size())) {
    detailEnd = Find(AFTER_DETAIL, detailEnd + 1);
  }
  if (detailEnd == std::string::npos) {
    m_endless = m_number;
    return std::nullopt;
  }
  entry.detail = m_report.substr(detailBegin, detailEnd - detailBegin);
  m_at = detailEnd + AFTER_DETAIL.size();
  return entry;
}

// Is the text one start tag, such as <testsuite name="a" tests="1">, as XML may hold it? No attribute
// stands there twice.
bool IsStartTag(const std::string& text) {
  const auto isName = [](const std::string& name) {
    return !name.empty() &&
           std::all_of(name.begin(), name.end(), [](char c) { return c >= 'a' && c <= 'z'; });
  };
  std::set<std::string> names;
  std::size_t at = std::min(text.find_first_of(" >"), text.size());
  if (!isName(text.substr(1, at - 1))) return false;
  while (at < text.size() && text[at] == ' ') {
    const std::size_t equals = text.find("=\"", at);
    const std::size_t end = equals == std::string::npos ? equals : text.find('"', equals + 2);
    if (end == std::string::npos) return false;
    const std::string name = text.substr(at + 1, equals - at - 1);
    const std::string value = text.substr(equals + 2, end - equals - 2);
    if (!isName(name) || !names.insert(name).second || XmlAttribute(value) != value) return false;
    at = end + 1;
  }
  return at + 1 == text.size() && text[at] == '>';
}

void Repair::TakeHead() {
  m_repaired.text = HEAD + ">\n";
  const std::size_t begin = HEAD.rfind('<');
  const std::size_t end = m_report.find(">\n", HEAD.size());
  if (!StandsAt(0, HEAD) || end == std::string::npos) return;
  m_at = end + 2;
  if (IsStartTag(m_report.substr(begin, end + 1 - begin))) {
    m_repaired.text = m_report.substr(0, m_at);
  }
}

// A line of the frame, which holds no text of a data file. It must end. For a damaged suite start tag,
// the suite's name is kept if it can be recovered.
void Repair::TakeLine() {
  const std::size_t end = m_report.find(">\n", m_at) + 2;
  const std::string line = m_report.substr(m_at, end - m_at);
  const std::string tag = line.substr(line.find('<'), line.size() - line.find('<') - 1);
  if (line == END_OF_SUITE || IsStartTag(tag)) {
    m_repaired.text += line;
  } else {
    const std::string rest = line.substr(SUITE.size());
    m_repaired.text += SUITE + XmlAttribute(rest.substr(0, rest.find_first_of("\"\n"))) + "\">\n";
  }
  m_at = end;
}

void Repair::OpenSuite() {
  if (!m_suiteIsOpen) m_repaired.text += SUITE + "\">\n";
  m_suiteIsOpen = true;
}

// What is no entry stays as plain text, up to the next line of the frame.
void Repair::TakeUnknown() {
  std::size_t end =
      std::min({m_report.size(), FindNextEntry(m_at), Find("\n" + END_OF_SUITE, m_at)});
  if (end < m_report.size()) ++end;
  if (StandsAt(end, EntryStart(m_number + 1))) ++m_number;
  OpenSuite();
  m_repaired.text += XmlContent(m_report.substr(m_at, end - m_at));
  m_at = end;
}

void Repair::AddEntry(const Entry& entry) {
  OpenSuite();
  const std::string name =
      EntryStart(m_number) + XmlAttribute(entry.name) + AFTER_NAME + entry.time;
  if (!entry.failed) {
    m_repaired.text += name + PASSED;
    return;
  }
  m_repaired.text += name + BEFORE_SUBJECT + XmlAttribute(entry.subject) + "\" type=\"\">\n\n " +
                     XmlCharacterData(entry.detail) + "\n\n</failure>\n</testcase>\n";
}

// Does the text begin with a reference to a character, such as "&amp;"?
bool IsReference(const std::string& text, std::size_t at) {
  const std::size_t end = text.find(';', at);
  if (end == std::string::npos) return false;
  const std::string name = text.substr(at + 1, end - at - 1);
  return name == "amp" || name == "lt" || name == "gt" || name == "quot" || name == "apos";
}

// A part of a text that breaks the report; empty if none does.
struct Culprit {
  std::string text;
  std::size_t at = 0;  // where it begins, in bytes
};

// The first one of an attribute.
Culprit CulpritInAttribute(const std::string& text) {
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (text[at] == '"' || text[at] == '<') return {text.substr(at, 1), at};
    if (text[at] == '&' && !IsReference(text, at)) return {"&", at};
  }
  return {};
}

// The first character that XML cannot hold.
Culprit ForbiddenCharacter(const std::string& text) {
  std::size_t at = 0;
  for (const CodePoint& point : CodePointsOf(text)) {
    std::string character;
    if (point.valid) {
      AppendUtf8(character, point.value);
    } else {
      character = static_cast<char>(point.value);
    }
    if (HoldsWhatXmlCannot(character)) return {character, at};
    at += character.size();
  }
  return {};
}

std::optional<EvidenceCell> CellWith(const std::string& culprit, const TestOutcome* known) {
  if (known == nullptr) return std::nullopt;
  const std::vector<EvidenceCell>& cells = known->evidence.cells;
  const auto found = std::find_if(cells.begin(), cells.end(), [&](const EvidenceCell& cell) {
    return cell.actual && cell.actual->find(culprit) != std::string::npos;
  });
  return found == cells.end() ? std::nullopt : std::optional(*found);
}

void Repair::NoteFaults(const Entry& entry, const TestOutcome* known) {
  const auto note = [&](const char* where, const Culprit& markup, const std::string& text) {
    const Culprit culprit = markup.text.empty() ? ForbiddenCharacter(text) : markup;
    if (culprit.text.empty()) return;
    const std::size_t begin = culprit.at == 0 ? 0 : text.rfind('\n', culprit.at - 1) + 1;
    const std::size_t end = text.find('\n', culprit.at);
    // What XML cannot hold is shown as the repaired report has it.
    m_repaired.faults.push_back(
        {m_datafile, m_number, entry.name,
         HoldsWhatXmlCannot(culprit.text) ? XmlContent(culprit.text) : culprit.text, where,
         text.substr(begin, end - begin), culprit.at - begin, CellWith(culprit.text, known)});
  };
  note("name", CulpritInAttribute(entry.name), entry.name);
  note("subject", CulpritInAttribute(entry.subject), entry.subject);
  const std::size_t endOfData = entry.detail.find("]]>");
  note("message", endOfData == std::string::npos ? Culprit() : Culprit{"]]>", endOfData},
       entry.detail);
}

// Failed assertions are in the report only.
void Repair::FollowKnownTests(const Entry& entry) {
  if (!entry.failed && entry.name == START_OF_DATAFILE) {
    m_datafile = m_datafile ? *m_datafile + 1 : 0;
    m_known = 0;
  }
  const TestOutcome* const known = KnownTest();
  const bool isKnown = known != nullptr && known->name == entry.name;
  NoteFaults(entry, isKnown ? known : nullptr);
  if (entry.name.compare(0, ASSERTION_FAILURE.size(), ASSERTION_FAILURE) != 0) ++m_known;
}

// Skips tests of which nothing is left before the current entry. False if there is none.
bool Repair::PassOverMissingTests() {
  constexpr int MOST_IN_A_ROW = 1000;
  if (!StandsAt(m_at, ENTRY)) return false;
  for (int number = m_number + 1; number <= m_number + MOST_IN_A_ROW; ++number) {
    if (!StandsAt(m_at, EntryStart(number))) continue;
    m_number = number;
    return true;
  }
  return false;
}

RepairedReport Repair::Run() {
  TakeHead();
  while (m_at < m_report.size()) {
    if (StandsAt(m_at, EntryStart(m_number))) {
      std::optional<Entry> entry = TakeKnownEntry();
      if (!entry) entry = TakeEntryByFrame();
      if (entry) {
        AddEntry(*entry);
        FollowKnownTests(*entry);
        ++m_number;
        continue;
      }
    } else if (StandsAt(m_at, SUITE) && !m_suiteIsOpen &&
               m_report.find(">\n", m_at) != std::string::npos) {
      m_suiteIsOpen = true;
      TakeLine();
      continue;
    } else if (StandsAt(m_at, END_OF_SUITE) && m_suiteIsOpen) {
      m_suiteIsOpen = false;
      TakeLine();
      continue;
    } else if (PassOverMissingTests()) {
      continue;
    } else if (m_report.compare(m_at, std::string::npos, END_OF_SUITES + "\n") == 0) {
      break;
    }
    TakeUnknown();
  }
  if (m_suiteIsOpen) m_repaired.text += END_OF_SUITE;
  m_repaired.text += END_OF_SUITES + "\n";
  return std::move(m_repaired);
}

}  // namespace

RepairedReport RepairReport(const std::string& report,
                            const std::vector<DatafileResult>& datafiles) {
  return Repair(report, datafiles).Run();
}

std::filesystem::path RepairedPath(const std::filesystem::path& report) {
  std::filesystem::path path = report;
  return path.replace_extension(".repaired.xml");
}

std::string DescribeFault(const ReportFault& fault, const std::vector<DatafileResult>& datafiles) {
  std::string text = "broken by " + fault.culprit + " in the " + fault.where + " of test " +
                     EntryStart(fault.number).substr(ENTRY.size() - 4) + fault.test;
  if (fault.cell) {
    std::string column = fault.cell->column;
    std::replace(column.begin(), column.end(), '\n', ' ');
    text += ", from the cell of column " + column;
    if (fault.cell->row) text += ", row " + std::to_string(*fault.cell->row);
    if (fault.cell->line) text += ", line " + std::to_string(*fault.cell->line);
  }
  if (fault.datafile && *fault.datafile < datafiles.size()) {
    text += ", among the results of " + datafiles[*fault.datafile].path.string();
  }
  return text;
}

}  // namespace OmbreliaHost
