// What an installed catalogue of messages changes, and when. The module that is loaded here holds the readers once
// more, so that they are loaded at a moment of the test's choosing.
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <wx/translation.h>

#include <map>
#include <memory>

#include "Tabulon/src/reading/MUConcreteExperimentDataFileTxt.h"
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

const std::map<std::string, std::string> MESSAGES = {
    {"", "Content-Type: text/plain; charset=UTF-8\n"},
    {"[Missing\nCol Name]", "[Ohne\nNamen]"},
    {"(Trial Variable)", "(Versuchsvariable)"},
    {"Reaction\nTime", "Reaktions-\nzeit"},
    {"Block\nName", "Block-\nname"},
    {"Success", "Gelungen"},
    {".", ","},
    {"first", "ersten"},
    {"third", "dritten"},
    {"This file does not appear long enough to be a valid datafile.  There should be %u lines of "
     "header "
     "information followed by one or more rows of data.",
     "Zu kurz: %u Zeilen Kopf."}};

class Loader : public wxTranslationsLoader {
 public:
  wxMsgCatalog* LoadCatalog(const wxString& domain, const wxString&) override {
    const std::string bytes = Catalogue(MESSAGES);
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
    using Get = void (*)(TranslatedTexts*);
    reinterpret_cast<Get>(dlsym(m_library, "GetTranslatedTexts"))(&texts);
  }
  ~Module() { dlclose(m_library); }
  Module(const Module&) = delete;
  Module& operator=(const Module&) = delete;

  TranslatedTexts texts;

 private:
  void* m_library;
};

const wchar_t* const WORDS_FOR_SHORT_FILES =
    L"This file does not appear long enough to be a valid datafile.  There should be %u lines of "
    L"header "
    L"information followed by one or more rows of data.";

TEST(Translations, AreMadeWhenTheLibraryLoads) {
  const InstalledCatalogue catalogue;
  ASSERT_TRUE(catalogue.isThere);
  const Module module;
  const std::vector<wxString>& texts = module.texts.madeAtLoad;
  EXPECT_EQ(wxT("[Ohne\nNamen]"), texts[0]);
  EXPECT_EQ(wxT("Zu kurz: %u Zeilen Kopf."), texts[8]);
  EXPECT_EQ(wxT("Gelungen"), module.texts.successReport());
  EXPECT_EQ(wxT("x,y"), module.texts.shortNameOfFileX());
  EXPECT_EQ(wxT("ersten"), module.texts.ordinal(1));
  EXPECT_EQ(wxT("second"), module.texts.ordinal(2)) << "not in the catalogue";
  EXPECT_EQ(wxT("dritten"), module.texts.ordinal(3));
}

TEST(Translations, MakeThePatternOfAFlagButNotTheNamesThatTheHostWrites) {
  const InstalledCatalogue catalogue;
  const Module module;
  const std::vector<wxString>& texts = module.texts.madeAtLoad;
  EXPECT_EQ(wxT("\n(Versuchsvariable)"), texts[1]);
  EXPECT_EQ(wxT("Participant\nGroup"), texts[2]);
  EXPECT_EQ(wxT("Reaction Time\n(Trial Variable)"), texts[3]);
}

TEST(Translations, OfALaterCatalogueDoNotChangeWhatWasMadeAtLoad) {
  const Module module;
  const InstalledCatalogue catalogue;
  TranslatedTexts texts = module.texts;
  EXPECT_EQ(wxT("[Missing\nCol Name]"), texts.madeAtLoad[0]);
  EXPECT_EQ(wxT("\n(Trial Variable)"), texts.madeAtLoad[1]);
  EXPECT_EQ(WORDS_FOR_SHORT_FILES, texts.madeAtLoad[8]);
  EXPECT_EQ(wxT("Success"), texts.successReport());
  EXPECT_EQ(wxT("x.y"), texts.shortNameOfFileX());
  EXPECT_EQ(wxT("first"), texts.ordinal(1));
  EXPECT_EQ(WORDS_FOR_SHORT_FILES,
            MUConcreteExperimentDataFileTxt::USERFRIENDLY_ERROR_TEXT_FILE_TOO_SHORT);
}

TEST(Translations, OfTheStandardHeadingsAreMadeAtTheirFirstUseForGood) {
  const Module module;
  {
    const InstalledCatalogue catalogue;
    EXPECT_EQ(wxT("Block-\nname"), module.texts.heading(0));
    EXPECT_EQ(wxT("Trial\nName"), module.texts.heading(1)) << "not in the catalogue";
    EXPECT_EQ(wxT("Reaktions-\nzeit"), module.texts.heading(3));
  }
  EXPECT_EQ(wxT("Block-\nname"), module.texts.heading(0));
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
