// Words on a history that its text and its page share. They are not escaped yet.
#ifndef OMBRELIA_HOST_PRINT_HISTORYWORDS_H
#define OMBRELIA_HOST_PRINT_HISTORYWORDS_H

#include <string>

#include "host/results/HistorySummary.h"

namespace OmbreliaHost {

// "newly broken since 2026-03-01T12:00:00Z by Data_appears_completely_and_in_order"
std::string WordsOnState(const ExperimentHistory& history);

// "905 to 960 ms, spread 12.0 ms, +1.2 ms a run"; empty without numbers.
std::string WordsOnSeries(const ExperimentHistory::Series& series);

// "Experiment_duration_x.om5: 960 of 900 to 1100, 11.7 spreads away; at this trend in 116 runs"
std::string WordsOnBound(const ExperimentHistory::Bound& bound);

// "Block_One_Is_V4_Jumbled: 2 in 400, chance allows it"
std::string WordsOnChances(const ExperimentHistory::Chances& chances);

// "p=0.0714. Four vehicles and four animals have 70 orders of kinds. ..."
std::string WordsOnProbability(const ExperimentHistory::Chances& chances);

// "3 experiments: 1 newly broken, 0 still broken, 1 mended, 1 good"
std::string WordsOnTotals(const HistorySummary& summary);

}  // namespace OmbreliaHost

#endif
