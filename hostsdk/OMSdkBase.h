// Stand-in of the host's plug-in base class, for building and testing without the closed library.
//
// Only the order of the virtual operations and the one stored field matter to the host: the real
// library takes this one's place through the CMake option OMBRELIA_PLUGINCOMMON_LIBRARY.
#ifndef OMBRELIA_HOSTSDK_OMSDKBASE_H
#define OMBRELIA_HOSTSDK_OMSDKBASE_H

#include <wx/string.h>

class wxWindow;

namespace OmbreliaSDK {

// Types of the host that signatures name and that no plug-in of this project looks into.
class OMHwBaseDevice;
class OMSdkEventPluginConfigPanel;
class OMSdkPlugInInfo;
class OMSdkSettingsManager;
class RunningExperimentNecessities;

// Base of every plug-in object that the host loads. The host calls the operations through the
// virtual table in the order of declaration; all calls come from the host's one thread.
class __attribute__((visibility("default"))) OMSdkBase {
 public:
  OMSdkBase();
  virtual ~OMSdkBase();
  OMSdkBase(const OMSdkBase&) = delete;
  OMSdkBase& operator=(const OMSdkBase&) = delete;

  virtual void Init();
  virtual void DeInit();
  // Borrowed; null in the stand-in.
  virtual OMSdkSettingsManager* SettingsManager();
  virtual int GetHwDevicePlugInID(int index) const;
  // The device last given to SetHwDevicePtr, not owned; null before.
  virtual OMHwBaseDevice* GetHwDevicePtr() const { return m_hwDevice; }
  virtual int GetPlugInID() const = 0;
  virtual void GetString(int index, wxString& text) const = 0;
  virtual bool NeedsPlugInID(int id) const;
  virtual void OnEndExperiment();
  virtual void OnStartExperiment(RunningExperimentNecessities& necessities);
  virtual void SetHwDevicePtr(OMHwBaseDevice* device, int id);
  virtual void SetPlugInInfoObject(const OMSdkPlugInInfo* info);
  virtual const OMSdkPlugInInfo* GetPlugInInfoObject() const;
  virtual bool PluginHasBeenConvertedTo_NON_xrc() const { return false; }
  // Asks PluginHasBeenConvertedTo_NON_xrc, as the host expects, and offers no panel either way.
  virtual OMSdkEventPluginConfigPanel* FactoryFunction_GetNewEventPluginConfigPanel(
      wxWindow*) const {
    static_cast<void>(PluginHasBeenConvertedTo_NON_xrc());
    return nullptr;
  }

 private:
  OMHwBaseDevice* m_hwDevice;  // the first field: GetHwDevicePtr is inlined into plug-ins
  const OMSdkPlugInInfo* m_plugInInfo;
};

}  // namespace OmbreliaSDK

#endif
