#include <gtest/gtest.h>
#include <wx/tokenzr.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "Tabulon/src/text/MUCellSplitting.h"
#include "Tabulon/src/text/MUUtilitarianFunctions.h"

namespace {

TEST(CellSplitting, IsThatOfTheTokenizer) {
  for (unsigned int seed = 1; seed <= 3000; ++seed) {
    std::mt19937 random(seed);
    std::wstring line;
    for (auto length = random() % 9; length > 0; --length) line += L"\t\tab"[random() % 4];
    std::vector<wxString> expected;
    wxStringTokenizer tokens(line, wxT("\t"), wxTOKEN_RET_EMPTY);
    while (tokens.HasMoreTokens()) expected.push_back(tokens.GetNextToken());
    std::vector<wxString> actual;
    MUForEachCell(line.data(), line.data() + line.size(),
                  [&](const wchar_t* begin, const wchar_t* end) {
                    actual.emplace_back(begin, static_cast<std::size_t>(end - begin));
                  });
    ASSERT_EQ(expected, actual) << "seed " << seed;
  }
}

// How long a text becomes is told before it is made visible.
TEST(VisibleMeasure, TellsTheLengthThatTheVisibleTextHas) {
  for (unsigned int seed = 1; seed <= 2000; ++seed) {
    std::mt19937 random(seed);
    std::wstring line;
    for (auto length = random() % 12; length > 0; --length)
      line += L"\x1b\x1b[@_\x01\x7f\x85\xe4\tz"[random() % 11];
    MUVisibleMeasure measure;
    measure.Add(line.data(), line.data() + line.size());
    wxString visible(line.data(), line.size());
    const auto tabs = static_cast<std::size_t>(std::count(line.begin(), line.end(), L'\t'));
    MUUtilitarianFunctions::TranslateControlChars(visible);
    ASSERT_EQ(visible.length(), measure.characters + tabs) << "a tab became two, seed " << seed;
    ASSERT_EQ(tabs, measure.tabs);
    ASSERT_TRUE(measure.isNarrow);
    std::string narrow;
    for (const wchar_t character : line) narrow += static_cast<char>(character);
    MUVisibleMeasure measureOfNarrow;
    measureOfNarrow.Add(narrow.data(), narrow.data() + narrow.size());
    ASSERT_EQ(measure.characters, measureOfNarrow.characters) << "seed " << seed;
  }
}

}  // namespace
