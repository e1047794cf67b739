#include "platform/files.h"

#include "tests/platform/temporary_root.h"
#include "tests/printing.h"

#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>

namespace {

using platform::OutputFile;
using platform::ReadWholeFile;
using Root = tests::TemporaryRoot;
using Installed = platform::host::InstalledEnvironment;

TEST(Files, NamesMatchWithoutCaseAndEitherSlashSeparates) {
  const Root root;
  root.Write("Windows/Ovu.xml", "text");
  const Installed installed(root.Environment());
  for (const char16_t* path : {u"\\Windows\\Ovu.xml", u"\\windows\\OVU.XML", u"/Windows/ovu.xml", u"WINDOWS\\ovu.xml",
                               u"\\\\windows\\.\\ovu.xml", u"\\x\\..\\windows\\ovu.xml"}) {
    EXPECT_EQ("text", ReadWholeFile(path)) << base::ToUtf8(path);
  }
}

TEST(Files, AnExactNameIsTakenBeforeOneThatDiffersInCase) {
  const Root root;
  root.Write("A.txt", "capital");
  root.Write("a.txt", "small");
  const Installed installed(root.Environment());
  EXPECT_EQ("small", ReadWholeFile(u"\\a.txt"));
  EXPECT_EQ("capital", ReadWholeFile(u"\\A.txt"));
}

TEST(Files, OfNamesThatOnlyDifferInCaseTheFirstInByteOrderIsTaken) {
  const Root root;
  for (const char* name : {"ab.txt", "AB.txt", "Ab.txt"}) root.Write(name, name);
  const Installed installed(root.Environment());
  EXPECT_EQ("AB.txt", ReadWholeFile(u"\\aB.txt"));
}

TEST(Files, AFileForWhichThereIsNoPlaceIsNotRead) {
  const Root root;
  root.Write("file", "12345");
  const Installed installed(root.Environment());
  std::size_t asked = 0;
  EXPECT_FALSE(ReadWholeFile(u"\\file", [&](std::size_t size) -> char* {
    asked = size;
    return nullptr;
  }));
  EXPECT_EQ(5U, asked);
}

TEST(Files, WhatIsNoReadableFileIsNotRead) {
  const Root root;
  root.Write("folder/file", "x");
  ASSERT_EQ(0, mkfifo((root.Path() / "pipe").c_str(), 0600));
  const Installed installed(root.Environment());
  const WideString withZero(u"\\folder\\file\0", 13);
  for (const WideString& path :
       {WideString(u""), WideString(u"\\"), WideString(u"\\missing"), WideString(u"\\folder"),
        WideString(u"\\missing\\file"), WideString(u"\\folder\\file\\x"), WideString(u"\\pipe"), withZero}) {
    EXPECT_FALSE(ReadWholeFile(path)) << base::ToUtf8(path);
  }
}

TEST(Files, WithoutARootNoFileExists) {
  const Installed installed(platform::host::Environment{});
  EXPECT_FALSE(ReadWholeFile(u"\\etc\\passwd"));
  EXPECT_FALSE(OutputFile(u"\\x").IsOpen());
}

TEST(Files, NothingOutsideTheRootIsReachable) {
  const Root outside;
  outside.Write("secret.txt", "secret");
  const Root root;
  root.Write("inside.txt", "inside");
  std::filesystem::create_symlink(outside.Path(), root.Path() / "folder");
  std::filesystem::create_symlink(outside.Path() / "secret.txt", root.Path() / "link.txt");
  const Installed installed(root.Environment());
  const WideString up = u"\\..\\" + base::FromUtf8(outside.Path().filename().string()) + u"\\secret.txt";
  for (const WideString& path : {WideString(u"\\folder\\secret.txt"), WideString(u"\\link.txt"), up}) {
    EXPECT_FALSE(ReadWholeFile(path)) << base::ToUtf8(path);
    OutputFile file(path);
    EXPECT_FALSE(file.IsOpen()) << base::ToUtf8(path);
  }
  EXPECT_EQ("inside", ReadWholeFile(u"\\..\\..\\inside.txt"));
  EXPECT_EQ("secret", outside.Read("secret.txt"));
}

TEST(Files, BytesAreReadAsTheyAre) {
  const Root root;
  const std::string bytes("\0\r\n\xFF\xFE", 5);
  root.Write("bytes", bytes);
  root.Write("empty", "");
  const Installed installed(root.Environment());
  EXPECT_EQ(bytes, ReadWholeFile(u"bytes"));
  EXPECT_EQ("", ReadWholeFile(u"empty"));
}

TEST(Files, ASparseFileOfMoreThanFourGiBIsRefused) {
  const Root root;
  root.Write("huge", "");
  std::filesystem::resize_file(root.Path() / "huge", (std::uintmax_t{1} << 32) + 1);
  const Installed installed(root.Environment());
  EXPECT_FALSE(ReadWholeFile(u"huge"));
}

TEST(OutputFile, ReplacesTheFileOnlyWhenCommitted) {
  const Root root;
  root.Write("Settings.txt", "old");
  const Installed installed(root.Environment());
  {
    OutputFile file(u"\\settings.TXT");
    ASSERT_TRUE(file.IsOpen());
    EXPECT_TRUE(file.Write("new "));
    EXPECT_EQ("old", root.Read("Settings.txt"));
    EXPECT_TRUE(file.Write("text"));
    EXPECT_TRUE(file.Commit());
    EXPECT_FALSE(file.IsOpen());
  }
  EXPECT_EQ("new text", root.Read("Settings.txt"));
  EXPECT_FALSE(root.Has("settings.TXT"));
}

TEST(OutputFile, OnlyItsOwnerMayReadANewFileAndAnOldOneKeepsItsRights) {
  using std::filesystem::perms;
  const Root root;
  root.Write("old", "old");
  constexpr perms kShared = perms::owner_read | perms::owner_write | perms::group_read;
  std::filesystem::permissions(root.Path() / "old", kShared);
  const Installed installed(root.Environment());
  for (const char16_t* path : {u"old", u"new"}) {
    OutputFile file(path);
    EXPECT_TRUE(file.Write("text") && file.Commit());
  }
  EXPECT_EQ(kShared, std::filesystem::status(root.Path() / "old").permissions());
  EXPECT_EQ(perms::owner_read | perms::owner_write, std::filesystem::status(root.Path() / "new").permissions());
}

TEST(OutputFile, WithoutCommitNothingWasWritten) {
  const Root root;
  root.Write("kept", "old");
  const Installed installed(root.Environment());
  OutputFile(u"kept").Write("new");
  OutputFile(u"fresh").Write("new");
  EXPECT_EQ("old", root.Read("kept"));
  std::size_t files = 0;
  for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(root.Path())) ++files;
  EXPECT_EQ(1u, files);
}

