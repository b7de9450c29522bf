// drive-plugin LIBRARY STEP...: does to the plug-in library, in a separate process, what a host could
// do, one step after the other. Linked with nothing of the plug-in.
//
//   load             unload           loads and unloads the library
//   process FILE     a finished data file without stimulus areas
//   assertion TEXT   a failed assertion of the host
//   flush
//   resident         prints whether the library is mapped into this process
//   cycles N         loads and unloads N times; prints by how many KiB the memory in use has grown
//                    after the first quarter of them, and how many file descriptors more are open
//   report           prints whether the report stands on disk
//   abort  kill  quick-exit           ends without a normal exit
//   leave            a normal exit with the library still loaded
#include <dlfcn.h>
#include <unistd.h>
#include <wx/init.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "framework/StimAreaData.h"
#include "plugin/Interface_DataHookPlugin.h"

namespace {

class Driver {
 public:
  explicit Driver(std::string library) : m_library(std::move(library)) {}

  void Load() {
    m_handle = dlopen(m_library.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (m_handle == nullptr) Stop(dlerror());
    using Entry = void* (*)();
    const auto entry = reinterpret_cast<Entry>(dlsym(m_handle, "OMSdkGetObjectPtr"));
    if (entry == nullptr) Stop(dlerror());
    m_plugin = static_cast<Ombrelia::Interface_DataHookPlugin*>(
        static_cast<OmbreliaSDK::OMSdkBase*>(entry()));
  }

  void Unload() {
    if (dlclose(m_handle) != 0) Stop(dlerror());
    m_plugin = nullptr;
  }

  Ombrelia::Interface_DataHookPlugin& Plugin() { return *m_plugin; }

  bool Resident() const {
    std::ifstream maps("/proc/self/maps");
    const std::string name = std::filesystem::path(m_library).filename().string();
    for (std::string line; std::getline(maps, line);) {
      if (line.find(name) != std::string::npos) return true;
    }
    return false;
  }

  [[noreturn]] static void Stop(const char* why) {
    std::fprintf(stderr, "drive-plugin: %s\n", why);
    std::_Exit(120);
  }

 private:
  std::string m_library;
  void* m_handle = nullptr;
  Ombrelia::Interface_DataHookPlugin* m_plugin = nullptr;
};

long ResidentKiB() {
  long pages = 0;
  long resident = 0;
  std::ifstream("/proc/self/statm") >> pages >> resident;
  return resident * (sysconf(_SC_PAGESIZE) / 1024);
}

long OpenDescriptors() {
  long count = 0;
  for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
    static_cast<void>(entry);
    ++count;
  }
  return count;
}

void Cycle(Driver& driver, int cycles) {
  long memory = 0;
  long descriptors = 0;
  for (int i = 0; i < cycles; ++i) {
    driver.Load();
    driver.Unload();
    if (driver.Resident()) Driver::Stop("the library stays mapped");
    if (i == cycles / 4) {
      memory = ResidentKiB();
      descriptors = OpenDescriptors();
    }
  }
  std::printf("%ld KiB %ld descriptors\n", ResidentKiB() - memory, OpenDescriptors() - descriptors);
}

bool ReportOnDisk() {
  return std::filesystem::exists(
      "scons-out/opt/tests/auto_experiment_tests/FakeUnitTestsDataHookExperimentRunning_" +
      std::to_string(getpid()) + ".xml");
}

}  // namespace

int main(int argc, char** argv) {
  const wxInitializer wx;
  if (!wx.IsOk() || argc < 2) return 121;
  Driver driver(argv[1]);
  const std::vector<std::string> steps(argv + 2, argv + argc);
  for (auto step = steps.begin(); step != steps.end(); ++step) {
    const auto argument = [&] { return ++step == steps.end() ? std::string() : *step; };
    if (*step == "load") {
      driver.Load();
    } else if (*step == "unload") {
      driver.Unload();
    } else if (*step == "process") {
      driver.Plugin().PerformPostProcessing(wxString::FromUTF8(argument().c_str()), {});
    } else if (*step == "assertion") {
      if (!driver.Plugin().LogAssertionFailureAsTestFailure(
              wxString::FromUTF8(argument().c_str()))) {
        Driver::Stop("LogAssertionFailureAsTestFailure gave false");
      }
    } else if (*step == "flush") {
      driver.Plugin().FlushTestOutput();
    } else if (*step == "resident") {
      std::printf("%s\n", driver.Resident() ? "resident" : "gone");
    } else if (*step == "report") {
      std::printf("%s\n", ReportOnDisk() ? "report" : "no report");
    } else if (*step == "cycles") {
      Cycle(driver, std::atoi(argument().c_str()));
    } else if (*step == "abort") {
      std::abort();
    } else if (*step == "kill") {
      kill(getpid(), SIGKILL);
    } else if (*step == "quick-exit") {
      std::_Exit(3);
    } else if (*step == "leave") {
      std::fflush(stdout);
      std::exit(0);
    } else {
      Driver::Stop("unknown step");
    }
    std::fflush(stdout);
  }
  return 0;
}
