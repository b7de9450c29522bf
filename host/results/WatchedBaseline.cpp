#include "host/results/WatchedBaseline.h"

#include <nlohmann/json.hpp>

#include "framework/RunTimes.h"
#include "host/results/FailingTests.h"
#include "host/results/ResultNames.h"
#include "host/results/ResultsJson.h"
#include "host/results/VerificationRecorder.h"
#include "host/results/WideText.h"
#include "plugin/DataHookOutputTestingPluginImpl.h"

namespace OmbreliaHost {

namespace {

using nlohmann::json;

// The bound that a check compared with; null if it did none.
const BoundComparison* BoundOf(const RecordedCheck& check) {
  for (const Comparison& comparison : check.comparisons) {
    if (const auto* const bound = std::get_if<BoundComparison>(&comparison)) return bound;
  }
  return nullptr;
}

void AddBounds(const VerificationRecorder& recorder, std::vector<WatchedBaseline::Bound>& bounds) {
  for (const RecordedCheck& check : recorder.Checks()) {
    const BoundComparison* const bound = BoundOf(check);
    if (bound == nullptr) continue;
    const bool isExpansion = recorder.Table()
                                 ->GetColumnNameText(bound->column)
                                 .StartsWith(Ombrelia::EXPANSION_TIME_COLUMN_NAME);
    bounds.push_back({Utf8OfText(check.name), recorder.Machine(), bound->column, isExpansion,
                      bound->min, bound->max});
  }
}

}  // namespace

std::string WatchedBaseline::Line() const {
  json all = json::array();
  for (const Bound& bound : bounds)
    all.push_back(
        {bound.test, NameOf(bound.machine), bound.column, bound.isExpansion, bound.min, bound.max});
  return JsonText({{"failing", failing}, {"columns", columns}, {"bounds", all}}, -1);
}

WatchedBaseline WatchedBaseline::OfLine(const std::string& line) {
  const json whole = json::parse(line);
  WatchedBaseline baseline;
  whole.at("failing").get_to(baseline.failing);
  whole.at("columns").get_to(baseline.columns);
  for (const json& bound : whole.at("bounds")) {
    baseline.bounds.push_back({bound.at(0), MachineKindOf(bound.at(1)), bound.at(2), bound.at(3),
                               bound.at(4), bound.at(5)});
  }
  return baseline;
}

WatchedBaseline BaselineOf(const std::filesystem::path& absoluteDatafile,
                           const std::vector<Ombrelia::StimAreaData>& areas) {
  WatchedBaseline baseline;
  baseline.failing = FailingTestsOf(absoluteDatafile, areas, MachineKind::Ordinary);
  for (const MachineKind machine :
       {MachineKind::Ordinary, MachineKind::Small, MachineKind::Large}) {
    VerificationRecorder recorder(machine);
    Ombrelia::DispatchDatafile(TextOfPath(absoluteDatafile), areas, &recorder);
    AddBounds(recorder, baseline.bounds);
    if (machine != MachineKind::Ordinary || !recorder.DatafileWasRead()) continue;
    for (int i = 0; i < recorder.Table()->GetNumberOfDataColumns(); ++i)
      baseline.columns.push_back(Utf8OfText(recorder.Table()->GetColumnNameText(i)));
  }
  return baseline;
}

bool Breaks(const WatchedBaseline::Bound& bound, const std::filesystem::path& absoluteDatafile,
            const std::vector<Ombrelia::StimAreaData>& areas) {
  VerificationRecorder recorder(bound.machine);
  Ombrelia::DispatchDatafile(TextOfPath(absoluteDatafile), areas, &recorder);
  for (const RecordedCheck& check : recorder.Checks()) {
    const BoundComparison* const found = BoundOf(check);
    if (found != nullptr && Utf8OfText(check.name) == bound.test && found->column == bound.column &&
        found->min == bound.min && found->max == bound.max)
      return check.failed;
  }
  return false;
}

}  // namespace OmbreliaHost
