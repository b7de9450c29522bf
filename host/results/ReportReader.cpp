#include "host/results/ReportReader.h"

#include <expat.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iterator>
#include <memory>
#include <sstream>
#include <utility>

#include "host/results/ExitStatus.h"

namespace fs = std::filesystem;

namespace OmbreliaHost {

namespace {

const char* const START_OF_DATAFILE =
    "DataHookOutputTestingPlugin_PerformPostProcessing_was_called";

// "test007" before the name of the seventh test.
std::string NumberPrefix(std::size_t number) {
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "test%03zu", number);
  return text.data();
}

std::string NameWithoutNumber(const std::string& name) {
  const std::size_t digits = std::strlen("test");
  const std::size_t end = name.find_first_not_of("0123456789", digits);
  return end == std::string::npos ? std::string() : name.substr(end);
}

std::string AttributeOf(const XML_Char** attributes, const char* name) {
  for (; *attributes != nullptr; attributes += 2) {
    if (std::strcmp(attributes[0], name) == 0) return attributes[1];
  }
  return std::string();
}

class ReportParser {
 public:
  ReportParser() : m_parser(XML_ParserCreate(nullptr), &XML_ParserFree) {
    XML_SetUserData(m_parser.get(), this);
    XML_SetElementHandler(m_parser.get(), &OnStart, &OnEnd);
    XML_SetCdataSectionHandler(m_parser.get(), &OnStartOfDetail, &OnEndOfDetail);
    XML_SetCharacterDataHandler(m_parser.get(), &OnText);
  }

  // True if the whole text is well-formed. The results read so far stay either way.
  bool Parse(const std::string& report);

  std::vector<TestResult>& Results() { return m_results; }
  bool TestIsOpen() const { return m_testIsOpen; }
  std::string Error() const { return XML_ErrorString(XML_GetErrorCode(m_parser.get())); }
  XML_Size Line() const { return XML_GetCurrentLineNumber(m_parser.get()); }
  // What the head says of the entries.
  std::string CountInHead() const {
    return m_testsInHead + " tests, " + m_failuresInHead + " failing";
  }

 private:
  static ReportParser& Self(void* self) { return *static_cast<ReportParser*>(self); }
  static void OnStart(void* self, const XML_Char* element, const XML_Char** attributes);
  static void OnEnd(void* self, const XML_Char* element);
  static void OnStartOfDetail(void* self) { Self(self).m_inDetail = true; }
  static void OnEndOfDetail(void* self) { Self(self).m_inDetail = false; }
  static void OnText(void* self, const XML_Char* text, int length);

  std::unique_ptr<XML_ParserStruct, decltype(&XML_ParserFree)> m_parser;
  std::vector<TestResult> m_results;
  bool m_testIsOpen = false;
  bool m_inDetail = false;
  std::string m_detail;
  std::string m_testsInHead;
  std::string m_failuresInHead;
};

void ReportParser::OnStart(void* self, const XML_Char* element, const XML_Char** attributes) {
  ReportParser& parser = Self(self);
  if (std::strcmp(element, "testsuites") == 0) {
    parser.m_testsInHead = AttributeOf(attributes, "tests");
    parser.m_failuresInHead = AttributeOf(attributes, "failures");
  } else if (std::strcmp(element, "testcase") == 0) {
    TestResult result;
    result.name = AttributeOf(attributes, "name");
    parser.m_results.push_back(std::move(result));
    parser.m_testIsOpen = true;
  } else if (std::strcmp(element, "failure") == 0 && parser.m_testIsOpen) {
    parser.m_results.back().failed = true;
    parser.m_results.back().subject = AttributeOf(attributes, "message");
    parser.m_detail.clear();
  }
}

void ReportParser::OnEnd(void* self, const XML_Char* element) {
  ReportParser& parser = Self(self);
  if (std::strcmp(element, "failure") == 0 && parser.m_testIsOpen) {
    // The first line of the detail is the location.
    TestResult& result = parser.m_results.back();
    const std::size_t lineEnd = parser.m_detail.find('\n');
    result.location = parser.m_detail.substr(0, lineEnd);
    if (lineEnd != std::string::npos) result.message = parser.m_detail.substr(lineEnd + 1);
  } else if (std::strcmp(element, "testcase") == 0) {
    parser.m_testIsOpen = false;
  }
}

void ReportParser::OnText(void* self, const XML_Char* text, int length) {
  ReportParser& parser = Self(self);
  if (parser.m_inDetail) parser.m_detail.append(text, static_cast<std::size_t>(length));
}

bool ReportParser::Parse(const std::string& report) {
  constexpr std::size_t BLOCK = 65536;
  for (std::size_t at = 0;; at += BLOCK) {
    const std::size_t length = std::min(BLOCK, report.size() - at);
    const bool last = at + length == report.size();
    if (XML_Parse(m_parser.get(), report.data() + at, static_cast<int>(length), last) !=
        XML_STATUS_OK) {
      return false;
    }
    if (last) return true;
  }
}

// The line of the report, for a test whose very name broke it: no parser can give that name.
std::string LineOfText(const std::string& report, XML_Size number) {
  std::istringstream lines(report);
  std::string line;
  for (XML_Size i = 0; i < number; ++i) {
    if (!std::getline(lines, line)) return std::string();
  }
  return line;
}

// As the head counts them.
std::string CountOf(const std::vector<TestResult>& results) {
  std::size_t failing = 0;
  for (const TestResult& result : results) failing += result.failed ? 1 : 0;
  return std::to_string(results.size()) + " tests, " + std::to_string(failing) + " failing";
}

std::size_t CountStarts(const std::vector<TestResult>& results) {
  return static_cast<std::size_t>(std::count_if(results.begin(), results.end(), &StartsDatafile));
}

std::string DatafileOf(const std::vector<TestResult>& results,
                       const std::vector<fs::path>& datafiles) {
  const std::size_t started = CountStarts(results);
  if (started == 0 || started > datafiles.size()) return std::string();
  return ", among the results of " + datafiles[started - 1].string();
}

}  // namespace

