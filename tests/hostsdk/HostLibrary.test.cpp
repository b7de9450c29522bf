// The host's plug-in library, held against the header that the plug-in is compiled with: the size of
// the base class, the place of each virtual operation, the names that the library must export. With the
// stand-in it compares the stand-in with itself; it is meant for the host's own library and header.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <typeinfo>
#include <vector>

#include "Tabulon/src/machine/MUMachine.h"
#include "hostsdk/OMSdkBase.h"
#include "hostsdk/PostProcessingFacade.h"
#include "tests/hostsdk/HostLibraryPaths.h"
#ifdef __linux__
#include <link.h>
#endif

namespace OmbreliaSDK {
// A class that stands in a type's name where OMSdkBase would, which has no type information without its library.
class SomeClass {};
}  // namespace OmbreliaSDK

namespace {

using OmbreliaSDK::OMSdkBase;

// The place that a virtual operation has in the virtual table, counted from the first entry of the
// destructor: the Itanium ABI stores it in the pointer to the member, plus 1.
template <typename POINTER>
std::size_t PlaceInHeader(POINTER operation) {
  std::ptrdiff_t words[2] = {};
  static_assert(sizeof operation == sizeof words, "the pointer to a member has another layout");
  std::memcpy(words, &operation, sizeof words);
  EXPECT_EQ(words[0] % 2, 1) << "not virtual";
  return static_cast<std::size_t>(words[0]) / sizeof(void*);
}

#define IN_SDK(name) "_ZN11OmbreliaSDK9OMSdkBase" name
#define CONST_IN_SDK(name) "_ZNK11OmbreliaSDK9OMSdkBase" name

// The symbol of an operation with these arguments. The compiler spells their types, in whatever namespace they are: for
// the pointer to such an operation of SomeClass it writes "M", the class, "Fv", the arguments, "E".
template <typename... ARGUMENTS>
std::string Symbol(const std::string& scope, const std::string& name) {
  const std::string type = typeid(void(OmbreliaSDK::SomeClass::*)(ARGUMENTS...)).name();
  const std::size_t arguments = std::string("M").size() +
                                std::string(typeid(OmbreliaSDK::SomeClass).name()).size() +
                                std::string("Fv").size();
  return scope + std::to_string(name.size()) + name + "E" +
         type.substr(arguments, type.size() - arguments - std::string("E").size());
}

struct Operation {
  std::string name;
  std::size_t placeInHeader;
  std::string symbol;
  // May the library go without the symbol? Of what is inline it may, and of what each plug-in implements.
  enum class Kind { ORDINARY, INLINE, OF_THE_PLUGIN } kind = Kind::ORDINARY;
};

template <typename RESULT, typename... ARGUMENTS>
Operation Of(const std::string& name, RESULT (OMSdkBase::*operation)(ARGUMENTS...)) {
  return {name, PlaceInHeader(operation), Symbol<ARGUMENTS...>(IN_SDK(""), name)};
}

template <typename RESULT, typename... ARGUMENTS>
Operation Of(const std::string& name, RESULT (OMSdkBase::*operation)(ARGUMENTS...) const,
             Operation::Kind kind = Operation::Kind::ORDINARY) {
  return {name, PlaceInHeader(operation), Symbol<ARGUMENTS...>(CONST_IN_SDK(""), name), kind};
}

// In the order in which the host calls them.
std::vector<Operation> Operations() {
  using Kind = Operation::Kind;
  return {Of("Init", &OMSdkBase::Init),
          Of("DeInit", &OMSdkBase::DeInit),
          Of("SettingsManager", &OMSdkBase::SettingsManager),
          Of("GetHwDevicePlugInID", &OMSdkBase::GetHwDevicePlugInID),
          Of("GetHwDevicePtr", &OMSdkBase::GetHwDevicePtr, Kind::INLINE),
          Of("GetPlugInID", &OMSdkBase::GetPlugInID, Kind::OF_THE_PLUGIN),
          Of("GetString", &OMSdkBase::GetString, Kind::OF_THE_PLUGIN),
          Of("NeedsPlugInID", &OMSdkBase::NeedsPlugInID),
          Of("OnEndExperiment", &OMSdkBase::OnEndExperiment),
          Of("OnStartExperiment", &OMSdkBase::OnStartExperiment),
          Of("SetHwDevicePtr", &OMSdkBase::SetHwDevicePtr),
          Of("SetPlugInInfoObject", &OMSdkBase::SetPlugInInfoObject),
          Of("GetPlugInInfoObject", &OMSdkBase::GetPlugInInfoObject),
          Of("PluginHasBeenConvertedTo_NON_xrc", &OMSdkBase::PluginHasBeenConvertedTo_NON_xrc,
             Kind::INLINE),
          Of("FactoryFunction_GetNewEventPluginConfigPanel",
             &OMSdkBase::FactoryFunction_GetNewEventPluginConfigPanel, Kind::INLINE)};
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
    if (operation.kind == Operation::Kind::ORDINARY) names.push_back(operation.symbol);
  }
  Texts missing;
  for (const std::string& name : names) {
    if (dlsym(library, name.c_str()) == nullptr) missing.push_back(name);
  }
  return missing;
}

