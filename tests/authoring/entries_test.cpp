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

// As it is seen by going through all entries and climbing from each.
bool StandsElsewherePlainly(const Entries& entries, const Entry& entry) {
  for (const Entry& later : entries.All()) {
    if (later.first == nullptr) continue;
    for (const Entry* at = &entry; at != nullptr; at = at->parent) {
      if (at->key == later.key) return true;
    }
  }
  return false;
}

TEST(Entries, KnowWhatStandsWithinAMenuAndWhatStandsElsewhereToo) {
  // Two ways lead to A\B and to G.
  const auto tree = tests::TreeOf(
      "<GROUP name='R'><Descendent>A\\B</Descendent><GROUP name='A'><GROUP name='B'><GROUP name='C'/>"
      "<GROUP name='D'><GROUP name='E'/></GROUP></GROUP><GROUP name='F'/></GROUP>"
      "<GROUP name='G'><GROUP name='X'/></GROUP><GROUP name='H'/><GROUP name='G'/><GROUP name='I'/></GROUP>");
  const Entries entries(*tree, u"R");
  std::size_t elsewhere = 0;
  for (const Entry& entry : entries.All()) {
    if (entry.first != nullptr) continue;
    EXPECT_EQ(StandsElsewherePlainly(entries, entry), entries.StandsElsewhere(entry))
        << base::ToUtf8(Entries::PathOf(entry));
    if (entries.StandsElsewhere(entry)) ++elsewhere;
    for (const Entry& menu : entries.All()) {
      if (menu.first != nullptr) continue;
      const Entry* at = &entry;
      while (at != nullptr && at != &menu) at = at->parent;
      EXPECT_EQ(at == &menu, Entries::IsWithin(entry, menu))
          << base::ToUtf8(Entries::PathOf(entry)) << " in " << base::ToUtf8(Entries::PathOf(menu));
    }
  }
  EXPECT_EQ(6u, elsewhere);  // B, C, D, E, G and X
}

}  // namespace
