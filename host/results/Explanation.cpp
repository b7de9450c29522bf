#include "host/results/Explanation.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>

#include "host/results/Manifest.h"
#include "host/results/StimulusAreaWords.h"
#include "host/results/VerificationRecorder.h"
#include "host/results/WideText.h"
#include "plugin/DataHookOutputTestingPluginImpl.h"

namespace OmbreliaHost {

namespace {

using Demand = ExplainedCheck::Demand;
using Ombrelia::RowScan;

// The results with which each data file begins; they compare nothing.
constexpr std::size_t CHECKS_BEFORE_THE_FIRST = 2;

std::vector<ExpectedRun> RunsOf(const std::vector<wxString>& texts, long firstRow) {
  std::vector<ExpectedRun> runs;
  long row = firstRow;
  for (const wxString& wide : texts) {
    std::string text = Utf8OfText(wide);
    if (runs.empty() || runs.back().text != text) {
      runs.push_back({{row, row}, std::move(text)});
    } else {
      runs.back().rows.last = row;
    }
    ++row;
  }
  return runs;
}

// Turns what was compared into demands. A length belongs to the content that is compared next.
class DemandMaker {
 public:
  void operator()(const LengthComparison& comparison) {
    m_rowCount = static_cast<long>(comparison.expected.size());
  }
  void operator()(const CellsComparison& comparison) {
    Demand demand;
    demand.column = Utf8OfText(comparison.column);
    demand.runs = RunsOf(comparison.expected, comparison.firstRow);
    demand.rowCount = std::exchange(m_rowCount, -1);
    m_demands.push_back(demand);
  }
  void operator()(const ScanComparison& comparison) {
    const RowScan& rule = comparison.rule;
    Demand demand;
    demand.column = Utf8OfText(comparison.column);
    demand.rowCount = rule.LastRow() + 1;
    switch (rule.RuleKind()) {
      case RowScan::Kind::POSITIONAL:
        demand.runs = RunsOf(rule.Texts(), 0);
        break;
      case RowScan::Kind::ANYWHERE:
        demand.kind = Demand::Kind::Anywhere;
        for (const wxString& text : rule.Texts())
          demand.runs.push_back({{0, rule.LastRow()}, Utf8OfText(text)});
        break;
      case RowScan::Kind::COUNT:
        demand.kind = Demand::Kind::Count;
        demand.runs = {{{0, rule.WantedCount() - 1}, Utf8OfText(rule.Texts().front())}};
        break;
    }
    m_demands.push_back(demand);
  }
  void operator()(const BoundComparison&) {}
  void operator()(const AreasComparison& comparison) {
    Demand demand;
    demand.kind = Demand::Kind::Areas;
    long place = 0;
    for (const Ombrelia::StimAreaData& area : comparison.expected) {
      demand.runs.push_back({{place, place}, WordsOfStimulusArea(area)});
      ++place;
    }
    m_demands.push_back(demand);
  }

  std::vector<Demand> Take() { return std::move(m_demands); }

 private:
  std::vector<Demand> m_demands;
  long m_rowCount = -1;
};

std::vector<RowRange> RangesOf(const std::set<int>& rows) {
  std::vector<RowRange> ranges;
  for (const int row : rows) {
    if (ranges.empty() || ranges.back().last + 1 != row) {
      ranges.push_back({row, row});
    } else {
      ranges.back().last = row;
    }
  }
  return ranges;
}

// The cells that were read, but for those of columns about which there is a demand.
std::vector<ExplainedCheck::Read> ReadsOf(const RecordedCheck& check,
                                          const std::vector<Demand>& demands,
                                          const RecordingTable& table) {
  std::map<int, std::set<int>> rowsByColumn;
  for (const CellPlace& cell : check.reads.cells) rowsByColumn[cell.column].insert(cell.row);
  std::vector<ExplainedCheck::Read> reads;
  for (const auto& [column, rows] : rowsByColumn) {
    const std::string name = Utf8OfText(table.GetColumnNameText(column));
    const bool isDemanded =
        std::any_of(demands.begin(), demands.end(), [&name](const Demand& demand) {
          return demand.kind != Demand::Kind::Areas && demand.column == name;
        });
    if (!isDemanded) reads.push_back({name, RangesOf(rows)});
  }
  return reads;
}

bool IsOfABound(const RecordedCheck& check) {
  return std::any_of(check.comparisons.begin(), check.comparisons.end(),
                     [](const auto& one) { return std::holds_alternative<BoundComparison>(one); });
}

ExplainedCheck ExplainCheck(const RecordedCheck& check, const VerificationRecorder& recorder,
                            const std::string& experiment) {
  ExplainedCheck explained;
  explained.name = Utf8OfText(check.name);
  explained.failed = check.failed;
  explained.tolerated = IsTolerated(experiment, explained.name);
  DemandMaker demands;
  for (const Comparison& comparison : check.comparisons) std::visit(demands, comparison);
  explained.demands = demands.Take();
  if (recorder.Table() == nullptr) return explained;
  explained.reads = ReadsOf(check, explained.demands, *recorder.Table());
  if (explained.demands.empty() && explained.reads.empty()) {
    for (const ColumnLookup& lookup : check.reads.lookups)
      explained.columnsLookedFor.push_back(Utf8OfText(lookup.name));
  }
  return explained;
}

void AddBounds(const VerificationRecorder& recorder, std::vector<ExplainedBound>& bounds) {
  for (const RecordedCheck& check : recorder.Checks()) {
    for (const Comparison& comparison : check.comparisons) {
      if (const auto* const bound = std::get_if<BoundComparison>(&comparison))
        bounds.push_back({Utf8OfText(check.name), recorder.Machine(), bound->min, bound->max});
    }
  }
}

}  // namespace

std::string ExperimentOf(const std::filesystem::path& datafile) {
  const auto& verifiers = Ombrelia::DataHookOutputTestingPlugin::PrivateImpl::m_static_verifiers();
  const auto found = verifiers.find(Ombrelia::LookupKeyOfDatafile(TextOfPath(datafile)));
  return found == verifiers.end() ? std::string() : Utf8OfText(found->second.name);
}

Explanation ExplainByDatafile(const std::filesystem::path& absoluteDatafile,
                              const std::vector<Ombrelia::StimAreaData>& areas) {
  const wxString path = TextOfPath(absoluteDatafile);
  Explanation explanation;
  explanation.experiment = ExperimentOf(absoluteDatafile);
  for (const MachineKind machine :
       {MachineKind::Ordinary, MachineKind::Small, MachineKind::Large}) {
    VerificationRecorder recorder(machine);
    Ombrelia::DispatchDatafile(path, areas, &recorder);
    AddBounds(recorder, explanation.bounds);
    if (machine != MachineKind::Ordinary) continue;
    for (std::size_t i = CHECKS_BEFORE_THE_FIRST; i < recorder.Checks().size(); ++i) {
      const RecordedCheck& check = recorder.Checks()[i];
      if (!IsOfABound(check))
        explanation.checks.push_back(ExplainCheck(check, recorder, explanation.experiment));
    }
  }
  return explanation;
}

}  // namespace OmbreliaHost