TEST(OutputFile, WhatAKilledRunLeftBehindIsNoHindrance) {
  const Root root;
  root.Write(".fresh.new", "half of a te");
  const Installed installed(root.Environment());
  OutputFile file(u"fresh");
  EXPECT_TRUE(file.Write("text") && file.Commit());
  EXPECT_EQ("text", root.Read("fresh"));
  EXPECT_FALSE(root.Has(".fresh.new"));
}

TEST(OutputFile, IsNotOpenWhereNoFileCanBe) {
  const Root root;
  root.Write("folder/file", "x");
  const Installed installed(root.Environment());
  for (const char16_t* path : {u"\\missing\\file", u"\\folder", u"", u"\\"}) {
    OutputFile file(path);
    EXPECT_FALSE(file.IsOpen()) << base::ToUtf8(path);
    EXPECT_FALSE(file.Write("x"));
    EXPECT_FALSE(file.Commit());
  }
}

// A limit on the size of files stands for a disk without room.
class SizeLimit {
 public:
  explicit SizeLimit(rlim_t bytes) {
    getrlimit(RLIMIT_FSIZE, &before_);
    handler_ = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{bytes, before_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~SizeLimit() {
    setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, handler_);
  }
  SizeLimit(const SizeLimit&) = delete;
  SizeLimit& operator=(const SizeLimit&) = delete;

 private:
  rlimit before_ = {};
  void (*handler_)(int) = nullptr;
};

TEST(OutputFile, AFullDiskLeavesTheOldFile) {
  const Root root;
  root.Write("kept", "old");
  const Installed installed(root.Environment());
  {
    const SizeLimit limit(100);
    OutputFile file(u"kept");
    EXPECT_TRUE(file.Write(std::string(60, 'x')));
    EXPECT_FALSE(file.Write(std::string(60, 'x')));
    EXPECT_FALSE(file.Write("x"));
    EXPECT_FALSE(file.Commit());
  }
  EXPECT_EQ("old", root.Read("kept"));
  EXPECT_FALSE(root.Has(".kept.new"));
}

}  // namespace
