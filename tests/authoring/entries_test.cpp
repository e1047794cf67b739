#include "authoring/entries.h"

#include "base/utf8.h"
#include "tests/support/trees.h"

#include <gtest/gtest.h>

namespace {

using authoring::Entries;
using authoring::Entry;

std::string Listed(std::string_view groups) {
  const auto tree = tests::TreeOf("<GROUP name=\"R\">" + std::string(groups) + "</GROUP>");
  const Entries entries(*tree, u"R");
  std::string text;
  for (const Entry& entry : entries.All()) {
    text += base::ToUtf8(Entries::PathOf(entry)) + (entry.first != nullptr ? " (again)" : "") + "\n";
  }
  return text;
}

TEST(Entries, StandInTheOrderOfTheMenus) {
  EXPECT_EQ("\nB\nB\\X\nA\n", Listed("<GROUP name=\"A\"><Ordinal>2</Ordinal></GROUP>"
                                     "<GROUP name=\"B\"><Ordinal>1</Ordinal><GROUP name=\"X\"/></GROUP>"));
}

TEST(Entries, WhatIsMetAgainHasItsChildrenInOnePlace) {
  EXPECT_EQ("\nA\nA\\X\nA (again)\n", Listed("<GROUP name=\"A\"><GROUP name=\"X\"/></GROUP><GROUP name=\"A\"/>"));
}

}  // namespace
