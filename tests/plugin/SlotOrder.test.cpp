// The host calls by the place of an operation in the virtual table. These tests do the same with the
// object of the built library, so that a moved declaration shows.
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <unistd.h>
#include <wx/string.h>

#include <vector>

#include "framework/StimAreaData.h"
#include "tests/BuildPaths.h"
#include "tests/support/Files.h"

namespace {

// The places, counted from the first of the two destructor entries.
enum Slot {
  INIT = 2,
  DE_INIT,
  SETTINGS_MANAGER,
  GET_HW_DEVICE_PLUGIN_ID,
  GET_HW_DEVICE_PTR,
  GET_PLUGIN_ID,
  GET_STRING,
  NEEDS_PLUGIN_ID,
  ON_END_EXPERIMENT,
  ON_START_EXPERIMENT,
  SET_HW_DEVICE_PTR,
  SET_PLUGIN_INFO_OBJECT,
  GET_PLUGIN_INFO_OBJECT,
  PLUGIN_HAS_BEEN_CONVERTED,
  FACTORY_FUNCTION,
  PERFORM_POST_PROCESSING,
  LOG_ASSERTION_FAILURE,
  FLUSH_TEST_OUTPUT
};

class SlotOrderTest : public testing::Test {
 protected:
  SlotOrderTest() : m_directory(m_folder.Path()) {
    m_folder.MakeReportFolder();
    m_library = dlopen(OMBRELIA_PLUGIN_FILE, RTLD_NOW | RTLD_LOCAL);
    if (m_library == nullptr) {
      ADD_FAILURE() << dlerror();
      return;
    }
    const auto entry = reinterpret_cast<void* (*)()>(dlsym(m_library, "OMSdkGetObjectPtr"));
    m_object = entry();
    EXPECT_EQ(entry(), m_object);
  }
  ~SlotOrderTest() override {
    if (m_library != nullptr) dlclose(m_library);
  }

  template <class Result, class... Arguments>
  Result Call(int slot, Arguments... arguments) {
    void** const table = *static_cast<void***>(m_object);
    const auto function = reinterpret_cast<Result (*)(void*, Arguments...)>(table[slot]);
    return function(m_object, arguments...);
  }

  std::vector<std::string> FlushedCases() {
    Call<void>(FLUSH_TEST_OUTPUT);
    return Tests::TestCasesOf(
        Tests::ReadFile(m_folder.ReportFolder() + "/" + Tests::ReportName(getpid())));
  }

  Tests::ScratchFolder m_folder;
  Tests::WorkingDirectory m_directory;
  void* m_library = nullptr;
  void* m_object = nullptr;
};

TEST_F(SlotOrderTest, OperationsOfTheBaseStandInOrder) {
  int device = 0;
  int info = 0;
  Call<void>(INIT);
  EXPECT_EQ(Call<void*>(SETTINGS_MANAGER), nullptr);
  EXPECT_EQ(Call<int>(GET_HW_DEVICE_PLUGIN_ID, 3), 0);
  EXPECT_EQ(Call<void*>(GET_HW_DEVICE_PTR), nullptr);
  Call<void>(SET_HW_DEVICE_PTR, static_cast<void*>(&device), 1);
  EXPECT_EQ(Call<void*>(GET_HW_DEVICE_PTR), &device);
  EXPECT_EQ(static_cast<void**>(m_object)[1], &device);
  EXPECT_EQ(Call<int>(GET_PLUGIN_ID), -7654);
  wxString text = wxT("untouched");
  Call<void>(GET_STRING, 0, &text);
  EXPECT_EQ(text, wxString(wxT("untouched")));
  EXPECT_FALSE(Call<bool>(NEEDS_PLUGIN_ID, -7654));
  Call<void>(ON_START_EXPERIMENT, static_cast<void*>(&info));
  Call<void>(ON_END_EXPERIMENT);
  EXPECT_EQ(Call<void*>(GET_PLUGIN_INFO_OBJECT), nullptr);
  Call<void>(SET_PLUGIN_INFO_OBJECT, static_cast<void*>(&info));
  EXPECT_EQ(Call<void*>(GET_PLUGIN_INFO_OBJECT), &info);
  EXPECT_EQ(static_cast<void**>(m_object)[1], &device);
  EXPECT_FALSE(Call<bool>(PLUGIN_HAS_BEEN_CONVERTED));
  EXPECT_EQ(Call<void*>(FACTORY_FUNCTION, static_cast<void*>(nullptr)), nullptr);
  Call<void>(DE_INIT);
}

TEST_F(SlotOrderTest, OperationsOfTheDataHookFollow) {
  const wxString path = wxT("/a/unknown experiment.txt");
  const std::vector<Ombrelia::StimAreaData> areas;
  const wxString assertion = wxT("some assertion");
  Call<void>(PERFORM_POST_PROCESSING, &path, &areas);
  EXPECT_TRUE(Call<bool>(LOG_ASSERTION_FAILURE, &assertion));
  EXPECT_EQ(FlushedCases(),
            (std::vector<std::string>{
                "test001SingleDummyPassingTest",
                "test002DataHookOutputTestingPlugin_PerformPostProcessing_was_called",
                "FAIL test003locating_verifier_for_unknown experiment",
                "FAIL test004TestingPluginDH_AssertionFailure_00001"}));
}

}  // namespace
