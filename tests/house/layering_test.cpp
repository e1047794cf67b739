// The design's floors, held against the sources: who may include whom, and where the system's own headers may appear.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace {

namespace fs = std::filesystem;

// From the bottom up: a file includes its own folder and those before it.
const std::vector<std::string> kFloors = {"base", "platform", "config", "values", "model", "rules", "ui", "app"};

const std::set<std::string> kStandardHeaders = {
    "algorithm",
    "array",
    "atomic",
    "bit",
    "bitset",
    "cctype",
    "charconv",
    "chrono",
    "climits",
    "cmath",
    "compare",
    "concepts",
    "condition_variable",
    "cstddef",
    "cstdint",
    "cstdio",
    "cstdlib",
    "cstring",
    "ctime",
    "cwchar",
    "deque",
    "exception",
    "filesystem",
    "fstream",
    "functional",
    "initializer_list",
    "iosfwd",
    "iostream",
    "istream",
    "iterator",
    "limits",
    "list",
    "map",
    "memory",
    "mutex",
    "new",
    "numeric",
    "optional",
    "ostream",
    "queue",
    "random",
    "ranges",
    "set",
    "shared_mutex",
    "span",
    "sstream",
    "stack",
    "stdexcept",
    "string",
    "string_view",
    "system_error",
    "thread",
    "tuple",
    "type_traits",
    "typeinfo",
    "unordered_map",
    "unordered_set",
    "utility",
    "variant",
    "vector",
    "version",
    "cassert",
};

struct Include {
  std::string file;  // from the project's folder
  std::string line;
  std::string header;
  bool isSystem = false;
};

bool IsSource(const fs::path& path) {
  const std::string extension = path.extension().string();
  return extension == ".h" || extension == ".cpp" || extension == ".inc";
}

std::vector<std::string> SourcesOf(const std::string& folder) {
  const fs::path home = KEL_SOURCE_DIR;
  std::vector<std::string> files;
  for (const auto& entry : fs::recursive_directory_iterator(home / folder)) {
    if (entry.is_regular_file() && IsSource(entry.path())) {
      files.push_back(fs::relative(entry.path(), home).generic_string());
    }
  }
  return files;
}

template <typename Visit>
void ForEachLine(const std::string& file, const Visit& visit) {
  std::ifstream input(fs::path(KEL_SOURCE_DIR) / file);
  for (std::string line; std::getline(input, line);) visit(line);
}

std::vector<Include> IncludesOf(const std::string& file) {
  std::vector<Include> includes;
  ForEachLine(file, [&](const std::string& line) {
    const std::size_t hash = line.find_first_not_of(" \t");
    if (hash == std::string::npos || line[hash] != '#' || line.find("include") == std::string::npos) return;
    const std::size_t open = line.find_first_of("\"<");
    const std::size_t close = open == std::string::npos ? open : line.find_first_of("\">", open + 1);
    if (close == std::string::npos) return;
    includes.push_back({file, line, line.substr(open + 1, close - open - 1), line[open] == '<'});
  });
  return includes;
}

bool StartsWith(std::string_view text, std::string_view start) { return text.starts_with(start); }

std::string FolderOf(std::string_view path) { return std::string(path.substr(0, path.find('/'))); }

bool IsOfOnePlatform(std::string_view file) {
  return StartsWith(file, "platform/host/") || StartsWith(file, "platform/win32/");
}

// The compiler's own headers of a processor's instructions, and the sources that have other ways for other processors.
bool IsOfTheProcessor(const Include& include) {
  static const std::set<std::string, std::less<>> kHeaders = {"emmintrin.h", "immintrin.h", "tmmintrin.h"};
  static const std::set<std::string, std::less<>> kSources = {"base/utf8_blocks.cpp", "config/text_blocks_avx2.cpp",
                                                              "config/text_blocks_sse2.cpp"};
  return kHeaders.contains(include.header) && kSources.contains(include.file);
}

