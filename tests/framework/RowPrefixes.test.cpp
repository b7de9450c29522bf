#include "framework/RowPrefixes.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "Tabulon/src/table/MUExperimentTextReaderMultiFile.h"
#include "framework/CommonTestHelperLogic.h"
#include "tests/support/RecordingPrinter.h"

namespace Tests {
namespace {

using Ombrelia::CountRowsByPrefix;

// The counts in a file with these cells in the column "Trial\nName".
std::vector<int> Counts(const std::vector<std::string>& cells, const wxString& columnName,
                        const std::vector<wxString>& prefixes) {
  const std::string path = "prefixes.txt";
  std::FILE* const file = std::fopen(path.c_str(), "wb");
  std::fputs("p\nt\nd\n\nTrial\tNotes\nName\t\n", file);
  for (const std::string& cell : cells) std::fputs((cell + "\t-\n").c_str(), file);
  std::fclose(file);
  RecordingPrinter printer;
  const auto reader = Ombrelia::CommonTestHelperLogic::GetReaderOrElseLogAnError(
      &printer, wxString::FromUTF8(path.c_str()), false);
  std::remove(path.c_str());
  return CountRowsByPrefix(*reader, columnName, prefixes);
}

TEST(CountRowsByPrefix, CountsEachCellForTheFirstPrefixThatFits) {
  EXPECT_EQ(Counts({"ab", "abc", "b", "abcd", "ab"}, wxT("Trial\nName"),
                   {wxT("abc"), wxT("ab"), wxT("b")}),
            (std::vector<int>{2, 2, 1}));
  EXPECT_EQ(Counts({"ab", "abc", "abcd"}, wxT("Trial\nName"), {wxT("ab"), wxT("abc")}),
            (std::vector<int>{3, 0}));
}

TEST(CountRowsByPrefix, CountsNowhereWhatHasNoneOfThem) {
  EXPECT_EQ(Counts({"", "a", "AB", " ab", "xab"}, wxT("Trial\nName"), {wxT("ab")}),
            (std::vector<int>{0}));
  EXPECT_EQ(Counts({"ab"}, wxT("Trial\nName"), {}), std::vector<int>());
}

TEST(CountRowsByPrefix, ReadsQuestionMarksInAColumnThatIsMissing) {
  EXPECT_EQ(Counts({"ab", "ab"}, wxT("Trial"), {wxT("ab"), wxT("?")}), (std::vector<int>{0, 2}));
}

}  // namespace
}  // namespace Tests
