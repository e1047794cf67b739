#include "model/set_triple.h"

#include "tests/printing.h"

namespace {

TEST(SetTriple, NeedsTwoBarsWithAnOidAndATypeBeforeThem) {
  for (const WideStringView text : {u"", u"1.2", u"1.2|Integer", u"|Integer|1", u"1.2||1", u"||"}) {
    EXPECT_FALSE(model::ParseSetTriple(text)) << base::ToUtf8(text);
  }
}

TEST(SetTriple, TheValueIsAllThatFollowsTheSecondBar) {
  const struct {
    WideStringView text;
    WideStringView value;
  } cases[] = {{u"1.2|Octet String|a", u"a"}, {u"1.2|Octet String|a|b|", u"a|b|"}, {u"1.2|Octet String|", u""}};
  for (const auto& c : cases) {
    const auto triple = model::ParseSetTriple(c.text);
    ASSERT_TRUE(triple);
    EXPECT_EQ(u"1.2", triple->oid);
    EXPECT_EQ(u"Octet String", triple->type);
    EXPECT_EQ(c.value, triple->value);
  }
}

}  // namespace
