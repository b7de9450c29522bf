// The host calls by the place of an operation in the virtual table. These tests read the tables of the
// built library, name each entry by the symbols at its address, and call as the host does.
#include <cxxabi.h>
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <unistd.h>
#include <wx/string.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <map>
#include <nlohmann/json.hpp>
#include <set>
#include <sstream>
#include <vector>

#include "Tabulon/src/machine/MUMachine.h"
#include "framework/StimAreaData.h"
#include "tests/BuildPaths.h"
#include "tests/Deployment.h"
#include "tests/support/Files.h"
#include "tests/support/Process.h"

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

using Names = std::vector<std::string>;

// The operation that a symbol of a virtual table's entry names, without its class and its arguments.
std::string OperationOf(const std::string& symbol) {
  for (const auto& [ending, name] :
       {std::pair{"D0Ev", "deleting destructor"}, std::pair{"D1Ev", "complete destructor"},
        std::pair{"D2Ev", "complete destructor"}}) {
    if (symbol.size() > 4 && symbol.compare(symbol.size() - 4, 4, ending) == 0) return name;
  }
  int status = 0;
  char* const demangled = abi::__cxa_demangle(symbol.c_str(), nullptr, nullptr, &status);
  if (demangled == nullptr) return symbol;
  std::string text = demangled;
  std::free(demangled);
  text.resize(std::min(text.size(), text.find('(')));
  const std::size_t scope = text.rfind("::");
  return scope == std::string::npos ? text : text.substr(scope + 2);
}

// All symbols of the built library, also those that it does not export.
class LibrarySymbols {
 public:
  LibrarySymbols() {
    const Tests::Finished nm =
        Tests::RunProgram({"nm", "--defined-only", "--format=posix", OMBRELIA_PLUGIN_FILE});
    EXPECT_EQ(nm.status, 0) << nm.err;
    std::istringstream lines(nm.out);
    for (std::string line; std::getline(lines, line);) {
      std::istringstream words(line);
      std::string name;
      std::string type;
      std::uintptr_t address = 0;
      std::size_t size = 0;
      words >> name >> type >> std::hex >> address >> size;
      if (name.rfind("_ZTV", 0) == 0) m_tables[name.substr(4)] = {address, size};
      m_names[address].insert(name);
    }
  }

  struct Table {
    std::uintptr_t address = 0;
    std::size_t size = 0;  // in bytes
  };
  // The table of a class in the namespace Ombrelia.
  Table TableOf(const std::string& className) const {
    const auto found =
        m_tables.find("N8Ombrelia" + std::to_string(className.size()) + className + "E");
    return found == m_tables.end() ? Table() : found->second;
  }

  // The operations that begin at this place of the library.
  std::set<std::string> OperationsAt(std::uintptr_t address) const {
    std::set<std::string> operations;
    const auto found = m_names.find(address);
    if (found == m_names.end()) return operations;
    for (const std::string& name : found->second) operations.insert(OperationOf(name));
    return operations;
  }

 private:
  std::map<std::string, Table> m_tables;
  std::map<std::uintptr_t, std::set<std::string>> m_names;
};

void ExpectSize(const LibrarySymbols::Table& table, const Names& operations) {
  if (MU_HAS_ADDRESS_SANITIZER) return;  // which adds a zone to a table's end
  EXPECT_EQ(table.size, (operations.size() + 2) * sizeof(void*));
}