// What is wrong with an include of a file on the floor of that number; empty when it may stand.
std::string Wrong(const Include& include, std::size_t floor) {
  if (include.isSystem) {
    const bool allowed =
        kStandardHeaders.contains(include.header) || IsOfOnePlatform(include.file) || IsOfTheProcessor(include);
    return allowed ? "" : "a header of the system outside its platform's folder";
  }
  const std::string folder = FolderOf(include.header);
  const auto target = std::find(kFloors.begin(), kFloors.end(), folder);
  if (target == kFloors.end()) return "not one of the floors";
  if (static_cast<std::size_t>(target - kFloors.begin()) > floor) return "points up the floors";
  if (!IsOfOnePlatform(include.header)) return "";
  const std::string own = include.header.substr(0, include.header.find('/', std::string("platform/").size()) + 1);
  return StartsWith(include.file, own) ? "" : "shared code knows no platform";
}

TEST(Layering, NoIncludePointsUpTheFloorsAndSystemHeadersStayInTheirPlace) {
  std::size_t seen = 0;
  for (std::size_t floor = 0; floor < kFloors.size(); ++floor) {
    for (const std::string& file : SourcesOf(kFloors[floor])) {
      for (const Include& include : IncludesOf(file)) {
        ++seen;
        EXPECT_EQ("", Wrong(include, floor)) << file << ": " << include.line;
      }
    }
  }
  EXPECT_GT(seen, 100u);
}

TEST(Layering, WhatWouldBeWrongIsFound) {
  const struct {
    Include include;
    std::size_t floor;
    const char* wrong;
  } cases[] = {
      {{"base/x.cpp", "", "values/range.h", false}, 0, "points up the floors"},
      {{"values/x.cpp", "", "base/format.h", false}, 3, ""},
      {{"app/x.cpp", "", "simulator/dump.h", false}, 7, "not one of the floors"},
      {{"app/x.cpp", "", "windows.h", true}, 7, "a header of the system outside its platform's folder"},
      {{"platform/win32/x.cpp", "", "windows.h", true}, 1, ""},
      {{"platform/host/x.cpp", "", "platform/host/session.h", false}, 1, ""},
      {{"platform/host/x.cpp", "", "platform/win32/handle.h", false}, 1, "shared code knows no platform"},
      {{"ui/x.cpp", "", "platform/host/session.h", false}, 6, "shared code knows no platform"},
      {{"config/x.cpp", "", "vector", true}, 2, ""},
      {{"config/text_blocks_avx2.cpp", "", "immintrin.h", true}, 2, ""},
      {{"config/x.cpp", "", "immintrin.h", true}, 2, "a header of the system outside its platform's folder"},
  };
  for (const auto& c : cases) EXPECT_EQ(c.wrong, Wrong(c.include, c.floor)) << c.include.file << c.include.header;
}

// What stands beside the house, for authors: a folder, the folders beside the house that it may include, and the
// libraries it may use. All of them stand on the floors.
struct Annex {
  std::string folder;
  std::set<std::string> folders;
  std::vector<std::string> libraries;  // beginnings of header names
};
const std::vector<Annex> kAnnexes = {
    {"authoring", {"authoring", "simulator"}, {"nlohmann/"}},
    {"snmp", {"snmp", "simulator"}, {}},
    {"settings", {"settings", "authoring", "simulator"}, {"yaml-cpp/", "nlohmann/", "openssl/"}},
    {"tools", {"tools", "authoring", "settings", "simulator", "snmp"}, {"nlohmann/", "CLI/"}},
};

// The only sources that see net-snmp's library, and with it the sockets.
const std::set<std::string> kOfNetSnmp = {
    "snmp/net_session.cpp", "snmp/net_snmp_library.cpp", "snmp/net_snmp_library.h", "snmp/net_snmp_user.cpp",
    "snmp/net_snmp_user.h", "snmp/pdu_translation.cpp",  "snmp/pdu_translation.h",  "snmp/responder.cpp"};

// Of the simulator, what is on the network needs the device's store alone, and the files it is kept in.
const std::set<std::string> kStoreOfTheDevice = {"simulator/device_store.h", "simulator/text_file.h"};

