// The verifiers that the project has, from the table that the whole build uses.
#ifndef OMBRELIA_HOST_RESULTS_MANIFEST_H
#define OMBRELIA_HOST_RESULTS_MANIFEST_H

#include <string>
#include <vector>

#include "host/results/Chance.h"

namespace OmbreliaHost {

struct VerifierEntry {
  std::string className;
  std::string experiment;                      // the registered name
  std::string proves;                          // what it proves about the host, one sentence
  bool expectEmptyDatafile = false;            // the experiment is to leave no readable data file
  std::vector<std::string> toleratedFailures;  // names of tests, without running number
  std::vector<ChanceFailure> chanceFailures;  // the tolerated ones, and others that chance can fail
};

// All verifiers in the table's order. They live as long as the program.
const std::vector<VerifierEntry>& Verifiers();

// The verifier of exactly this registered name; null if there is none.
const VerifierEntry* FindVerifier(const std::string& experiment);

// May a correct host fail this test now and then? The name is without running number.
bool IsTolerated(const std::string& experiment, const std::string& testName);

// How chance fails this test of an experiment; null if chance does not. The name is a stable one.
const ChanceFailure* FindChance(const std::string& experiment, const std::string& testName);

}  // namespace OmbreliaHost

#endif
