#include "host/results/StimulusAreaWords.h"

#include "host/results/WideText.h"

namespace OmbreliaHost {

namespace {

std::string NumberWords(const std::string& name, int number) {
  return number == Ombrelia::STIM_DONT_CARE_INT ? "any " + name
                                                : name + " " + std::to_string(number);
}

}  // namespace

std::string WordsOfStimulusArea(const Ombrelia::StimAreaData& area) {
  const std::string name = area.area_name == Ombrelia::STIM_DONT_CARE_STR
                               ? "any area"
                               : "\"" + Utf8OfText(area.area_name) + "\"";
  return name + " at " + NumberWords("x", area.x) + ", " + NumberWords("y", area.y) + ", " +
         NumberWords("width", area.width) + ", " + NumberWords("height", area.height) + ", " +
         NumberWords("response", area.response_id);
}

}  // namespace OmbreliaHost
