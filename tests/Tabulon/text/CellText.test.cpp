// Cells as borrowed texts.
#include <gtest/gtest.h>

#include <cstdlib>
#include <set>
#include <string>

#include "Tabulon/src/text/MUCellText.h"

namespace {

TEST(CellTextHash, IsTheSameForTheSameCharactersInBothWidths) {
  for (const std::size_t length :
       {0U, 1U, 3U, 4U, 8U, 9U, 16U, 17U, 40U, 128U, 129U, 241U, 1000U}) {
    std::string narrow(length, 'x');
    if (length > 2) narrow[length / 2] = '\xE9';
    std::wstring wide;
    for (const char character : narrow) wide += static_cast<unsigned char>(character);
    EXPECT_EQ(MUCellText(narrow.data(), length).Hash(), MUCellText(wide.data(), length).Hash())
        << length;
  }
  EXPECT_EQ(MUCellText().Hash(), MUCellText("", std::size_t{0}).Hash());
}

TEST(CellTextHash, LooksAtMoreThanEightBitsOfACharacter) {
  std::set<std::size_t> hashes;
  for (unsigned number = 0; number < 4096; ++number) {
    std::wstring text;
    for (unsigned bit = 0; bit < 12; ++bit)
      text += (number >> bit & 1) != 0 ? L'\u0161' : L'\u0261';
    hashes.insert(MUCellText(text.data(), text.size()).Hash());
  }
  EXPECT_EQ(hashes.size(), 4096u);
}

TEST(CellTextHash, CannotBeKnownFromAnotherProcess) {
  testing::FLAGS_gtest_death_test_style =
      "threadsafe";  // the other process starts from the beginning
  const std::string hash = std::to_string(MUCellText("condition_07", 12).Hash());
  setenv("OMBRELIA_TEST_HASH", hash.c_str(), 0);
  EXPECT_EXIT(std::exit(hash == std::getenv("OMBRELIA_TEST_HASH") ? 1 : 0),
              testing::ExitedWithCode(0), "");
  unsetenv("OMBRELIA_TEST_HASH");
}

TEST(CellText, IsCopiedIntoATextThatHeldAnother) {
  wxString text(wxT("a text that was there before, and a long one"));
  for (const std::size_t length : {5U, 200U, 0U}) {
    const std::string narrow(length, '\xE9');
    MUCellText(narrow.data(), length).CopyInto(text);
    EXPECT_EQ(text, wxString(wxT('\u00E9'), length));
  }
  MUCellText(L"\u0161b", 2).CopyInto(text);
  EXPECT_EQ(text, wxString(wxT("\u0161b")));
}

}  // namespace
