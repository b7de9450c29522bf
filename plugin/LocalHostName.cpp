#include "plugin/LocalHostName.h"

#include <unistd.h>

namespace Halvex {

wxString LocalHostName() {
  char buffer[256] = {};
  // A name that fills the buffer may come back without its terminator.
  if (gethostname(buffer, sizeof buffer - 1) != 0) return wxString();
  return wxString::FromAscii(buffer);
}

}  // namespace Halvex
