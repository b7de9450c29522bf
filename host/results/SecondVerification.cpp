#include "host/results/SecondVerification.h"

#include <wx/filename.h>

#include <algorithm>

#include "framework/CellNumbers.h"
#include "host/results/EvidenceReduction.h"
#include "host/results/Manifest.h"
#include "host/results/VerificationRecorder.h"
#include "host/results/WideText.h"
#include "plugin/DataHookOutputTestingPluginImpl.h"

namespace OmbreliaHost {

namespace {

using Registry = Ombrelia::DataHookOutputTestingPlugin::PrivateImpl;

// The milliseconds in the name of a tracking test, as in "__TIMING__TRACKING__x.om5__812_ms".
std::optional<long> TrackedTime(const wxString& testName, const wxString& start,
                                const wxString& experiment) {
  wxString rest;
  wxString digits;
  long milliseconds = 0;
  if (!testName.StartsWith(start + experiment + wxT("__"), &rest) ||
      !rest.EndsWith(wxT("_ms"), &digits) || !Ombrelia::ReadLong(digits, milliseconds))
    return std::nullopt;
  return milliseconds;
}

// A broken data file may make a test fail in each of its many rows.
constexpr std::size_t FAILURES_WITH_ALL_CELLS = 100;
constexpr std::size_t MOST_CELLS = 1000;
constexpr std::size_t FEW_CELLS = 10;

std::optional<BoundCheck> BoundOf(const RecordedCheck& check) {
  for (const Comparison& comparison : check.comparisons) {
    if (const auto* const bound = std::get_if<BoundComparison>(&comparison))
      return BoundCheck{bound->min, bound->max, bound->actual};
  }
  return std::nullopt;
}

Outcome OutcomeOf(const OwnVerdict& verdict, bool isKnown, bool isReadable) {
  const auto has = [&verdict](Outcome outcome) {
    return std::any_of(verdict.tests.begin(), verdict.tests.end(),
                       [outcome](const TestOutcome& test) { return test.outcome == outcome; });
  };
  if (has(Outcome::Failed)) {
    if (!isKnown) return Outcome::Unknown;
    return isReadable ? Outcome::Failed : Outcome::Unreadable;
  }
  return has(Outcome::Tolerated) ? Outcome::Tolerated : Outcome::Passed;
}

}  // namespace

OwnVerdict VerifyInThisProcess(const std::filesystem::path& absoluteDatafile,
                               const std::vector<Ombrelia::StimAreaData>& areas,
                               MachineKind machine) {
  const wxString path = TextOfPath(absoluteDatafile);
  const auto& registry = Registry::m_static_verifiers();
  const auto verifier = registry.find(Ombrelia::LookupKeyOfDatafile(path));
  const bool isKnown = verifier != registry.end();
  const wxString experiment =
      isKnown ? verifier->second.name : wxFileName(path).GetName().BeforeFirst(wxT(' '));

  VerificationRecorder recorder(machine);
  Ombrelia::DispatchDatafile(path, areas, &recorder);

  OwnVerdict verdict;
  verdict.experiment = Utf8OfText(experiment);
  const EvidenceReduction reduction(recorder);
  std::size_t failures = 0;
  for (std::size_t i = 0; i < recorder.Checks().size(); ++i) {
    const RecordedCheck& check = recorder.Checks()[i];
    TestOutcome test;
    test.name = Utf8OfText(check.name);
    test.bound = BoundOf(check);
    if (check.failed) {
      test.outcome =
          IsTolerated(verdict.experiment, test.name) ? Outcome::Tolerated : Outcome::Failed;
      test.subject = Utf8OfText(check.subject);
      test.location = Utf8OfText(check.location);
      test.message = Utf8OfText(check.message);
      ++failures;
      test.evidence =
          reduction.EvidenceOf(i, failures <= FAILURES_WITH_ALL_CELLS ? MOST_CELLS : FEW_CELLS);
    }
    if (const auto time = TrackedTime(check.name, wxT("__TIMING__TRACKING__"), experiment))
      verdict.durationMs = time;
    if (const auto time = TrackedTime(check.name, wxT("__EXPANSION__TRACKING__"), experiment))
      verdict.expansionMs = time;
    verdict.tests.push_back(test);
  }
  if (recorder.DatafileWasRead()) verdict.rows = recorder.Table()->GetNumberOfDataRows();
  verdict.outcome = OutcomeOf(verdict, isKnown, recorder.DatafileWasRead());
  return verdict;
}

}  // namespace OmbreliaHost
