// What an installed catalogue of messages changes, and when. The module that is loaded here holds the readers once
// more, so that they are loaded at a moment of the test's choosing.
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <wx/translation.h>

#include <map>
#include <memory>
#include <vector>

#include "tests/Tabulon/reading/ReaderBench.h"
#include "tests/Tabulon/reading/TranslatedTexts.h"
#include "tests/TabulonModule.h"

using namespace ReaderBench;

namespace {

void AppendNumber(std::string& bytes, std::size_t number) {
  for (int shift = 0; shift < 32; shift += 8) bytes += static_cast<char>(number >> shift & 0xFF);
}

// A catalogue in the binary form of gettext.
std::string Catalogue(const std::map<std::string, std::string>& messages) {
  const std::size_t head = 28;
  std::string originals;
  std::string translations;
  std::string texts;
  const std::size_t firstText = head + 16 * messages.size();
  const auto append = [&](std::string& table, const std::string& text) {
    AppendNumber(table, text.size());
    AppendNumber(table, firstText + texts.size());
    texts += text + '\0';
  };
  for (const auto& [original, translation] : messages) {
    append(originals, original);
    append(translations, translation);
  }
  std::string bytes;
  for (const std::size_t number : {std::size_t{0x950412de}, std::size_t{0}, messages.size(), head,
                                   head + 8 * messages.size(), std::size_t{0}, firstText}) {
    AppendNumber(bytes, number);
  }
  return bytes + originals + translations + texts;
}

// What the readers translate as the library loads, in the order of TranslatedTexts::madeAtLoad.
const std::vector<std::string> MADE_AT_LOAD = {
    "[Missing\nCol Name]",
    "File too large.  This file is %u bytes in size.  Halvex Tabulon cannot support opening such "
    "large files.  You may wish to split the file into multiple smaller files and try again.",
    "Input file is missing an experiment name.  The %s line of the file should contain the title "
    "of the experiment.",
    "Input file is missing a participant name.  The %s line of the file should contain the "
    "participant name for the experiment.",
    "Input file is missing information about the time the experiment was run.  The %s line of the "
    "file should contain this information.",
    "This file does not appear long enough to be a valid datafile.  There should be %u lines of "
    "header information followed by one or more rows of data.",
    "This file does not appear to have any column headings.  There should be column titles "
    "populated from row %u to row %u of the file.",
    "This file has too many cells beyond its column headings, or too many column headings of one "
    "name.",
    "Success",
    "first",
    "second",
    "third",
    "fourth",
    "fifth",
    "sixth",
    "seventh",
    "eighth",
    "ninth",
    "tenth"};

// What they translate at its first use, in the order of the numbers of the headings.
const std::vector<std::string> HEADINGS = {"Block\nName", "Trial\nName", "Error\nCode",
                                           "Reaction\nTime"};

std::string InGerman(const std::string& text) { return "(de) " + text; }

std::map<std::string, std::string> Messages() {
  std::map<std::string, std::string> messages = {{"", "Content-Type: text/plain; charset=UTF-8\n"}};
  const auto add = [&](const std::string& text) { messages[text] = InGerman(text); };
  for (const std::string& text : MADE_AT_LOAD) add(text);
  for (const std::string& text : HEADINGS) add(text);
  for (const char* text : {"(Trial Variable)", ".", "Key", "Reaction Time\n(Trial Variable)"})
    add(text);
  return messages;
}

class Loader : public wxTranslationsLoader {
 public:
  wxMsgCatalog* LoadCatalog(const wxString& domain, const wxString&) override {
    const std::string bytes = Catalogue(Messages());
    wxCharBuffer buffer(bytes.size());
    std::copy(bytes.begin(), bytes.end(), buffer.data());
    return wxMsgCatalog::CreateFromData(buffer, domain);
  }
  wxArrayString GetAvailableTranslations(const wxString&) const override {
    wxArrayString languages;
    languages.Add(wxT("de"));
    return languages;
  }
};

// The catalogue is in force as long as this lives.
class InstalledCatalogue {
 public:
  InstalledCatalogue() {
    auto* const translations = new wxTranslations;
    translations->SetLoader(new Loader);
    translations->SetLanguage(wxT("de"));
    wxTranslations::Set(translations);
    isThere = translations->AddCatalog(wxT("ombrelia"));
  }
  ~InstalledCatalogue() { wxTranslations::Set(nullptr); }
  InstalledCatalogue(const InstalledCatalogue&) = delete;
  InstalledCatalogue& operator=(const InstalledCatalogue&) = delete;

