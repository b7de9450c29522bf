// The results of a run as JSON, format 1, and back. docs/results-format.md describes the format.
#ifndef OMBRELIA_HOST_RESULTS_RESULTSJSON_H
#define OMBRELIA_HOST_RESULTS_RESULTSJSON_H

#include <nlohmann/json_fwd.hpp>
#include <string>

#include "host/results/RunResults.h"

namespace OmbreliaHost {

// Members that do not apply are left out. There and back nothing is lost; the bytes of a path that are no
// UTF-8 become characters of private use, as they are in the plug-in's report.
nlohmann::json ToJson(const TestOutcome& test);
nlohmann::json ToJson(const DatafileResult& datafile);
nlohmann::json ToJson(const RunResults& results);

// std::exception, with words on what is wrong, if the value is not of this form. Members that the form
// does not name are passed over.
TestOutcome TestOutcomeFromJson(const nlohmann::json& json);
DatafileResult DatafileResultFromJson(const nlohmann::json& json);
RunResults RunResultsFromJson(const nlohmann::json& json);

// The text of a value, on one line if indent is negative. Always good UTF-8: a byte that is none becomes
// the replacement character.
std::string JsonText(const nlohmann::json& json, int indent = 2);

}  // namespace OmbreliaHost

#endif
