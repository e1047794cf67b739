#include "platform/registry.h"

#include "platform/host/environment.h"
#include "platform/host/registry_tree.h"
#include "tests/printing.h"

namespace {

using platform::kKeyAllAccess;
using platform::RegistryKey;
using platform::host::RegistryTree;
using Installed = platform::host::InstalledEnvironment;

constexpr auto kMachine = RegistryTree::kLocalMachine;

platform::host::Environment WithRegistry(std::shared_ptr<const RegistryTree> tree) {
  platform::host::Environment environment;
  environment.registry = std::move(tree);
  return environment;
}

TEST(Registry, SubkeysAndValuesAreSortedWithoutCaseTheDefaultValueFirst) {
  const auto tree = std::make_shared<RegistryTree>();
  for (const char16_t* name : {u"K\\beta", u"K\\Alpha", u"K\\GAMMA", u"K\\alpha\\deep"}) tree->Add(kMachine, name);
  auto& key = tree->Add(kMachine, u"k");
  for (const char16_t* name : {u"zeta", u"", u"Eta", u"delta"}) RegistryTree::SetText(key, name, u"x");
  const Installed installed(WithRegistry(tree));
  const auto open = RegistryKey::Open(kMachine, u"K", false, kKeyAllAccess);
  ASSERT_TRUE(open);
  WideString subkeys;
  for (std::uint32_t i = 0; const auto name = open->Subkey(i, 1024); ++i) subkeys += *name + u" ";
  EXPECT_EQ(u"Alpha beta GAMMA ", subkeys);
  WideString values;
  for (std::uint32_t i = 0; const auto value = open->Value(i, 2048, 4096); ++i) values += u"[" + value->name + u"]";
  EXPECT_EQ(u"[][delta][Eta][zeta]", values);
}

TEST(Registry, WhatDoesNotFitIsNotGiven) {
  const auto tree = std::make_shared<RegistryTree>();
  auto& key = tree->Add(kMachine, u"K");
  tree->Add(kMachine, u"K\\" + WideString(10, u'n'));
  RegistryTree::SetBytes(key, u"v", 3, std::string(4096, 'x'));
  RegistryTree::SetBytes(key, u"w", 3, std::string(4097, 'x'));
  const Installed installed(WithRegistry(tree));
  const auto open = RegistryKey::Open(kMachine, u"K", false, kKeyAllAccess);
  ASSERT_TRUE(open);
  EXPECT_FALSE(open->Subkey(0, 10));
  EXPECT_TRUE(open->Subkey(0, 11));
  EXPECT_TRUE(open->Value(0, 2, 4096));
  EXPECT_FALSE(open->Value(0, 1, 4096));
  EXPECT_FALSE(open->Value(1, 2048, 4096));
}

TEST(Registry, KeysThatAreMissingOrDeniedDoNotOpen) {
  const auto tree = std::make_shared<RegistryTree>();
  tree->Add(kMachine, u"Software\\Secret").denied = true;
  const Installed installed(WithRegistry(tree));
  EXPECT_TRUE(RegistryKey::Open(kMachine, u"SOFTWARE", false, kKeyAllAccess));
  EXPECT_FALSE(RegistryKey::Open(kMachine, u"Software\\Secret", false, kKeyAllAccess));
  EXPECT_FALSE(RegistryKey::Open(kMachine, u"Software\\Missing", false, kKeyAllAccess));
  EXPECT_FALSE(RegistryKey::Open(RegistryTree::kUsers, u"Software", false, kKeyAllAccess));
  for (const std::uint32_t root : {0x1234U, 0x80000004U})
    EXPECT_FALSE(RegistryKey::Open(root, u"", false, kKeyAllAccess));
  EXPECT_FALSE(RegistryKey::Open(kMachine, u"SOFTWARE", false, 0));
}

TEST(Registry, TheRootsExistInAnEmptyRegistryToo) {
  const Installed installed(platform::host::Environment{});
  for (std::uint32_t root = 0x80000000; root <= 0x80000003; ++root) {
    const auto open = RegistryKey::Open(root, u"", false, kKeyAllAccess);
    ASSERT_TRUE(open);
    EXPECT_FALSE(open->Subkey(0, 1024));
    EXPECT_FALSE(open->Value(0, 2048, 4096));
  }
}

TEST(Registry, AKeyOpenedForCreationListsNothing) {
  const auto tree = std::make_shared<RegistryTree>();
  tree->Add(kMachine, u"K\\Sub");
  const Installed installed(WithRegistry(tree));
  const auto open = RegistryKey::Open(kMachine, u"K", true, 0);
  ASSERT_TRUE(open);
  EXPECT_FALSE(open->Subkey(0, 1024));
}

TEST(RegistryTree, AnOpenKeyOutlivesItsTree) {
  auto tree = std::make_shared<RegistryTree>();
  tree->Add(kMachine, u"K\\Sub");
  std::optional<RegistryKey> open;
  {
    const Installed installed(WithRegistry(std::exchange(tree, nullptr)));
    open = RegistryKey::Open(kMachine, u"K", false, kKeyAllAccess);
  }
  ASSERT_TRUE(open);
  EXPECT_EQ(u"Sub", open->Subkey(0, 1024));
}

}  // namespace
