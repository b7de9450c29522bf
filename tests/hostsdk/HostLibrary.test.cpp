// The host's plug-in library, held against the header that the plug-in is compiled with: the size of
// the base class, the place of each virtual operation, the names that the library must export. With the
// stand-in it compares the stand-in with itself; it is meant for the host's own library and header.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "hostsdk/OMSdkBase.h"
#include "hostsdk/PostProcessingFacade.h"
#include "tests/BuildPaths.h"
#ifdef __linux__
#include <link.h>
#endif

namespace {

using OmbreliaSDK::OMSdkBase;

// The place that a virtual operation has in the virtual table, counted from the first entry of the
// destructor: the Itanium ABI stores it in the pointer to the member, plus 1.
template <class Pointer>
std::size_t PlaceInHeader(Pointer operation) {
  std::ptrdiff_t words[2] = {};
  static_assert(sizeof operation == sizeof words, "the pointer to a member has another layout");
  std::memcpy(words, &operation, sizeof words);
  EXPECT_EQ(words[0] % 2, 1) << "not virtual";
  return static_cast<std::size_t>(words[0]) / sizeof(void*);
}

struct Operation {
  const char* name;
  std::size_t placeInHeader;
  const char* symbol;  // null: inline or pure, so that the library need not export it
};

#define IN_SDK(name) "_ZN11OmbreliaSDK9OMSdkBase" name
#define CONST_IN_SDK(name) "_ZNK11OmbreliaSDK9OMSdkBase" name

// In the order in which the host calls them.
std::vector<Operation> Operations() {
  return {{"Init", PlaceInHeader(&OMSdkBase::Init), IN_SDK("4InitEv")},
          {"DeInit", PlaceInHeader(&OMSdkBase::DeInit), IN_SDK("6DeInitEv")},
          {"SettingsManager", PlaceInHeader(&OMSdkBase::SettingsManager),
           IN_SDK("15SettingsManagerEv")},
          {"GetHwDevicePlugInID", PlaceInHeader(&OMSdkBase::GetHwDevicePlugInID),
           CONST_IN_SDK("19GetHwDevicePlugInIDEi")},
          {"GetHwDevicePtr", PlaceInHeader(&OMSdkBase::GetHwDevicePtr), nullptr},
          {"GetPlugInID", PlaceInHeader(&OMSdkBase::GetPlugInID), nullptr},
          {"GetString", PlaceInHeader(&OMSdkBase::GetString), nullptr},
          {"NeedsPlugInID", PlaceInHeader(&OMSdkBase::NeedsPlugInID),
           CONST_IN_SDK("13NeedsPlugInIDEi")},
          {"OnEndExperiment", PlaceInHeader(&OMSdkBase::OnEndExperiment),
           IN_SDK("15OnEndExperimentEv")},
          {"OnStartExperiment", PlaceInHeader(&OMSdkBase::OnStartExperiment),
           IN_SDK("17OnStartExperimentERNS_28RunningExperimentNecessitiesE")},
          {"SetHwDevicePtr", PlaceInHeader(&OMSdkBase::SetHwDevicePtr),
           IN_SDK("14SetHwDevicePtrEPNS_14OMHwBaseDeviceEi")},
          {"SetPlugInInfoObject", PlaceInHeader(&OMSdkBase::SetPlugInInfoObject),
           IN_SDK("19SetPlugInInfoObjectEPKNS_15OMSdkPlugInInfoE")},
          {"GetPlugInInfoObject", PlaceInHeader(&OMSdkBase::GetPlugInInfoObject),
           CONST_IN_SDK("19GetPlugInInfoObjectEv")},
          {"PluginHasBeenConvertedTo_NON_xrc",
           PlaceInHeader(&OMSdkBase::PluginHasBeenConvertedTo_NON_xrc), nullptr},
          {"FactoryFunction_GetNewEventPluginConfigPanel",
           PlaceInHeader(&OMSdkBase::FactoryFunction_GetNewEventPluginConfigPanel), nullptr}};
}

const char* const VIRTUAL_TABLE = "_ZTVN11OmbreliaSDK9OMSdkBaseE";
const char* const TYPE_INFORMATION = "_ZTIN11OmbreliaSDK9OMSdkBaseE";
const char* const CONSTRUCTOR = IN_SDK("C2Ev");
const char* const COMPLETE_DESTRUCTOR = IN_SDK("D1Ev");
const char* const DELETING_DESTRUCTOR = IN_SDK("D0Ev");
const char* const BASE_DESTRUCTOR = IN_SDK("D2Ev");
const char* const TAG_CELL =
    "_ZN8Ombrelia20PostProcessingFacade24GetFormattedTagsDataCellERK8wxStringS3_b";

const std::size_t PLACES = 17;

using Texts = std::vector<std::string>;

// The names that the plug-in needs of the library and the library does not have.
Texts MissingNames(void* library) {
  Texts names = {VIRTUAL_TABLE,       TYPE_INFORMATION, CONSTRUCTOR, COMPLETE_DESTRUCTOR,
                 DELETING_DESTRUCTOR, BASE_DESTRUCTOR,  TAG_CELL};
  for (const Operation& operation : Operations()) {
    if (operation.symbol != nullptr) names.push_back(operation.symbol);
  }
  Texts missing;
  for (const std::string& name : names) {
    if (dlsym(library, name.c_str()) == nullptr) missing.push_back(name);
  }
  return missing;
}

// The operations that the library's virtual table has at another place than the header.
Texts MisplacedOperations(void* library) {
  // The offset to the top and the type information stand before the first entry.
  void* const* const table = static_cast<void* const*>(dlsym(library, VIRTUAL_TABLE)) + 2;
  Texts misplaced;
  const auto compare = [&](const std::string& name, std::size_t place, const char* symbol) {
    void* const address = dlsym(library, symbol);
    if (address != nullptr && table[place] != address) misplaced.push_back(name);
  };
  // The two entries may be empty: no object is of this class alone, since it has pure operations.
  if (table[0] != nullptr) compare("complete destructor", 0, COMPLETE_DESTRUCTOR);
  if (table[1] != nullptr) compare("deleting destructor", 1, DELETING_DESTRUCTOR);
  for (const Operation& operation : Operations()) {
    if (operation.symbol != nullptr) {
      compare(operation.name, operation.placeInHeader, operation.symbol);
    }
  }
  return misplaced;
}

// How many bytes of an object the library's constructor writes, counted up to the last one.
std::size_t BytesConstructed(void* library) {
  const auto construct = reinterpret_cast<void (*)(void*)>(dlsym(library, CONSTRUCTOR));
  const auto destroy = reinterpret_cast<void (*)(void*)>(dlsym(library, BASE_DESTRUCTOR));
  std::size_t bytes = 0;
  for (const int fill : {0xA5, 0x5A}) {
    alignas(std::max_align_t) unsigned char object[4096];
    std::memset(object, fill, sizeof object);
    construct(object);
    for (std::size_t i = bytes; i < sizeof object; ++i) {
      if (object[i] != fill) bytes = i + 1;
    }
    destroy(object);
  }
  return bytes;
}

#ifdef __linux__
std::size_t PlacesInTable(void* library) {
  Dl_info where{};
  const ElfW(Sym)* symbol = nullptr;
  if (dladdr1(dlsym(library, VIRTUAL_TABLE), &where,
              reinterpret_cast<void**>(const_cast<ElfW(Sym)**>(&symbol)), RTLD_DL_SYMENT) == 0) {
    return 0;
  }
  return symbol->st_size / sizeof(void*) - 2;
}
#endif

class Library {
 public:
  explicit Library(const char* path) : m_handle(dlopen(path, RTLD_NOW | RTLD_LOCAL)) {
    EXPECT_NE(m_handle, nullptr) << dlerror();
  }
  ~Library() { dlclose(m_handle); }
  Library(const Library&) = delete;
  Library& operator=(const Library&) = delete;
  operator void*() const { return m_handle; }

