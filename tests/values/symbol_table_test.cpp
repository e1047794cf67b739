#include "values/symbol_table.h"

#include "tests/printing.h"
#include "tests/support/test_terminal.h"

#include <gtest/gtest.h>

namespace values {
namespace {

using platform::host::RegistryTree;

constexpr const char16_t* kPath = u"SOFTWARE\\Valtorix\\ZEP\\SYMBOLTABLE";

TEST(SymbolTable, WithoutSymbolsEveryNameStandsForItself) {
  EXPECT_EQ(SymbolTable().TextOf(u"IDS_NAME"), u"IDS_NAME");
  EXPECT_EQ(SymbolTable().TextOf(u""), u"");
}

TEST(SymbolTable, ASymbolReplacesAWholeTextNeverAPart) {
  const SymbolTable symbols(SymbolTable::Texts{{u"ONOFF", u"0#Off|1#On"}});
  EXPECT_EQ(symbols.TextOf(u"ONOFF"), u"0#Off|1#On");
  EXPECT_EQ(symbols.TextOf(u"ONOFF "), u"ONOFF ");
  EXPECT_EQ(symbols.TextOf(u"onoff"), u"onoff");
  const WideString own = u"own";
  EXPECT_EQ(symbols.ViewOf(own).data(), own.data());
}

TEST(SymbolTable, IsReadFromTheTextsOfItsRegistryKey) {
  tests::TestTerminal terminal;
  auto& key = terminal.Registry().Add(RegistryTree::kLocalMachine, kPath);
  RegistryTree::SetText(key, u"IDS_NAME", u"Network Name");
  RegistryTree::SetNumber(key, u"IDS_COUNT", 5);
  const SymbolTable symbols = SymbolTable::FromRegistry();
  EXPECT_EQ(symbols.TextOf(u"IDS_NAME"), u"Network Name");
  EXPECT_EQ(symbols.TextOf(u"IDS_COUNT"), u"IDS_COUNT");
}

TEST(SymbolTable, IsEmptyWithoutItsRegistryKey) {
  tests::TestTerminal terminal;
  EXPECT_EQ(SymbolTable::FromRegistry().TextOf(u"IDS_NAME"), u"IDS_NAME");
}

}  // namespace
}  // namespace values
