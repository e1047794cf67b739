#include "config/config_source.h"

#include "base/utf8.h"
#include "config/data_store.h"
#include "config/shared_text.h"
#include "platform/host/environment.h"
#include "platform/host/registry_tree.h"
#include "tests/printing.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace config {
namespace {

using platform::host::RegistryTree;

constexpr WideStringView kDefaultKey = u"SOFTWARE\\Valtorix\\ZEP\\CONFIGAPP";
constexpr WideStringView kDefaultRegistryPath = u"HKEY_LOCAL_MACHINE\\SOFTWARE\\Valtorix\\ZEP\\CONFIGAPP";

using Lines = std::vector<WideString>;

// A terminal with files and a registry.
class ConfigSourceTest : public testing::Test {
 protected:
  ConfigSourceTest() {
    std::filesystem::create_directories(root_ / "Windows");
    platform::host::Environment environment;
    environment.root = root_;
    environment.registry = registry_;
    environment.observer = &observer_;
    installed_ = std::make_unique<platform::host::InstalledEnvironment>(std::move(environment));
  }
  ~ConfigSourceTest() override { std::filesystem::remove_all(root_); }

  void Write(const std::string& path, const std::string& bytes) const {
    std::ofstream(root_ / path, std::ios::binary) << bytes;
  }

  std::optional<ConfigSource> Select(WideStringView commandLine) {
    SelectedSource selected = SelectSource(commandLine);
    refusals_.clear();
    for (const SourceRefusal& refusal : selected.refusals) {
      refusals_.push_back((refusal.isMalformed ? u"malformed " : u"") + refusal.Line());
    }
    return std::move(selected.source);
  }
  // Of the last selection.
  const Lines& Refusals() const { return refusals_; }
  Lines TakeDebugLines() { return std::exchange(observer_.lines, {}); }

  const std::shared_ptr<RegistryTree> registry_ = std::make_shared<RegistryTree>();

 private:
  class DebugLines final : public platform::host::Observer {
   public:
    void Debug(WideStringView line) override { lines.emplace_back(line); }
    void Pulsed(WideStringView) override {}
    void Started(WideStringView, WideStringView, std::uint32_t) override {}
    void WarmReset() override {}
    Lines lines;
  };

