// The utility on a terminal that is watched: played by keys, with changes and answers that the test tells of.
#include "simulator/authors_display.h"

#include "app/entry.h"
#include "app/kel_config_app.h"
#include "base/utf8.h"
#include "simulator/instance_lock.h"
#include "simulator/storage.h"
#include "simulator/terminal.h"
#include "tests/app/keypad.h"
#include "tests/platform/temporary_root.h"

namespace tests {
namespace {

using simulator::Advisor;

class ToldWatch final : public simulator::StorageWatch {
 public:
  std::set<std::string> TakeChanged() override { return std::exchange(changed, {}); }
  std::set<std::string> changed;
};

// Answers at once with what it was given; remembers what it was asked.
class ToldAdvisor final : public Advisor {
 public:
  void AskCheck() override {
    ++checks;
    answers.push_back({Question::kCheck, checkSays});
  }
  void AskWhy(WideStringView path, bool withNeighbours) override {
    asked.push_back(base::ToUtf8(path) + (withNeighbours ? " and its neighbours" : ""));
    answers.push_back({Question::kWhy, "because\nof this\n"});
  }
  void Forget(Question question) override {
    std::erase_if(answers, [question](const Answer& answer) { return answer.question == question; });
  }
  std::optional<Answer> TakeAnswer() override {
    if (answers.empty()) return std::nullopt;
    const Answer first = answers.front();
    answers.erase(answers.begin());
    return first;
  }

  std::string checkSays;
  int checks = 0;
  std::vector<std::string> asked;
  std::vector<Answer> answers;
};

const platform::host::KeyStroke kCtrlW{'W', u'\x17', false, true};

std::string Entry(const std::string& name, const std::string& title, const std::string& inside) {
  return "<GROUP name=\"" + name + "\"><DisplayName>" + title + "</DisplayName>" + inside + "</GROUP>\n";
}

std::string Property(const std::string& name, const std::string& title, const std::string& oid,
                     const std::string& inside = "") {
  return Entry(name, title, "<OID>" + oid + "</OID><Type>Octet String</Type>" + inside);
}

// Twelve lines: two pages.
std::string Lines(const std::string& instead7 = Property("P7", "Line 7", "1.7")) {
  std::string lines;
  for (int i = 1; i <= 12; ++i) {
    const std::string n = std::to_string(i);
    lines += i == 7 ? instead7 : Property("P" + n, "Line " + n, "1." + n);
  }
  return lines;
}

std::string Menus(const std::string& inside) { return Entry("Root", "Start", inside); }
std::string Standard() {
  return Menus(Entry("A", "First", Lines()) + Entry("B", "Second", Entry("C", "Third", Lines())));
}

class WatchedTerminal : public ::testing::Test {
 protected:
  void SetUp() override {
    std::string device;
    for (int i = 1; i <= 12; ++i) device += "1." + std::to_string(i) + "\tOctet String\tv\n";
    root.Write("device.txt", device);
    Put(Standard());
  }

  void Put(const std::string& document) { root.Write("Windows/ovu.xml", document); }
  void Changed(const std::string& file = "Windows/ovu.xml") { watch.changed.insert(file); }

  // "Third: Line 7"
  std::string Place() const {
    if (running == nullptr || running->CurrentMenu() == nullptr) return "nowhere";
    const model::MenuItem* selected = running->SelectedItem();
    const WideString line = selected == nullptr ? u"no entry" : WideString(base::Trim(selected->Title()));
    return base::ToUtf8(base::Trim(running->CurrentMenu()->Title())) + ": " + base::ToUtf8(line);
  }

