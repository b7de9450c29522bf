// The manifest, the sources, the registry, the samples, the tests and the page on the verifiers name
// the same verifiers. Each failure lists what is missing in one of them or stands there unlisted.
#include <cxxabi.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <iterator>
#include <nlohmann/json.hpp>
#include <set>
#include <sstream>
#include <string>
#include <typeinfo>
#include <vector>

#include "plugin/DataHookOutputTestingPluginImpl.h"
#include "plugin/Interface_SpecificIndividualTestVerifier.h"
#include "tests/BuildPaths.h"
#include "tests/support/DataFile.h"
#include "tests/support/Files.h"
#include "tests/support/Process.h"

namespace Tests {
namespace {

using Names = std::set<std::string>;

const std::string ROOT = OMBRELIA_SOURCE_DIR;

// Test files here that belong to no single verifier.
const Names TESTS_OF_SEVERAL_VERIFIERS = {"Bounds", "NumbersBeyondInt", "Parity"};

// The experiments that run before each release. Counted only here, so that losing a verifier with all its
// files is noticed.
const std::size_t EXPERIMENTS_OF_A_RELEASE = 68;

struct Entry {
  std::string className;
  std::string experiment;
  std::string proves;
  std::string base;
  bool expectEmptyDatafile;
  std::string toleratedFailures;
  Names testsOfOneChance;  // that chance fails with one probability for all data files
};

std::vector<Entry> Manifest() {
  std::vector<Entry> entries;
  const auto manifest = nlohmann::json::parse(ReadFile(ROOT + "/verifiers/manifest.json"));
  for (const auto& entry : manifest.at("verifiers")) {
    Names testsOfOneChance;
    for (const auto& chance : entry.value("chance_failures", nlohmann::json::array())) {
      if (!chance.contains("by_rows")) testsOfOneChance.insert(chance.at("test"));
    }
    entries.push_back({entry.at("class"), entry.at("experiment"), entry.at("proves"),
                       entry.at("base"), entry.at("expect_empty_datafile"),
                       entry.at("tolerated_failures"), testsOfOneChance});
  }
  return entries;
}

// The test names that an entry lists behind one another.
Names ToleratedFailures(const Entry& entry) {
  Names names;
  std::istringstream list(entry.toleratedFailures);
  for (std::string name; std::getline(list >> std::ws, name, ',');) names.insert(name);
  return names;
}

Names ManifestClasses() {
  Names classes;
  for (const Entry& entry : Manifest()) classes.insert(entry.className);
  return classes;
}

Names ManifestExperiments() {
  Names experiments;
  for (const Entry& entry : Manifest()) experiments.insert(entry.experiment);
  return experiments;
}

// The names of the files of a folder that end so, without that ending.
Names FilesIn(const std::string& folder, const std::string& ending) {
  Names names;
  for (const auto& entry : std::filesystem::directory_iterator(ROOT + "/" + folder)) {
    const std::string name = entry.path().filename().string();
    if (name.size() > ending.size() &&
        name.compare(name.size() - ending.size(), ending.size(), ending) == 0) {
      names.insert(name.substr(0, name.size() - ending.size()));
    }
  }
  return names;
}

Names Without(const Names& all, const Names& some) {
  Names rest;
  std::set_difference(all.begin(), all.end(), some.begin(), some.end(),
                      std::inserter(rest, rest.end()));
  return rest;
}

void ExpectSame(const Names& listed, const Names& found, const std::string& where) {
  EXPECT_EQ(Without(listed, found), Names{}) << "in the manifest and missing: " << where;
  EXPECT_EQ(Without(found, listed), Names{}) << "not in the manifest: " << where;
}

std::string Upper(const std::string& text) {
  return wxString::FromUTF8(text.c_str()).Upper().ToStdString(wxConvUTF8);
}

std::string ClassOf(const Ombrelia::Interface_SpecificIndividualTestVerifier& verifier) {
  int status = 0;
  char* const name = abi::__cxa_demangle(typeid(verifier).name(), nullptr, nullptr, &status);
  const std::string text = name ? name : "?";
  std::free(name);
  return text;
}

std::string WithoutBlanks(std::string text) {
  text.erase(std::remove_if(text.begin(), text.end(),
                            [](char c) { return c == ' ' || c == '\n' || c == '\t'; }),
             text.end());
  return text;
}

std::string FlagText(bool flag) { return flag ? "true" : "false"; }

TEST(Parity, TheManifestListsOneVerifierForEachExperiment) {
  EXPECT_EQ(Manifest().size(), EXPERIMENTS_OF_A_RELEASE);
  EXPECT_EQ(ManifestClasses().size(), EXPERIMENTS_OF_A_RELEASE);
  Names keys;
  for (const std::string& experiment : ManifestExperiments()) keys.insert(Upper(experiment));
  EXPECT_EQ(keys.size(), EXPERIMENTS_OF_A_RELEASE);
}

TEST(Parity, EachVerifierHasASource) {
  ExpectSame(ManifestClasses(), FilesIn("verifiers", ".cpp"), "verifiers/*.cpp");
}

TEST(Parity, EachVerifierIsRegisteredUnderItsExperiment) {
  Names listed;
  for (const Entry& entry : Manifest()) {
    listed.insert(Upper(entry.experiment) + " = Ombrelia::" + entry.className + " as " +
                  entry.experiment);
  }
  Names registered;
  for (const auto& [key, info] :
       Ombrelia::DataHookOutputTestingPlugin::PrivateImpl::m_static_verifiers()) {
    registered.insert(key.ToStdString(wxConvUTF8) + " = " + ClassOf(*info.verifier) + " as " +
                      info.name.ToStdString(wxConvUTF8));
  }
  ExpectSame(listed, registered, "the registry's keys");
}

TEST(Parity, EachExperimentHasASample) {
  const Names samples = FilesIn("samples/datafiles", ".txt");
  const Names areas = FilesIn("samples/datafiles", ".stimareas.tsv");
  Names wanted;
  for (const std::string& experiment : ManifestExperiments()) {
    wanted.insert(experiment + " 1");
    for (int run = 2; samples.count(experiment + " " + std::to_string(run)) == 1; ++run) {
      wanted.insert(experiment + " " + std::to_string(run));
    }
  }
  ExpectSame(wanted, samples, "samples/datafiles/*.txt, runs numbered from 1");
  EXPECT_EQ(Without(areas, samples), Names{}) << "stimulus areas without a data file";
  EXPECT_EQ(FilesIn("samples/datafiles", "").size(), samples.size() + areas.size())
      << "samples/datafiles holds files that are neither";
}

TEST(Parity, EachVerifierHasTests) {
  ExpectSame(ManifestClasses(),
             Without(FilesIn("tests/verifiers", ".test.cpp"), TESTS_OF_SEVERAL_VERIFIERS),
             "tests/verifiers/*.test.cpp");
}

TEST(Parity, EachVerifierHasTheBaseAndTheFlagOfItsSource) {
  for (const Entry& entry : Manifest()) {
    const std::string path = ROOT + "/verifiers/" + entry.className + ".cpp";
    if (!Exists(path)) continue;  // told above
    const std::string source = WithoutBlanks(ReadFile(path));
    const std::string flag = FlagText(entry.expectEmptyDatafile);
    const bool comparesColumns = entry.base == "TestCaseWithFullColumnStringComp_T";
    EXPECT_TRUE(comparesColumns || entry.base == "IndividualTestCase_T") << entry.className;
    const std::string arguments = entry.className + (comparesColumns ? "" : "," + flag);
    EXPECT_NE(
        source.find("class" + entry.className + ":public" + entry.base + "<" + arguments + ">"),
        std::string::npos)
        << path << " does not derive from " << entry.base << " with the flag " << flag;
    EXPECT_NE(source.find("OMBRELIA_DEFINE_VERIFIER(" + entry.className + "," + flag + ");"),
              std::string::npos)
        << path << " does not define its verifier with the flag " << flag;
  }
}

// Phrases that mark a failure as possible by chance.
bool SaysThatItMayFailByChance(const std::string& source) {
  for (const char* const words : {"PERMISSIBLY", "VERY RARELY", "SLIM RARE", "ok to rarely fail"}) {
    if (source.find(words) != std::string::npos) return true;
  }
  return false;
}

TEST(Parity, EachToleratedFailureIsOfATestOfItsVerifier) {
  for (const Entry& entry : Manifest()) {
    const Lines lines = DataFile::Sample(entry.experiment).Verify();
    const Names recorded(lines.begin(), lines.end());
    for (const std::string& name : ToleratedFailures(entry)) {
      EXPECT_EQ(recorded.count("pass " + name), 1u)
          << entry.className << " records no test " << name << " on its sample";
    }
  }
}

TEST(Parity, TheToleratedFailuresAreThoseOfOneChanceForAllDataFiles) {
  for (const Entry& entry : Manifest()) {
    EXPECT_EQ(ToleratedFailures(entry), entry.testsOfOneChance) << entry.className;
  }
}

TEST(Parity, TheVerifiersThatMayFailByChanceAreThoseWithToleratedFailures) {
  Names tolerating;
  Names saying;
  for (const Entry& entry : Manifest()) {
    if (!ToleratedFailures(entry).empty()) tolerating.insert(entry.className);
    if (SaysThatItMayFailByChance(ReadFile(ROOT + "/verifiers/" + entry.className + ".cpp"))) {
      saying.insert(entry.className);
    }
  }
  ExpectSame(tolerating, saying, "the words of a failure by chance in verifiers/*.cpp");
}

TEST(Parity, TwoVerifiersExpectNoReadableDataFile) {
  Names classes;
  for (const Entry& entry : Manifest()) {
    if (entry.expectEmptyDatafile) classes.insert(entry.className);
  }
  EXPECT_EQ(classes, (Names{"TestBasicInput_02", "TestBasicMacInput_01"}));
}

const std::string WHAT_IS_WATCHED = "## What each verifier watches";

// The rows are made here once more, so that a fault of the script shows.
TEST(Parity, ThePageOnTheVerifiersHasTheRowsOfTheManifest) {
  Names rows;
  for (const Entry& entry : Manifest()) {
    std::string tolerated;
    for (const char c : entry.toleratedFailures) {
      tolerated += c == ',' ? std::string("`,") : c == ' ' ? std::string(" `") : std::string(1, c);
    }
    if (!tolerated.empty()) tolerated = "`" + tolerated + "` ";
    rows.insert("| `" + entry.className + "` | `" + entry.experiment + "` | " + entry.proves +
                " | `" + entry.base + "` | " + FlagText(entry.expectEmptyDatafile) + " | " +
                tolerated + "|");
  }
  Names found;
  std::istringstream page(ReadFile(ROOT + "/docs/verifiers.md"));
  for (std::string line; std::getline(page, line) && line != WHAT_IS_WATCHED;) {
    if (line.rfind("| `", 0) == 0) found.insert(line);
  }
  ExpectSame(rows, found, "the rows of docs/verifiers.md");
}

// A test of the host's room holds the lines themselves against what the built program finds.
TEST(Parity, ThePageOnTheVerifiersHasTheLinesOnWhatIsWatched) {
  std::vector<std::string> rows;
  std::vector<std::string> experiments;
  std::istringstream lines(ReadFile(ROOT + "/verifiers/watched.tsv"));
  std::string line;
  std::getline(lines, line);  // the headings
  while (std::getline(lines, line)) {
    std::string row = "|";
    std::istringstream fields(line + "\t");
    for (std::string field; std::getline(fields, field, '\t');) {
      if (row == "|") experiments.push_back(field);
      if (row == "|") field = "`" + field + "`";
      row += (field.empty() ? "" : " " + field) + " |";
    }
    rows.push_back(row);
  }
  std::vector<std::string> found;
  std::istringstream page(ReadFile(ROOT + "/docs/verifiers.md"));
  while (std::getline(page, line) && line != WHAT_IS_WATCHED) continue;
  while (std::getline(page, line)) {
    if (line.rfind("| `", 0) == 0) found.push_back(line);
  }
  EXPECT_EQ(rows, found);
  std::vector<std::string> registered;
  for (const Entry& entry : Manifest()) registered.push_back(entry.experiment);
  EXPECT_EQ(experiments, registered) << "run scripts/make-verifier-table --watched";
}

TEST(Parity, ThePageOnTheVerifiersIsAsTheScriptMakesIt) {
  const ScratchFolder folder;
  const std::string made = folder / "verifiers.md";
  const Finished run = RunProgram({OMBRELIA_CMAKE_COMMAND, "-D", "OUTPUT=" + made, "-P",
                                   ROOT + "/scripts/make-verifier-table"});
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(ReadFile(ROOT + "/docs/verifiers.md"), ReadFile(made))
      << "run scripts/make-verifier-table";
}

}  // namespace
}  // namespace Tests