 private:
  void* m_handle;
};

TEST(HostHeader, HasEachOperationAtThePlaceWhereTheHostCallsIt) {
  std::size_t place = 2;  // behind the two entries of the destructor
  for (const Operation& operation : Operations()) {
    EXPECT_EQ(operation.placeInHeader, place++) << operation.name;
  }
  EXPECT_EQ(place, PLACES);
}

TEST(HostLibrary, ExportsAllThatThePluginNeeds) {
  const Library library(OMBRELIA_HOST_LIBRARY);
  EXPECT_EQ(MissingNames(library), Texts{});
}

TEST(HostLibrary, HasEachOperationAtThePlaceOfTheHeader) {
  const Library library(OMBRELIA_HOST_LIBRARY);
  EXPECT_EQ(MisplacedOperations(library), Texts{});
#ifdef __linux__
  EXPECT_EQ(PlacesInTable(library), PLACES);
#endif
}

TEST(HostLibrary, ConstructsAnObjectOfTheHeadersSize) {
  const Library library(OMBRELIA_HOST_LIBRARY);
  EXPECT_LE(BytesConstructed(library), sizeof(OMSdkBase));
  // The last field may be one that the constructor leaves alone; more than that is another class.
  EXPECT_GE(BytesConstructed(library) + sizeof(void*), sizeof(OMSdkBase));
}

#ifdef OMBRELIA_OTHER_HOST_LIBRARY
TEST(OtherHostLibrary, IsSeenToDiffer) {
  const Library library(OMBRELIA_OTHER_HOST_LIBRARY);
  EXPECT_EQ(MissingNames(library), (Texts{TAG_CELL, CONST_IN_SDK("19GetPlugInInfoObjectEv")}));
  EXPECT_EQ(MisplacedOperations(library), (Texts{"Init", "DeInit"}));
  EXPECT_EQ(BytesConstructed(library), 6 * sizeof(void*));
#ifdef __linux__
  EXPECT_EQ(PlacesInTable(library), 15U);
#endif
}
#endif

}  // namespace
