#include "values/property_line_text.h"

#include "tests/support/fake_boxes.h"
#include "tests/values/property_fixture.h"

#include <gtest/gtest.h>

namespace values {
namespace {

using tests::Lines;

class Line final : public PropertyLine {
 public:
  explicit Line(PropertyDescriptor* descriptor) : descriptor_(descriptor) {}
  PropertyDescriptor* Descriptor() const override { return descriptor_; }
  void SetLineText(WideString newText) override { text = std::move(newText); }
  WideString text = u"untouched";

 private:
  PropertyDescriptor* descriptor_;
};

class PropertyLineText : public tests::PropertyTest {
 protected:
  // "OID TYPE VALUE (KIND)" of each pending change.
  Lines Pending() const {
    Lines lines;
    for (const PendingChange& change : changes_) {
      lines.push_back(change.oid + u" " + change.type + u" " + change.value.AsText() + u" (" +
                      base::ToText(static_cast<int>(change.kind)) + u")");
    }
    return lines;
  }

  EditState state_;
  ChangeList changes_;
  EventNames events_;
  tests::FakeBoxes boxes_;
  ValueCommitter committer_{descriptors_, boxes_, changes_, events_, state_};
};

TEST_F(PropertyLineText, ALineIsNameAndValue) {
  PropertyDescriptor& property = MakeWithValue(u"Integer", u"5");
  Line line(&property);
  EXPECT_EQ(committer_.UpdatePropertyLine(u"6", false, &line), &property);
  EXPECT_EQ(line.text, u"Thing, <6>");
  EXPECT_FALSE(state_.repaintList);
}

TEST_F(PropertyLineText, ALineThatIsNoPropertyOnlyMarksTheList) {
  Line menu(nullptr);
  EXPECT_EQ(committer_.UpdatePropertyLine(u"6", true, &menu), nullptr);
  EXPECT_EQ(menu.text, u"untouched");
  EXPECT_TRUE(state_.repaintList);
  EXPECT_EQ(committer_.UpdatePropertyLine(u"6", true, nullptr), nullptr);
}

TEST_F(PropertyLineText, SecretsAreMasked) {
  Line password(&MakeWithValue(u"Password", u"x", {{u"PassWordChar", u"*"}}));
  committer_.UpdatePropertyLine(u"abcde", false, &password);
  EXPECT_EQ(password.text, u"Thing, <*****>");
  committer_.UpdatePropertyLine(u"", false, &password);
  EXPECT_EQ(password.text, u"Thing, <>");
  Line key(&MakeWithValue(u"Hex", u"x", {{u"WEP", u"Key is set"}}));
  committer_.UpdatePropertyLine(u"abcde", false, &key);
  EXPECT_EQ(key.text, u"Thing, <Key is set>");
}

TEST_F(PropertyLineText, TheKindOfAKeyFollowsItsAttributes) {
  const struct {
    const char16_t* wep;
    const char16_t* type;
    const char16_t* subType;
    int kind;
  } cases[] = {
      {u"", u"Hex", u"Funk", 0}, {u"", u"Hex32", u"", 0},         {u"x", u"Hex", u"Funk", 2},
      {u"x", u"Hex", u"", 0},    {u"x", u"Hex32", u"Funk", 3},    {u"x", u"Hex32", u"funk", 1},
      {u"x", u"Hex32", u"", 1},  {u"x", u"Password", u"Funk", 0}, {u"x", u"hex", u"Funk", 0},
  };
  for (const auto& c : cases) {
    const PropertyDescriptor& property = MakeWithValue(c.type, u"1", {{u"WEP", c.wep}, {u"SubType", c.subType}});
    EXPECT_EQ(static_cast<int>(GetKeyKind(property, c.type)), c.kind)
        << base::ToUtf8(c.wep) << " " << base::ToUtf8(c.type) << " " << base::ToUtf8(c.subType);
  }
}

TEST_F(PropertyLineText, TheKindOfAKeyMayBeAskedForAnotherType) {
  const PropertyDescriptor& property = MakeWithValue(u"Hex32", u"1", {{u"WEP", u"x"}});
  EXPECT_EQ(GetKeyKind(property, u"Hex"), KeyKind::kWepKey);
  EXPECT_EQ(GetKeyKind(property, u"Hex32"), KeyKind::kPreSharedKey);
}

TEST_F(PropertyLineText, AChoiceTextBecomesItsKey) {
  PropertyValue value;
  const tests::KeyValues choices = {{u"ChoiceFmt", u"1#Open|2#Shared|3#Open"}};
  EXPECT_TRUE(ChoiceTextToValue(MakeWithValue(u"Integer", u"2", choices), u"Open", value));
  EXPECT_EQ(value, PropertyValue::OfInteger(1));
  EXPECT_TRUE(ChoiceTextToValue(MakeWithValue(u"Octet String", u"2", choices), u"Shared", value));
  EXPECT_EQ(value, PropertyValue::OfText(u"2"));
}

TEST_F(PropertyLineText, AnUnknownChoiceTextLeavesTheValue) {
  PropertyValue value = PropertyValue::OfInteger(7);
  const tests::KeyValues choices = {{u"ChoiceFmt", u"1#Open"}};
  EXPECT_FALSE(ChoiceTextToValue(MakeWithValue(u"Integer", u"1", choices), u"open", value));
  EXPECT_FALSE(ChoiceTextToValue(MakeWithValue(u"Octet String", u"1", choices), u"open", value));
  EXPECT_FALSE(ChoiceTextToValue(MakeWithValue(u"Integer", u"1"), u"Open", value));
  EXPECT_EQ(value, PropertyValue::OfInteger(7));
}

TEST_F(PropertyLineText, ACommittedValueIsHeldAndPending) {
  PropertyDescriptor& property = MakeWithValue(u"Integer", u"5", {{u"Range", u"1,99"}, {u"Event", u"Changed"}});
  Line line(&property);
  EXPECT_TRUE(committer_.CommitEditedValue(&line, u"50", EntryMode::kTyped));
  EXPECT_EQ(property.GetValue(), PropertyValue::OfInteger(50));
  EXPECT_TRUE(property.IsChanged());
  EXPECT_EQ(Pending(), (Lines{u"1.2.3 Integer 50 (0)"}));
  EXPECT_EQ(events_.Names(), (Lines{u"Changed"}));
  EXPECT_EQ(state_.firstEdited, &property);
  EXPECT_EQ(state_.edited, PropertyValue::OfInteger(50));
  EXPECT_EQ(line.text, u"untouched");
  EXPECT_EQ(device_.TextOf(u"1.2.3"), u"5");
}

TEST_F(PropertyLineText, AValueOutOfRangeIsExplainedAndNotRecorded) {
  PropertyDescriptor& property = MakeWithValue(u"Integer", u"5", {{u"Range", u"1,99"}});
  Line line(&property);
  EXPECT_FALSE(committer_.CommitEditedValue(&line, u"100", EntryMode::kTyped));
  EXPECT_EQ(boxes_.TakeShown(), (Lines{u"Error: Value 100 is out of range {1,99} [1]"}));
  EXPECT_EQ(property.GetValue(), PropertyValue::OfInteger(5));
  EXPECT_FALSE(property.IsChanged());
  EXPECT_EQ(Pending(), Lines());
}

TEST_F(PropertyLineText, WhileTheScreenIsBusyNothingIsCommitted) {
  Line line(&MakeWithValue(u"Integer", u"5", {{u"ChoiceFmt", u"1#A"}}));
  state_.busy = true;
  EXPECT_TRUE(committer_.CommitEditedValue(&line, u"6", EntryMode::kTyped));
  committer_.CommitValueNoRangeTest(&line, u"6", EntryMode::kTyped);
  committer_.SaveChoiceByIndex(&line, 0);
  EXPECT_EQ(Pending(), Lines());
  EXPECT_EQ(state_.firstEdited, nullptr);
  EXPECT_EQ(line.text, u"untouched");
}

TEST_F(PropertyLineText, TheFirstEditedPropertyIsRemembered) {
  PropertyDescriptor& first = MakeWithValue(u"Integer", u"5");
  PropertyDescriptor& second = MakeWithValue(u"Integer", u"5");
  Line firstLine(&first);
  Line secondLine(&second);
  committer_.CommitEditedValue(&firstLine, u"6", EntryMode::kTyped);
  committer_.CommitEditedValue(&secondLine, u"7", EntryMode::kTyped);
  EXPECT_EQ(state_.firstEdited, &first);
}

TEST_F(PropertyLineText, AChoiceIsCommittedByItsText) {
  Line line(&MakeWithValue(u"Integer", u"1", {{u"ChoiceFmt", u"1#Open|2#Shared"}}));
  EXPECT_TRUE(committer_.CommitEditedValue(&line, u"Shared", EntryMode::kChoice));
  EXPECT_EQ(Pending(), (Lines{u"1.2.3 Integer 2 (0)"}));
}

TEST_F(PropertyLineText, AnUnknownChoiceIsNotCommitted) {
  PropertyDescriptor& property = MakeWithValue(u"Integer", u"1", {{u"ChoiceFmt", u"1#Open|2#Shared"}});
  Line line(&property);
  EXPECT_FALSE(committer_.CommitEditedValue(&line, u"Closed", EntryMode::kChoice));
  EXPECT_EQ(Pending(), Lines());
  EXPECT_EQ(property.GetValue(), PropertyValue::OfInteger(1));
}

TEST_F(PropertyLineText, AnEmptiedFieldIsCommittedAsTheEmptyText) {
  PropertyDescriptor& property = MakeWithValue(u"Octet String", u"before");
  Line line(&property);
  EXPECT_TRUE(committer_.CommitEditedValue(&line, u"", EntryMode::kTyped));
  EXPECT_EQ(Pending(), (Lines{u"1.2.3 Octet String  (0)"}));
  EXPECT_EQ(property.GetValue().AsText(), u"");
}

TEST_F(PropertyLineText, AFlagsTextsAreCommittedAsOneAndZero) {
  Line line(&MakeWithValue(u"Bool", u"1"));
  committer_.CommitEditedValue(&line, u"FALSE", EntryMode::kTyped);
  committer_.CommitEditedValue(&line, u"TRUE", EntryMode::kTyped);
  EXPECT_EQ(Pending(), (Lines{u"1.2.3 Bool 0 (0)", u"1.2.3 Bool 1 (0)"}));
}

TEST_F(PropertyLineText, AnAddressIsPendingAsItsNumber) {
  Line line(&MakeWithValue(u"IP Address", u"1.2.3.4"));
  committer_.CommitEditedValue(&line, u"192.168.0.1", EntryMode::kTyped);
  EXPECT_EQ(Pending(), (Lines{u"1.2.3 IP Address -1062731775 (0)"}));
}

TEST_F(PropertyLineText, AWirelessKeyCarriesItsKind) {
  Line line(&MakeWithValue(u"Hex32", u"x", {{u"WEP", u"Set"}}));
  committer_.CommitEditedValue(&line, u"passphrase", EntryMode::kTyped);
  EXPECT_EQ(Pending(), (Lines{u"1.2.3 Hex32 passphrase (1)"}));
}

TEST_F(PropertyLineText, WithoutARangeTestTheLineIsRewrittenToo) {
  Line line(&MakeWithValue(u"Integer", u"5", {{u"Range", u"1,99"}}));
  committer_.CommitValueNoRangeTest(&line, u"100", EntryMode::kTyped);
  EXPECT_EQ(line.text, u"Thing, <100>");
  EXPECT_TRUE(state_.repaintList);
  EXPECT_EQ(Pending(), (Lines{u"1.2.3 Integer 100 (0)"}));
  EXPECT_EQ(boxes_.TakeShown(), Lines());
}

TEST_F(PropertyLineText, AChoiceIsSavedByItsPlaceInTheList) {
  Line line(&MakeWithValue(u"Integer", u"1", {{u"ChoiceFmt", u"1#Open|2#Shared"}}));
  committer_.SaveChoiceByIndex(&line, 1);
  EXPECT_EQ(line.text, u"Thing, <Shared>");
  EXPECT_EQ(Pending(), (Lines{u"1.2.3 Integer 2 (0)"}));
  committer_.SaveChoiceByIndex(&line, 2);
  EXPECT_EQ(Pending().size(), 1u);
}

TEST_F(PropertyLineText, AChoiceSavedByItsPlaceStoresTheNumberOfItsKeyForTextsToo) {
  PropertyDescriptor& property = MakeWithValue(u"Octet String", u"b", {{u"ChoiceFmt", u"a#Open|02#Shared"}});
  Line line(&property);
  committer_.SaveChoiceByIndex(&line, 1);
  EXPECT_EQ(line.text, u"Thing, <Shared>");
  EXPECT_EQ(property.GetValue(), PropertyValue::OfInteger(2));
  committer_.SaveChoiceByIndex(&line, 0);
  EXPECT_EQ(Pending(), (Lines{u"1.2.3 Octet String 2 (0)", u"1.2.3 Octet String 0 (0)"}));
}

TEST_F(PropertyLineText, WithoutAPropertyNothingIsCommitted) {
  Line menu(nullptr);
  EXPECT_FALSE(committer_.CommitEditedValue(&menu, u"6", EntryMode::kTyped));
  EXPECT_FALSE(committer_.CommitEditedValue(nullptr, u"6", EntryMode::kTyped));
  committer_.CommitValueNoRangeTest(&menu, u"6", EntryMode::kTyped);
  committer_.SaveChoiceByIndex(nullptr, 0);
  EXPECT_EQ(Pending(), Lines());
}

TEST_F(PropertyLineText, AFieldIsSentAsItsWholeCommand) {
  device_.Put(u"5.1", u"0102");
  PropertyDescriptor& command = Make({{u"OID", u"5.1"}, {u"Type", u"ReaderCmd"}, {u"CmdString", u"2,2,2"}});
  PropertyDescriptor& field =
      Make({{u"CmdOID", u"5.1:2"}, {u"Ordinal", u"2"}, {u"Type", u"Integer"}, {u"Event", u"Scanner"}});
  Line line(&field);
  EXPECT_TRUE(committer_.CommitEditedValue(&line, u"7", EntryMode::kTyped));
  EXPECT_EQ(Pending(), (Lines{u"5.1 ReaderCmd 0107 (0)"}));
  EXPECT_EQ(field.GetValue(), PropertyValue::OfInteger(7));
  EXPECT_EQ(command.GetValue(), PropertyValue::OfText(u"0107"));
  EXPECT_TRUE(command.IsChanged());
  EXPECT_EQ(events_.Names(), (Lines{u"Scanner"}));
}

TEST_F(PropertyLineText, AFieldOutsideTheLayoutSendsItsCommandAsItIs) {
  device_.Put(u"5.1", u"0102");
  Make({{u"OID", u"5.1"}, {u"Type", u"ReaderCmd"}, {u"CmdString", u"2,2,2"}});
  Line line(&Make({{u"CmdOID", u"5.1:3"}, {u"Ordinal", u"2"}, {u"Type", u"Integer"}}));
  EXPECT_TRUE(committer_.CommitEditedValue(&line, u"7", EntryMode::kTyped));
  EXPECT_EQ(Pending(), (Lines{u"5.1 ReaderCmd 0102 (0)"}));
}

TEST_F(PropertyLineText, AFieldWithoutItsCommandIsNotSent) {
  Line line(&Make({{u"CmdOID", u"5.1:2"}, {u"Ordinal", u"2"}, {u"Type", u"Integer"}}));
  EXPECT_TRUE(committer_.CommitEditedValue(&line, u"7", EntryMode::kTyped));
  EXPECT_EQ(Pending(), Lines());
}

}  // namespace
}  // namespace values
