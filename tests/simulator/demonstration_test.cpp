#include "simulator/demonstration.h"

#include "tests/platform/temporary_root.h"

#include <cstdlib>

namespace {

namespace fs = std::filesystem;
using Root = tests::TemporaryRoot;

TEST(Demonstration, IsCopiedOnFirstUseAndThenKept) {
  const Root original;
  original.Write("Windows/ovu.xml", "first");
  fs::permissions(original.Path() / "Windows/ovu.xml", fs::perms::owner_read | fs::perms::others_read);
  const Root home;
  const fs::path copy = home.Path() / "state/kelterm/terminal";
  EXPECT_EQ("", simulator::ProvideDemonstration(original.Path(), copy));
  EXPECT_EQ("first", home.Read("state/kelterm/terminal/Windows/ovu.xml"));
  EXPECT_EQ(fs::perms::owner_read | fs::perms::owner_write, fs::status(copy / "Windows/ovu.xml").permissions());
  EXPECT_EQ(fs::perms::owner_all, fs::status(copy).permissions());
  home.Write("state/kelterm/terminal/Windows/ovu.xml", "changed");
  EXPECT_EQ("", simulator::ProvideDemonstration(original.Path(), copy));
  EXPECT_EQ("changed", home.Read("state/kelterm/terminal/Windows/ovu.xml"));
}

TEST(Demonstration, ResetPutsTheOriginalInPlaceOfWhatIsThere) {
  const Root original;
  original.Write("device.txt", "1\tInteger\t1\n");
  const Root home;
  home.Write("terminal/device.txt", "changed");
  home.Write("terminal/extra.txt", "x");
  home.Write("terminal.new/half", "left by an interrupted copy");
  EXPECT_EQ("", simulator::ResetDemonstration(original.Path(), home.Path() / "terminal"));
  EXPECT_EQ("1\tInteger\t1\n", home.Read("terminal/device.txt"));
  EXPECT_FALSE(home.Has("terminal/extra.txt"));
  EXPECT_FALSE(home.Has("terminal/half"));
  EXPECT_FALSE(home.Has("terminal.new"));
  EXPECT_FALSE(home.Has("terminal.old"));
}

TEST(Demonstration, WhatIsThereStaysWhenTheCopyFails) {
  const Root home;
  home.Write("terminal/device.txt", "mine");
  EXPECT_NE("", simulator::ResetDemonstration({}, home.Path() / "terminal"));
  EXPECT_NE("", simulator::ResetDemonstration(home.Path() / "missing", home.Path() / "terminal"));
  EXPECT_EQ("mine", home.Read("terminal/device.txt"));
}

}  // namespace
