#include "framework/CellNumbers.h"

namespace Ombrelia {

bool ReadLong(const wxString& text, long& value) {
  long read = 0;
  if (!text.ToLong(&read, 10)) return false;
  value = read;
  return true;
}

}  // namespace Ombrelia