  const std::filesystem::path root_ =
      std::filesystem::path(testing::TempDir()) /
      ("config_source_" + std::string(testing::UnitTest::GetInstance()->current_test_info()->name()));
  Lines refusals_;
  DebugLines observer_;
  std::unique_ptr<platform::host::InstalledEnvironment> installed_;
};

TEST_F(ConfigSourceTest, ACommandLineThatBeginsWithTheRootNameIsARegistryKey) {
  registry_->Add(RegistryTree::kLocalMachine, u"Menu");
  const auto source = Select(u"HKEY_LOCAL_MACHINE\\Menu");
  ASSERT_TRUE(source);
  EXPECT_EQ(u"HKEY_LOCAL_MACHINE\\Menu", source->path);
  EXPECT_EQ(nullptr, source->document);
  EXPECT_EQ(Lines(), Refusals());
}

TEST_F(ConfigSourceTest, ARegistryKeyThatCannotBeOpenedIsAnError) {
  registry_->Add(RegistryTree::kLocalMachine, kDefaultKey);  // there is no fall-back to it
  EXPECT_FALSE(Select(u"HKEY_LOCAL_MACHINE\\Missing"));
  EXPECT_EQ(Lines{u"HKEY_LOCAL_MACHINE\\Missing: Cannot be opened"}, Refusals());
}

TEST_F(ConfigSourceTest, TheRootNameLaterInTheCommandLineIsPartOfAFileName) {
  registry_->Add(RegistryTree::kLocalMachine, u"Menu");
  Write("x HKEY_LOCAL_MACHINE", "<GROUP name='FromFile'/>");
  const auto source = Select(u"\\x HKEY_LOCAL_MACHINE");
  ASSERT_TRUE(source);
  EXPECT_NE(nullptr, source->document);
  EXPECT_EQ(u"FromFile", source->path);
}

TEST_F(ConfigSourceTest, TheRootNameInLowerCaseIsAFileName) {
  registry_->Add(RegistryTree::kLocalMachine, u"Menu");
  EXPECT_FALSE(Select(u"hkey_local_machine\\Menu"));
  EXPECT_EQ(Lines{u"hkey_local_machine\\Menu: Cannot be read"}, Refusals());
}

TEST_F(ConfigSourceTest, AFileThatIsNamedIsTheSource) {
  Write("menu.xml", "<?xml version='1.0'?>\n<Other/>");
  Write("Windows/ovu.xml", "<GROUP name='Default'/>");
  EXPECT_FALSE(Select(u"\\menu.xml"));
  EXPECT_EQ(Lines{u"\\menu.xml:2:1: The first element is Other instead of GROUP"}, Refusals());
  Write("menu.xml", "<GROUP name='Root &amp; all'><DisplayName>\xC3\xA4</DisplayName></GROUP>");
  const auto source = Select(u"\\menu.xml");
  ASSERT_TRUE(source);
  EXPECT_EQ(u"Root & all", source->path);
  const PDataStore tree(source->path, source->document, {}, 1);
  EXPECT_EQ(u"\u00E4", tree.Find(source->path)->Value(u"DisplayName"));
}

TEST_F(ConfigSourceTest, AFileThatIsNamedNeverFallsBackToTheRegistry) {
  registry_->Add(RegistryTree::kLocalMachine, kDefaultKey);
  Write("Windows/ovu.xml", "<GROUP name='Default'/>");
  Write("broken.xml", "<GROUP name='x'>");
  EXPECT_FALSE(Select(u"\\missing.xml"));
  EXPECT_EQ(Lines{u"\\missing.xml: Cannot be read"}, Refusals());
  EXPECT_FALSE(Select(u"\\broken.xml"));
  EXPECT_EQ(Lines{u"malformed \\broken.xml:1:17: Element tag not found (inside GROUP, which begins at 1:1)"},
            Refusals());
}

TEST_F(ConfigSourceTest, WithoutACommandLineTheDefaultFileComesFirst) {
  registry_->Add(RegistryTree::kLocalMachine, kDefaultKey);
  Write("Windows/ovu.xml", "<GROUP name='Default'/>");
  const auto source = Select(u"");
  ASSERT_TRUE(source);
  EXPECT_NE(nullptr, source->document);
  EXPECT_EQ(u"Default", source->path);
}

TEST_F(ConfigSourceTest, WithoutTheDefaultFileTheDefaultKeyIsTaken) {
  registry_->Add(RegistryTree::kLocalMachine, kDefaultKey);
  const auto source = Select(u"");
  ASSERT_TRUE(source);
  EXPECT_EQ(kDefaultRegistryPath, source->path);
  EXPECT_EQ(nullptr, source->document);
  EXPECT_EQ(Lines(), Refusals());
}

TEST_F(ConfigSourceTest, ABrokenDefaultFileIsShownBeforeTheDefaultKeyIsTaken) {
  registry_->Add(RegistryTree::kLocalMachine, kDefaultKey);
  Write("Windows/ovu.xml", "<GROUP>");
  EXPECT_TRUE(Select(u""));
  EXPECT_EQ(Lines{u"malformed \\Windows\\ovu.xml:1:8: Element tag not found (inside GROUP, which begins at 1:1)"},
            Refusals());
}

TEST_F(ConfigSourceTest, WithoutAnySourceThereIsOneMessage) {
  EXPECT_FALSE(Select(u""));
  EXPECT_EQ((Lines{u"\\Windows\\ovu.xml: Cannot be read", WideString(kDefaultRegistryPath) + u": Cannot be opened"}),
            Refusals());
}

TEST_F(ConfigSourceTest, AnEmptyFileIsNotWellFormed) {
  Write("empty.xml", "");
  EXPECT_FALSE(Select(u"\\empty.xml"));
  EXPECT_EQ(Lines{u"malformed \\empty.xml:1:1: Element tag not found"}, Refusals());
}

TEST_F(ConfigSourceTest, WhyAFileIsRefusedGoesToTheDebugOutput) {
  Write("menu.xml", "\xEF\xBB\xBF<GROUP name='A'>\r\n  <Item>\r\n  \xC3\xA4 </Ittem>\r\n</GROUP>");
  EXPECT_FALSE(Select(u"\\menu.xml"));
  const WideString line = u"\\menu.xml:3:5: End tag does not correspond to Item (inside Item, which begins at 2:3)";
  EXPECT_EQ(Lines{u"malformed " + line}, Refusals());
  EXPECT_EQ(Lines{u"FAILED: ReadDocument  " + line + u"\r\n"}, TakeDebugLines());

  Write("menu.xml", "\n <LIST/>");
  EXPECT_FALSE(Select(u"\\menu.xml"));
  EXPECT_EQ(Lines{u"FAILED: ReadDocument  \\menu.xml:2:2: The first element is LIST instead of GROUP\r\n"},
            TakeDebugLines());

  Write("menu.xml", "<GROUP name='A'/>");
  EXPECT_TRUE(Select(u"\\menu.xml"));  // there is no group file, which is as it should be
  EXPECT_EQ(Lines(), TakeDebugLines());
}

TEST_F(ConfigSourceTest, AGroupWithoutANameIsARootWithoutAName) {
  Write("menu.xml", "<GROUP/>");
  const auto source = Select(u"\\menu.xml");
  ASSERT_TRUE(source);
  EXPECT_EQ(u"", source->path);
}

TEST_F(ConfigSourceTest, TheGroupFileMakesNoDifference) {
  Write("menu.xml", "<GROUP name='A'><GROUP name='B'/></GROUP>");
  for (const char* group : {"<GROUP name='A\\B'><V>not merged</V></GROUP>", "<GROUP name='Missing'/>", "<Other/>"}) {
    Write("Windows/ekt.xml", group);
    const auto source = Select(u"\\menu.xml");
    ASSERT_TRUE(source) << group;
    EXPECT_EQ(u"A", source->path);
    EXPECT_TRUE(PDataStore(u"A", source->document, {}, 9).Find(u"A\\B")->Values().empty());
  }
  EXPECT_EQ(Lines(), Refusals());
}

TEST_F(ConfigSourceTest, ABrokenGroupFileIsShownAndPassedOver) {
  Write("menu.xml", "<GROUP name='A'/>");
  Write("Windows/ekt.xml", "<GROUP name='A'>");
  EXPECT_TRUE(Select(u"\\menu.xml"));
  EXPECT_EQ(Lines{u"malformed \\windows\\ekt.xml:1:17: Element tag not found (inside GROUP, which begins at 1:1)"},
            Refusals());
}

TEST_F(ConfigSourceTest, TheGroupFileIsNotReadWhenThereIsNoRoot) {
  Write("menu.xml", "<Other/>");
  Write("Windows/ekt.xml", "broken");
  EXPECT_FALSE(Select(u"\\menu.xml"));
  EXPECT_EQ(Lines{u"\\menu.xml:1:1: The first element is Other instead of GROUP"}, Refusals());
}

TEST_F(ConfigSourceTest, OtherEncodingsAreReadAsIfTheyWereUtf8) {
  Write("menu.xml", "\xEF\xBB\xBF<GROUP name='caf\xE9'><V>\xF0\x9F\x98\x80 \xFF</V></GROUP>");
  const auto source = Select(u"\\menu.xml");
  ASSERT_TRUE(source);
  EXPECT_EQ(u"caf\uFFFD", source->path);
  EXPECT_EQ(u"\U0001F600 \uFFFD", PDataStore(source->path, source->document, {}, 0).Find(source->path)->Value(u"V"));
}

TEST_F(ConfigSourceTest, TextsOfFilesAreConvertedInPlace) {
  std::string bytes = "<a>";
  for (int i = 0; i < 500; ++i) {
    bytes += "plain text of some length ";
    bytes += i % 3 == 0 ? "\xE4\xB8\xAD" : i % 3 == 1 ? "\xF0\x9F\x98\x80" : "\xE4\xB8";
    for (const std::string& end : {std::string("</a>"), std::string("</a>\n"), std::string("</a>") + bytes}) {
      Write("text", bytes + end);
      std::optional<Utf8Text> read = ReadTextFile(u"\\text");
      ASSERT_TRUE(read);
      XmlIndex index;
      ASSERT_TRUE(index.Parse(std::move(*read)));
      const WideStringView text = index.Text().View();
      ASSERT_EQ(base::FromUtf8(bytes + end), text) << i;
      ASSERT_EQ(WideString(SharedText::kPadding, u'\0'),
                WideStringView(text.data() + text.size(), SharedText::kPadding));
    }
    if (i == 40) i = 480;
  }
  EXPECT_FALSE(ReadTextFile(u"\\missing"));
}

}  // namespace
}  // namespace config