// An address that two operations of the list share does not tell which one is meant, and fails.
void ExpectEntries(const LibrarySymbols& symbols, void* const* table, const Names& expected) {
  for (std::size_t place = 0; place < expected.size(); ++place) {
    Dl_info where{};
    ASSERT_NE(dladdr(table[place], &where), 0) << expected[place];
    std::set<std::string> operations;
    if (std::string(where.dli_fname) == OMBRELIA_PLUGIN_FILE) {
      operations = symbols.OperationsAt(reinterpret_cast<std::uintptr_t>(table[place]) -
                                        reinterpret_cast<std::uintptr_t>(where.dli_fbase));
    } else if (where.dli_saddr == table[place]) {
      operations = {OperationOf(where.dli_sname)};
    }
    std::string found;
    for (const std::string& operation : operations) found += " " + operation;
    EXPECT_EQ(operations.count(expected[place]), 1U)
        << "place " << place << " holds" << found << " and not " << expected[place];
    const auto meant =
        std::count_if(expected.begin(), expected.end(),
                      [&](const std::string& name) { return operations.count(name) != 0; });
    EXPECT_LE(meant, 1) << "place " << place << " holds" << found;
  }
}

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

  // The first entry of a class's table in the loaded library.
  void* const* TableAt(const LibrarySymbols& symbols, const std::string& className) const {
    Dl_info where{};
    EXPECT_NE(dladdr(TableOfTheObject(), &where), 0);
    const LibrarySymbols::Table table = symbols.TableOf(className);
    EXPECT_NE(table.address, 0U) << className;
    // The offset to the top and the type information stand before the first entry.
    return reinterpret_cast<void* const*>(static_cast<char*>(where.dli_fbase) + table.address) + 2;
  }

  void* const* TableOfTheObject() const { return *static_cast<void***>(m_object); }

  template <typename RESULT, typename... ARGUMENTS>
  RESULT Call(int slot, ARGUMENTS... arguments) {
    const auto function =
        reinterpret_cast<RESULT (*)(void*, ARGUMENTS...)>(TableOfTheObject()[slot]);
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

TEST_F(SlotOrderTest, OperationsOfTheBaseAnswerAtTheirPlaces) {
  if (OMBRELIA_WITH_THE_HOSTS_LIBRARY) GTEST_SKIP() << "the answers are those of the stand-in";
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

TEST_F(SlotOrderTest, OperationsOfTheDataHookAnswerAtTheirPlaces) {
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

TEST_F(SlotOrderTest, ThePluginHasTheOperationsOfTheHostsBaseAndThenItsOwn) {
  const LibrarySymbols symbols;
  const Names operations = {"complete destructor",
                            "deleting destructor",
                            "Init",
                            "DeInit",
                            "SettingsManager",
                            "GetHwDevicePlugInID",
                            "GetHwDevicePtr",
                            "GetPlugInID",
                            "GetString",
                            "NeedsPlugInID",
                            "OnEndExperiment",
                            "OnStartExperiment",
                            "SetHwDevicePtr",
                            "SetPlugInInfoObject",
                            "GetPlugInInfoObject",
                            "PluginHasBeenConvertedTo_NON_xrc",
                            "FactoryFunction_GetNewEventPluginConfigPanel",
                            "PerformPostProcessing",
                            "LogAssertionFailureAsTestFailure",
                            "FlushTestOutput"};
  ExpectEntries(symbols, TableOfTheObject(), operations);
  ExpectSize(symbols.TableOf("DataHookOutputTestingPlugin"), operations);
}

TEST_F(SlotOrderTest, TheReportWriterHasItsOperationsInOrder) {
  const LibrarySymbols symbols;
  const Names operations = {"complete destructor", "deleting destructor", "NewTestSuite",
                            "AddPassingTestResult", "AddFailingTestResult"};
  ExpectEntries(symbols, TableAt(symbols, "ConcreteFakeJUnitPrinter"), operations);
  ExpectSize(symbols.TableOf("ConcreteFakeJUnitPrinter"), operations);
}

TEST_F(SlotOrderTest, EachVerifierHasTheOperationsOfItsBaseInOrder) {
  const LibrarySymbols symbols;
  const auto manifest = nlohmann::json::parse(
      Tests::ReadFile(std::string(OMBRELIA_SOURCE_DIR) + "/verifiers/manifest.json"));
  std::size_t verifiers = 0;
  for (const auto& entry : manifest.at("verifiers")) {
    const std::string className = entry.at("class");
    SCOPED_TRACE(className);
    Names operations = {"complete destructor", "deleting destructor", "VerifyDatafile",
                        "RunAllVerificationTests", "OnNotifyUnableToReadDatafile"};
    if (entry.at("base") == "TestCaseWithFullColumnStringComp_T") {
      operations.push_back("GetExpectedCellValuesForTargetedColumn");
      operations.push_back("GetTargetedColumnName");
    }
    ExpectEntries(symbols, TableAt(symbols, className), operations);
    ExpectSize(symbols.TableOf(className), operations);
    ++verifiers;
  }
  EXPECT_EQ(verifiers, 68U);
}

}  // namespace
