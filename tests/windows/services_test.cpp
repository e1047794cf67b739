// Events, files, registry, programs and sockets. The current folder is an empty one at the root of a drive.
#include "platform/debug.h"
#include "platform/events.h"
#include "platform/files.h"
#include "platform/network.h"
#include "platform/process.h"
#include "platform/registry.h"
#include "platform/win32/windows_api.h"
#include "tests/printing.h"

#include <sddl.h>

#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace platform {
namespace {

TEST(WindowsEvents, AreManualResetAndSharedByName) {
  Event first(u"KEL_TestEvent", true);
  Event second(u"KEL_TestEvent", false);
  Event privateOne(u"", false);
  EXPECT_TRUE(second.Wait(0));
  EXPECT_TRUE(second.Wait(0));
  second.Reset();
  EXPECT_FALSE(first.Wait(0));
  first.Set();
  EXPECT_TRUE(second.Wait(0));
  EXPECT_FALSE(privateOne.Wait(0));
}

TEST(WindowsEvents, APulseWakesWhoeverWaitsAndLeavesTheEventAsItWas) {
  Event pulsed(u"KEL_TestPulse", false);
  std::atomic<bool> woken = false;
  {
    Thread waiter([&] {
      Event same(u"KEL_TestPulse", false);
      woken = same.Wait(20'000);
    });
    // Nobody can see that a thread has begun to wait, so it is pulsed until it has been woken.
    while (!woken) {
      pulsed.Pulse();
      SwitchToThread();
    }
  }
  EXPECT_TRUE(woken);
  EXPECT_FALSE(pulsed.Wait(0));
}

TEST(WindowsThreads, TheDestructorWaitsForTheEnd) {
  std::atomic<int> done = 0;
  {
    const Thread thread([&] { ++done; });
  }
  EXPECT_EQ(1, done);
}

std::string Contents(const char* file) { return ReadWholeFile(base::FromUtf8(file)).value_or("(none)"); }

TEST(WindowsFiles, ThePathsOfTheTerminalAreOnTheCurrentDrive) {
  std::filesystem::create_directory("Windows");
  std::ofstream("Windows/test.xml", std::ios::binary) << "a\r\nb";
  EXPECT_EQ("a\r\nb", Contents("\\windows\\TEST.XML"));
  EXPECT_EQ("(none)", Contents("\\windows\\missing.xml"));
  EXPECT_EQ("(none)", Contents("\\windows"));
}

TEST(WindowsFiles, WhatWasThereStaysUntilTheNewOneIsWhole) {
  std::ofstream("old.txt", std::ios::binary) << "old";
  {
    OutputFile dropped(u"\\old.txt");
    EXPECT_TRUE(dropped.Write("new"));
    EXPECT_EQ("old", Contents("\\old.txt"));
  }
  EXPECT_EQ("old", Contents("\\old.txt"));
  OutputFile kept(u"\\old.txt");
  EXPECT_TRUE(kept.Write("ne"));
  EXPECT_TRUE(kept.Write("w"));
  EXPECT_TRUE(kept.Commit());
  EXPECT_EQ("new", Contents("\\old.txt"));
  EXPECT_FALSE(std::filesystem::exists("old.txt.new"));
}

TEST(WindowsFiles, AFileThatCannotBeMadeIsNotOpen) {
  OutputFile file(u"\\no such folder\\file.txt");
  EXPECT_FALSE(file.IsOpen());
  EXPECT_FALSE(file.Write("text"));
  EXPECT_FALSE(file.Commit());
}

constexpr RegistryRoot kCurrentUser = 0x80000001;

class WindowsRegistry : public testing::Test {
 protected:
  WindowsRegistry() {
    RegDeleteTreeW(HKEY_CURRENT_USER, L"KEL_Test");
    RegCreateKeyExW(HKEY_CURRENT_USER, L"KEL_Test", 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key_, nullptr);
  }
  ~WindowsRegistry() override {
    RegCloseKey(key_);
    RegDeleteTreeW(HKEY_CURRENT_USER, L"KEL_Test");
  }
  void Put(const wchar_t* name, DWORD type, const std::string& bytes) {
    RegSetValueExW(key_, name, 0, type, reinterpret_cast<const BYTE*>(bytes.data()), static_cast<DWORD>(bytes.size()));
  }
  HKEY key_ = nullptr;
};

TEST_F(WindowsRegistry, SubkeysAndValuesAreInOrderWithoutRegardToCase) {
  for (const wchar_t* name : {L"b", L"C", L"A"})
    RegCloseKey([&] {
      HKEY made = nullptr;
      RegCreateKeyW(key_, name, &made);
      return made;
    }());
  Put(L"zeta", REG_DWORD, std::string(4, '\1'));
  Put(L"Alpha", REG_SZ, std::string("x\0\0\0", 4));
  Put(nullptr, REG_SZ, std::string("y\0\0\0", 4));
  const auto key = RegistryKey::Open(kCurrentUser, u"KEL_Test", false, kKeyAllAccess);
  ASSERT_TRUE(key);
  EXPECT_EQ(u"A", key->Subkey(0, 1024));
  EXPECT_EQ(u"b", key->Subkey(1, 1024));
  EXPECT_EQ(u"C", key->Subkey(2, 1024));
  EXPECT_FALSE(key->Subkey(3, 1024));
  EXPECT_EQ(u"", key->Value(0, 2048, 4096)->name);
  EXPECT_EQ(u"Alpha", key->Value(1, 2048, 4096)->name);
  EXPECT_EQ(std::string("x\0\0\0", 4), key->Value(1, 2048, 4096)->data);
  EXPECT_EQ(4u, key->Value(2, 2048, 4096)->type);
  EXPECT_FALSE(key->Value(3, 2048, 4096));
}

TEST_F(WindowsRegistry, AValueThatDoesNotFitIsNotAnswered) {
  Put(L"a", REG_BINARY, std::string(4096, 'a'));
  Put(L"b", REG_BINARY, std::string(4097, 'b'));
  const auto key = RegistryKey::Open(kCurrentUser, u"KEL_Test", false, kKeyAllAccess);
  ASSERT_TRUE(key);
  EXPECT_EQ(4096u, key->Value(0, 2048, 4096)->data.size());
  EXPECT_FALSE(key->Value(1, 2048, 4096));
  EXPECT_FALSE(key->Value(0, 1, 4096));
}

TEST_F(WindowsRegistry, AMissingKeyDoesNotOpenAndARootDoes) {
  EXPECT_FALSE(RegistryKey::Open(kCurrentUser, u"KEL_Test\\missing", false, kKeyAllAccess));
  EXPECT_TRUE(RegistryKey::Open(kCurrentUser, u"", false, kKeyAllAccess));
  EXPECT_TRUE(RegistryKey::Open(kCurrentUser, u"KEL_Test\\made", true, 0));
  EXPECT_TRUE(RegistryKey::Open(kCurrentUser, u"KEL_Test\\made", false, kKeyAllAccess));
}

TEST_F(WindowsRegistry, ADeniedKeyDoesNotOpen) {
  PSECURITY_DESCRIPTOR descriptor = nullptr;
  // Everybody may delete it and change its permissions, nothing else.
  ASSERT_TRUE(ConvertStringSecurityDescriptorToSecurityDescriptorW(L"D:(A;;SDWDRC;;;WD)", SDDL_REVISION_1, &descriptor,
                                                                   nullptr));
  HKEY denied = nullptr;
  ASSERT_EQ(ERROR_SUCCESS, RegCreateKeyW(key_, L"denied", &denied));
  EXPECT_TRUE(RegistryKey::Open(kCurrentUser, u"KEL_Test\\denied", false, kKeyAllAccess));
  EXPECT_EQ(ERROR_SUCCESS, RegSetKeySecurity(denied, DACL_SECURITY_INFORMATION, descriptor));
  RegCloseKey(denied);
  LocalFree(descriptor);
  EXPECT_FALSE(RegistryKey::Open(kCurrentUser, u"KEL_Test\\denied", false, kKeyAllAccess));
}

TEST(WindowsPrograms, WhatCannotBeStartedSaysWhy) {
  std::ofstream("text.exe") << "not a program";
  EXPECT_EQ(2u, StartProgram(u"\\missing.exe", u""));
  EXPECT_EQ(2u, StartProgram(u"missing.exe", u""));
  EXPECT_EQ(3u, StartProgram(u"\\no such folder\\missing.exe", u""));
  EXPECT_EQ(193u, StartProgram(u"\\text.exe", u""));
}

TEST(WindowsPrograms, AreFoundInWindowsThenInTheRootAndGetTheirArguments) {
  const std::filesystem::path recorder = _wgetenv(L"KEL_RECORDER");
  const std::filesystem::path record = std::filesystem::current_path() / "record.txt";
  SetEnvironmentVariableW(L"KEL_RECORD", record.c_str());
  std::filesystem::create_directory("Windows");
  std::filesystem::copy_file(recorder, "rooted.exe", std::filesystem::copy_options::overwrite_existing);
  std::filesystem::copy_file(recorder, "Windows/placed.exe", std::filesystem::copy_options::overwrite_existing);
  EXPECT_EQ(0u, StartProgram(u"rooted.exe", u"/v \"two words\""));
  EXPECT_EQ(0u, StartProgram(u"placed.exe", u""));
  EXPECT_EQ(0u, StartProgram(u"\\Windows\\placed.exe", u"x"));
  // Nobody waits for them; they have all written when the record is as long as their command lines.
  const std::string whole =
      base::ToUtf8(u"\"rooted.exe\" /v \"two words\"\n\"placed.exe\" \n\"\\Windows\\placed.exe\" x\n");
  std::uintmax_t size = 0;
  for (const ULONGLONG end = GetTickCount64() + 20'000; size < 2 * whole.size() && GetTickCount64() < end;) {
    std::error_code error;
    size = std::filesystem::file_size(record, error);
    if (error) size = 0;
    SwitchToThread();
  }
  EXPECT_EQ(2 * whole.size(), size);
  const std::string bytes = ReadWholeFile(u"\\record.txt").value_or("");
  const WideString text(reinterpret_cast<const char16_t*>(bytes.data()), bytes.size() / 2);
  EXPECT_NE(WideString::npos, text.find(u"\"rooted.exe\" /v \"two words\""));
  EXPECT_NE(WideString::npos, text.find(u"\"\\Windows\\placed.exe\" x"));
}

TEST(WindowsSockets, GrantTheVersionThatTheTerminalsGrant) {
  const SocketVersion version = StartSockets(0x0202);
  EXPECT_EQ(0, version.error);
  EXPECT_EQ(1, version.low);
  EXPECT_EQ(1, version.high);
  const HostAnswer name = HostName(50);
  EXPECT_EQ(0, name.error);
  EXPECT_FALSE(name.text.empty());
  const HostAnswer address = FirstAddressOf(name.text);
  EXPECT_EQ(0, address.error);
  EXPECT_EQ(3, std::count(address.text.begin(), address.text.end(), '.'));
  StopSockets();
}

TEST(WindowsSockets, ANameThatDoesNotFitIsAnError) {
  StartSockets(0x0101);
  EXPECT_NE(0, HostName(1).error);
  StopSockets();
}

}  // namespace
}  // namespace platform