// The entries of the library's virtual table.
std::size_t PlacesInTable(void* library) {
#ifdef __linux__
  Dl_info where{};
  const ElfW(Sym)* symbol = nullptr;
  if (dladdr1(dlsym(library, VIRTUAL_TABLE), &where,
              reinterpret_cast<void**>(const_cast<ElfW(Sym)**>(&symbol)), RTLD_DL_SYMENT) == 0) {
    return 0;
  }
  return symbol->st_size / sizeof(void*) - 2;
#else
  static_cast<void>(library);
  return PLACES;  // nothing tells
#endif
}

// The operations that the library's virtual table has at another place than the header.
Texts MisplacedOperations(void* library) {
  // The offset to the top and the type information stand before the first entry.
  void* const* const table = static_cast<void* const*>(dlsym(library, VIRTUAL_TABLE)) + 2;
  const std::size_t places = PlacesInTable(library);
  Texts misplaced;
  const auto compare = [&](const std::string& name, std::size_t place, const void* address) {
    if (address == nullptr) return;
    if (place >= places || table[place] != address) misplaced.push_back(name);
  };
  // The two entries may be empty: no object is of this class alone, since it has pure operations.
  if (table[0] != nullptr) compare("complete destructor", 0, dlsym(library, COMPLETE_DESTRUCTOR));
  if (table[1] != nullptr) compare("deleting destructor", 1, dlsym(library, DELETING_DESTRUCTOR));
  const void* const pure = dlsym(RTLD_DEFAULT, "__cxa_pure_virtual");
  EXPECT_NE(pure, nullptr);
  for (const Operation& operation : Operations()) {
    const void* address = dlsym(library, operation.symbol.c_str());
    if (address == nullptr && operation.kind == Operation::Kind::OF_THE_PLUGIN) address = pure;
    compare(operation.name, operation.placeInHeader, address);
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
  if (MU_HAS_ADDRESS_SANITIZER) GTEST_SKIP() << "the sanitizer makes virtual tables longer";
  const Library library(OMBRELIA_HOST_LIBRARY);
  EXPECT_EQ(MisplacedOperations(library), Texts{});
  EXPECT_EQ(PlacesInTable(library), PLACES);
}

TEST(HostLibrary, ConstructsAnObjectOfTheHeadersSize) {
  const Library library(OMBRELIA_HOST_LIBRARY);
  EXPECT_LE(BytesConstructed(library), sizeof(OMSdkBase));
  // The last field may be one that the constructor leaves alone; more than that is another class.
  EXPECT_GE(BytesConstructed(library) + sizeof(void*), sizeof(OMSdkBase));
}

#ifdef OMBRELIA_OTHER_HOST_LIBRARY
// GetPlugInID is misplaced, too, but all pure operations look the same in the table.
TEST(OtherHostLibrary, IsSeenToDiffer) {
  if (MU_HAS_ADDRESS_SANITIZER) GTEST_SKIP() << "the sanitizer makes virtual tables longer";
  const Library library(OMBRELIA_OTHER_HOST_LIBRARY);
  EXPECT_EQ(MissingNames(library), (Texts{TAG_CELL, CONST_IN_SDK("19GetPlugInInfoObjectEv")}));
  EXPECT_EQ(MisplacedOperations(library), (Texts{"Init", "DeInit", "GetString", "NeedsPlugInID",
                                                 "PluginHasBeenConvertedTo_NON_xrc"}));
  EXPECT_EQ(BytesConstructed(library), 6 * sizeof(void*));
#ifdef __linux__
  EXPECT_EQ(PlacesInTable(library), 15U);
#endif
}
#endif

}  // namespace
