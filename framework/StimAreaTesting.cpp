#include "framework/StimAreaTesting.h"

namespace Ombrelia {

StimAreaData StimAreaTesting::ExpectedData(int x, int y, int width, int height, int response_id,
                                           wxString area_name) {
  return StimAreaData{x, y, width, height, area_name, response_id};
}

}  // namespace Ombrelia
