#include "host/run/LossText.h"

#include <cstring>

namespace OmbreliaHost {

std::string WordsOf(const Loss& loss) {
  if (loss.signal == 0) return "ended with status " + std::to_string(loss.exitStatus);
  return "was ended by signal " + std::to_string(loss.signal) + " (" + strsignal(loss.signal) + ")";
}

}  // namespace OmbreliaHost
