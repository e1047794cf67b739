// How long kelconf takes, beside loading the configuration and building its key tree in the same run. At the end stands
// what is asked of it, with the medians that were measured.
#include "authoring/check_run.h"
#include "authoring/search.h"
#include "base/utf8.h"

#include <malloc.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

constexpr int kRounds = 7;
constexpr std::size_t kFew = 1'000;
constexpr std::size_t kUsual = 14'000;
constexpr std::size_t kMany = 100'000;

// Milliseconds of processor time.
double TimeOf(const std::function<void()>& work) {
  const std::clock_t start = std::clock();
  work();
  return 1000.0 * static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

double MedianOf(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

// The median of some rounds.
double Median(const std::function<void()>& work) {
  std::vector<double> times;
  for (int round = 0; round < kRounds; ++round) times.push_back(TimeOf(work));
  return MedianOf(std::move(times));
}

// Numbered names, short enough for a menu line, with rules that hold: as an author writes them.
std::string ConfigurationOf(std::size_t properties) {
  std::string text = "<GROUP name=\"CONFIGAPP\">\n<DisplayName>Main Menu</DisplayName>\n";
  const auto value = [&text](const char* name, const std::string& of) {
    text.append("    <").append(name).append(">").append(of).append("</").append(name).append(">\n");
  };
  for (std::size_t i = 0; i < properties; ++i) {
    const std::string n = std::to_string(i);
    if (i % 10 == 0) {
      text += (i == 0 ? "" : "</GROUP>\n") + std::string("<GROUP name=\"Menu") + n + "\">\n";
      value("DisplayName", "Menu " + n);
    }
    text += "  <GROUP name=\"Property" + n + "\">\n";
    value("Ordinal", std::to_string(i % 10 + 1));
    value("DisplayName", "Level " + n);
    value("OID", "1.3.6.1.4.1.4242.10.7." + n + ".0");
    value("Type", "Integer");
    if (i % 2 == 0) value("ChoiceFmt", "1#Enabled|2#Disabled|3#When docked|4#As the host says");
    if (i % 2 == 1) value("Range", "1-128");
    if (i % 2 == 1) value("Dependency", "IF \"Level " + std::to_string(i - 1) + "\" EQ 2 THEN NoEdit");
    value("DefVal", std::to_string(i % 4 + 1));
    text += "  </GROUP>\n";
  }
  return text + "</GROUP>\n</GROUP>\n";
}

class Storage {
 public:
  explicit Storage(std::size_t properties)
      : path_(fs::temp_directory_path() / ("authoring_bench_" + std::to_string(properties))) {
    fs::remove_all(path_);
    fs::create_directories(path_ / "Windows");
    std::ofstream(path_ / "Windows/ovu.xml", std::ios::binary) << ConfigurationOf(properties);
    std::ofstream device(path_ / "device.txt", std::ios::binary);
    for (std::size_t i = 0; i < properties; ++i) {
      device << "1.3.6.1.4.1.4242.10.7." << i << ".0\tInteger\t" << i % 4 + 1 << '\n';
    }
  }
  ~Storage() { fs::remove_all(path_); }
  Storage(const Storage&) = delete;
  Storage& operator=(const Storage&) = delete;

  std::unique_ptr<authoring::Configuration> Load() const {
    auto loaded = authoring::Configuration::Load(path_);
    if (!loaded.configuration) std::abort();
    return std::move(loaded.configuration);
  }
  // As the utility does it.
  double LoadAndTree() const {
    const authoring::TerminalCopy terminal{path_, {}, {}, false, false, false, {}, {}, {}, {}};
    const platform::host::InstalledEnvironment environment(EnvironmentOf(terminal));
    return Median([] {
      const auto source = config::SelectSource({}).source;
      const config::PDataStore tree(source->path, source->document, {}, config::PDataStore::kWholeTree);
      if (tree.Count() == 0) std::abort();
    });
  }

 private:
  fs::path path_;
};

void Check(const authoring::Configuration& configuration, bool proofs) {
  if (!authoring::CheckConfiguration(configuration, {proofs, {}}).empty()) std::abort();
}

double CheckTime(const Storage& storage, bool proofs) {
  const auto configuration = storage.Load();
  return Median([&] { Check(*configuration, proofs); });
}

// The time that each property takes among very many, to that among few; the median of rounds in turn. `isFresh`: in
// memory that comes new from the system, as at the program's start. Otherwise the few are checked in memory that the
// round before has left warm, and the many never are.
double Growth(const authoring::Configuration& few, const authoring::Configuration& many, bool isFresh) {
  constexpr std::size_t kTimes = kMany / kFew;
  const auto timeOf = [isFresh](const authoring::Configuration& configuration) {
    if (isFresh) malloc_trim(0);
    return TimeOf([&] { Check(configuration, false); });
  };
  std::vector<double> ratios;
  for (int round = 0; round < kRounds; ++round) {
    double ofFew = 0;
    for (std::size_t i = 0; i < kTimes; ++i) ofFew += timeOf(few);
    ratios.push_back(timeOf(many) / ofFew);
  }
  return MedianOf(std::move(ratios));
}

// Of what is loaded. One trial at a time lives.
double FindTime(const Storage& storage) {
  const auto configuration = storage.Load();
  authoring::Trial trial(*configuration);
  return Median([&] { authoring::Search(trial, u"Level 7777"); });
}

void Print(const char* what, double measured, const char* unit, double asked) {
  std::printf("%-72s %9.2f %-3s  asked: at most %g  %s\n", what, measured, unit, asked,
              measured <= asked ? "holds" : "FAILS");
}

}  // namespace

int main() {
  double usual = 0;
  {
    const Storage storage(kUsual);
    const double load = storage.LoadAndTree();
    usual = CheckTime(storage, false);
    const double whole = CheckTime(storage, true);
    const double find = FindTime(storage);
    const double command = Median([&] {
      const auto loaded = storage.Load();
      authoring::Trial fresh(*loaded);
      authoring::Search(fresh, u"Level 7777");
    });
    std::printf("load and tree, 14,000 properties: %.2f ms; check without proofs: %.2f ms\n", load, usual);
    Print("check without proofs, 14,000 properties, to load and tree", usual / load, "x", 8);
    Print("whole check, 14,000 properties", whole, "ms", 2000);
    Print("find, 14,000 properties, of what is loaded", find, "ms", 50);
    std::printf("find, 14,000 properties, with loading and the model: %.2f ms\n", command);
  }
  const auto few = Storage(kFew).Load();
  const auto many = Storage(kMany).Load();
  Print("time for each property at 100,000, to that at 1,000", Growth(*few, *many, true), "x", 1.5);
  std::printf("the same in memory that is warm: %.2f\n", Growth(*few, *many, false));
  return 0;
}
