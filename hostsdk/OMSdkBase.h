// Stand-in of the host's plug-in base class, for building and testing without the closed library.
//
// A host depends on the order of the virtual operations and on the first field. All else here is an
// assumption: docs/decisions/stand-ins-for-the-host.md. With the host's own library and headers this
// file is not read.
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

// Base of every plug-in object that the host loads. The host finds an operation by its place in the
// virtual table, which is its place in this declaration. It calls from one thread. It owns the devices
// and info objects that it passes, and they outlive the plug-in object. No operation here throws.
class __attribute__((visibility("default"))) OMSdkBase {
 public:
  OMSdkBase();
  virtual ~OMSdkBase();
  OMSdkBase(const OMSdkBase&) = delete;
  OMSdkBase& operator=(const OMSdkBase&) = delete;

  // The stand-in does nothing in these two.
  virtual void Init();
  virtual void DeInit();
  // Not owned by the caller. The stand-in returns null.
  virtual OMSdkSettingsManager* SettingsManager();
  // The stand-in returns 0 for every index.
  virtual int GetHwDevicePlugInID(int index) const;
  // The device last given to SetHwDevicePtr; null before.
  virtual OMHwBaseDevice* GetHwDevicePtr() const { return m_hwDevice; }
  // The number by which the host knows this plug-in.
  virtual int GetPlugInID() const = 0;
  // Writes the text of this index into text, or leaves text as it is if there is none.
  virtual void GetString(int index, wxString& text) const = 0;
  // Does this plug-in need the plug-in of that number? The stand-in returns false.
  virtual bool NeedsPlugInID(int id) const;
  // The stand-in does nothing in these two.
  virtual void OnEndExperiment();
  virtual void OnStartExperiment(RunningExperimentNecessities& necessities);
  // Keeps the device, which may be null. The stand-in ignores id.
  virtual void SetHwDevicePtr(OMHwBaseDevice* device, int id);
  // Keeps info, which may be null.
  virtual void SetPlugInInfoObject(const OMSdkPlugInInfo* info);
  // The object last given to SetPlugInInfoObject; null before.
  virtual const OMSdkPlugInInfo* GetPlugInInfoObject() const;
  virtual bool PluginHasBeenConvertedTo_NON_xrc() const { return false; }
  // Calls PluginHasBeenConvertedTo_NON_xrc, ignores the answer and returns null: there is no panel.
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
