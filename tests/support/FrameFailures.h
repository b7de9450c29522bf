// What the frame of every verifier records when it fails, spelled out once for the tests.
#ifndef OMBRELIA_TESTS_SUPPORT_FRAMEFAILURES_H
#define OMBRELIA_TESTS_SUPPORT_FRAMEFAILURES_H

#include <string>

#include "tests/support/DataFile.h"

namespace Tests {

inline std::string DurationOutOfBounds(const std::string& experiment, int min, int max,
                                       const std::string& duration) {
  return Fail("Experiment_duration_" + experiment,
              "Experiment duration is weird. Too short or too long (see details below).",
              experiment, 228,
              "Expected a duration between " + std::to_string(min) + " and " + std::to_string(max) +
                  ". Instead, we got a duration of " + duration + ".");
}

inline std::string ExpansionOutOfBounds(const std::string& experiment, int min, int max,
                                        const std::string& expansion) {
  return Fail("Expansion_duration_" + experiment,
              "Experiment duration is weird. Too short or too long (see details below).",
              experiment, 228,
              "Expected a duration between " + std::to_string(min) + " and " + std::to_string(max) +
                  ". Instead, we got a duration of " + expansion + ".");
}

inline std::string DurationUnavailable(const std::string& experiment) {
  return Fail("__TIMING__TRACKING__UNAVAILABLE__" + experiment,
              "Please add the Cumulative Time column to the output.", experiment, 326,
              "We cannot monitor run-time duration without having the Cum Time column available.");
}

inline std::string ExpansionUnavailable(const std::string& experiment) {
  return Fail("__EXPANSION__TRACKING__UNAVAILABLE__" + experiment,
              "Someting broke, there's no expansion time column.", experiment, 352,
              "We cannot monitor run-time duration without having the expansion time column "
              "available.");
}

inline std::string CannotBeRead(const std::string& experiment) {
  return Fail("open_and_parse_" + experiment + " 1", "this datafile was not open-able/parse-able",
              "CommonTestHelperLogic_GetReaderOrElseLogAnError", 49,
              "unable to construct a MUExperimentTextReaderMultiFile for this datafile");
}

}  // namespace Tests

#endif
