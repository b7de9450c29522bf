// start-plugin LIBRARY SAMPLES FOLDER: loads the plug-in in a process that has wxWidgets already, has it
// verify the first sample and write its report below the folder, and prints how long that took.
#include <dlfcn.h>
#include <wx/event.h>
#include <wx/init.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "framework/StimAreaData.h"
#include "plugin/Interface_DataHookPlugin.h"

namespace {

namespace fs = std::filesystem;

fs::path FirstDataFile(const fs::path& folder) {
  std::vector<fs::path> files;
  for (const auto& entry : fs::directory_iterator(folder)) {
    if (entry.path().extension() == ".txt") files.push_back(entry.path());
  }
  return *std::min_element(files.begin(), files.end());
}

double Seconds(std::chrono::steady_clock::duration time) {
  return std::chrono::duration<double>(time).count();
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 4) return 2;
  const wxInitializer wx;
  const wxCommandEvent needsTheCoreLibrary;
  if (!wx.IsOk()) return 1;
  const fs::path dataFile = FirstDataFile(argv[2]);
  fs::create_directories(fs::path(argv[3]) / "scons-out/opt/tests/auto_experiment_tests");
  fs::current_path(argv[3]);

  const auto start = std::chrono::steady_clock::now();
  void* const library = dlopen(argv[1], RTLD_NOW | RTLD_LOCAL);
  if (library == nullptr) {
    std::fprintf(stderr, "%s\n", dlerror());
    return 1;
  }
  using Entry = void* (*)();
  const auto entry = reinterpret_cast<Entry>(dlsym(library, "OMSdkGetObjectPtr"));
  if (entry == nullptr) return 1;
  auto* const plugin = static_cast<Ombrelia::Interface_DataHookPlugin*>(
      static_cast<OmbreliaSDK::OMSdkBase*>(entry()));
  const auto loaded = std::chrono::steady_clock::now();
  plugin->PerformPostProcessing(wxString::FromUTF8(dataFile.c_str()), {});
  plugin->FlushTestOutput();
  const auto reported = std::chrono::steady_clock::now();
  dlclose(library);

  std::printf("load_seconds %.9f\nreport_seconds %.9f\nseconds %.9f\n", Seconds(loaded - start),
              Seconds(reported - loaded), Seconds(reported - start));
  return 0;
}
