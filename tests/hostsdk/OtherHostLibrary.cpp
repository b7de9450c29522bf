// A library whose base class is not the one of the header: it has more fields, operations of each kind have
// changed places, and one is missing.
#include <wx/string.h>

class wxWindow;

namespace OmbreliaSDK {

class OMHwBaseDevice;
class OMSdkPlugInInfo;
class OMSdkSettingsManager;
class RunningExperimentNecessities;

class OMSdkBase {
 public:
  OMSdkBase();
  virtual ~OMSdkBase();
  virtual void DeInit();
  virtual void Init();
  virtual OMSdkSettingsManager* SettingsManager();
  virtual int GetHwDevicePlugInID(int) const;
  virtual OMHwBaseDevice* GetHwDevicePtr() const { return nullptr; }
  virtual void GetString(int, wxString&) const = 0;
  virtual bool NeedsPlugInID(int) const;
  virtual int GetPlugInID() const = 0;
  virtual void OnEndExperiment();
  virtual void OnStartExperiment(RunningExperimentNecessities&);
  virtual void SetHwDevicePtr(OMHwBaseDevice*, int);
  virtual void SetPlugInInfoObject(const OMSdkPlugInInfo*);
  virtual bool PluginHasBeenConvertedTo_NON_xrc() const { return false; }

 private:
  [[maybe_unused]] void* m_fields[5];
};

OMSdkBase::OMSdkBase() : m_fields{} {}
OMSdkBase::~OMSdkBase() = default;
void OMSdkBase::DeInit() {}
void OMSdkBase::Init() {}
OMSdkSettingsManager* OMSdkBase::SettingsManager() { return nullptr; }
int OMSdkBase::GetHwDevicePlugInID(int) const { return 0; }
bool OMSdkBase::NeedsPlugInID(int) const { return false; }
void OMSdkBase::OnEndExperiment() {}
void OMSdkBase::OnStartExperiment(RunningExperimentNecessities&) {}
void OMSdkBase::SetHwDevicePtr(OMHwBaseDevice*, int) {}
void OMSdkBase::SetPlugInInfoObject(const OMSdkPlugInInfo*) {}

}  // namespace OmbreliaSDK
