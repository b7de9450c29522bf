#include "framework/CellNumbers.h"

namespace Ombrelia {

bool ReadLong(const wxString& text, long& value) {
  // On failure the text class may have stored a part of the number.
  long read = 0;
  if (!text.ToLong(&read, 10)) return false;
  value = read;
  return true;
}

}  // namespace Ombrelia
