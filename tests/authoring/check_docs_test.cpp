// docs/checks.md, the table of checks and what is found belong together.
#include "authoring/check_run.h"
#include "authoring/checks/check.h"
#include "base/utf8.h"
#include "tests/authoring/storage_folder.h"

#include <map>
#include <set>
#include <sstream>

namespace {

struct Section {
  std::string id;
  std::string severity;
  std::string language;  // of its document: "xml" or "xml document"
  std::map<std::string, std::string> blocks;
  std::set<std::string> comesWith;
};

const std::map<std::string, std::string> kFiles = {
    {"device", "device.txt"}, {"tables", "tables.txt"}, {"registry", "registry.reg"}};

std::vector<Section> ReadSections() {
  std::vector<Section> sections;
  std::ifstream page(std::filesystem::path(KEL_DOCS) / "checks.md");
  std::string block;  // that is open
  bool inBlock = false;
  for (std::string line; std::getline(page, line);) {
    if (line.starts_with("```")) {
      inBlock = !inBlock;
      if (inBlock) block = line.substr(3);
      if (inBlock && block.starts_with("xml") && !sections.empty()) sections.back().language = block;
      continue;
    }
    if (inBlock) {
      if (!sections.empty()) sections.back().blocks[block] += line + "\n";
    } else if (line.starts_with("### `")) {
      const std::size_t end = line.find('`', 5);
      const std::size_t open = line.find('(', end);
      sections.push_back({line.substr(5, end - 5), line.substr(open + 1, line.find(')') - open - 1), {}, {}, {}});
    } else if (line.starts_with("Comes with ") && !sections.empty()) {
      for (std::size_t at = line.find('`'); at != std::string::npos; at = line.find('`', at)) {
        const std::size_t end = line.find('`', at + 1);
        sections.back().comesWith.insert(line.substr(at + 1, end - at - 1));
        at = end + 1;
      }
    }
  }
  return sections;
}

std::set<std::string> FoundIn(const Section& section, std::string& said) {
  tests::StorageFolder folder;
  const std::string document = section.blocks.at(section.language);
  if (section.language == "xml") {
    folder.WriteMenu(document);
  } else {
    folder.Write("Windows/ovu.xml", document);
  }
  for (const auto& [block, file] : kFiles) {
    if (section.blocks.contains(block)) folder.Write(file, section.blocks.at(block));
  }
  std::set<std::string> ids;
  for (const auto& finding : authoring::CheckConfiguration(*folder.Load())) {
    ids.emplace(finding.id);
    said += std::string(finding.id) + ": " + finding.sentence + "\n";
    EXPECT_NE(0u, finding.position.line) << finding.id;
  }
  return ids;
}

TEST(CheckDocs, EveryCheckHasItsSectionInTheOrderOfTheTable) {
  std::vector<std::string> onPage;
  for (const Section& section : ReadSections()) onPage.push_back(section.id + " " + section.severity);
  std::vector<std::string> inTable;
  for (const authoring::Check& check : authoring::Checks()) {
    inTable.push_back(std::string(check.id) + " " + std::string(NameOf(check.severity)));
  }
  EXPECT_EQ(inTable, onPage);
  EXPECT_GE(inTable.size(), 40u);
  EXPECT_EQ(inTable.size(), std::set<std::string>(inTable.begin(), inTable.end()).size());
}

TEST(CheckDocs, EveryExampleIsFoundAndNothingElseIsSaid) {
  for (const Section& section : ReadSections()) {
    ASSERT_TRUE(section.blocks.contains(section.language)) << section.id << " has no example";
    std::string said;
    std::set<std::string> expected = section.comesWith;
    expected.insert(section.id);
    EXPECT_EQ(expected, FoundIn(section, said)) << section.id << "\n" << said;
  }
}

}  // namespace
