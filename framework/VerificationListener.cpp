#include "framework/VerificationListener.h"

namespace Ombrelia {

namespace {

VerificationListener* currentListener = nullptr;

}  // namespace

VerificationListener* VerificationListener::Current() { return currentListener; }

void VerificationListener::SetCurrent(VerificationListener* listener) {
  currentListener = listener;
}

}  // namespace Ombrelia
