// A whole configuration of a first-time author, examples/forklift: ten slips of ten kinds are found and nothing else
// is, and what is said of it is true at the terminal.
#include "authoring/check_run.h"
#include "authoring/play_session.h"
#include "simulator/dump.h"
#include "tests/authoring/kelconf_run.h"
#include "tests/authoring/storage_folder.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <sstream>

namespace {

using tests::RunKelconf;

std::string ReadFile(const std::filesystem::path& file) {
  std::ostringstream text;
  text << std::ifstream(file, std::ios::binary).rdbuf();
  return text.str();
}

class Forklift : public testing::Test {
 protected:
  Forklift() {
    std::filesystem::copy(tests::kForklift, folder_.Path(),
                          std::filesystem::copy_options::recursive | std::filesystem::copy_options::overwrite_existing);
  }
  std::string Root() const { return folder_.Path().string(); }

  tests::StorageFolder folder_;
};

struct Slip {
  const char* id;
  const char* file;
  const char* good;
  const char* bad;
};
constexpr const char* kMenus = "Windows/ovu.xml";

const Slip kSlips[] = {
    {"mask-excludes-range", kMenus, "<Range>5-600</Range>", "<Range>5-600</Range><TextFmt>##</TextFmt>"},
    {"no-way-back", kMenus, "<DisplayName>Truck</DisplayName>",
     "<DisplayName>Truck</DisplayName><Dependency>IF \"CAN Bus\" EQ 0 THEN NoDisplay</Dependency>"},
    {"rule-name-unknown", kMenus, "IF \"Ignition Off\" EQ 2", "IF Ignition EQ 2"},
    {"command-text-length", kMenus, "<DefVal>1030CR2</DefVal>", "<DefVal>130CR2</DefVal>"},
    {"check-mark-over-name", kMenus, "<DisplayName> EAN", "<DisplayName>EAN"},
    {"fallback-not-a-choice", kMenus, "9600#9600 baud:9600\"", "9600#9600 baud:19200\""},
    {"changes-not-marked", kMenus,
     "<Dependency>IF DHCP EQ 1 THEN NoEdit</Dependency>\n      <_OnExit>FlagChanges</_OnExit>",
     "<Dependency>IF DHCP EQ 1 THEN NoEdit</Dependency>"},
    {"profile-value-missing", "device.txt", "cfg|80211PM|Hall|SSID\tOctet String\thall-trucks\n", ""},
    {"empty-in-condition", kMenus, "IF \"Driver PIN\" EQ \"\"", "IF \"Driver PIN\" EQ Empty"},
    {"comparison-never-true", kMenus, "IF \"Port A\" EQ 1 THEN Display", "IF \"Port A\" EQ Scale THEN Display"},
};

TEST_F(Forklift, TenSlipsAreFoundAndNothingElseIs) {
  for (const Slip& slip : kSlips) {
    std::string text = ReadFile(folder_.Path() / slip.file);
    const std::size_t at = text.find(slip.good);
    ASSERT_NE(std::string::npos, at) << slip.good;
    folder_.Write(slip.file, text.replace(at, std::string_view(slip.good).size(), slip.bad));
  }
  std::vector<std::string> wanted;
  for (const Slip& slip : kSlips) wanted.emplace_back(slip.id);
  std::vector<std::string> found;
  for (const auto& finding : authoring::CheckConfiguration(*folder_.Load())) found.emplace_back(finding.id);
  std::sort(wanted.begin(), wanted.end());
  std::sort(found.begin(), found.end());
  EXPECT_EQ(wanted, found);
}

TEST_F(Forklift, WhySaysWhatHidesALineAndWhatWouldShowIt) {
  const struct {
    const char* line;
    const char* way;
  } hidden[] = {
      {"Light Time", "  - set Backlight (keys 1-2) to Timed (2)\n"},
      {"Off Delay", "  - set Ignition Off (keys 4-5) to Turn off later (2)\n"},
      {"RFID Power", "  - set Port B (keys 6-4) to RFID reader (3)\n"},
      {"Blank Speed", "  - set Blank Screen (keys 3-1) to While driving (1)\n"},
  };
  for (const auto& one : hidden) {
    const std::string said = RunKelconf({"why", Root(), one.line}).out;
    EXPECT_NE(std::string::npos, said.find("hidden, by Dependency")) << said;
    EXPECT_NE(std::string::npos, said.find(one.way)) << said;
  }
}

TEST_F(Forklift, TheKeysThatFindGivesLeadToTheLine) {
  const auto found = nlohmann::json::parse(RunKelconf({"find", Root(), "4242", "--format", "json"}).out);
  std::size_t played = 0;
  for (const auto& entry : found) {
    if (entry["keys"].is_null()) continue;  // it is hidden
    std::string keys = entry["keys"];
    keys.erase(std::remove(keys.begin(), keys.end(), '-'), keys.end());
    authoring::PlaySession session({folder_.Path(), {}});
    for (std::size_t i = 0; i + 1 < keys.size(); ++i) {
      session.Press(std::string_view(keys).substr(i, 1));
      while (session.Screen().windows.back().title == u"Alert") session.Press("Enter");
    }
    const std::string name = entry["name"];
    const std::string line = "\"" + keys.substr(keys.size() - 1) + "  " + name.substr(name.find_first_not_of(' '));
    const std::string screen = simulator::Dump(session.Screen());
    // A line of check marks has a column for them.
    const std::string marked = "\"" + keys.substr(keys.size() - 1) + "  \u221A" + name.substr(1);
    EXPECT_TRUE(screen.find(line) != std::string::npos || screen.find(marked) != std::string::npos)
        << line << " by " << keys << " in\n"
        << screen;
    ++played;
  }
  EXPECT_LE(45u, played);
}

}  // namespace
