#include "simulator/property_tables.h"

#include "tests/platform/temporary_root.h"
#include "tests/printing.h"

namespace {

using Root = tests::TemporaryRoot;

TEST(PropertyTables, TextsAreFoundByTableAndKeyExactly) {
  const Root root;
  root.Write("tables.txt", "# ranges\nRanges\tBaud\t300-115200\nRanges\ta,b\t1\\t2\nRanges\tBaud\t1-2\n");
  simulator::PropertyTables tables;
  EXPECT_EQ("", tables.Read(root.Path() / "tables.txt"));
  EXPECT_EQ(u"1-2", tables.Find(u"Ranges", u"Baud"));
  EXPECT_EQ(u"1\t2", tables.Find(u"Ranges", u"a,b"));
  EXPECT_FALSE(tables.Find(u"ranges", u"Baud"));
  EXPECT_FALSE(tables.Find(u"Ranges", u""));
}

TEST(PropertyTables, AMissingFileHoldsNoTable) {
  simulator::PropertyTables tables;
  EXPECT_EQ("", tables.Read(Root().Path() / "tables.txt"));
  EXPECT_FALSE(tables.Find(u"", u""));
}

TEST(PropertyTables, ABrokenLineIsNamedAndChangesNothing) {
  const Root root;
  root.Write("tables.txt", "T\tk\tx\n");
  root.Write("broken.txt", "T\tk\ty\nT\tk\n");
  simulator::PropertyTables tables;
  ASSERT_EQ("", tables.Read(root.Path() / "tables.txt"));
  EXPECT_EQ((root.Path() / "broken.txt").string() + ":2: a line is table, key and text, separated by tabs",
            tables.Read(root.Path() / "broken.txt"));
  EXPECT_EQ(u"x", tables.Find(u"T", u"k"));
}

}  // namespace
