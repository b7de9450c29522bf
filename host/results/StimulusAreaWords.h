// A stimulus area in words.
#ifndef OMBRELIA_HOST_RESULTS_STIMULUSAREAWORDS_H
#define OMBRELIA_HOST_RESULTS_STIMULUSAREAWORDS_H

#include <string>

#include "framework/StimAreaData.h"

namespace OmbreliaHost {

// As in: "always" at x 0, y 0, width 215, any height, response 0. Values that match anything read "any".
std::string WordsOfStimulusArea(const Ombrelia::StimAreaData& area);

}  // namespace OmbreliaHost

#endif
