#include "config/xml_document.h"

#include "tests/printing.h"

#include <gtest/gtest.h>

namespace config {
namespace {

TEST(XmlDocument, AnEmptyDocumentFails) {
  XmlDocument document;
  EXPECT_FALSE(document.SetDocument(u""));
  EXPECT_EQ(u"Element tag not found", document.Error());
  EXPECT_FALSE(document.FindElement());
  EXPECT_EQ(u"", document.TagName());
  EXPECT_EQ(u"", document.Data());
}

TEST(XmlDocument, ANewDocumentIsWithoutElements) {
  XmlDocument document;
  EXPECT_FALSE(document.FindElement());
  document.GoInto();
  document.GoOutOf();
  EXPECT_FALSE(document.IsAtElement());
  EXPECT_FALSE(document.FindGroup(u"a"));
}

TEST(XmlDocument, TheErrorGoesWithTheNextGoodDocument) {
  XmlDocument document;
  EXPECT_FALSE(document.SetDocument(u"<a></b>"));
  EXPECT_EQ(u"End tag does not correspond to a", document.Error());
  EXPECT_FALSE(document.FindElement());
  EXPECT_TRUE(document.SetDocument(u"<a/>"));
  EXPECT_EQ(u"", document.Error());
  EXPECT_TRUE(document.FindElement(u"a"));
}

TEST(XmlDocument, FindElementGoesThroughALevel) {
  XmlDocument document;
  ASSERT_TRUE(document.SetDocument(u"<r><a>1</a><b>2</b><a>3</a><A>4</A></r>"));
  ASSERT_TRUE(document.FindElement(u"r"));
  document.GoInto();
  EXPECT_FALSE(document.IsAtElement());
  EXPECT_TRUE(document.FindElement(u"a"));
  EXPECT_EQ(u"1", document.Data());
  EXPECT_TRUE(document.FindElement(u"a"));
  EXPECT_EQ(u"3", document.Data());
  EXPECT_FALSE(document.FindElement(u"a"));  // tag names are exact, and the position stays
  EXPECT_EQ(u"3", document.Data());
  EXPECT_TRUE(document.FindElement());
  EXPECT_EQ(u"A", document.TagName());
  document.ResetMainPosition();
  EXPECT_EQ(u"", document.TagName());
  EXPECT_TRUE(document.FindElement());
  EXPECT_EQ(u"1", document.Data());
  EXPECT_TRUE(document.FindElement(u""));  // as without a tag
  EXPECT_EQ(u"b", document.TagName());
}

TEST(XmlDocument, GoingOutComesBackToTheElementThatWasGoneInto) {
  XmlDocument document;
  ASSERT_TRUE(document.SetDocument(u"<r><a><x/></a><b><y/></b></r>"));
  document.GoInto();  // nowhere without a current element
  ASSERT_TRUE(document.FindElement());
  document.GoInto();
  ASSERT_TRUE(document.FindElement(u"a"));
  document.GoInto();
  ASSERT_TRUE(document.FindElement(u"x"));
  document.GoOutOf();
  EXPECT_EQ(u"a", document.TagName());
  EXPECT_TRUE(document.IsAtElement());
  document.GoInto();
  document.GoInto();  // in an element without children
  document.GoInto();
  EXPECT_FALSE(document.IsAtElement());
  EXPECT_FALSE(document.FindElement());
  document.GoOutOf();
  EXPECT_EQ(u"x", document.TagName());
  document.GoOutOf();
  document.GoInto();  // back at the child that it was left at
  EXPECT_EQ(u"x", document.TagName());
  document.GoOutOf();
  EXPECT_TRUE(document.FindElement());
  EXPECT_EQ(u"b", document.TagName());
  document.GoOutOf();
  EXPECT_EQ(u"r", document.TagName());
  document.GoOutOf();  // the top is not left
  EXPECT_EQ(u"r", document.TagName());
}

TEST(XmlDocument, ResettingThePositionGoesToTheTop) {
  XmlDocument document;
  ASSERT_TRUE(document.SetDocument(u"<r><a/></r>"));
  ASSERT_TRUE(document.FindElement());
  document.GoInto();
  ASSERT_TRUE(document.FindElement(u"a"));
  document.ResetPosition();
  EXPECT_FALSE(document.IsAtElement());
  EXPECT_TRUE(document.FindElement(u"r"));
}

TEST(XmlDocument, AttributesAreReadOfACurrentElementOnly) {
  XmlDocument document;
  ASSERT_TRUE(document.SetDocument(u"<r name='a&amp;b'/>"));
  EXPECT_EQ(u"", document.Attribute(u"name"));
  ASSERT_TRUE(document.FindElement());
  EXPECT_EQ(u"a&b", document.Attribute(u"name"));
  EXPECT_EQ(u"", document.Attribute(u"other"));
}

TEST(XmlDocument, FindGroupTriesALaterGroupWhenTheFirstLacksTheRest) {
  XmlDocument document;
  ASSERT_TRUE(
      document.SetDocument(u"<GROUP name='r'><GROUP name='a'><GROUP name='x'/></GROUP>"
                           u"<GROUP name='a'><GROUP name='y'><V>found</V></GROUP></GROUP></GROUP>"));
  ASSERT_TRUE(document.FindGroup(u"r\\a\\y"));
  ASSERT_TRUE(document.FindElement(u"V"));
  EXPECT_EQ(u"found", document.Data());
  EXPECT_TRUE(document.FindGroup(u""));
  EXPECT_TRUE(document.FindGroup(u"r\\"));
  EXPECT_FALSE(document.FindGroup(u"r\\a\\z"));
  EXPECT_TRUE(document.FindElement(u"GROUP"));  // back at the top
  EXPECT_EQ(u"r", document.Attribute(u"name"));
  EXPECT_FALSE(document.FindGroup(u"R"));
  EXPECT_FALSE(document.FindGroup(u"a"));
}

}  // namespace
}  // namespace config