bool StartsDatafile(const TestResult& result) {
  return !result.failed && NameWithoutNumber(result.name) == START_OF_DATAFILE;
}

std::string TextOfReport(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  std::string text{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  if (!file.is_open() || file.bad()) {
    throw RunError(ExitStatus::NoReport, path.string() + ": the report cannot be read");
  }
  return text;
}

ReportReading ReadReportText(const std::string& report, const std::string& name,
                             const std::vector<fs::path>& datafiles) {
  ReportParser parser;
  const bool wellFormed = parser.Parse(report);
  ReportReading reading;
  std::vector<TestResult>& results = reading.results;
  results = std::move(parser.Results());

  // The numbers run on without a gap: the first that does not was made by another test's text.
  for (std::size_t i = 0; i < results.size(); ++i) {
    const std::string prefix = NumberPrefix(i + 1);
    if (results[i].name.compare(0, prefix.size(), prefix) == 0) continue;
    const std::string culprit = i == 0 ? results[i].name : results[i - 1].name;
    results.resize(i);
    reading.fault = name + ": the report is not as the plug-in counted it; broken by test " +
                    culprit + DatafileOf(results, datafiles);
    return reading;
  }

  if (!wellFormed) {
    reading.fault = name + ":" + std::to_string(parser.Line()) +
                    ": the report is not well-formed XML (" + parser.Error() + ")";
    if (parser.TestIsOpen()) {
      reading.fault += "; broken by test " + results.back().name;
    } else if (!results.empty()) {
      reading.fault += "; broken by the test after " + results.back().name;
    }
    reading.fault += DatafileOf(results, datafiles);
    if (!parser.TestIsOpen()) reading.fault += ": " + LineOfText(report, parser.Line());
    return reading;
  }

  reading.countInHead = parser.CountInHead();
  reading.countOfEntries = CountOf(results);
  if (results.empty()) {
    reading.fault = name + ": the report holds no result of any test";
  } else if (reading.countInHead != reading.countOfEntries) {
    reading.fault = name + ": the report's head counts " + reading.countInHead +
                    ", its entries are " + reading.countOfEntries;
  }
  return reading;
}

std::vector<TestResult> ReadReport(const fs::path& path, const std::vector<fs::path>& datafiles) {
  ReportReading reading = ReadReportText(TextOfReport(path), path.string(), datafiles);
  const std::size_t started = CountStarts(reading.results);
  const bool counted = !reading.countInHead.empty();
  if (counted && (!reading.fault.empty() || started != datafiles.size())) {
    reading.fault = path.string() + ": the report's head counts " + reading.countInHead +
                    ", its entries are " + reading.countOfEntries + ", of " +
                    std::to_string(started) + " data files; " + std::to_string(datafiles.size()) +
                    " were handed over";
  }
  if (!reading.fault.empty()) throw RunError(ExitStatus::MalformedReport, reading.fault);
  return std::move(reading.results);
}

}  // namespace OmbreliaHost