  void Play(Keypad& keypad) {
    simulator::Storage storage;
    const auto open = [&] { ASSERT_EQ("", simulator::OpenStorage(root.Path(), storage)); };
    open();
    simulator::InstanceLock instance(root.Path());
    simulator::DebugLog debug(false);
    simulator::AuthorsDisplay display({keypad, panel, &advisor, &watch, [this] { return running; },
                                       [&storage] { return !storage.device->IsAsInFile(); }, ""});
    simulator::Terminal::Parts parts{storage, instance, effects, debug, display, [&] {
                                       simulator::Storage fresh;
                                       ASSERT_EQ("", simulator::OpenStorage(root.Path(), fresh));
                                       storage = std::move(fresh);
                                     }};
    simulator::Terminal terminal(parts, 240, 320, [this](WideStringView commandLine) {
      ++starts;
      app::RunUtility(commandLine, [this](const app::CKelConfigApp* application) { running = application; });
      return 0;
    });
    terminal.Run(u"");
    EXPECT_FALSE(keypad.IsStuck());
  }

  TemporaryRoot root;
  simulator::TextPanel panel;
  ToldAdvisor advisor;
  ToldWatch watch;
  simulator::LineLog effects{true};
  const app::CKelConfigApp* running = nullptr;
  int starts = 0;
};

TEST_F(WatchedTerminal, AfterAChangeThePersonIsBackAtTheSameLineOrTheNearest) {
  const std::string first = Entry("A", "First", Lines());
  const auto withC = [&](const std::string& lines) {
    return Menus(first + Entry("B", "Second", Entry("C", "Third", lines)));
  };
  const std::string downTo10 = "21{Down}{Down}{Down}{Down}{Down}{Down}{Down}{Down}{Down}{Down}{Down}";
  const std::string to7 = "216{Esc}{Down}";
  const struct {
    const char* what;
    std::string keys;
    std::string document;
    const char* place;
  } cases[] = {
      {"nothing is entered", "{Down}", Standard(), "Start: Second"},
      {"a menu below", "21{Down}{Down}", Standard(), "Third: Line 3"},
      {"the second page", downTo10, Standard(), "Third: Line 10"},
      {"an editor is open", "213", Standard(), "Third: Line 3"},
      {"a line before it is new", to7, withC(Property("New", "New", "1.1") + Lines()), "Third: Line 7"},
      {"the title is another", to7, withC(Lines(Property("P7", "Other", "1.7"))), "Third: Other"},
      {"the name is another", to7, withC(Lines(Property("X", "Line 7", "1.7"))), "Third: Line 7"},
      {"all is another", to7, withC(Lines(Property("X", "Other", "1.1"))), "Third: Other"},
      {"the line is gone", to7, withC(Lines("")), "Third: Line 8"},
      {"the menu is another", "21{Down}", Menus(first + Entry("X", "Y", Entry("C", "Third", Lines()))),
       "Third: Line 2"},
      {"the menu is gone", "21{Down}", Menus(first + Entry("B", "Second", Lines())), "Second: Line 1"},
      {"the menu above is gone", "21{Down}", Menus(first), "Start: First"},
  };
  for (const auto& c : cases) {
    Put(Standard());
    starts = 0;
    std::string after;
    Keypad keypad;
    keypad.Press(c.keys).Then([&] {
      Put(c.document);
      Changed();
    });
    keypad.Then([&] { after = Place(); });
    Play(keypad);
    EXPECT_EQ(2, starts) << c.what;
    EXPECT_EQ(c.place, after) << c.what;
  }
}

TEST_F(WatchedTerminal, WithABrokenFileTheUtilityRunsOnUntilItIsMended) {
  std::vector<std::string> seen;
  const auto see = [&] { seen.push_back((panel.IsOpen() ? "panel, " : "") + Place()); };
  Keypad keypad;
  keypad.Press("2{Down}").Then([&] {
    advisor.checkSays = "ovu.xml:3:7: error: ... [document-broken]\n";
    Changed();
  });
  keypad.Press("{Up}").Then(see);  // it scrolls
  keypad.Press("{Esc}").Then(see).Press("{Esc}").Then(see);
  keypad.Then([&] { Changed(); }).Then(see).Then([&] {
    advisor.checkSays = "ovu.xml:9:9: warning: ... [rule-never-true]\n";
    Changed();
  });
  keypad.Then(see);
  Play(keypad);
  EXPECT_EQ((std::vector<std::string>{"panel, Second: Third", "Second: Third", "Start: Second", "panel, Start: Second",
                                      "Start: Second"}),
            seen);
  EXPECT_EQ(2, starts);
  EXPECT_EQ(2, keypad.beeps);
}

TEST_F(WatchedTerminal, WhatTheUtilityWritesItselfIsNoChange) {
  Keypad keypad;
  keypad.Press("11{End}2{Enter}").Then([&] {
    Changed("device.txt");
    Changed("CfgSettings.txt");
    Changed("Windows/Diagnostics.txt");
    Changed(".kelterm.lock");
  });
  keypad.Then([&] {
    EXPECT_EQ(0, advisor.checks);
    root.Write("device.txt", "1.1\tOctet String\tedited\n");
    Changed("device.txt");
  });
  WideString line;
  keypad.Then([&] { line = running->SelectedItem()->LineText(); });
  Play(keypad);
  EXPECT_EQ(1, advisor.checks);
  EXPECT_EQ(2, starts);
  EXPECT_NE(WideString::npos, line.find(u"edited")) << base::ToUtf8(line);
}

TEST_F(WatchedTerminal, ADeviceFileThatSaysAgainWhatTheDeviceHasIsMended) {
  const std::string device = root.Read("device.txt");
  bool wasOpen = false;
  Keypad keypad;
  keypad.Then([&] {
    root.Write("device.txt", "broken\n");
    advisor.checkSays = "kelconf: device.txt:1: a line is ...\n";
    Changed("device.txt");
  });
  keypad.Then([&] {
    wasOpen = panel.IsOpen();
    root.Write("device.txt", device);
    advisor.checkSays.clear();
    Changed("device.txt");
  });
  Play(keypad);
  EXPECT_TRUE(wasOpen);
  EXPECT_FALSE(panel.IsOpen());
  EXPECT_EQ(2, starts);
}

TEST_F(WatchedTerminal, CtrlWAsksAboutTheSelectedLineAndTheProgramSeesNothingOfIt) {
  Keypad keypad;
  std::vector<std::string> places;
  std::vector<std::string> before;
  const auto see = [&] { places.push_back((panel.IsOpen() ? "panel, " : "") + Place()); };
  keypad.Press("2").Then([&] { before = effects.Take(); }).Press(kCtrlW).Press("{Down}5{Enter}").Then(see);
  keypad.Press(kCtrlW).Then(see).Press("1{Down}").Press(kCtrlW).Press("{Esc}").Then(see);
  keypad.Press("{Down}{Down}{Down}{Down}{Down}{Down}{Down}").Press(kCtrlW).Then([&] {
    EXPECT_EQ(std::vector<std::string>(), effects.Take());
  });
  Play(keypad);
  EXPECT_FALSE(before.empty());
  EXPECT_EQ((std::vector<std::string>{"panel, Second: Third", "Second: Third", "Third: Line 2"}), places);
  EXPECT_EQ(
      (std::vector<std::string>{"Root\\B\\C and its neighbours", "Root\\B\\C\\P2 and its neighbours", "Root\\B\\C"}),
      advisor.asked);
  EXPECT_EQ(1, starts);
}

TEST_F(WatchedTerminal, WithoutTheUtilityItWaitsUntilTheStorageCanBeUsed) {
  Keypad keypad;
  simulator::AuthorsDisplay display({keypad, panel, &advisor, &watch, [] { return nullptr; }, [] { return true; }, ""});
  advisor.checkSays = "kelconf: device.txt:1: a line is ...\n";
  keypad.Press("{Down}").Then([&] { EXPECT_TRUE(panel.IsOpen()); }).Then([&] { Changed("device.txt"); });
  keypad.Then([&] {
    EXPECT_TRUE(panel.IsOpen());
    advisor.checkSays.clear();
    Changed("device.txt");
  });
  EXPECT_TRUE(display.AwaitUsable(false));
  EXPECT_FALSE(panel.IsOpen());
  EXPECT_EQ(3, advisor.checks);

  keypad.Press("{Esc}");
  EXPECT_FALSE(display.AwaitUsable(true));
  EXPECT_EQ(3, advisor.checks) << "what has failed is not tried again unchanged";
}

}  // namespace
}  // namespace tests
