// Builds the expected side of stimulus-area comparisons.
#ifndef OMBRELIA_FRAMEWORK_STIMAREATESTING_H
#define OMBRELIA_FRAMEWORK_STIMAREATESTING_H

#include "framework/StimAreaData.h"

namespace Ombrelia {

class StimAreaTesting {
 public:
  // The arguments stand in another order than the record's fields.
  static StimAreaData ExpectedData(int x, int y, int width, int height, int response_id,
                                   wxString area_name);
};

}  // namespace Ombrelia

#endif
