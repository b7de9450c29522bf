// The one function that the host asks the library for.
#include "plugin/DataHookOutputTestingPlugin.h"

// Returns the plug-in object as the host's base class sees it; owned by the library. Allocates nothing
// and may be called any number of times.
extern "C" __attribute__((visibility("default"))) void* OMSdkGetObjectPtr() {
  return static_cast<OmbreliaSDK::OMSdkBase*>(&OmbreliaSDK::my_dll);
}
