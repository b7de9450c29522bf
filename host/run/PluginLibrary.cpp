#include "host/run/PluginLibrary.h"

#include <dlfcn.h>
#include <wx/stdpaths.h>

#include <string>
#include <system_error>

#include "host/results/ExitStatus.h"
#include "host/results/WideText.h"

namespace OmbreliaHost {

namespace {

[[noreturn]] void Reject(const std::filesystem::path& path, const std::string& why) {
  throw RunError(ExitStatus::NoReport, path.string() + ": the plug-in does not load: " + why);
}

std::string LastLoaderError() {
  const char* const text = dlerror();
  return text == nullptr ? "unknown error" : text;
}

std::filesystem::path ThisProgram() {
  // wx would give the path as text of the locale, and nothing if it is none.
  std::error_code error;
  std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
  if (error) program = Utf8OfText(wxStandardPaths::Get().GetExecutablePath());
  return program;
}

}  // namespace

PluginLibrary::PluginLibrary(const std::filesystem::path& path)
    : m_handle(dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL)), m_plugin(nullptr) {
  if (m_handle == nullptr) Reject(path, LastLoaderError());
  // dlsym adds the underscore that symbols of C functions have on some systems.
  using Entry = void* (*)();
  const auto entry = reinterpret_cast<Entry>(dlsym(m_handle, "OMSdkGetObjectPtr"));
  void* const object = entry == nullptr ? nullptr : entry();
  if (object == nullptr) {
    const std::string why =
        entry == nullptr ? LastLoaderError() : std::string("OMSdkGetObjectPtr gave no object");
    dlclose(m_handle);
    Reject(path, why);
  }
  // The untyped pointer is one to the base of all plug-ins; this program loads data-hook plug-ins only.
  m_plugin = static_cast<Ombrelia::Interface_DataHookPlugin*>(
      static_cast<OmbreliaSDK::OMSdkBase*>(object));
}

PluginLibrary::~PluginLibrary() { dlclose(m_handle); }

std::filesystem::path DefaultPluginLibrary() {
  const std::filesystem::path prefix = ThisProgram().parent_path().parent_path();
  const std::filesystem::path installed =
      prefix / OMBRELIA_INSTALLED_LIBRARIES / OMBRELIA_PLUGIN_FILE_NAME;
  std::error_code error;
  if (std::filesystem::exists(installed, error)) return installed;
  return prefix / "lib" / OMBRELIA_PLUGIN_FILE_NAME;
}

std::filesystem::path SamplesFolder() {
  const std::filesystem::path prefix = ThisProgram().parent_path().parent_path();
  const std::filesystem::path installed = prefix / OMBRELIA_INSTALLED_SAMPLES;
  std::error_code error;
  if (std::filesystem::exists(installed, error)) return installed;
  return (prefix / OMBRELIA_SAMPLES_FROM_BUILD).lexically_normal();
}

}  // namespace OmbreliaHost
