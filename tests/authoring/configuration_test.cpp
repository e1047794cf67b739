#include "authoring/configuration.h"

#include "base/utf8.h"
#include "config/text_place.h"
#include "tests/authoring/storage_folder.h"

namespace {

namespace fs = std::filesystem;

using authoring::Configuration;
using authoring::Position;
using tests::StorageFolder;

std::string ShownFrom(const fs::path& root, const Position& position) {
  return fs::relative(position.file, root).generic_string() + ":" + std::to_string(position.line) + ":" +
         std::to_string(position.column);
}

TEST(Configuration, AFolderAFileAndARegistryFileAreLoadedAsTheUtilityDoes) {
  for (const char* path : {"", "Windows/ovu.xml", "registry.reg"}) {
    const auto loaded = Configuration::Load(tests::kDemonstration / path);
    ASSERT_NE(nullptr, loaded.configuration) << loaded.problem;
    const Configuration& configuration = *loaded.configuration;
    EXPECT_EQ(u"Main Menu", configuration.Root().Value(TextId::kDisplayName)) << path;
    EXPECT_TRUE(configuration.Terminal().hasDevice) << path;
    EXPECT_EQ(std::string(path) == "registry.reg", configuration.Index() == nullptr);
  }
}

TEST(Configuration, TheCommandLineNamesAnotherSource) {
  const auto loaded =
      Configuration::Load(tests::kDemonstration, u"HKEY_LOCAL_MACHINE\\SOFTWARE\\Valtorix\\ZEP\\CONFIGAPP");
  ASSERT_NE(nullptr, loaded.configuration) << loaded.problem;
  EXPECT_EQ(nullptr, loaded.configuration->Index());
  EXPECT_NE("", Configuration::Load(tests::kDemonstration, u"HKEY_LOCAL_MACHINE\\Nowhere").problem);
}

TEST(Configuration, WhatCannotBeUsedIsNamedInOneLine) {
  StorageFolder folder;
  EXPECT_NE(std::string::npos, Configuration::Load(folder.Path()).problem.find("there is no configuration"));
  folder.WriteMenu("").Write("device.txt", "1.2\tInteger\t1\n1.3\tInteger\n");
  const std::string problem = Configuration::Load(folder.Path()).problem;
  EXPECT_NE(std::string::npos, problem.find("device.txt:2: ")) << problem;
  EXPECT_EQ(std::string::npos, problem.find('\n'));
  EXPECT_NE("", Configuration::Load(folder.Path() / "nothing").problem);
}

TEST(Configuration, AFileWhoseNameIsNotUtf8IsLoadedUnlessAnotherReadsTheSame) {
  StorageFolder folder;
  const auto load = [&folder](const char* name) { return Configuration::Load(folder.Path() / name); };
  folder.Write("k\xE4se.xml", "<GROUP name=\"R\"><DisplayName>Cheese</DisplayName></GROUP>");
  ASSERT_EQ("", load("k\xE4se.xml").problem);
  EXPECT_EQ((folder.Path() / "k\xE4se.xml").string(), load("k\xE4se.xml").configuration->File());
  folder.Write("k\xE3se.xml", "<GROUP name=\"R\"><DisplayName>Other</DisplayName></GROUP>");
  EXPECT_EQ(u"Other", load("k\xE3se.xml").configuration->Root().Value(TextId::kDisplayName));
  EXPECT_EQ((folder.Path() / "k\xE4se.xml").string() +
                ": another file's name reads the same in the terminal, which takes that one: " +
                (folder.Path() / "k\xE3se.xml").string(),
            load("k\xE4se.xml").problem);
}

TEST(Configuration, PlacesInShortAndLongLinesAreThoseOfTheReader) {
  std::string wide;
  for (int i = 0; i < 900; ++i) wide += i % 7 == 0 ? "\xF0\x9F\x98\x80\xC3\xA9" : "<A>b</A>\t";
  std::string lines;
  for (int i = 0; i < 300; ++i) lines += std::string(static_cast<std::size_t>(i % 5), ' ') + "<B/>\n";
  StorageFolder folder;
  for (const std::string& text :
       {"<GROUP name=\"R\">" + wide + "</GROUP>", "\xEF\xBB\xBF<GROUP name=\"R\">" + lines + wide + "</GROUP>\n",
        "<GROUP name=\"R\">" + wide + "\n" + wide + lines + "</GROUP>"}) {
    const auto configuration = folder.Write("Windows/ovu.xml", text).Load();
    ASSERT_NE(nullptr, configuration);
    const WideStringView read = configuration->Index()->Text().View();
    for (std::size_t at = 0; at <= read.size(); at += at + 5 < read.size() ? 5 : 1) {
      const config::TextPlace place = config::PlaceIn(read, at);
      EXPECT_EQ((Position{configuration->File(), place.line, place.column}), configuration->PositionAt(at)) << at;
    }
  }
}

TEST(Configuration, ADocumentThatIsNotWellFormedIsReportedInTheReadersWords) {
  StorageFolder folder;
  folder.Write("Windows/ovu.xml", "<GROUP name=\"R\">\n  <GROUP name=\"A\">\n</GRUOP></GROUP>");
  const auto configuration = folder.Load();
  ASSERT_EQ(1u, configuration->BrokenDocuments().size());
  EXPECT_FALSE(configuration->HasTree());
  const authoring::BrokenDocument& broken = configuration->BrokenDocuments()[0];
  EXPECT_TRUE(broken.reason.starts_with(u"End tag does not correspond to GROUP")) << base::ToUtf8(broken.reason);
  EXPECT_EQ("Windows/ovu.xml:3:1", ShownFrom(folder.Path(), broken.position));
}

TEST(Configuration, WhatIsNoSuchTextAtAllIsToldApartFromASlip) {
  using namespace std::string_view_literals;
  const struct {
    std::string_view text;
    const char* mend;
  } cases[] = {
      {"", "Write a GROUP with a name into the file."},
      {"\xEF\xBB\xBF", "Write a GROUP with a name into the file."},
      {"\xFF\xFE<\0G\0"sv, "Save the file as UTF-8: this is UTF-16, or no text at all."},
      {"<\0G\0R\0"sv, "Save the file as UTF-8: this is UTF-16, or no text at all."},
      {"<GROUP name=\"R\">", "Mend the tag there, or the one that is open."},
  };
  for (const auto& c : cases) {
    StorageFolder folder;
    folder.Write("Windows/ovu.xml", std::string(c.text));
    const auto configuration = folder.Load();
    ASSERT_EQ(1u, configuration->BrokenDocuments().size()) << c.text;
    EXPECT_EQ(c.mend, configuration->BrokenDocuments()[0].mend) << c.text;
  }
}

TEST(Configuration, AProblemNamesWhatWasGiven) {
  StorageFolder folder;
  folder.Write("a.reg", "REGEDIT4\r\n");
  const std::string file = (folder.Path() / "a.reg").string();
  EXPECT_TRUE(Configuration::Load(file).problem.starts_with(file + ": there is no configuration; "));
}

TEST(Configuration, KeysAndValuesStandSomewhere) {
  StorageFolder folder;
  folder.WriteMenu(
      "  <GROUP name=\"A\">\n"
      "    <DisplayName>Name</DisplayName>\n"
      "    <Dependency>\n IF &quot;A B&quot; EQ 1</Dependency>\n"
      "  </GROUP>\n");
  const auto configuration = folder.Load();
  const config::ConfigKey& key = *configuration->Tree()->Find(u"R\\A");
  const auto shown = [&](const Position& position) { return ShownFrom(folder.Path(), position); };
  EXPECT_EQ("Windows/ovu.xml:2:3", shown(configuration->PositionOf(key)));
  EXPECT_EQ("Windows/ovu.xml:3:5", shown(configuration->PositionOf(key, u"DisplayName")));
  EXPECT_EQ("Windows/ovu.xml:2:3", shown(configuration->PositionOf(key, u"OID")));
  // Counted in the text as it reads: a line feed, " IF ", then a quote that is written as a reference.
  EXPECT_EQ("Windows/ovu.xml:5:5", shown(configuration->PositionOf(key, u"Dependency", 5)));
  EXPECT_EQ("Windows/ovu.xml:5:11", shown(configuration->PositionOf(key, u"Dependency", 6)));
}

TEST(Configuration, LoadingLeavesTheStorageAsItIs) {
  StorageFolder folder;
  const std::string twice = "1.2\tInteger\t1\n1.2\tInteger\t2\n";
  folder.WriteMenu("").Write("device.txt", twice);
  {
    const auto configuration = folder.Load();
    EXPECT_EQ(u"2", configuration->Terminal().device.at(u"1.2").line.value);
    EXPECT_EQ(2u, configuration->Terminal().device.at(u"1.2").number);
  }
  std::ifstream file(folder.Path() / "device.txt");
  EXPECT_EQ(twice, std::string(std::istreambuf_iterator<char>(file), {}));
}

}  // namespace
