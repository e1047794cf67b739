// What the simulated terminal asks of a PC with Windows: the same answers as elsewhere, where Windows has others of its
// own.
#include "platform/files.h"
#include "platform/host/environment.h"
#include "platform/host/machine_network.h"
#include "platform/host/machine_time.h"
#include "platform/host/root_path.h"
#include "platform/host/utf8_path.h"
#include "platform/process.h"
#include "tests/authoring/storage_folder.h"

#include <windows.h>

namespace {

namespace fs = std::filesystem;
using platform::host::FindPlace;
using platform::host::PathOf;

class HostStorage : public testing::Test {
 protected:
  HostStorage() {
    platform::host::Environment environment;
    environment.root = folder_.Path();
    installed_ = std::make_unique<platform::host::InstalledEnvironment>(std::move(environment));
  }

  void Write(const std::string& name, const std::string& bytes) {
    std::ofstream(folder_.Path() / PathOf(name), std::ios::binary) << bytes;
  }
  std::string Read(const std::string& name) {
    std::ifstream file(folder_.Path() / PathOf(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  }
  std::size_t FilesInWindows() {
    const fs::directory_iterator files(folder_.Path() / "Windows");
    return static_cast<std::size_t>(std::distance(begin(files), end(files)));
  }

  tests::StorageFolder folder_;
  std::unique_ptr<platform::host::InstalledEnvironment> installed_;
};

TEST_F(HostStorage, NamesMatchWithoutCaseWhateverTheirLetters) {
  Write("Windows/Menü 日本.xml", "text");
  EXPECT_EQ("text", platform::ReadWholeFile(u"\\WINDOWS\\menÜ 日本.XML"));
  EXPECT_EQ("text", platform::ReadWholeFile(u"\\a\\..\\..\\Windows/Menü 日本.xml"));
  EXPECT_TRUE(FindPlace(u"\\windows\\menÜ 日本.XML").fullName.ends_with("\\Windows\\Menü 日本.xml"));
}

TEST_F(HostStorage, WhatWindowsTakesForAFileOfItsOwnIsNone) {
  Write("Windows/menu.xml", "text");
  for (const WideStringView path :
       {u"\\Windows\\NUL", u"\\NUL", u"\\Windows\\menu.xml:stream", u"\\Windows\\menu.xml.", u"\\Windows\\menu.xml ",
        u"\\Windows\\*", u"\\Windows\\menu.xm?", u"\\Windows\\missing\\..\\..\\C:"}) {
    EXPECT_FALSE(FindPlace(path).exists) << base::ToUtf8(path);
    EXPECT_FALSE(platform::ReadWholeFile(path)) << base::ToUtf8(path);
  }
}

TEST_F(HostStorage, AFileIsNotMadeUnderANameThatWindowsChanges) {
  for (const WideStringView path :
       {u"\\Windows\\a:b", u"\\Windows\\a.", u"\\Windows\\a ", u"\\Windows\\a*", u"\\Windows"}) {
    EXPECT_FALSE(platform::OutputFile(path).IsOpen()) << base::ToUtf8(path);
  }
  EXPECT_EQ(0u, FilesInWindows());
}

TEST_F(HostStorage, AFileHasItsNewBytesOnceAllAreThere) {
  Write("Windows/pdata.xml", "old");
  {
    platform::OutputFile file(u"\\windows\\PDATA.xml");
    EXPECT_TRUE(file.Write("new\n"));
    EXPECT_EQ("old", Read("Windows/pdata.xml"));
    EXPECT_TRUE(file.Commit());
  }
  EXPECT_EQ("new\n", Read("Windows/pdata.xml"));
  { EXPECT_TRUE(platform::OutputFile(u"\\Windows\\pdata.xml").Write("half")); }
  EXPECT_EQ("new\n", Read("Windows/pdata.xml"));
  EXPECT_EQ(1u, FilesInWindows());
}

TEST_F(HostStorage, AFileThatMayNotBeWrittenStays) {
  Write("Windows/pdata.xml", "old");
  const fs::path file = folder_.Path() / "Windows" / "pdata.xml";
  ASSERT_TRUE(SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_READONLY));
  EXPECT_FALSE(platform::OutputFile(u"\\Windows\\pdata.xml").IsOpen());
  EXPECT_EQ("old", Read("Windows/pdata.xml"));
  EXPECT_TRUE(SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_NORMAL));
}

TEST_F(HostStorage, ProgramsAreThereAndNeverRun) {
  Write("Windows/Tool.exe", "#!/bin/sh\ntouch started\n");
  Write("Windows/words.txt", "words");
  fs::create_directory(folder_.Path() / "Windows" / "Folder");
  const struct {
    const char16_t* program;
    std::uint32_t result;
  } cases[] = {{u"tool.EXE", 0},    {u"\\Windows\\Tool.exe", 0},    {u"words.txt", 193}, {u"\\Windows\\Folder", 5},
               {u"missing.exe", 2}, {u"\\missing\\missing.exe", 3}, {u"a?", 123}};
  for (const auto& c : cases) EXPECT_EQ(c.result, platform::StartProgram(c.program, u"/v")) << base::ToUtf8(c.program);
  EXPECT_EQ(3u, FilesInWindows());
}

TEST(HostMachine, KnowsItsNameItsAddressAndTheTime) {
  EXPECT_NE("", platform::host::NameOfMachine());
  EXPECT_EQ("127.0.0.1", platform::host::AddressOf("localhost"));
  EXPECT_EQ("", platform::host::AddressOf("no.such.host.invalid"));
  EXPECT_GE(platform::host::MachineTime().year, 2024);
}

}  // namespace
