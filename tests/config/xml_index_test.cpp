#include "config/xml_index.h"

#include "base/utf8.h"
#include "config/unit_mask.h"
#include "config/xml_document.h"
#include "tests/printing.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace config {
namespace {

XmlIndex Parsed(WideStringView text) {
  XmlIndex index;
  EXPECT_TRUE(index.Parse(SharedText(text))) << base::ToUtf8(text) << ": " << base::ToUtf8(index.Error());
  return index;
}

WideString ErrorOf(WideStringView text) {
  XmlIndex index;
  EXPECT_FALSE(index.Parse(SharedText(text))) << base::ToUtf8(text);
  EXPECT_EQ(1u, index.Count()) << base::ToUtf8(text);  // the document's own element and nothing else
  return index.Error();
}

// The tree of tags with what each element holds: "a(b='1' c())".
WideString Dump(const XmlIndex& index, std::uint32_t parent = XmlIndex::kDocument) {
  WideString dump;
  for (std::uint32_t e = index[parent].firstChildIndex; e != 0; e = index[e].nextSiblingIndex) {
    if (!dump.empty()) dump += u' ';
    dump += index.TagName(e);
    const WideString data = index.Data(e).Decoded();
    if (!data.empty()) dump += u"='" + data + u"'";
    const WideString inside = Dump(index, e);
    if (!inside.empty()) dump += u"(" + inside + u")";
    EXPECT_EQ(parent, index[e].parentIndex);
  }
  return dump;
}

TEST(XmlScan, EveryErrorHasItsText) {
  const struct {
    const char16_t* text;
    const char16_t* error;
  } cases[] = {
      {u"", u"Element tag not found"},
      {u"no tag at all", u"Element tag not found"},
      {u"<!-- only a comment -->", u"Element tag not found"},
      {u"<?xml version=\"1.0\"?>", u"Element tag not found"},
      {u"<!DOCTYPE a>", u"Element tag not found"},
      {u"<a>text", u"Element tag not found"},
      {u"<a><b></b>", u"Element tag not found"},
      {u"<", u"Abrupt end within tag"},
      {u"<a>< \t\r\n", u"Abrupt end within tag"},
      {u"<\"a\">", u"Tag starts with quote"},
      {u"<'a'>", u"Tag starts with quote"},
      {u"<a>< \"b\"></a>", u"Tag starts with quote"},
      {u"<!-- not closed", u"Invalid node"},
      {u"<!--->", u"Invalid node"},
      {u"<?xml version=\"1.0\">", u"Invalid node"},
      {u"<a><![CDATA[x]]</a>", u"Invalid node"},
      {u"<!DOCTYPE a [ <!ELEMENT a ANY> >", u"Invalid node"},
      {u"<!DOCTYPE a \"not closed>", u"Invalid node"},
      {u"<a", u"End of tag not found"},
      {u"<a name=\"x\"", u"End of tag not found"},
      {u"<a></b>", u"End tag does not correspond to a"},
      {u"<a></A>", u"End tag does not correspond to a"},
      {u"<a></ab>", u"End tag does not correspond to a"},
      {u"<ab></a>", u"End tag does not correspond to ab"},
      {u"<Outer><Inner name=\"x\"></Outer></Inner>", u"End tag does not correspond to Inner"},
      {u"<a></b", u"End tag does not correspond to a"},
      {u"<a></a", u"End tag not completed for element a"},
      {u"<a></", u"End tag not completed for element a"},
      {u"<a></>", u"End tag not completed for element a"},
      {u"<a></ >", u"End tag not completed for element a"},
      {u"<a></a \">", u"End tag not completed for element a"},
      {u"</a>", u""},  // an end tag alone is no element, and no error of the parser's own
      {u" \n<!-- x --></a><a/>", u""},
  };
  for (const auto& c : cases) EXPECT_EQ(c.error, ErrorOf(c.text)) << base::ToUtf8(c.text);
}

TEST(XmlScan, ARefusalSaysWhereAndInWhichElement) {
  const struct {
    const char16_t* text;
    const char16_t* refusal;
  } cases[] = {
      {u"", u"1:1 Element tag not found"},
      {u"\uFEFFtext\n<!-- x -->\n ", u"3:2 Element tag not found"},
      {u"<a>\n  <b>text\n", u"3:1 Element tag not found (inside b, which begins at 2:3)"},
      {u"<a>\n<b/> < ", u"2:6 Abrupt end within tag (inside a, which begins at 1:1)"},
      {u"\n\"x\" <\"a\">", u"2:5 Tag starts with quote"},
      {u"<a>\r\n\r\n\t<!-- </a>", u"3:2 Invalid node (inside a, which begins at 1:1)"},
      {u"<a><b/><c name='x'", u"1:8 End of tag not found (inside a, which begins at 1:1)"},
      {u"<a>\n<b>\U0001F600\u00E4</c></a>", u"2:6 End tag does not correspond to b (inside b, which begins at 2:1)"},
      {u"<a>x</a", u"1:5 End tag not completed for element a (inside a, which begins at 1:1)"},
      {u"<a>x\n< / a", u"2:1 End tag not completed for element a (inside a, which begins at 1:1)"},
      {u" </a>", u"1:2 Begins with an end tag"},
  };
  for (const auto& c : cases) {
    XmlIndex index;
    ASSERT_FALSE(index.Parse(SharedText(c.text))) << base::ToUtf8(c.text);
    EXPECT_EQ(c.refusal, TextOf(index.Refusal().place) + u" " + index.Refusal().reason) << base::ToUtf8(c.text);
  }
}

TEST(XmlScan, ElementsAreFoundWithTheirPlaces) {
  const XmlIndex index = Parsed(u"  <a><b x='1'>text</b ><c/></a>tail");
  ASSERT_EQ(4u, index.Count());
  EXPECT_EQ(u"a(b='text' c)", Dump(index));
  const XmlElement& b = index[2];
  EXPECT_EQ(5u, b.startTagStart);
  EXPECT_EQ(13u, b.startTagEnd);
  EXPECT_EQ(18u, b.endTagStart);
  EXPECT_EQ(22u, b.endTagEnd);
  const XmlElement& c = index[3];
  EXPECT_EQ(25u, c.endTagStart);  // its "/"
  EXPECT_EQ(26u, c.endTagEnd);
  EXPECT_EQ(30u, index[1].endTagEnd);
}

TEST(XmlScan, UnusualTagsThatAreAllRight) {
  const struct {
    const char16_t* text;
    const char16_t* dump;
  } cases[] = {
      {u"< a ></ a >", u"a"},
      {u"<\n a\n><b\t/></\ta\n>", u"a(b)"},
      {u"<a></a more \"to > come\" here>", u"a"},
      {u"<a></\"a\">", u"a"},
      {u"<a[b></a>", u"a[b"},  // a token equals a name that goes on with "["
      {u"<a \"></a \"'>\">", u"a"},
      {u"<a b='/'>x</a>", u"a='x'"},
      {u"<a b=/>", u"a"},
      {u"<a b='>'>x</a>", u"a=''>x'"},  // a tag ends at its first ">"
      {u"<a b='<'>x</a>", u"a='x'"},
      {u"<a<b>x</a<b>", u"a='x'"},
      {u"<a><<></<></a>", u"a(<)"},  // odd, but formed by the rules
      {u"<a>1 > 0</a>", u"a='1 > 0'"},
      {u"<a-name-of-more-than-sixteen>x</a-name-of-more-than-sixteen>", u"a-name-of-more-than-sixteen='x'"},
      {u"<name.with-unusual_units>x</name.with-unusual_units>", u"name.with-unusual_units='x'"},
      {u"<\u00FC\u4E2D>x</\u00FC\u4E2D>", u"\u00FC\u4E2D='x'"},
      {u"<sixteen_units_16>x</sixteen_units_16>", u"sixteen_units_16='x'"},
      {u"<fifteen_units15>x</fifteen_units15>", u"fifteen_units15='x'"},
      {u"<a/>", u"a"},
      {u"<a/ ></a>", u"a"},
      {u"<GROUP name=\"x\">y</GROUP>", u"GROUP='y'"},
      {u"<GROUP n=\"\">y</GROUP>", u"GROUP='y'"},
  };
  for (const auto& c : cases) EXPECT_EQ(c.dump, Dump(Parsed(c.text))) << base::ToUtf8(c.text);
}

TEST(XmlScan, NodesThatAreNoElementsAreSkipped) {
  const struct {
    const char16_t* text;
    const char16_t* dump;
  } cases[] = {
      {u"<?xml version='1.0'?><!-- </a> --><a/>", u"a"},
      {u"<?p a > b ?><a/>", u"a"},
      {u"<!DOCTYPE a><a/>", u"a"},
      {u"<!DOCTYPE a SYSTEM \"x>y\" 'z>'><a/>", u"a"},
      {u"<!DOCTYPE a [ <!ENTITY e \"]>\"> <!ELEMENT a ANY> ] ><a/>", u"a"},
      {u"<!DOCTYPE a [ <!-- don't --> <?p it's ?> ]><a/>", u"a"},
      {u"<!DOCTYPE a [ <![INCLUDE[ <!ELEMENT a ANY> ]]> ]><a/>", u"a"},
      {u"< !-- x --><a/>", u"a"},
      {u"<a><!-- <b> --><c/><!-- x --></a>", u"a(c)"},
      {u"<a><!-- before the end tag --></a>", u"a='<!-- before the end tag -->'"},
      {u"<a><!----></a>", u"a='<!---->'"},
      {u"<a><b/><!-- --><?x?><![CDATA[</a>]]></a>", u"a(b)"},
      {u"<a><!-- one --><!-- two --><b/><!-- three --><b/></a>", u"a(b b)"},
      {u"<a><![CDATA[ ]] ]>]]></a>", u"a=' ]] ]>'"},
  };
  for (const auto& c : cases) EXPECT_EQ(c.dump, Dump(Parsed(c.text))) << base::ToUtf8(c.text);
}

TEST(XmlScan, OnlyTheFirstElementOfTheTopLevelIsRead) {
  EXPECT_EQ(u"a", Dump(Parsed(u"<a></a><b></c> < \" <!--")));
  EXPECT_EQ(u"a", Dump(Parsed(u"<a/></a>")));
}

TEST(XmlScan, EveryStartOfADocumentIsRefusedUntilItIsWhole) {
  const WideString text =
      u"<?xml version=\"1.0\"?><!DOCTYPE GROUP [ <!ELEMENT a (b)> ]>\n<GROUP name=\"Root &amp; all\">\n"
      u"  <!-- a comment -->\n  <DisplayName>Main &lt;Menu&gt;</DisplayName>\n"
      u"  <GROUP name='Sub'><OID>1.2.3</OID><Text> <![CDATA[</OID>]]> </Text><Empty/></GROUP>\n</GROUP>";
  for (std::size_t length = 0; length < text.size(); ++length) {
    XmlIndex index;
    EXPECT_FALSE(index.Parse(SharedText(WideStringView(text).substr(0, length)))) << length;
    EXPECT_FALSE(index.Error().empty()) << length;
  }
  EXPECT_EQ(u"GROUP(DisplayName='Main <Menu>' GROUP(OID='1.2.3' Text='</OID>' Empty))", Dump(Parsed(text)));
}

TEST(XmlScan, DepthIsNoMatterOfTheStack) {
  constexpr std::size_t kDepth = 1000000;
  WideString text;
  for (std::size_t i = 0; i < kDepth; ++i) text += u"<a>";
  EXPECT_EQ(u"Element tag not found", ErrorOf(text));
  for (std::size_t i = 0; i < kDepth; ++i) text += u"</a>";
  const XmlIndex index = Parsed(text);
  EXPECT_EQ(kDepth + 1, index.Count());
  EXPECT_EQ(kDepth - 1, index[kDepth].parentIndex);
}

// Tags at all places of the blocks that the scan looks at at once.
TEST(XmlScan, TheScanFindsTagsAtAllPlaces) {
  for (std::size_t blanks = 0; blanks < 200; ++blanks) {
    const WideString space(blanks, u' ');
    const WideString text = space + u"<a>" + space + u"<b>" + space + u"</b><c>x</c>" + space + u"</a>";
    const XmlIndex index = Parsed(text);
    ASSERT_EQ(4u, index.Count()) << blanks;
    EXPECT_EQ(blanks, index[1].startTagStart);
    EXPECT_EQ(space, index.Data(2).raw);
    EXPECT_EQ(text.size() - 1, index[1].endTagEnd);
  }
}

TEST(UnitMask, TellsTheUnitsThatPassTheTest) {
  std::mt19937 random(1);
  const auto test = [](UnitVector v) -> UnitVector { return v == SpreadUnit(u'<'); };
  for (int round = 0; round < 2000; ++round) {
    char16_t units[16];
    std::uint64_t expected = 0;
    for (std::size_t i = 0; i < 16; ++i) {
      units[i] = random() % 3 == 0 ? u'<' : static_cast<char16_t>(random());
      if (units[i] == u'<') expected |= std::uint64_t{1} << i;
    }
    ASSERT_EQ(expected, UnitMask16(units, test));
  }
}

TEST(XmlIndex, AttributesOfAStartTag) {
  const struct {
    const char16_t* tag;
    const char16_t* name;
    const char16_t* value;
  } cases[] = {
      {u"<GROUP name=\"Network\">", u"name", u"Network"},
      {u"<GROUP name='Network'>", u"name", u"Network"},
      {u"<GROUP name = \"Network\" >", u"name", u"Network"},
      {u"<GROUP\n\tname=\"Network\"\r\n>", u"name", u"Network"},
      {u"<GROUP a=\"1\" name=\"2\" b=\"3\">", u"name", u"2"},
      {u"<GROUP name=\"1\" name=\"2\">", u"name", u"1"},
      {u"<GROUP name=plain>", u"name", u"plain"},
      {u"<GROUP name=\"\">", u"name", u""},
      {u"<GROUP>", u"name", u""},
      {u"<GROUP Name=\"x\">", u"name", u""},
      {u"<GROUP names=\"x\">", u"name", u""},
      {u"<GROUP nam=\"x\">", u"name", u""},
      {u"<GROUP name>", u"name", u""},
      {u"<GROUP name name=\"x\">", u"name", u"x"},
      {u"<GROUP other=\"name\" name=\"x\">", u"name", u"x"},
      {u"<GROUP other=name name=\"x\">", u"name", u"x"},
      {u"<GROUP \"name\"=\"y\" name=\"x\">", u"name", u"x"},
      {u"<name other=\"x\">", u"name", u""},
      {u"<GROUP name=\"a &lt;&amp;&gt; &quot;b&quot; &apos;\">", u"name", u"a <&> \"b\" '"},
      {u"<GROUP name=\"a\\b\">", u"name", u"a\\b"},
      {u"<GROUP name=\"not closed>", u"name", u"not closed"},
      {u"<GROUP name=>", u"name", u""},
  };
  for (const auto& c : cases) {
    const WideString text = WideString(c.tag) + u">x</" + (c.tag[1] == u'n' ? u"name>" : u"GROUP>");
    EXPECT_EQ(c.value, Parsed(text).Attribute(1, c.name).Decoded()) << base::ToUtf8(text);
  }
}

TEST(XmlIndex, DataOfAnElement) {
  const struct {
    const char16_t* content;
    const char16_t* data;
  } cases[] = {
      {u"", u""},
      {u" text ", u" text "},
      {u"&lt;&gt;&amp;&quot;&apos;", u"<>&\"'"},
      {u"&amp;lt;", u"&lt;"},                      // decoded once
      {u"&unknown; & &l &", u"&unknown; & &l &"},  // left as it stands
      {u"a line that is long enough for the search to take two steps &amp; more",
       u"a line that is long enough for the search to take two steps & more"},
      {u"<![CDATA[a &lt; b <c>]]>", u"a &lt; b <c>"},
      {u" \t\r\n<![CDATA[x]]> behind", u"x"},
      {u"<![CDATA[]]>", u""},
      {u"<![CDATA[x]]><![CDATA[y]]>", u"x"},
      {u"before <![CDATA[x]]>", u"before <![CDATA[x]]>"},
      {u"<!-- c -->text", u"<!-- c -->text"},
      {u"<b/>text", u""},
      {u"text<b>x</b>", u""},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(c.data, Parsed(WideString(u"<a>") + c.content + u"</a>").Data(1).Decoded()) << base::ToUtf8(c.content);
  }
  EXPECT_EQ(u"", Parsed(u"<a/>").Data(1).Decoded());
  EXPECT_EQ(u"", Parsed(u"<a x='1'/>").Data(1).Decoded());
}

TEST(XmlIndex, TheDocumentItselfHasNeitherNameNorTexts) {
  const XmlIndex index = Parsed(u"<a name='x'>y</a>");
  EXPECT_EQ(u"", index.TagName(XmlIndex::kDocument));
  EXPECT_EQ(u"", index.Attribute(XmlIndex::kDocument, u"name").raw);
  EXPECT_EQ(u"", index.Data(XmlIndex::kDocument).raw);
}

}  // namespace
}  // namespace config
