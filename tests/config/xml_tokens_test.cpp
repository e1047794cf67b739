#include "config/xml_tokens.h"

#include "base/utf8.h"

#include <gtest/gtest.h>

namespace config {
namespace {

TEST(XmlTokens, ANameEqualsATokenThatItBeginsWithAndThenEndsOrGoesOnWithADelimiter) {
  const struct {
    WideStringView token;
    WideStringView name;
    bool equal;
  } cases[] = {
      {u"a", u"a", true},    {u"a", u"a b", true}, {u"a", u"a=1", true}, {u"a", u"a/", true},  {u"a", u"a[", true},
      {u"a", u"ab", false},  {u"ab", u"a", false}, {u"a", u"b", false},  {u"a", u"a>", false}, {u"a", u"a?", false},
      {u"a", u"a\\", false}, {u"", u"a", false},   {u"", u"", true},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(c.equal, XmlTokenEquals(c.token, c.name)) << base::ToUtf8(c.token) << " " << base::ToUtf8(c.name);
  }
}

}  // namespace
}  // namespace config
