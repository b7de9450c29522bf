#include "hostsdk/OMSdkBase.h"

#include <gtest/gtest.h>

namespace OmbreliaSDK {
// The host's types, as incomplete to a plug-in as ever; the tests only need distinct addresses.
class OMHwBaseDevice {};
class OMSdkPlugInInfo {};
class RunningExperimentNecessities {};
}  // namespace OmbreliaSDK

namespace {

class SomePlugin : public OmbreliaSDK::OMSdkBase {
 public:
  int GetPlugInID() const override { return 5; }
  void GetString(int, wxString&) const override {}
  bool PluginHasBeenConvertedTo_NON_xrc() const override {
    ++asked;
    return true;
  }
  mutable int asked = 0;
};

TEST(OMSdkBase, GivesNoDeviceBeforeOneIsSet) { EXPECT_EQ(SomePlugin().GetHwDevicePtr(), nullptr); }

TEST(OMSdkBase, GivesTheDeviceLastSet) {
  SomePlugin plugin;
  OmbreliaSDK::OMHwBaseDevice first;
  OmbreliaSDK::OMHwBaseDevice second;
  plugin.SetHwDevicePtr(&first, 1);
  plugin.SetHwDevicePtr(&second, 2);
  EXPECT_EQ(plugin.GetHwDevicePtr(), &second);
}

// Plug-ins carry GetHwDevicePtr inlined, so the field's place is part of the binary contract.
TEST(OMSdkBase, StoresTheDeviceAsItsFirstField) {
  SomePlugin plugin;
  OmbreliaSDK::OMHwBaseDevice device;
  plugin.SetHwDevicePtr(&device, 1);
  void* const* const words =
      reinterpret_cast<void* const*>(static_cast<OmbreliaSDK::OMSdkBase*>(&plugin));
  EXPECT_EQ(words[1], &device);  // word 0 is the virtual table
}

TEST(OMSdkBase, KeepsTheInfoObject) {
  SomePlugin plugin;
  OmbreliaSDK::OMSdkPlugInInfo info;
  EXPECT_EQ(plugin.GetPlugInInfoObject(), nullptr);
  plugin.SetPlugInInfoObject(&info);
  EXPECT_EQ(plugin.GetPlugInInfoObject(), &info);
}

TEST(OMSdkBase, AsksForTheConversionAndOffersNoPanelEitherWay) {
  const SomePlugin plugin;
  EXPECT_EQ(plugin.FactoryFunction_GetNewEventPluginConfigPanel(nullptr), nullptr);
  EXPECT_EQ(plugin.asked, 1);
}

TEST(OMSdkBase, IsNotConvertedUnlessAPluginSaysSo) {
  SomePlugin plugin;
  EXPECT_FALSE(plugin.OMSdkBase::PluginHasBeenConvertedTo_NON_xrc());
}

TEST(OMSdkBase, NeedsNoOtherPluginAndNoSettings) {
  SomePlugin plugin;
  OmbreliaSDK::RunningExperimentNecessities necessities;
  plugin.Init();
  plugin.OnStartExperiment(necessities);
  plugin.OnEndExperiment();
  plugin.DeInit();
  EXPECT_FALSE(plugin.NeedsPlugInID(-7654));
  EXPECT_EQ(plugin.SettingsManager(), nullptr);
  EXPECT_EQ(plugin.GetHwDevicePlugInID(0), 0);
}

}  // namespace
