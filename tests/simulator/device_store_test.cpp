#include "simulator/device_store.h"

#include "simulator/text_file.h"
#include "tests/platform/temporary_root.h"
#include "tests/printing.h"

#include <sys/resource.h>

#include <csignal>

namespace {

using platform::ResultCode;
using simulator::DeviceStore;
using Root = tests::TemporaryRoot;

constexpr auto kMade = static_cast<ResultCode>(0x80041234);

std::unique_ptr<DeviceStore> Open(const Root& root) {
  auto opened = DeviceStore::Open(root.Path() / "device.txt");
  EXPECT_EQ("", opened.problem);
  return std::move(opened.store);
}

std::string ProblemOf(const std::string& bytes) {
  const Root root;
  root.Write("device.txt", bytes);
  const auto opened = DeviceStore::Open(root.Path() / "device.txt");
  EXPECT_EQ(nullptr, opened.store) << bytes;
  const std::string prefix = (root.Path() / "device.txt").string();
  return opened.problem.starts_with(prefix) ? opened.problem.substr(prefix.size()) : opened.problem;
}

// What Get answers: the code when it failed, else the text.
WideString Answer(DeviceStore& device, const WideString& oid) {
  std::optional<WideString> value;
  const ResultCode code = device.Get(oid, value);
  if (code < 0) return u"failed";
  return value.value_or(u"null");
}

TEST(DeviceStore, AnOidThatIsNotThereFails) {
  const Root root;
  root.Write("device.txt", "1.2\tInteger\t5\n");
  const auto device = Open(root);
  std::optional<WideString> value = u"old";
  EXPECT_EQ(platform::kFailed, device->Get(u"1.3", value));
  EXPECT_FALSE(value);
  EXPECT_EQ(platform::kFailed, device->Set(u"1.3", u"x"));
  EXPECT_EQ("1.2\tInteger\t5\n", root.Read("device.txt"));
}

TEST(DeviceStore, AMissingFileIsADeviceWithoutValues) {
  const Root root;
  const auto device = Open(root);
  EXPECT_EQ(u"failed", Answer(*device, u"1.2"));
  EXPECT_FALSE(root.Has("device.txt"));
}

TEST(DeviceStore, EachOptionActs) {
  const Root root;
  root.Write("device.txt",
             "# a comment\r\n"
             "\n"
             "ro\tInteger\t5\treadonly\r\n"
             "get\tInteger\t5\tget=0x80041234\n"
             "set\tInteger\t5\tset=0x80041234\n"
             "odd\tInteger\t5\tget=0x00000001,set=0x00000001\n"
             "null\tInteger\t5\tnull\n"
             "slow\tInteger\t5\tdelay=250,readonly");
  const auto device = Open(root);
  EXPECT_EQ(platform::kAccessDenied, device->Set(u"ro", u"6"));
  EXPECT_EQ(u"5", Answer(*device, u"ro"));
  std::optional<WideString> value;
  EXPECT_EQ(kMade, device->Get(u"get", value));
  EXPECT_FALSE(value);
  EXPECT_EQ(platform::kOk, device->Set(u"get", u"6"));
  EXPECT_EQ(kMade, device->Set(u"set", u"6"));
  EXPECT_EQ(u"5", Answer(*device, u"set"));
  EXPECT_EQ(1, device->Set(u"odd", u"6"));
  EXPECT_EQ(1, device->Get(u"odd", value));
  EXPECT_EQ(u"6", value);
  EXPECT_EQ(u"null", Answer(*device, u"null"));
  EXPECT_EQ(platform::kOk, device->Set(u"null", u"6"));
  EXPECT_EQ(u"null", Answer(*device, u"null"));
  EXPECT_EQ(250, device->DelayMs(u"slow"));
  EXPECT_EQ(platform::kAccessDenied, device->Set(u"slow", u"6"));
  EXPECT_EQ(0, device->DelayMs(u"ro"));
  EXPECT_EQ(0, device->DelayMs(u"none"));
}

TEST(DeviceStore, ASetIsOnDiskBeforeItReturnsAndKeepsTypeAndOptions) {
  const Root root;
  root.Write("device.txt", "# kept\n1.2\tInteger\t5\tdelay=1\n1.3\tHex\tab");
  {
    const auto device = Open(root);
    EXPECT_EQ(platform::kOk, device->Set(u"1.3", u"a\tb\\\n"));
    EXPECT_TRUE(root.Read("device.txt").ends_with("\n1.3\tHex\ta\\tb\\\\\\n\n"));
    EXPECT_EQ(platform::kOk, device->Set(u"1.2", u"6"));
    EXPECT_EQ(platform::kOk, device->Set(u"1.2", u"7"));
    EXPECT_EQ(u"7", Answer(*device, u"1.2"));
  }
  EXPECT_EQ("# kept\n1.2\tInteger\t7\tdelay=1\n1.3\tHex\ta\\tb\\\\\\n\n", root.Read("device.txt"));
}

TEST(DeviceStore, WhereverAKillCutsASetTheFileHoldsTheStateBeforeOrAfter) {
  const Root root;
  const std::string before = "1.2\tInteger\t5\n";
  root.Write("device.txt", before);
  const auto device = Open(root);
  ASSERT_EQ(platform::kOk, device->Set(u"1.2", u"654321"));
  const std::string after = root.Read("device.txt");
  ASSERT_TRUE(after.starts_with(before));
  // The line is written behind a "#"; putting its first character in place is the last step.
  std::string hidden = after;
  hidden[before.size()] = '#';
  for (std::size_t length = before.size(); length <= hidden.size(); ++length) {
    const Root killed;
    killed.Write("device.txt", hidden.substr(0, length));
    const auto again = Open(killed);
    EXPECT_EQ(u"5", Answer(*again, u"1.2")) << length;
    EXPECT_EQ(platform::kOk, again->Set(u"1.2", u"9")) << length;
    EXPECT_EQ(u"9", Answer(*Open(killed), u"1.2")) << length;
  }
  EXPECT_EQ(u"654321", Answer(*Open(root), u"1.2"));
}

TEST(DeviceStore, AFullDiskRefusesTheSetAndChangesNothing) {
  const Root root;
  const std::string before = "1.2\tInteger\t5\n";
  root.Write("device.txt", before);
  const auto device = Open(root);
  rlimit unlimited = {};
  getrlimit(RLIMIT_FSIZE, &unlimited);
  const rlimit limited{before.size() + 10, unlimited.rlim_max};
  auto* const handler = std::signal(SIGXFSZ, SIG_IGN);
  setrlimit(RLIMIT_FSIZE, &limited);
  EXPECT_EQ(platform::kFailed, device->Set(u"1.2", u"a long text that finds no room"));
  setrlimit(RLIMIT_FSIZE, &unlimited);
  std::signal(SIGXFSZ, handler);
  EXPECT_EQ(before, root.Read("device.txt"));
  EXPECT_EQ(u"5", Answer(*device, u"1.2"));
  EXPECT_EQ(platform::kOk, device->Set(u"1.2", u"6"));
  EXPECT_EQ(u"6", Answer(*Open(root), u"1.2"));
}

TEST(DeviceStore, AFileThatIsGoneRefusesTheSet) {
  const Root root;
  root.Write("device.txt", "1.2\tInteger\t5\n");
  const auto device = Open(root);
  std::filesystem::remove(root.Path() / "device.txt");
  EXPECT_EQ(platform::kFailed, device->Set(u"1.2", u"6"));
  EXPECT_EQ(u"5", Answer(*device, u"1.2"));
}

TEST(DeviceStore, SeveralChangesAreOneStep) {
  const Root root;
  root.Write("device.txt", "# kept\n1.2\tInteger\t5\tdelay=1\n1.3\tHex\tab");
  const auto device = Open(root);
  EXPECT_EQ(platform::kOk, device->Set({{u"1.3", u"cd"}, {u"1.2", u"6"}, {u"1.3", u"ef"}}));
  EXPECT_EQ("# kept\n1.2\tInteger\t5\tdelay=1\n1.3\tHex\tab\n1.3\tHex\tcd\n1.2\tInteger\t6\tdelay=1\n1.3\tHex\tef\n",
            root.Read("device.txt"));
  EXPECT_EQ(u"6", Answer(*device, u"1.2"));
  EXPECT_EQ(u"ef", Answer(*device, u"1.3"));
  EXPECT_EQ(platform::kOk, device->Set(std::vector<DeviceStore::Change>{}));
}

TEST(DeviceStore, SeveralChangesFailAsTheFirstThatFailsAndNoneIsMade) {
  const Root root;
  const std::string before =
      "1\tInteger\t5\nro\tInteger\t5\treadonly\nset\tInteger\t5\tset=0x80041234\nodd\tHex\tab\tset=0x00000001\n";
  root.Write("device.txt", before);
  const auto device = Open(root);
  EXPECT_EQ(platform::kAccessDenied, device->Set({{u"1", u"6"}, {u"ro", u"6"}, {u"set", u"6"}}));
  EXPECT_EQ(kMade, device->Set({{u"1", u"6"}, {u"set", u"6"}, {u"ro", u"6"}}));
  EXPECT_EQ(platform::kFailed, device->Set({{u"1", u"6"}, {u"none", u"6"}, {u"ro", u"6"}}));
  EXPECT_EQ(before, root.Read("device.txt"));
  EXPECT_EQ(u"5", Answer(*device, u"1"));
  EXPECT_EQ(1, device->Set({{u"1", u"6"}, {u"odd", u"cd"}}));
  std::filesystem::remove(root.Path() / "device.txt");
  EXPECT_EQ(platform::kFailed, device->Set({{u"1", u"7"}, {u"odd", u"ef"}}));
  EXPECT_EQ(u"6", Answer(*device, u"1"));
}

TEST(DeviceStore, ALineIsOnDiskBeforeItCountsAndASetBeforeItReturns) {
  const Root root;
  const std::string before = "1.2\tInteger\t5\n1.3\tInteger\t5\n";
  root.Write("device.txt", before);
  std::vector<std::string> synced;
  const auto device = Open(root);
  device->SyncWith([&](const std::filesystem::path& file) {
    synced.push_back(file.filename().string() + ":" +
                     (is_directory(file) ? "" : root.Read(file.filename()).substr(before.size())));
    return true;
  });
  EXPECT_EQ(platform::kOk, device->Set(u"1.2", u"6"));
  EXPECT_EQ((std::vector<std::string>{"device.txt:#.2\tInteger\t6\n", "device.txt:1.2\tInteger\t6\n"}), synced);
  synced.clear();
  EXPECT_EQ(platform::kOk, device->Set({{u"1.2", u"7"}, {u"1.3", u"7"}}));
  const std::string lines = "1.2\tInteger\t6\n1.2\tInteger\t7\n1.3\tInteger\t7\n";
  EXPECT_EQ((std::vector<std::string>{"device.txt.new:" + lines, root.Path().filename().string() + ":"}), synced);
}

TEST(DeviceStore, ADiskThatFailsRefusesTheSetAndChangesNothing) {
  const Root root;
  const std::string before = "1.2\tInteger\t5\n1.3\tInteger\t5\n";
  root.Write("device.txt", before);
  const auto device = Open(root);
  for (int good = 0; good < 2; ++good) {
    int left = good;
    device->SyncWith([&left](const std::filesystem::path&) { return left-- > 0; });
    EXPECT_EQ(platform::kFailed, device->Set(u"1.2", u"6")) << good;
    EXPECT_EQ(before, root.Read("device.txt")) << good;
  }
  device->SyncWith([](const std::filesystem::path&) { return false; });
  EXPECT_EQ(platform::kFailed, device->Set({{u"1.2", u"6"}, {u"1.3", u"6"}}));
  EXPECT_EQ(before, root.Read("device.txt"));
  EXPECT_FALSE(root.Has("device.txt.new"));
  EXPECT_EQ(u"5", Answer(*device, u"1.2"));
}

TEST(DeviceStore, OfTwoLinesForOneOidTheLastCounts) {
  const Root root;
  root.Write("device.txt", "1.2\tInteger\t5\treadonly\n1.3\tInteger\t1\n1.2\tHex\t6\n");
  EXPECT_EQ(u"6", Answer(*Open(root), u"1.2"));
  EXPECT_EQ("1.2\tHex\t6\n1.3\tInteger\t1\n", root.Read("device.txt"));
}

TEST(DeviceStore, AFileThatSomebodyElseChangedIsNotPutInOrder) {
  const Root root;
  root.Write("device.txt", "1.2\tInteger\t5\n");
  {
    const auto device = Open(root);
    ASSERT_EQ(platform::kOk, device->Set(u"1.2", u"6"));
    root.Write("device.txt", "1.2\tInteger\t7\n1.3\tInteger\t8\n");
  }
  EXPECT_EQ("1.2\tInteger\t7\n1.3\tInteger\t8\n", root.Read("device.txt"));
}

TEST(DeviceStore, AFileThatIsSharedIsOnlyAddedTo) {
  const Root root;
  root.Write("device.txt", "1.2\tInteger\t5\n1.2\tInteger\t6\n");
  Open(root)->ShareFile();
  EXPECT_EQ("1.2\tInteger\t5\n1.2\tInteger\t6\n", root.Read("device.txt"));
}

TEST(DeviceStore, ManySetsKeepTheFileSmall) {
  const Root root;
  root.Write("device.txt", "1.2\tInteger\t0\n1.3\tInteger\t0\n");
  const auto device = Open(root);
  for (int i = 1; i <= 10'000; ++i) {
    ASSERT_EQ(platform::kOk, device->Set(i % 2 == 0 ? u"1.2" : u"1.3", base::FromUtf8(std::to_string(i))));
  }
  EXPECT_LT(root.Read("device.txt").size(), 5000u * 20u);
  EXPECT_EQ(u"10000", Answer(*Open(root), u"1.2"));
}

TEST(DeviceStore, AFileThatIsPutInOrderKeepsItsRightsAndANewOneIsForItsOwner) {
  using std::filesystem::perms;
  constexpr perms kOwners = perms::owner_read | perms::owner_write;
  const Root root;
  root.Write("device.txt", "1.2\tInteger\t5\n");
  std::filesystem::permissions(root.Path() / "device.txt", kOwners | perms::group_read);
  EXPECT_EQ(platform::kOk, Open(root)->Set(u"1.2", u"6"));
  EXPECT_EQ("1.2\tInteger\t6\n", root.Read("device.txt"));
  EXPECT_EQ(kOwners | perms::group_read, std::filesystem::status(root.Path() / "device.txt").permissions());
  EXPECT_TRUE(simulator::ReplaceTextFile(root.Path() / "new.txt", "text"));
  EXPECT_EQ(kOwners, std::filesystem::status(root.Path() / "new.txt").permissions());
}

TEST(DeviceStore, EveryTextComesBackAsItWas) {
  const WideString texts[] = {u"",         u"#",          u" blanks ", u"tab\tline\nreturn\rend", u"\\u0041\\",
                              u"Grüße 中", u"\U0001F600", u"\xD800",   WideString(1, u'\0'),      u"\uFEFFmark"};
  const Root root;
  root.Write("device.txt", "\\u0023x\tOctet String\t\n");
  for (const WideString& text : texts) {
    EXPECT_EQ(platform::kOk, Open(root)->Set(u"#x", text));
    EXPECT_EQ(text, Answer(*Open(root), u"#x"));
  }
}

TEST(DeviceStore, WhatIsBlankThroughoutIsKeptToo) {
  const Root root;
  root.Write("device.txt", "\\u0020\t \t5\n");
  EXPECT_EQ(platform::kOk, Open(root)->Set(u" ", u"  "));
  EXPECT_EQ(u"  ", Answer(*Open(root), u" "));
}

TEST(DeviceStore, ABrokenLineIsOneMessageWithFileAndLine) {
  const std::string columns = ": a line is OID, type, value and options, separated by tabs";
  const std::string options =
      ": the options are readonly, null, get=0xHHHHHHHH, set=0xHHHHHHHH and delay=MS, separated by commas";
  const struct {
    const char* bytes;
    std::string problem;
  } cases[] = {
      {"1.2", ":1" + columns},
      {"# x\n\n1.2\tInteger\n", ":3" + columns},
      {"1.2\tInteger\t5\t\tx\n", ":1" + columns},
      {"\tInteger\t5\n", ":1" + columns},
      {"1.2\tInteger\t5\twriteonly\n", ":1" + options},
      {"1.2\tInteger\t5\treadonly,\n", ":1" + options},
      {"1.2\tInteger\t5\treadonly, null\n", ":1" + options},
      {"1.2\tInteger\t5\tget=5\n", ":1" + options},
      {"1.2\tInteger\t5\tget=0x123456789\n", ":1" + options},
      {"1.2\tInteger\t5\tdelay=-1\n", ":1" + options},
      {"1.2\tInteger\t5\tdelay=99999999999\n", ":1" + options},
      {"1.2\tInteger\t\\x\n", ":1: a backslash must begin \\t, \\n, \\\\ or \\uXXXX"},
      {"1.2\tInteger\t\\u12\n", ":1: a backslash must begin \\t, \\n, \\\\ or \\uXXXX"},
      {"1.2\tInteger\t5\\\n", ":1: a backslash must begin \\t, \\n, \\\\ or \\uXXXX"},
  };
  for (const auto& c : cases) EXPECT_EQ(c.problem, ProblemOf(c.bytes)) << c.bytes;
}

TEST(DeviceStore, AFolderInPlaceOfTheFileCannotBeRead) {
  const Root root;
  std::filesystem::create_directory(root.Path() / "device.txt");
  EXPECT_TRUE(DeviceStore::Open(root.Path() / "device.txt").problem.ends_with("device.txt: cannot be read"));
}

}  // namespace
