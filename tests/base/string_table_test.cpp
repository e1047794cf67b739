#include "base/string_table.h"

#include "tests/printing.h"

namespace {

// Configurations, registries and people know these numbers and texts: a change here is a change for all of them.
TEST(StringTable, EveryIdentifierHasItsText) {
  // clang-format off
  const struct {
    int id;
    WideStringView text;
  } texts[] = {
      {1, u"Configuration Utility"},
      {104, u"Tools"},
      {61204, u"HKEY_LOCAL_MACHINE\\SOFTWARE\\Valtorix\\ZEP\\CONFIGAPP"},
      {61205, u"DefVal"},
      {61206, u"DisplayName"},
      {61207, u"Integer"},
      {61208, u"Bool"},
      {61209, u"Octet String"},
      {61210, u"ChoiceFmt"},
      {61211, u"OID"},
      {61214, u"Type"},
      {61218, u"PropEditor"},
      {61219, u"CustPage"},
      {61220, u"PageDependency"},
      {61221, u"IP Address"},
      {61222, u"Counter"},
      {61223, u"Gauge"},
      {61224, u"Time Ticks"},
      {61225, u"Opaque"},
      {61226, u"Unapplied changes have been made.\nApply changes now?"},
      {61227, u"CmdOID"},
      {61228, u"Ordinal"},
      {61229, u"CmdString"},
      {61231, u"TextFmt"},
      {61232, u"None"},
      {61233, u"###.###.###.###"},
      {61234, u"Range"},
      {61235, u"Value %d is out of range {%s}"},
      {61237, u"MaxChars"},
      {61238, u"Security"},
      {61239, u"Restoring Factory Defaults will replace all settings.\nDo it?"},
      {61241, u"ReaderCmd"},
      {61243, u"######"},
      {61245, u"Not Available"},
      {61246, u"Error getting configuration data. Warm boot and try again."},
      {61247, u"%d is not a valid entry. Specify a value between %d and %d for this field."},
      {61248, u"Invalid IP Address"},
      {61250, u"Adapter"},
      {61251, u"Discard all edits?"},
      {61252, u"The next time the adapter is used it will have the new settings. If the adapter is currently in the device you can suspend and then resume the device to have the changes take affect."},
      {61253, u"These settings will take affect after the next warm/cold boot."},
      {61254, u"You have entered an address that is missing its subnet mask. Please add a subnet mask."},
      {61255, u"ShortDesc"},
      {61256, u"WARNING: Enabling either Code 2 of 5 or Interleaved 2 of 5 will automatically disable the other."},
      {61257, u"Password"},
      {61258, u"Hex"},
      {61259, u"PassWordChar"},
      {61260, u"Restoring Factory Defaults will replace all the current settings.\nRestore now?"},
      {61261, u"Restoring All Factory Defaults"},
      {61262, u"An error occurred restoring all factory defaults."},
      {61263, u"WEP"},
      {61264, u"%s, <%s>"},
      {61265, u"  <%s>"},
      {61271, u"SNMPEvent"},
      {61275, u"RestoreDefaults"},
      {61276, u"Summary"},
      {61281, u"AppName"},
      {61293, u"HKEY_LOCAL_MACHINE\\SOFTWARE\\Valtorix\\ZEP\\SYMBOLTABLE"},
      {61294, u"Symbols"},
      {61295, u"Event"},
      {61300, u"StoreConfig"},
      {61301, u"Change Applied"},
      {61302, u"\n\nSaved"},
      {61303, u"HKEY_LOCAL_MACHINE\\SOFTWARE\\Valtorix\\ZEP\\FontSize"},
      {61304, u"FontSize"},
      {61305, u"HKEY"},
      {61306, u"Symbology"},
      {61307, u"Function"},
      {61308, u"Exit [Esc]          Select [Enter]"},
      {61309, u"   Press arrows to scroll text."},
      {61310, u"Page [Down,Up]      Exit [Esc]"},
      {61311, u"_OnExit"},
      {61312, u"An error occurred.  Change was not saved."},
      {61313, u"KelWrite2Flash.exe"},
      {61314, u"/v"},
      {61316, u"_GetIPAddress"},
      {61317, u"FlagChanges"},
      {61318, u"Unavailable"},
      {61319, u"SubType"},
      {61320, u"Invalid character in hex string"},
      {61321, u"WEP Key must be 5 or 13 characters."},
      {61322, u"Hex32"},
      {61323, u"Pre-shared key must be 64 characters"},
      {61324, u"Pass phrase must be from 8 to 63 characters."},
      {61325, u"WEP key exceeds maximum lenth"},
      {61326, u"_OnError"},
      {61327, u"You must enter a valid WEP key or this setting will remain automatic"},
      {61328, u"Hexadecimal WEP Key must be 10 or 26 characters."},
      {61329, u"Cannot perform range test.  Range table not found."},
      {61330, u"Certificates were successfully imported."},
      {61331, u"Funk"},
      {61332, u"FillOID"},
      {61333, u"\\Windows\\ovu.xml"},
      {61334, u"You must warm-boot the device for this change to take effect\r\nDo you wish to warm-boot now?"},
  };
  // clang-format on
  const auto all = base::AllTexts();
  ASSERT_EQ(std::size(texts), all.size());
  for (std::size_t i = 0; i < all.size(); ++i) {
    EXPECT_EQ(texts[i].id, static_cast<int>(all[i].id));
    EXPECT_EQ(texts[i].text, all[i].text) << texts[i].id;
    EXPECT_EQ(texts[i].text, LoadText(static_cast<TextId>(texts[i].id))) << texts[i].id;
  }
}

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
