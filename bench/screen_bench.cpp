// What a person waits for: a key press until the screen has settled, a page of rules, restoring and storing everything.
// The whole utility runs in a simulated terminal over a storage on disk; the keys come as fast as they are taken.
#include "app/entry.h"
#include "base/number.h"
#include "base/utf8.h"
#include "platform/host/desktop.h"
#include "platform/window.h"
#include "simulator/instance_lock.h"
#include "simulator/storage.h"
#include "simulator/terminal.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <mutex>
#include <new>
#include <string>
#include <vector>

namespace {

std::atomic<std::uint64_t> allocatedBytes;

}  // namespace

void* operator new(std::size_t size) {
  allocatedBytes += size;
  if (void* memory = std::malloc(size == 0 ? 1 : size)) return memory;
  throw std::bad_alloc();
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

namespace {

namespace key = platform::key;
using platform::host::KeyStroke;
using Clock = std::chrono::steady_clock;

// What a key press measures; presses of one kind are taken together.
enum class Measure { kNothing, kMove, kRulePage, kRestore, kStore, kCount };

struct Press {
  KeyStroke stroke;
  Measure measure = Measure::kMove;
};

struct Sample {
  double ms = 0;
  std::uint64_t bytes = 0;  // allocated meanwhile
};

class Samples {
 public:
  void Add(Sample sample) { samples_.push_back(sample); }
  double Quantile(double share) const {
    std::vector<double> sorted;
    for (const Sample& sample : samples_) sorted.push_back(sample.ms);
    std::sort(sorted.begin(), sorted.end());
    return sorted[static_cast<std::size_t>(share * static_cast<double>(sorted.size() - 1))];
  }
  std::uint64_t LeastBytes() const {
    return std::min_element(samples_.begin(), samples_.end(),
                            [](const Sample& a, const Sample& b) { return a.bytes < b.bytes; })
        ->bytes;
  }

 private:
  std::vector<Sample> samples_;
};

// Presses the planned keys, each when the program has dealt with the one before, and takes the times between.
class StopwatchDisplay final : public platform::host::Display {
 public:
  explicit StopwatchDisplay(std::vector<Press> plan) : plan_(std::move(plan)) {}

  const Samples& Of(Measure measure) const { return samples_[static_cast<std::size_t>(measure)]; }

  std::optional<KeyStroke> NextKey() override {
    if (pressed_) {
      const std::chrono::duration<double, std::milli> passed = Clock::now() - start_;
      samples_[static_cast<std::size_t>(measure_)].Add({passed.count(), allocatedBytes - startBytes_});
      pressed_ = false;
    }
    if (platform::host::AreThreadsRunning()) {
      std::unique_lock lock(mutex_);
      wakes_.wait(lock, [this] { return woken_; });
      woken_ = false;
      return std::nullopt;
    }
    if (next_ == plan_.size()) {
      platform::PostQuit(0);
      return std::nullopt;
    }
    const Press& press = plan_[next_++];
    measure_ = press.measure;
    pressed_ = true;
    startBytes_ = allocatedBytes;
    start_ = Clock::now();
    return press.stroke;
  }

  void Wake() override {
    const std::lock_guard lock(mutex_);
    woken_ = true;
    wakes_.notify_all();
  }
  void Pause(std::chrono::milliseconds) override {}
  void Beep() override {}
  void ComeForward() override {}

 private:
  std::vector<Press> plan_;
  std::size_t next_ = 0;
  Samples samples_[static_cast<std::size_t>(Measure::kCount)];
  Measure measure_ = Measure::kNothing;
  bool pressed_ = false;
  Clock::time_point start_;
  std::uint64_t startBytes_ = 0;
  std::mutex mutex_;
  std::condition_variable wakes_;
  bool woken_ = false;
};

constexpr int kGroups = 14;
constexpr int kMenusPerGroup = 10;

std::string Value(const char* name, const std::string& text) {
  return std::string("<") + name + ">" + text + "</" + name + ">";
}

std::string Property(const std::string& name, const std::string& oid, const std::string& more) {
  return "<GROUP name=\"" + name + "\">" + Value("DisplayName", name) + Value("Type", "Integer") + Value("OID", oid) +
         Value("DefVal", "2") + Value("Range", "0-9") + more + "</GROUP>\n";
}

std::string Menu(const std::string& name, const std::string& content) {
  return "<GROUP name=\"" + name + "\">" + Value("DisplayName", name) + content + "</GROUP>\n";
}

// A terminal of so many properties, its first page with three rules on each of nine lines.
void WriteTerminal(const std::filesystem::path& root, int properties) {
  std::string device;
  const auto addLine = [&device](const std::string& oid) { device += oid + "\tInteger\t1\n"; };
  std::string rulePage;
  for (int i = 1; i <= 9; ++i) {
    const std::string number = std::to_string(i);
    std::string rules;
    for (const char* attribute : {"Dependency", "Dependency1", "Dependency2"}) {
      rules +=
          Value(attribute, "IF (Rule1 EQ 1 OR Rule2 EQ 7) AND Rule" + number + " NEQ 9 THEN Display ELSE NoDisplay");
    }
    rulePage += Property("Rule" + number, "1.1." + number, rules);
    addLine("1.1." + number);
  }
  std::string all;
  const int perMenu = properties / (kGroups * kMenusPerGroup);
  for (int group = 1; group <= kGroups; ++group) {
    std::string menus;
    for (int menu = 1; menu <= kMenusPerGroup; ++menu) {
      std::string leaves;
      for (int leaf = 1; leaf <= perMenu; ++leaf) {
        const std::string tail = std::to_string(group) + "." + std::to_string(menu) + "." + std::to_string(leaf);
        leaves += Property("P" + tail, "1.2." + tail, "");
        addLine("1.2." + tail);
      }
      menus += Menu("M" + std::to_string(group) + "." + std::to_string(menu), leaves);
    }
    all += Menu("G" + std::to_string(group), menus);
  }
  const std::string tools =
      Menu("Store", Value("Function", "StoreConfig")) + Menu("Restore", Value("Function", "RestoreDefaults"));
  std::filesystem::remove_all(root);
  std::filesystem::create_directories(root / "Windows");
  std::ofstream(root / "Windows" / "ovu.xml")
      << Menu("Config", Menu("Rules", rulePage) + Menu("Tools", tools) + Menu("All", all));
  std::ofstream(root / "device.txt") << device;
}

std::vector<Press> Plan() {
  std::vector<Press> plan;
  const auto press = [&plan](std::uint16_t virtualKey, Measure measure = Measure::kMove) {
    plan.push_back({{virtualKey, 0, false, false}, measure});
  };
  const auto type = [&plan](char16_t character, Measure measure = Measure::kMove) {
    plan.push_back({{static_cast<std::uint16_t>(character), character, false, false}, measure});
  };
  for (int round = 0; round < 60; ++round) {
    type(u'3');
    for (int i = 0; i < round % 7; ++i) press(key::kDown);
    press(key::kEnter);
    type(u'2');
    for (int i = 0; i < 12; ++i) press(key::kDown);
    type(u'9');
    press(key::kUp);
    for (int i = 0; i < 3; ++i) press(key::kEscape);
    type(u'1', Measure::kRulePage);
    press(key::kEscape);
  }
  type(u'2');
  type(u'1', Measure::kStore);
  type(u'2');
  press(key::kEnter, Measure::kRestore);  // Yes
  press(key::kEnter);                     // the outcome
  return plan;
}

struct Result {
  double moveP99Ms, rulePageMs, restoreMs, storeMs;
  std::uint64_t rulePageBytes;
};

Result Measured(int properties) {
  const auto root = std::filesystem::temp_directory_path() / "kelterm-screen-bench";
  WriteTerminal(root, properties);
  Result result{};
  {
    simulator::InstanceLock instance(root);
    simulator::Storage storage;
    const std::string problem = simulator::OpenStorage(root, storage);
    if (!problem.empty()) {
      std::fprintf(stderr, "%s\n", problem.c_str());
      std::exit(2);
    }
    simulator::LineLog effects(false);
    simulator::DebugLog debug(false);
    StopwatchDisplay display(Plan());
    const auto utility = [](WideStringView commandLine) {
      app::RunUtility(commandLine);
      return 0;
    };
    simulator::Terminal terminal({storage, instance, effects, debug, display}, 240, 320, utility);
    terminal.Run({});
    result = {display.Of(Measure::kMove).Quantile(0.99), display.Of(Measure::kRulePage).Quantile(0.5),
              display.Of(Measure::kRestore).Quantile(0.5), display.Of(Measure::kStore).Quantile(0.5),
              display.Of(Measure::kRulePage).LeastBytes()};
  }
  std::filesystem::remove_all(root);
  return result;
}

void Print(const char* what, double measured, const char* unit, double bound) {
  std::printf("%-68s %9.3f %-5s  bound %8.3f  %s\n", what, measured, unit, bound,
              measured <= bound ? "holds" : "FAILS");
}

}  // namespace

int main() {
  const Result small = Measured(1'400);
  const Result large = Measured(14'000);
  Print("key press to settled screen, 14,000 properties, 99th percentile", large.moveP99Ms, "ms", 5);
  Print("page of nine lines with three IF rules each, median", large.rulePageMs, "ms", 1);
  Print("memory allocated by that page, against a tenth of the properties",
        static_cast<double>(large.rulePageBytes) / static_cast<double>(small.rulePageBytes), "times", 1.1);
  Print("restoring the defaults of 14,000 properties", large.restoreMs / 1000, "s", 3);
  Print("restoring, time per property against a tenth of them", large.restoreMs / small.restoreMs / 10, "times", 2);
  Print("storing 14,000 properties", large.storeMs / 1000, "s", 1);
  Print("storing, time per property against a tenth of them", large.storeMs / small.storeMs / 10, "times", 2);
  return 0;
}
