#include "hostsdk/OMSdkBase.h"

namespace OmbreliaSDK {

OMSdkBase::OMSdkBase() : m_hwDevice(nullptr), m_plugInInfo(nullptr) {}
OMSdkBase::~OMSdkBase() = default;

void OMSdkBase::Init() {}
void OMSdkBase::DeInit() {}
OMSdkSettingsManager* OMSdkBase::SettingsManager() { return nullptr; }
int OMSdkBase::GetHwDevicePlugInID(int) const { return 0; }
bool OMSdkBase::NeedsPlugInID(int) const { return false; }
void OMSdkBase::OnEndExperiment() {}
void OMSdkBase::OnStartExperiment(RunningExperimentNecessities&) {}
void OMSdkBase::SetHwDevicePtr(OMHwBaseDevice* device, int) { m_hwDevice = device; }
void OMSdkBase::SetPlugInInfoObject(const OMSdkPlugInInfo* info) { m_plugInInfo = info; }
const OMSdkPlugInInfo* OMSdkBase::GetPlugInInfoObject() const { return m_plugInInfo; }

}  // namespace OmbreliaSDK
