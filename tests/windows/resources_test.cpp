// What stands in the executable beside its code. KEL_PROGRAM names it.
#include "base/string_table.h"
#include "platform/win32/windows_api.h"
#include "tests/printing.h"

#include <winver.h>

#include <gtest/gtest.h>

#include <vector>

namespace {

using platform::win32::FromApi;

class WindowsResources : public testing::Test {
 protected:
  const wchar_t* file_ = _wgetenv(L"KEL_PROGRAM");
  const HMODULE module_ = LoadLibraryExW(file_, nullptr, LOAD_LIBRARY_AS_DATAFILE);
};

TEST_F(WindowsResources, HoldEveryTextOfTheTable) {
  ASSERT_NE(nullptr, module_);
  for (const auto& entry : base::AllTexts()) {
    wchar_t text[512] = {};
    LoadStringW(module_, static_cast<UINT>(entry.id), text, 512);
    EXPECT_EQ(entry.text, WideStringView(FromApi(text))) << static_cast<int>(entry.id);
  }
  wchar_t text[512] = {};
  EXPECT_EQ(0, LoadStringW(module_, 6092, text, 512));
}

TEST_F(WindowsResources, NameTheProgramAndItsVersion) {
  const DWORD size = GetFileVersionInfoSizeW(file_, nullptr);
  ASSERT_NE(0u, size);
  std::vector<char> info(size);
  ASSERT_TRUE(GetFileVersionInfoW(file_, 0, size, info.data()));
  const auto ask = [&](const wchar_t* name) {
    void* text = nullptr;
    UINT length = 0;
    VerQueryValueW(info.data(), name, &text, &length);
    return text == nullptr ? WideString() : WideString(FromApi(static_cast<const wchar_t*>(text)));
  };
  EXPECT_EQ(u"KelLocalCfg Version 1.0", ask(L"\\StringFileInfo\\040904B0\\ProductName"));
  EXPECT_EQ(u"Configuration Utility", ask(L"\\StringFileInfo\\040904B0\\FileDescription"));
}

TEST_F(WindowsResources, HaveAnIconAndTheManifestForTheControls) {
  ASSERT_NE(nullptr, module_);
  EXPECT_NE(nullptr, FindResourceW(module_, MAKEINTRESOURCEW(1), RT_GROUP_ICON));
  EXPECT_NE(nullptr, FindResourceW(module_, MAKEINTRESOURCEW(1), RT_MANIFEST));
}

}  // namespace