  bool isThere = false;
};

class Module {
 public:
  Module() : m_library(dlopen(OMBRELIA_TABULON_MODULE, RTLD_NOW | RTLD_LOCAL)) {
    if (m_library == nullptr) {
      ADD_FAILURE() << dlerror();
      std::abort();
    }
    texts = TextsNow();
  }
  ~Module() { dlclose(m_library); }
  Module(const Module&) = delete;
  Module& operator=(const Module&) = delete;

  TranslatedTexts TextsNow() const {
    using Get = void (*)(TranslatedTexts*);
    TranslatedTexts now;
    reinterpret_cast<Get>(dlsym(m_library, "GetTranslatedTexts"))(&now);
    return now;
  }

  TranslatedTexts texts;  // as they were when it was loaded

 private:
  void* m_library;
};

TEST(Translations, AreMadeWhenTheLibraryLoads) {
  const InstalledCatalogue catalogue;
  ASSERT_TRUE(catalogue.isThere);
  const Module module;
  ASSERT_EQ(MADE_AT_LOAD.size(), module.texts.madeAtLoad.size());
  for (std::size_t i = 0; i < MADE_AT_LOAD.size(); ++i) {
    EXPECT_EQ(wxString(InGerman(MADE_AT_LOAD[i])), module.texts.madeAtLoad[i]);
  }
  EXPECT_EQ(wxT("x(de) .y"), module.texts.shortNameOfFileX());
}

TEST(Translations, MakeThePatternOfAFlagButNotTheNamesThatTheHostWrites) {
  const InstalledCatalogue catalogue;
  const Module module;
  EXPECT_EQ(wxT("\n(de) (Trial Variable)"), module.texts.trialVariablePattern);
  const std::vector<wxString>& names = module.texts.namesThatTheHostWrites;
  EXPECT_EQ(wxT("Block\nName"), names[2]);
  EXPECT_EQ(wxT("Trial\nName"), names[3]);
  EXPECT_EQ(wxT("Key"), names[6]);
  EXPECT_EQ(wxT("Error\nCode"), names[8]);
  EXPECT_EQ(wxT("Reaction\nTime"), names[9]);
  EXPECT_EQ(wxT("Reaction Time\n(Trial Variable)"), names[10]);
}

TEST(Translations, OfALaterCatalogueDoNotChangeWhatWasMadeAtLoad) {
  const Module module;
  const InstalledCatalogue catalogue;
  const TranslatedTexts texts = module.TextsNow();
  ASSERT_EQ(MADE_AT_LOAD.size(), texts.madeAtLoad.size());
  for (std::size_t i = 0; i < MADE_AT_LOAD.size(); ++i) {
    EXPECT_EQ(wxString(MADE_AT_LOAD[i]), texts.madeAtLoad[i]);
  }
  EXPECT_EQ(wxT("\n(Trial Variable)"), texts.trialVariablePattern);
  EXPECT_EQ(wxT("x.y"), texts.shortNameOfFileX());
}

TEST(Translations, OfTheStandardHeadingsAreMadeAtTheirFirstUseForGood) {
  const Module module;
  for (int use = 0; use < 2; ++use) {
    const auto catalogue = use == 0 ? std::make_unique<InstalledCatalogue>() : nullptr;
    for (std::size_t i = 0; i < HEADINGS.size(); ++i) {
      EXPECT_EQ(wxString(InGerman(HEADINGS[i])), module.texts.heading(static_cast<int>(i)));
    }
  }
}

TEST(Translations, OfAnEmptyTextAreEmpty) {
  const InstalledCatalogue catalogue;
  const Module module;
  EXPECT_EQ(wxString(), module.texts.heading(4)) << "and not the head of the catalogue";
}

// The four words and the two fatal ones of the reader of an open file stay as they are.
TEST(Translations, LeaveTheWordsOfTheInMemoryReaderAlone) {
  const InstalledCatalogue catalogue;
  RecordingHandler handler;
  InMemory("one line", &handler);
  ASSERT_EQ(1u, handler.m_reports.size());
  EXPECT_EQ(wxT("missing exp name"), handler.m_reports[0].message);
}

}  // namespace