std::string WrongInAnnex(const Include& include, const Annex& annex) {
  if (include.isSystem) {
    if (kOfNetSnmp.contains(include.file)) return "";
    const auto isOf = [&](const std::string& library) { return StartsWith(include.header, library); };
    const bool allowed =
        kStandardHeaders.contains(include.header) || std::any_of(annex.libraries.begin(), annex.libraries.end(), isOf);
    // Whether anybody watches, and in which characters, is what the standard library cannot say; nor can it keep a file
    // from others, or wait for the disk.
    const bool isOfTheSystem =
        StartsWith(include.file, "tools/console_") || include.file == "settings/private_file.cpp";
    return allowed || isOfTheSystem ? "" : "a header of the system";
  }
  if (annex.folder == "tools" && include.header == "version.h") return "";  // the build makes it
  const std::string folder = FolderOf(include.header);
  const bool isFloor = std::find(kFloors.begin(), kFloors.end(), folder) != kFloors.end();
  if (annex.folder == "snmp" && folder == "simulator" && !kStoreOfTheDevice.contains(include.header)) {
    return "more of the simulator than the device's store";
  }
  if (annex.folder == "snmp" && isFloor && folder != "base" && folder != "platform")
    return "a floor above the platform";
  return isFloor || annex.folders.contains(folder) ? "" : "a folder it does not stand on";
}

TEST(Layering, WhatIsForAuthorsStandsOnTheFloorsAndOnStandardHeaders) {
  for (const Annex& annex : kAnnexes) {
    std::size_t seen = 0;
    for (const std::string& file : SourcesOf(annex.folder)) {
      for (const Include& include : IncludesOf(file)) {
        ++seen;
        EXPECT_EQ("", WrongInAnnex(include, annex)) << file << ": " << include.line;
      }
    }
    EXPECT_GT(seen, 10u) << annex.folder;
  }
  const Include upwards{"authoring/x.cpp", "", "tools/console.h", false};
  const Include ofTheSystem{"authoring/x.cpp", "", "unistd.h", true};
  EXPECT_EQ("a folder it does not stand on", WrongInAnnex(upwards, kAnnexes[0]));
  EXPECT_EQ("a header of the system", WrongInAnnex(ofTheSystem, kAnnexes[0]));
  const struct {
    Include include;
    const char* wrong;
  } cases[] = {
      {{"snmp/x.cpp", "", "simulator/device_store.h", false}, ""},
      {{"snmp/x.cpp", "", "simulator/terminal.h", false}, "more of the simulator than the device's store"},
      {{"snmp/x.cpp", "", "model/menu_item.h", false}, "a floor above the platform"},
      {{"snmp/x.cpp", "", "net-snmp/net-snmp-includes.h", true}, "a header of the system"},
      {{"snmp/responder.cpp", "", "net-snmp/net-snmp-includes.h", true}, ""},
  };
  for (const auto& c : cases) EXPECT_EQ(c.wrong, WrongInAnnex(c.include, kAnnexes[1])) << c.include.header;
}

TEST(Layering, SharedCodeDoesNotAskForThePlatform) {
  for (const std::string& floor : kFloors) {
    for (const std::string& file : SourcesOf(floor)) {
      if (IsOfOnePlatform(file)) continue;
      ForEachLine(file, [&](const std::string& line) {
        const std::size_t first = line.find_first_not_of(" \t");
        if (first == std::string::npos || line[first] != '#') return;
        for (const char* word : {"_WIN32", "__linux__", "__unix__", "UNDER_CE"}) {
          EXPECT_EQ(std::string::npos, line.find(word)) << file << ": " << line;
        }
      });
    }
  }
}

TEST(Layering, OfTheSimulatorOnlyItsWindowsPartsIncludeWindows) {
  for (const std::string& file : SourcesOf("simulator")) {
    if (StartsWith(file, "simulator/windows/")) continue;
    for (const Include& include : IncludesOf(file)) {
      const bool isWindows = include.header == "windows.h" || StartsWith(include.header, "platform/win32/");
      EXPECT_FALSE(isWindows) << file << ": " << include.line;
    }
  }
}

}  // namespace
