// The plug-in object. It makes its report writer, and so a flag file, as soon as it is constructed. That
// is why it stands apart: a program that links the other rooms has the verifiers and no report.
#include "plugin/DataHookOutputTestingPlugin.h"

namespace OmbreliaSDK {

Ombrelia::DataHookOutputTestingPlugin my_dll;

}  // namespace OmbreliaSDK
