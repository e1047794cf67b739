// How long the configuration takes from the file's bytes to a tree, and what memory, beside pugixml in the same run. At
// the end stands what is asked of it, with the medians that were measured.
#include "bench/configuration_text.h"
#include "bench/heap_meter.h"
#include "bench/pugixml_tree.h"
#include "config/bracket_reader.h"
#include "config/data_store.h"
#include "config/xml_scan.h"
#include "platform/host/environment.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

namespace {

using config::PDataStore;

constexpr WideStringView kRoot = u"CONFIGAPP";
constexpr std::size_t kBytesPerKey = 345;

const std::string& Text(std::size_t keys, bench::Shape shape = bench::Shape::kNested,
                        bench::Script script = bench::Script::kLatin) {
  static std::map<std::tuple<std::size_t, bench::Shape, bench::Script>, std::string> texts;
  std::string& text = texts[{keys, shape, script}];
  if (text.empty()) text = bench::ConfigurationText(keys, shape, script);
  return text;
}

std::shared_ptr<const config::XmlDocument> Parse(const std::string& bytes) {
  auto document = std::make_shared<config::XmlDocument>();
  if (!document->SetDocument(config::Utf8Text(bytes))) std::abort();
  return document;
}

// The same as it is on a processor with these instructions.
std::size_t ParseWith(const config::TextBlocks& blocks, const std::string& bytes) {
  const config::Utf8Text text(bytes);
  config::BracketReader brackets(text, blocks);
  config::BlockList<config::XmlElement> elements;
  elements.Add() = {};
  if (config::ScanElements(brackets, elements).error != config::XmlError::kNone) std::abort();
  brackets.ReadAll();
  return elements.Size();
}

std::size_t LoadTree(const std::string& bytes, std::uint32_t maxDepth) {
  return PDataStore(kRoot, Parse(bytes), {}, maxDepth).Count();
}

// --- what is measured, by name ---

void Register(const std::string& name, const std::function<void()>& work) {
  auto* const registered = benchmark::RegisterBenchmark(name.c_str(), [work](benchmark::State& state) {
    for ([[maybe_unused]] auto _ : state) work();
  });
  registered->Unit(benchmark::kMicrosecond)->Repetitions(9)->DisplayAggregatesOnly();
}

// For times per key: as at the program's start, in memory that comes new from the system.
void RegisterFresh(const std::string& name, const std::string& bytes, int iterations, int repetitions) {
  auto* const registered = benchmark::RegisterBenchmark(name.c_str(), [&bytes](benchmark::State& state) {
    for ([[maybe_unused]] auto _ : state) {
      state.PauseTiming();
      bench::ForgetFreedMemory();
      state.ResumeTiming();
      benchmark::DoNotOptimize(LoadTree(bytes, PDataStore::kWholeTree));
    }
  });
  registered->Unit(benchmark::kMicrosecond)->Repetitions(repetitions)->DisplayAggregatesOnly()->Iterations(iterations);
}

constexpr struct Size {
  const char* name;
  std::size_t keys;
  double asked;  // times pugixml's speed, with the best instructions that are known
  double askedOfSse2;
} kSizes[] = {{"100 KB", 100'000 / kBytesPerKey, 2.3, 1.8},
              {"1 MB", 1'000'000 / kBytesPerKey, 2.3, 1.8},
              {"10 MB", 10'000'000 / kBytesPerKey, 1.8, 0}};

constexpr struct {
  const char* name;
  bench::Script script;
} kScripts[] = {{"two bytes a character", bench::Script::kCyrillic},
                {"three bytes a character", bench::Script::kChinese}};

void RegisterAll() {
  for (const auto& size : kSizes) {
    const std::string& text = Text(size.keys);
    Register("parse, ours/" + std::string(size.name), [&text] { benchmark::DoNotOptimize(Parse(text)); });
    Register("parse, pugixml/" + std::string(size.name), [&text] { bench::LoadWithPugixml(text); });
    for (const config::TextBlocks* const blocks : config::UsableTextBlocks()) {
      Register("parse, " + std::string(blocks->name) + "/" + size.name,
               [&text, blocks] { benchmark::DoNotOptimize(ParseWith(*blocks, text)); });
    }
  }
  for (const auto& script : kScripts) {
    const std::string& text = Text(kSizes[1].keys, bench::Shape::kNested, script.script);
    Register("parse, ours/" + std::string(script.name), [&text] { benchmark::DoNotOptimize(Parse(text)); });
    Register("parse, pugixml/" + std::string(script.name), [&text] { bench::LoadWithPugixml(text); });
  }
  const std::string& full = Text(26'000);
  Register("tree, ours/26000", [&full] { benchmark::DoNotOptimize(LoadTree(full, PDataStore::kWholeTree)); });
  Register("tree, pugixml/26000", [&full] { benchmark::DoNotOptimize(bench::BuildTreeWithPugixml(full)); });

  RegisterFresh("per key/1000", Text(1'000), 50, 9);
  RegisterFresh("per key/1000000", Text(1'000'000), 1, 5);
  const std::string& nested = Text(10'000);
  const std::string& flat = Text(10'000, bench::Shape::kFlat);
  Register("nested/10000", [&nested] { benchmark::DoNotOptimize(LoadTree(nested, PDataStore::kWholeTree)); });
  Register("flat/10000", [&flat] { benchmark::DoNotOptimize(LoadTree(flat, PDataStore::kWholeTree)); });

  const std::string& large = Text(kSizes[2].keys);
  Register("first menu/10 MB", [&large] { benchmark::DoNotOptimize(LoadTree(large, PDataStore::kTopLevelOnly)); });
  Register("everything/10 MB", [&large] { benchmark::DoNotOptimize(LoadTree(large, PDataStore::kWholeTree)); });
}

// --- memory, of a file that is really read ---

struct Peaks {
  double load = 0;  // in sizes of the file
  double tree = 0;
};

Peaks MeasurePeaks(const std::string& bytes) {
  const std::filesystem::path root = std::filesystem::temp_directory_path() / "config_bench";
  std::filesystem::create_directories(root);
  std::ofstream(root / "menu.xml", std::ios::binary) << bytes;
  platform::host::Environment environment;
  environment.root = root;
  const platform::host::InstalledEnvironment installed(std::move(environment));

  Peaks peaks;
  const std::size_t before = bench::HeapBytes();
  const auto inFiles = [&] {
    return static_cast<double>(bench::HeapPeak() - before) / static_cast<double>(bytes.size());
  };
  bench::ResetHeapPeak();
  auto document = std::make_shared<config::XmlDocument>();
  if (!document->SetDocument(*config::ReadTextFile(u"\\menu.xml"))) std::abort();
  peaks.load = inFiles();
  bench::ResetHeapPeak();
  const PDataStore tree(kRoot, document, {}, PDataStore::kWholeTree);
  peaks.tree = inFiles();
  std::filesystem::remove_all(root);
  return peaks;
}

// --- what is asked ---

// Keeps the median of the processor times of each benchmark's repetitions.
class Medians : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (run.aggregate_name == "median") times_[run.run_name.function_name] = run.GetAdjustedCPUTime();
    }
    ConsoleReporter::ReportRuns(runs);
  }

  // Microseconds; nothing when it was not run.
  std::optional<double> Of(const std::string& name) const {
    const auto found = times_.find(name);
    return found == times_.end() ? std::nullopt : std::optional(found->second);
  }

 private:
  std::map<std::string, double> times_;
};

void PrintAtLeast(const char* what, double ratio, double bound) {
  std::printf("%-76s %6.2f   at least %.2f: %s\n", what, ratio, bound, ratio >= bound ? "holds" : "DOES NOT HOLD");
}

void PrintAtMost(const char* what, double ratio, double bound) {
  std::printf("%-76s %6.2f   at most  %.2f: %s\n", what, ratio, bound, ratio <= bound ? "holds" : "DOES NOT HOLD");
}

void PrintSummary(const Medians& medians) {
  const auto ratio = [&](const std::string& a, const std::string& b) -> std::optional<double> {
    const auto timeA = medians.Of(a);
    const auto timeB = medians.Of(b);
    if (!timeA || !timeB) return std::nullopt;
    return *timeA / *timeB;
  };
  std::printf("\n");
  const auto printParse = [&](const std::string& whose, const std::string& what, double asked) {
    const auto faster = ratio("parse, pugixml/" + what, "parse, " + whose + "/" + what);
    if (!faster) return;
    PrintAtLeast(("conversion and parse, " + whose + ", " + what + ", times pugixml's speed").c_str(), *faster, asked);
  };
  for (const Size& size : kSizes) {
    printParse("ours", size.name, size.asked);
    for (const config::TextBlocks* const blocks : config::UsableTextBlocks()) {
      printParse(blocks->name, size.name, blocks->name == std::string_view("SSE2") ? size.askedOfSse2 : 0);
    }
  }
  for (const auto& script : kScripts) printParse("ours", script.name, 0.9);
  if (const auto faster = ratio("tree, pugixml/26000", "tree, ours/26000")) {
    PrintAtLeast("load and tree of 26000 keys, times pugixml's speed", *faster, 5.0);
  }
  if (const auto more = ratio("per key/1000000", "per key/1000")) {
    PrintAtMost("time per key at 1000000 keys to that at 1000", *more / 1000, 2.0);
  }
  if (const auto slower = ratio("flat/10000", "nested/10000")) {
    PrintAtMost("10000 siblings to 10000 nested keys", *slower, 1.5);
  }
  if (const auto full = medians.Of("everything/10 MB")) {
    const double parse = medians.Of("parse, ours/10 MB").value_or(0);
    const double first = medians.Of("first menu/10 MB").value_or(0);
    PrintAtMost("first menu of 10 MB to a quarter of everything and the parse", first / (*full / 4 + parse), 1.0);
  }
  const Peaks peaks = MeasurePeaks(Text(kSizes[2].keys));
  PrintAtMost("peak memory of loading 10 MB, times the file", peaks.load, 3.0);
  PrintAtMost("peak memory of loading and tree of 10 MB, times the file", peaks.tree, 5.0);
}

}  // namespace

int main(int argc, char** argv) {
  std::vector<char*> arguments(argv, argv + argc);
  // Rounds in turn, so that a busy machine is busy for both sides.
  std::string interleaving = "--benchmark_enable_random_interleaving=true";
  std::string minimum = "--benchmark_min_time=0.05";
  arguments.insert(arguments.begin() + 1, {interleaving.data(), minimum.data()});
  int count = static_cast<int>(arguments.size());
  benchmark::Initialize(&count, arguments.data());
  if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) return 2;
  RegisterAll();
  Medians medians;
  benchmark::RunSpecifiedBenchmarks(&medians);
  PrintSummary(medians);
  return 0;
}
