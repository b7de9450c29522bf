// The loaded plug-in library.
#ifndef OMBRELIA_HOST_RUN_PLUGINLIBRARY_H
#define OMBRELIA_HOST_RUN_PLUGINLIBRARY_H

#include <filesystem>

#include "plugin/Interface_DataHookPlugin.h"

namespace OmbreliaHost {

// Loads the library for its own life and knows it by the one exported function only. The plug-in's files
// go below the directory that is the working directory at load.
class PluginLibrary {
 public:
  // path: absolute. Ends the run (NoReport) if the library does not load or is no plug-in.
  explicit PluginLibrary(const std::filesystem::path& path);
  ~PluginLibrary();
  PluginLibrary(const PluginLibrary&) = delete;
  PluginLibrary& operator=(const PluginLibrary&) = delete;

  // Owned by the library.
  Ombrelia::Interface_DataHookPlugin& Plugin() const { return *m_plugin; }

 private:
  void* m_handle;
  Ombrelia::Interface_DataHookPlugin* m_plugin;
};

// What came with this program, in the folders of an installation or of a build tree, wherever these have been moved. The
// library may be missing, and so may the samples.
std::filesystem::path DefaultPluginLibrary();
std::filesystem::path SamplesFolder();

}  // namespace OmbreliaHost

#endif
