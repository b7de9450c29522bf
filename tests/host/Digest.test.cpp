#include "host/results/Digest.h"

#include <gtest/gtest.h>

#include "tests/support/Files.h"

namespace Tests {
namespace {

using OmbreliaHost::DigestOf;
using OmbreliaHost::DigestOfText;

class DigestTest : public testing::Test {
 protected:
  std::string DigestOfContent(const std::string& content) {
    WriteFile(m_folder / "file", content);
    return DigestOf(m_folder / "file");
  }
  ScratchFolder m_folder;
};

// As xxh128sum of Debian's package xxhash prints them.
TEST_F(DigestTest, IsThatOfOtherTools) {
  EXPECT_EQ(DigestOfContent(""), "99aa06d3014798d86001c324468d497f");
  EXPECT_EQ(DigestOfContent("event 1\t812\n"), "35cd52e0809872447fea8bc2f67801c5");
  EXPECT_EQ(DigestOfContent(std::string(200000, 'x')), "cef4e9bfab1383027d16afd1aef7e39c");
}

TEST_F(DigestTest, IsEmptyForAFileThatCannotBeRead) {
  EXPECT_EQ(DigestOf(m_folder / "missing"), "");
  EXPECT_EQ(DigestOf(m_folder.Path()), "");
}

TEST_F(DigestTest, OfATextIsThatOfAFileWithItsBytes) {
  for (const std::string& text : {std::string(), std::string(200000, 'x')}) {
    EXPECT_EQ(DigestOfText(text), DigestOfContent(text));
  }
}

}  // namespace
}  // namespace Tests
