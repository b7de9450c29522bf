#include "host/results/ResultNames.h"

#include "host/results/NamedValues.h"

namespace OmbreliaHost {

namespace {

const std::vector<NamedValue<Outcome>>& Outcomes() {
  static const std::vector<NamedValue<Outcome>> outcomes = {
      {Outcome::Passed, "passed"},       {Outcome::Failed, "failed"},
      {Outcome::Tolerated, "tolerated"}, {Outcome::Unreadable, "unreadable"},
      {Outcome::Unknown, "unknown"},     {Outcome::Crashed, "crashed"},
      {Outcome::TimedOut, "timed out"},  {Outcome::Lost, "lost"}};
  return outcomes;
}

const std::vector<NamedValue<MachineKind>>& Machines() {
  static const std::vector<NamedValue<MachineKind>> machines = {{MachineKind::Ordinary, "ordinary"},
                                                                {MachineKind::Small, "small"},
                                                                {MachineKind::Large, "large"}};
  return machines;
}

}  // namespace

std::string NameOf(Outcome outcome) { return NameIn(Outcomes(), outcome); }
std::string NameOf(MachineKind machine) { return NameIn(Machines(), machine); }
Outcome OutcomeOf(const std::string& name) { return ValueIn(Outcomes(), name, "outcome"); }
MachineKind MachineKindOf(const std::string& name) {
  return ValueIn(Machines(), name, "kind of machine");
}

}  // namespace OmbreliaHost
