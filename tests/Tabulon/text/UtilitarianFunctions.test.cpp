#include <gtest/gtest.h>
#include <wx/filefn.h>
#include <wx/filename.h>
#include <wx/utils.h>

#include <random>

#include "Tabulon/src/text/MUUniqueNameIndex.h"
#include "Tabulon/src/text/MUUtilitarianFunctions.h"
#include "tests/Tabulon/reading/NaiveReader.h"

using namespace MUUtilitarianFunctions;

namespace {

TEST(UniqueNames, LeaveANewNameAlone) {
  EXPECT_EQ(wxT("Lion"), GetUniqueNameToInsertForGivenListContents(wxT("Lion"), {}));
  EXPECT_EQ(wxT("Lion"), GetUniqueNameToInsertForGivenListContents(wxT("Lion"), {wxT("Puma")}));
  EXPECT_EQ(wxT("Lion"), GetUniqueNameToInsertForGivenListContents(wxT("Lion"), {wxT("Lion##")}));
}

TEST(UniqueNames, CompareWithoutRegardToCaseAndKeepTheCaseAskedFor) {
  EXPECT_EQ(wxT("lion#"), GetUniqueNameToInsertForGivenListContents(wxT("lion"), {wxT("LION")}));
}

TEST(UniqueNames, SearchFromTheSmallestCountInUse) {
  EXPECT_EQ(wxT("a###"),
            GetUniqueNameToInsertForGivenListContents(wxT("a"), {wxT("a"), wxT("a##")}));
  EXPECT_EQ(wxT("a##"), GetUniqueNameToInsertForGivenListContents(
                            wxT("a"), {wxT("a"), wxT("a#"), wxT("a#####")}));
  EXPECT_EQ(wxT("a#"), GetUniqueNameToInsertForGivenListContents(wxT("a"), {wxT("a"), wxT("a")}))
      << "a second duplicate is a used count of 0";
  EXPECT_EQ(wxT("a#"), GetUniqueNameToInsertForGivenListContents(wxT("a"), {wxT("a"), wxT("ab#")}));
}

TEST(UniqueNames, AnswerTheFixedCases) {
  std::list<wxString> names = {wxT("Kodiak"), wxT("Cheetah"), wxT("Puma"),  wxT("Ubuntu"),
                               wxT("SUSE"),   wxT("Fedora"),  wxT("Debian")};
  const auto ask = [&names](const wxString& name) {
    names.push_back(GetUniqueNameToInsertForGivenListContents(name, names));
    return names.back();
  };
  EXPECT_EQ(wxT("Lion"), ask(wxT("Lion")));
  EXPECT_EQ(wxT("Lion#"), ask(wxT("Lion")));
  EXPECT_EQ(wxT("Lion##"), ask(wxT("Lion")));
  EXPECT_EQ(wxT("Lion######a####"), ask(wxT("Lion######a####")));
  EXPECT_EQ(wxT("Lion###########"), ask(wxT("Lion###########")));
  EXPECT_EQ(wxT("Lion###"), ask(wxT("Lion")));
  EXPECT_EQ(wxT(""), ask(wxT("")));
  EXPECT_EQ(wxT("#"), ask(wxT("")));
  EXPECT_EQ(wxT("##"), ask(wxT("#")));
  EXPECT_EQ(wxT("###"), ask(wxT("#")));
  EXPECT_EQ(wxT("####"), ask(wxT("")));
  EXPECT_TRUE(TestFunction_GetUniqueNameToInsertForGivenListContents());
}

TEST(UniqueNameIndex, AnswersAsTheListDoes) {
  // The Kelvin sign is a k in lower case, but no K in upper case; the long s is an S in upper case only.
  const wxString letters[] = {wxT("a"),  wxT("A"), wxT("k"), L"\u212a",
                              L"\u017f", wxT("s"), wxT("#"), wxT("#")};
  for (unsigned int seed = 1; seed <= 400; ++seed) {
    std::mt19937 random(seed);
    std::list<wxString> names;
    MUUniqueNameIndex index;
    for (int i = 0; i < 30; ++i) {
      wxString name;
      for (auto length = random() % 4; length > 0; --length) name += letters[random() % 8];
      const wxString unique = GetUniqueNameToInsertForGivenListContents(name, names);
      if (random() % 4 == 0) {
        names.push_back(name);
        index.Add(name);
      } else {
        names.push_back(unique);
        ASSERT_EQ(unique, index.AddUniqueForm(name)) << "seed " << seed;
      }
    }
    index.Clear();
    ASSERT_EQ(wxT("a"), index.AddUniqueForm(wxT("a")));
    ASSERT_EQ(wxT("a#"), index.AddUniqueForm(wxT("a")));
  }
}

wxString Translated(wxString text) {
  TranslateControlChars(text);
  return text;
}

TEST(ControlCharacters, BecomeVisible) {
  EXPECT_EQ(wxT("plain \u20ac"), Translated(wxT("plain \u20ac")));
  EXPECT_EQ(wxT("0x1B 0x5b"), Translated(wxT("\x1b[")));
  EXPECT_EQ(wxT("0x1B 0x40"), Translated(wxT("\x1b@")));
  EXPECT_EQ(wxT("0x1B 0x5f"), Translated(wxT("\x1b_")));
  EXPECT_EQ(wxT("^[`"), Translated(wxT("\x1b`")));
  EXPECT_EQ(wxT("^[?"), Translated(wxT("\x1b?")));
  EXPECT_EQ(wxT("^["), Translated(wxT("\x1b")));
  EXPECT_EQ(wxT("^[0x1B 0x5b"), Translated(wxT("\x1b\x1b[")));
  EXPECT_EQ(wxT("^A^M^J^_"), Translated(wxT("\x01\r\n\x1f")));
  EXPECT_EQ(wxT("^I"), Translated(wxT("\t"))) << "nothing exempts a tab";
  EXPECT_EQ(wxT("^?"), Translated(wxT("\x7f")));
  EXPECT_EQ(wxT("0x80 0x9f\u00a0"), Translated(L"\x80 \x9f\u00a0"));
}

TEST(ControlCharacters, BecomeWhatFourPassesMakeOfThem) {
  for (unsigned int seed = 1; seed <= 500; ++seed) {
    std::mt19937 random(seed);
    wxString text;
    for (auto length = random() % 20; length > 0; --length) {
      text += random() % 3 ? wxUniChar(1 + random() % 170) : wxUniChar(27);
    }
    wxString expected = text;
    NaiveReader::TranslateInPasses(expected);
    ASSERT_EQ(expected, Translated(text)) << "seed " << seed;
  }
}

TEST(WrittenOrdinals, AreWordsFromOneToNine) {
  const wchar_t* const words[] = {L"first", L"second",  L"third",  L"fourth", L"fifth",
                                  L"sixth", L"seventh", L"eighth", L"ninth"};
  for (unsigned int n = 1; n <= 9; ++n) EXPECT_EQ(words[n - 1], GetWrittenOrdinalTextForInteger(n));
  EXPECT_EQ(wxT("0"), GetWrittenOrdinalTextForInteger(0));
  EXPECT_EQ(wxT("10"), GetWrittenOrdinalTextForInteger(10));
  EXPECT_EQ(wxT("4294967295"), GetWrittenOrdinalTextForInteger(4294967295u));
  EXPECT_EQ(wxT("tenth"), MUUTIL_WRITTEN_ORDINAL_NUMBER_TEXT[9]);
}

TEST(FullDirPath, FallsBackToTheWorkingDirectory) {
  const wxString here = wxGetCwd() + wxT("/");
  EXPECT_EQ(wxT("/usr/"), GetFullDirPathWithFinalSeparator(wxFileName(wxT("/usr"))));
  EXPECT_EQ(wxT("/usr/"), GetFullDirPathWithFinalSeparator(wxFileName::DirName(wxT("/usr"))));
  EXPECT_EQ(here, GetFullDirPathWithFinalSeparator(wxFileName(wxT("/no/such"))));
  EXPECT_EQ(here, GetFullDirPathWithFinalSeparator(wxFileName(wxT("/etc/passwd"))));
  EXPECT_EQ(here, GetFullDirPathWithFinalSeparator(wxFileName()));
}

TEST(StringLess, RegardsCase) {
  EXPECT_TRUE(StringLessFunction(wxT("B"), wxT("a")));
  EXPECT_FALSE(StringLessFunction(wxT("a"), wxT("a")));
  EXPECT_FALSE(StringLessFunction(wxT("a"), wxT("B")));
}

TEST(BitStrings, AreInGroupsOfFour) {
  EXPECT_EQ(wxT("1000 0000 0000 0001"), GetBitString16Bits(0x8001));
  EXPECT_EQ(wxT("0000 0000 0000 0000"), GetBitString16Bits(0xFFFF0000));
  EXPECT_EQ(wxT("1000 0000 0000 0001 0000 0000 0000 1111"), GetBitString32Bits(0x8001000F));
}

TEST(Stopwatch, RunsPerKey) {
  unsigned long elapsed = 5;
  const unsigned long notRunning = static_cast<unsigned long>(-1);
  TimeMeProductionRelease(false, wxT("never started"), &elapsed);
  EXPECT_EQ(notRunning, elapsed);

  TimeMeProductionRelease(true, wxT("key"), nullptr);
  wxMilliSleep(30);
  TimeMeProductionRelease(true, wxT("key"), nullptr);  // keeps the first start
  TimeMeProductionRelease(false, wxT("other"), &elapsed);
  EXPECT_EQ(notRunning, elapsed);
  TimeMeProductionRelease(false, wxT("key"), &elapsed);
  EXPECT_GE(elapsed, 29u);
  EXPECT_NE(notRunning, elapsed);
  TimeMeProductionRelease(false, wxT("key"), &elapsed);
  EXPECT_EQ(notRunning, elapsed);
}

TEST(SortedLists, AreToldFromOthers) {
  EXPECT_TRUE(VerifyThatSTDListOfIntIsSorted({}));
  EXPECT_TRUE(VerifyThatSTDListOfIntIsSorted({-1, 0, 0, 7}));
  EXPECT_FALSE(VerifyThatSTDListOfIntIsSorted({1, 0}));
  EXPECT_TRUE(VerifyThatSTDListOfULongIsSorted({}));
  EXPECT_TRUE(VerifyThatSTDListOfULongIsSorted({0, 1, 18446744073709551615ul}));
  EXPECT_FALSE(VerifyThatSTDListOfULongIsSorted({18446744073709551615ul, 0}));
}

TEST(DeveloperTools, DoNothingInProduction) {
  unsigned long elapsed = 5;
  DebugMessageWithMilliseconds(wxT("message"));
  TimeMeDebug(true, wxT("key"), &elapsed);
  TimeMeDebug(false, wxT("key"), &elapsed);
  EXPECT_EQ(5u, elapsed);
}

}  // namespace
