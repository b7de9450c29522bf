#include "host/commands/ResultsOutput.h"

#include <unistd.h>

#include <cstdlib>
#include <iostream>
#include <nlohmann/json.hpp>
#include <random>

#include "host/print/GitHubPrinter.h"
#include "host/print/HtmlPrinter.h"
#include "host/print/JUnitPrinter.h"
#include "host/print/VisibleText.h"
#include "host/results/ResultsJson.h"
#include "host/results/ThisMachine.h"
#include "host/results/Tolerance.h"

namespace OmbreliaHost {

namespace {

bool IsSet(const char* variable) {
  const char* const value = std::getenv(variable);
  return value != nullptr && *value != '\0';
}

bool UsesColor(ShowMode mode) {
  if (mode != ShowMode::Auto) return mode == ShowMode::Always;
  const char* const terminal = std::getenv("TERM");
  return !IsSet("NO_COLOR") && isatty(STDOUT_FILENO) == 1 &&
         !(terminal != nullptr && std::string(terminal) == "dumb");
}

Verbosity VerbosityOf(const OutputArguments& arguments) {
  if (arguments.quiet) return Verbosity::Quiet;
  return arguments.verbose ? Verbosity::Verbose : Verbosity::Normal;
}

void Open(std::ofstream& file, const std::filesystem::path& path) {
  if (path.empty()) return;
  file.open(path, std::ios::binary | std::ios::trunc);
  if (!file) {
    throw RunError(ExitStatus::WrongUse, path.string() + ": the file cannot be written");
  }
}

void Close(std::ofstream& file, const std::filesystem::path& path) {
  file.close();
  if (!file) {
    throw RunError(ExitStatus::NoReport, path.string() + ": the file could not be written");
  }
}

bool IsGitHubJob() {
  const char* const value = std::getenv("GITHUB_ACTIONS");
  return value != nullptr && std::string(value) == "true";
}

std::string RandomToken() {
  std::random_device source;
  std::string token = "verify-datafiles-";
  for (int i = 0; i < 4; ++i) token += std::to_string(source()) + "-";
  return token;
}

}  // namespace

ResultsOutput::ResultsOutput(const OutputArguments& arguments, MachineKind machine)
    : m_arguments(arguments),
      m_terminal(std::cout, machine, VerbosityOf(arguments), UsesColor(arguments.color)) {
  Open(m_json, arguments.json);
  Open(m_junit, arguments.junit);
  if (!arguments.html.empty()) m_html.emplace(arguments.html);
  if (!arguments.history.empty()) m_history.emplace(arguments.history, HistoryFile::Use::Append);
  if (IsGitHubJob()) {
    m_token = RandomToken();
    GitHubPrinter(std::cout).BeginOtherOutput(m_token);
    std::cout.flush();
  }
}

ResultsOutput::~ResultsOutput() { EndOtherOutput(); }

void ResultsOutput::EndOtherOutput() {
  if (m_token.empty()) return;
  GitHubPrinter(std::cout).EndOtherOutput(m_token);
  m_token.clear();
  std::cout.flush();
}

void ResultsOutput::Remember(RunResults& results, const std::vector<HistoryLine>& lines) {
  if (m_history) m_history->Append(lines);
  if (!m_history || !HasToleratedFailure(results)) return JudgeTolerance(results, lines);
  const HistoryContent history = m_history->Read();
  for (const std::string& words : history.skipped) {
    std::cerr << "verify-datafiles: " << PathShown(m_arguments.history.string()) << ": "
              << LineShown(words) << std::endl;
  }
  JudgeTolerance(results, history.lines);
}

ExitStatus ResultsOutput::Finish(RunResults& results, const std::vector<HistoryLine>& lines) {
  // Whatever becomes of the history, the results are handed on.
  std::optional<RunError> notRemembered;
  try {
    Remember(results, lines);
  } catch (const RunError& error) {
    notRemembered = error;
  }
  m_terminal.PrintSummary(results);
  if (m_history) m_terminal.PrintToleratedFailures(results);
  if (m_history || m_arguments.tolerate) m_terminal.PrintTolerance(results);
  const bool gitHub = !m_token.empty();
  EndOtherOutput();
  if (gitHub) {
    GitHubPrinter(std::cout).PrintAnnotations(results);
    std::cout.flush();
  }
  if (gitHub && IsSet("GITHUB_STEP_SUMMARY")) {
    // A job's summary is a help to its reader: that it cannot be written changes no result.
    std::ofstream summary(std::getenv("GITHUB_STEP_SUMMARY"), std::ios::binary | std::ios::app);
    GitHubPrinter(summary).PrintStepSummary(results);
  }
  if (m_json.is_open()) {
    m_json << JsonText(ToJson(results)) << "\n";
    Close(m_json, m_arguments.json);
  }
  if (m_junit.is_open()) {
    JUnitPrinter(m_junit, NameOfThisHost()).Print(results);
    Close(m_junit, m_arguments.junit);
  }
  if (m_html) {
    HtmlPrinter(m_html->Stream()).Print(results);
    m_html->Close();
  }
  for (const std::string& fault : results.faults) {
    std::cerr << "verify-datafiles: " << fault << std::endl;
  }
  if (notRemembered) throw RunError(*notRemembered);
  return ExitStatusOf(results, m_arguments.tolerate);
}

}  // namespace OmbreliaHost
