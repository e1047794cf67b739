#include "simulator/shown_character.h"

#include <gtest/gtest.h>

#include <clocale>

namespace {

using simulator::ShownCharacter;

class ShownCharacterTest : public ::testing::Test {
 protected:
  void TearDown() override { std::setlocale(LC_CTYPE, "C"); }
};

TEST_F(ShownCharacterTest, FramesAndMarksAreOfAsciiInALocaleThatHasNoOthers) {
  std::setlocale(LC_CTYPE, "C");
  const std::u32string frames = U"─│┌┐└┘█░▾▲▼↑↓←→";
  std::wstring shown;
  for (const char32_t character : frames) shown.push_back(ShownCharacter(character));
  EXPECT_EQ(L"-|++++#.v^v^v<>", shown);
  EXPECT_EQ(L'a', ShownCharacter(U'a'));
  EXPECT_EQ(L'?', ShownCharacter(U'ü'));
}

TEST_F(ShownCharacterTest, InUtf8EveryCharacterOfOneCellIsItself) {
  ASSERT_NE(nullptr, std::setlocale(LC_CTYPE, "C.UTF-8"));
  EXPECT_EQ(L'─', ShownCharacter(U'─'));
  EXPECT_EQ(L'ü', ShownCharacter(U'ü'));
  EXPECT_EQ(L'?', ShownCharacter(U'漢'));
}

}  // namespace
