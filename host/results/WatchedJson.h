// What verifiers notice as JSON, format 1. docs/watched.md describes the format.
#ifndef OMBRELIA_HOST_RESULTS_WATCHEDJSON_H
#define OMBRELIA_HOST_RESULTS_WATCHEDJSON_H

#include <nlohmann/json_fwd.hpp>
#include <vector>

#include "host/results/WatchedResults.h"

namespace OmbreliaHost {

nlohmann::json ToJson(const std::vector<WatchedDatafile>& datafiles);

}  // namespace OmbreliaHost

#endif
