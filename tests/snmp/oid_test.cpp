#include "snmp/oid.h"

#include "base/utf8.h"
#include "tests/printing.h"

#include <gtest/gtest.h>

namespace {

using snmp::Oid;
using snmp::OidOf;

TEST(SnmpOid, DottedNumbersAreThemselves) {
  EXPECT_EQ((Oid{1, 3, 6, 1, 4, 1, 4242, 10, 1, 1, 0}), OidOf(u"1.3.6.1.4.1.4242.10.1.1.0"));
  EXPECT_EQ((Oid{0, 39, 4294967295}), OidOf(u"0.39.4294967295"));
  EXPECT_EQ((Oid{2, 4294967215}), OidOf(u"2.4294967215"));
}

TEST(SnmpOid, NamesWithBarsStandBelowTheirRootWithTheirLength) {
  EXPECT_EQ((Oid{1, 3, 6, 1, 4, 1, 4242, 20, 1, 3, 'a', '|', 'b'}), OidOf(u"a|b"));
  EXPECT_EQ((Oid{1, 3, 9, 4, 0xC3, 0xBC, '|', '1'}), OidOf(u"ü|1", {1, 3, 9}));
  EXPECT_EQ(snmp::kMaxOidLength, OidOf(u"|" + WideString(117, u'x'))->size());
}

TEST(SnmpOid, AnIdentifierHasTheTextThatItComesFrom) {
  for (const WideStringView text : {u"1.3.6.1.4.1.4242.10.1.1.0", u"0.0", u"cfg|80211PM|ActiveProfile", u"ü|"}) {
    EXPECT_EQ(text, snmp::OidText(*OidOf(text)));
  }
  // Where names stand, but none is: a wrong length, no bar, the root itself.
  const WideString root = u"1.3.6.1.4.1.4242.20.1";
  EXPECT_EQ(root + u".3.97.124", snmp::OidText({1, 3, 6, 1, 4, 1, 4242, 20, 1, 3, 'a', '|'}));
  EXPECT_EQ(root + u".2.97.98", snmp::OidText({1, 3, 6, 1, 4, 1, 4242, 20, 1, 2, 'a', 'b'}));
  EXPECT_EQ(root + u".1.380", snmp::OidText({1, 3, 6, 1, 4, 1, 4242, 20, 1, 1, 256 + '|'}));
  EXPECT_EQ(root, snmp::OidText(snmp::kNamesRoot));
}

TEST(SnmpOid, WhatNoMessageCanNameIsNone) {
  WideString tooLong = u"1.3";
  for (int i = 0; i < 127; ++i) tooLong += u".1";
  const WideString cases[] = {u"",
                              u"1",
                              u".1.3",
                              u"1.3.",
                              u"1..3",
                              u"1.3.01",
                              u"1.3.+1",
                              u"1.3.-1",
                              u"1.3. 1",
                              u"1.3.4294967296",
                              u"1.3.99999999999999999999",
                              u"3.1",
                              u"1.40",
                              u"2.4294967216",
                              u"_GetIPAddress",
                              u"sysName",
                              u"1.3.6.1.4.1.4242.20.1.3.97.124.98",  // where a|b stands
                              u"|" + WideString(118, u'x'),
                              u"a|\xD800",
                              tooLong};
  for (const WideString& text : cases) EXPECT_EQ(std::nullopt, OidOf(text)) << base::ToUtf8(text);
  EXPECT_EQ(snmp::kMaxOidLength, OidOf(WideStringView(tooLong).substr(0, tooLong.size() - 2))->size());
}

}  // namespace
