#include "values/attributes.h"

#include "tests/printing.h"
#include "tests/support/test_terminal.h"
#include "tests/support/trees.h"

#include <gtest/gtest.h>

namespace values {
namespace {

using Lines = std::vector<WideString>;
using Stage = platform::TableAnswer::Stage;

class Attributes : public testing::Test {
 protected:
  WideString Resolved(WideStringView text) {
    AttributeMap attributes;
    attributes.Set(TextId::kRange, WideString(text));
    return ResolveAttribute(attributes, TextId::kRange);
  }

  tests::TestTerminal terminal_;
};

TEST_F(Attributes, NamesAreExactAndAnEmptyTextCountsAsNotSet) {
  AttributeMap attributes;
  attributes.Set(u"Type", u"Integer");
  attributes.Set(u"Range", u"");
  EXPECT_EQ(attributes.Get(TextId::kType), u"Integer");
  EXPECT_EQ(attributes.Get(u"type"), u"");
  EXPECT_TRUE(attributes.Has(TextId::kType));
  EXPECT_FALSE(attributes.Has(TextId::kRange));
  EXPECT_FALSE(attributes.Has(TextId::kOid));
  attributes.Set(u"Type", u"Bool");
  EXPECT_EQ(attributes.Get(TextId::kType), u"Bool");
}

TEST_F(Attributes, WhatIsSetStandsInsteadOfWhatTheKeySays) {
  const auto tree = tests::TreeOf("<GROUP name='R'><Type>Integer</Type><Range>1,9</Range></GROUP>");
  const config::ConfigKey* const key = tree->Find(u"R");
  AttributeMap attributes(key);
  EXPECT_EQ(attributes.Get(TextId::kType).data(), key->Value(TextId::kType).data());
  attributes.Set(TextId::kType, u"Bool");
  attributes.Set(TextId::kRange, u"");
  EXPECT_EQ(attributes.Get(TextId::kType), u"Bool");
  EXPECT_FALSE(attributes.Has(TextId::kRange));
  EXPECT_EQ(key->Value(TextId::kType), u"Integer");
}

TEST_F(Attributes, WhatIsNotSetResolvesToNothing) { EXPECT_EQ(ResolveAttribute(AttributeMap(), TextId::kRange), u""); }

TEST_F(Attributes, OnlyAnExactTableBeforeACommaIsIndirect) {
  for (const WideStringView text : {u"1,99", u"Table", u"table,a,b", u"Tables,a,b", u" Table,a,b", u""}) {
    EXPECT_EQ(Resolved(text), text);
  }
}

TEST_F(Attributes, AnIndirectOneIsLookedUpByTableAndKey) {
  terminal_.PutTable(u"Ranges", u"Volume", u"0-10");
  EXPECT_EQ(Resolved(u"Table,Ranges,Volume"), u"0-10");
}

TEST_F(Attributes, AKeyMayHoldFurtherCommas) {
  terminal_.PutTable(u"Ranges", u"a,b,c", u"1");
  EXPECT_EQ(Resolved(u"Table,Ranges,a,b,c"), u"1");
}

TEST_F(Attributes, ATableWithoutAKeyIsAskedForTheEmptyKey) {
  terminal_.PutTable(u"Ranges", u"", u"7");
  EXPECT_EQ(Resolved(u"Table,Ranges"), u"7");
  EXPECT_EQ(Resolved(u"Table,Ranges,"), u"7");
}

TEST_F(Attributes, AFailedOrEmptyAnswerIsAnErrorWithoutADebugLine) {
  terminal_.PutTable(u"Ranges", u"Empty", u"");
  EXPECT_EQ(Resolved(u"Table,Ranges,Empty"), u"Error");
  EXPECT_EQ(Resolved(u"Table,Ranges,Missing"), u"Error");
  EXPECT_EQ(Resolved(u"Table,"), u"Error");
  EXPECT_EQ(terminal_.TakeDebugLines(), Lines());
}

TEST_F(Attributes, AMissingServerIsAnErrorWithADebugLine) {
  terminal_.serverStage = Stage::kNoServer;
  terminal_.serverResult = static_cast<platform::ResultCode>(0x800401F3);
  EXPECT_EQ(Resolved(u"Table,Ranges,Volume"), u"Error");
  EXPECT_EQ(terminal_.TakeDebugLines(), (Lines{u"CLSIDFromProgID returned 0x800401F3.\r\n"}));
}

TEST_F(Attributes, AServerThatDoesNotStartIsAnErrorWithADebugLine) {
  terminal_.serverStage = Stage::kNotCreated;
  terminal_.serverResult = static_cast<platform::ResultCode>(0x80040154);
  EXPECT_EQ(Resolved(u"Table,Ranges,Volume"), u"Error");
  EXPECT_EQ(terminal_.TakeDebugLines(), (Lines{u"CreateInstance returned 0x80040154.\r\n"}));
}

}  // namespace
}  // namespace values
