#include "base/string_table.h"

#include "tests/printing.h"

namespace {

TEST(StringTable, HoldsNinetyFourTexts) { EXPECT_EQ(94u, base::AllTexts().size()); }

TEST(StringTable, AnIdentifierWithoutAnEntryGivesTheEmptyText) {
  EXPECT_EQ(u"", LoadText(TextId{6092}));
  EXPECT_EQ(u"", LoadText(TextId{0}));
  EXPECT_EQ(u"", LoadText(TextId{65535}));
}

TEST(StringTable, TextsKeepTheirExactBlanksBreaksAndSpellings) {
  EXPECT_EQ(u"Exit [Esc]" + WideString(10, u' ') + u"Select [Enter]", LoadText(TextId::kMenuNavigation));
  EXPECT_EQ(u"Page [Down,Up]" + WideString(6, u' ') + u"Exit [Esc]", LoadText(TextId::kPageNavigation));
  EXPECT_EQ(u"   Press arrows to scroll text.", LoadText(TextId::kScrollHint));
  EXPECT_EQ(u"\n\nSaved", LoadText(TextId::kSavedNote));
  EXPECT_EQ(u"WEP key exceeds maximum lenth", LoadText(TextId::kWepKeyTooLong));
  EXPECT_EQ(u"An error occurred.  Change was not saved.", LoadText(TextId::kChangeNotSaved));
  EXPECT_EQ(u"You must warm-boot the device for this change to take effect\r\nDo you wish to warm-boot now?",
            LoadText(TextId::kWarmBootPrompt));
  EXPECT_EQ(u"\\Windows\\ovu.xml", LoadText(TextId::kDefaultXmlSource));
}

TEST(StringTable, NoTextIsLongerThanTheLoadLimit) {
  for (const base::TextEntry& entry : base::AllTexts()) {
    EXPECT_EQ(entry.text, LoadText(entry.id)) << static_cast<int>(entry.id);
    EXPECT_FALSE(entry.text.empty()) << static_cast<int>(entry.id);
  }
}

}  // namespace
