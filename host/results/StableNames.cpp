#include "host/results/StableNames.h"

#include "host/results/CodePoints.h"

namespace OmbreliaHost {

namespace {

constexpr std::size_t LONGEST_NAME = 200;

bool StartsWith(const std::string& text, const std::string& start) {
  return text.compare(0, start.size(), start) == 0;
}

bool IsNumbers(const std::string& text) {
  return !text.empty() && text.find_first_not_of("0123456789-_") == std::string::npos;
}

std::string FirstCharacters(const std::string& text, std::size_t count) {
  std::string cut;
  const std::vector<CodePoint> points = CodePointsOf(text);
  if (points.size() <= count) return text;
  for (std::size_t i = 0; i < count; ++i) AppendUtf8(cut, points[i].value);
  return cut;
}

}  // namespace

std::string StableName(const std::string& experiment, const std::string& test) {
  // The value is the text of a cell, which may be any.
  for (const char* tracking : {"__TIMING__TRACKING__", "__EXPANSION__TRACKING__"}) {
    if (StartsWith(test, tracking + experiment + "__")) return tracking + experiment;
  }
  // These end in the whole name of a data file.
  for (const char* start : {"open_and_parse_", "locating_verifier_for_"}) {
    if (StartsWith(test, start)) return start + experiment;
  }
  for (const char* counted :
       {"CHECK_TIMESTAMP", "NON_NUMERIC_VALUE", "TestingPluginDH_AssertionFailure"}) {
    const std::string start = counted + std::string("_");
    if (StartsWith(test, start) && IsNumbers(test.substr(start.size()))) return counted;
  }
  // A passing test has its value in the name, a failing one has not.
  const std::string measured = "_and_percent_was_";
  const std::size_t at = test.rfind(measured);
  if (at != std::string::npos && IsNumbers(test.substr(at + measured.size()))) {
    return test.substr(0, at);
  }
  return test;
}

std::string UniqueNames::Next(const std::string& name) {
  const std::string base = FirstCharacters(name, LONGEST_NAME);
  for (;;) {
    const int count = ++m_given[base];
    if (count == 1) return base;
    const std::string suffix = " (" + std::to_string(count) + ")";
    const std::string unique = FirstCharacters(base, LONGEST_NAME - suffix.size()) + suffix;
    // Another test may really have that name.
    if (m_given.emplace(unique, 1).second) return unique;
  }
}

}  // namespace OmbreliaHost
