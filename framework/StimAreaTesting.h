// Builds the expected side of stimulus-area comparisons.
#ifndef OMBRELIA_FRAMEWORK_STIMAREATESTING_H
#define OMBRELIA_FRAMEWORK_STIMAREATESTING_H

#include "framework/StimAreaData.h"

namespace Ombrelia {

class StimAreaTesting {
 public:
  // The order of the arguments is not the order of the record's fields.
  static StimAreaData ExpectedData(int x, int y, int width, int height, int response_id,
                                   wxString area_name);
};

}  // namespace Ombrelia

#endif
