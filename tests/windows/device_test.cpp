// The device's objects over COM, and what the program sees when they cannot be had. The device server is registered,
// and the current folder is that of the terminal.
#include "platform/device.h"
#include "platform/win32/com.h"
#include "tests/printing.h"

#include <gtest/gtest.h>

#include <fstream>

namespace platform {
namespace {

constexpr wchar_t kClassKey[] = L"Software\\Classes\\CLSID\\{B12CD332-AF57-11D2-A541-00C04F8F3EBB}";
constexpr wchar_t kServerKey[] = L"Software\\Classes\\CLSID\\{B12CD332-AF57-11D2-A541-00C04F8F3EBB}\\InprocServer32";

// Another name for a registry key while it lives.
class HiddenKey {
 public:
  HiddenKey(const wchar_t* parent, const wchar_t* name) : name_(name) {
    RegOpenKeyExW(HKEY_LOCAL_MACHINE, parent, 0, KEY_ALL_ACCESS, &parent_);
    EXPECT_EQ(ERROR_SUCCESS, RegRenameKey(parent_, name_, L"hidden"));
  }
  ~HiddenKey() {
    RegRenameKey(parent_, L"hidden", name_);
    RegCloseKey(parent_);
  }

 private:
  HKEY parent_ = nullptr;
  const wchar_t* name_;
};

void SetThreadingModel(const std::wstring& model) {
  RegSetKeyValueW(HKEY_LOCAL_MACHINE, kServerKey, L"ThreadingModel", REG_SZ, model.c_str(),
                  static_cast<DWORD>((model.size() + 1) * sizeof(wchar_t)));
}

class WindowsDevice : public testing::Test {
 protected:
  WindowsDevice() {
    std::ofstream("device.txt", std::ios::binary)
        << "1.2.3\tInteger\t5\n1.2.4\tInteger\t6\treadonly\n1.2.5\tText\t\tnull\n"
           "1.2.6\tText\t\\u00E9\\u4E2D\n";
    std::ofstream("tables.txt", std::ios::binary) << "RANGES\tport,1\t1,65535\n";
  }
};

// The first test of the program: nothing has readied COM yet.
TEST_F(WindowsDevice, TablesAreAnsweredBeforeTheDeviceIsAskedFor) {
  const TableAnswer found = GetTableValue(u"Valtorix.ConfigProperty", u"RANGES", u"port,1");
  EXPECT_EQ(kOk, found.code);
  EXPECT_EQ(u"1,65535", found.text);
}

TEST_F(WindowsDevice, ValuesAreReadAndWritten) {
  const auto device = ConnectSnmpConfig();
  ASSERT_NE(nullptr, device);
  std::optional<WideString> value;
  EXPECT_EQ(kOk, device->Get(u"1.2.3", u"Integer", value));
  EXPECT_EQ(u"5", value);
  EXPECT_EQ(kOk, device->Set(u"1.2.3", u"Integer", u"7"));
  EXPECT_EQ(kOk, device->GetSpecial(u"1.2.3", u"Integer", value));
  EXPECT_EQ(u"7", value);
  EXPECT_EQ(kOk, device->SetSpecial(u"1.2.3", u"Integer", u""));
  EXPECT_EQ(kOk, device->Get(u"1.2.3", u"Integer", value));
  EXPECT_EQ(u"", value);
  EXPECT_EQ(kOk, device->Get(u"1.2.6", u"Text", value));
  EXPECT_EQ(u"\u00E9\u4E2D", value);
}

TEST_F(WindowsDevice, FailuresKeepTheirCodes) {
  const auto device = ConnectSnmpConfig();
  ASSERT_NE(nullptr, device);
  std::optional<WideString> value = u"before";
  EXPECT_EQ(kFailed, device->Get(u"9.9", u"Integer", value));
  EXPECT_FALSE(value);
  EXPECT_EQ(kAccessDenied, device->Set(u"1.2.4", u"Integer", u"7"));
  EXPECT_EQ(kOk, device->Get(u"1.2.5", u"Text", value));
  EXPECT_FALSE(value);
}

TEST_F(WindowsDevice, WithoutItsClassThereIsNone) {
  EXPECT_NE(nullptr, ConnectSnmpConfig());
  {
    const HiddenKey hidden(L"Software\\Classes\\CLSID", L"{B12CD332-AF57-11D2-A541-00C04F8F3EBB}");
    EXPECT_EQ(nullptr, ConnectSnmpConfig());
  }
  EXPECT_NE(nullptr, ConnectSnmpConfig());
}

TEST_F(WindowsDevice, AServerForApartmentsOnlyCannotBeUsed) {
  SetThreadingModel(L"Apartment");
  EXPECT_EQ(nullptr, ConnectSnmpConfig());
  SetThreadingModel(L"Both");
  EXPECT_NE(nullptr, ConnectSnmpConfig());
}

TEST_F(WindowsDevice, AStorageThatCannotBeReadMakesNone) {
  std::ofstream("device.txt", std::ios::binary) << "no tabs\n";
  EXPECT_EQ(nullptr, ConnectSnmpConfig());
}

TEST_F(WindowsDevice, TablesAreAnsweredByTheirServer) {
  using Stage = TableAnswer::Stage;
  const TableAnswer found = GetTableValue(u"Valtorix.ConfigProperty", u"RANGES", u"port,1");
  EXPECT_EQ(Stage::kCalled, found.stage);
  EXPECT_EQ(kOk, found.code);
  EXPECT_EQ(u"1,65535", found.text);
  const TableAnswer missing = GetTableValue(u"Valtorix.ConfigProperty", u"RANGES", u"port,2");
  EXPECT_EQ(Stage::kCalled, missing.stage);
  EXPECT_EQ(kFailed, missing.code);
  EXPECT_EQ(u"", missing.text);
}

TEST_F(WindowsDevice, AnUnknownServerIsSaidToBeUnknown) {
  const TableAnswer answer = GetTableValue(u"Valtorix.NoSuchServer", u"RANGES", u"port,1");
  EXPECT_EQ(TableAnswer::Stage::kNoServer, answer.stage);
  EXPECT_EQ(static_cast<ResultCode>(0x800401F3), answer.code);
}

}  // namespace
}  // namespace platform
