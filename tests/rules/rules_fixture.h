// A model over a configuration and a device in memory, with everything that rules and commands act on. What leaves the
// rules is kept in one journal, in order.
#pragma once

#include "base/number.h"
#include "base/utf8.h"
#include "platform/files.h"
#include "platform/host/environment.h"
#include "rules/rules.h"
#include "tests/printing.h"
#include "tests/support/fake_device.h"
#include "tests/support/test_terminal.h"
#include "tests/support/trees.h"

#include <gtest/gtest.h>

#include <deque>
#include <filesystem>
#include <memory>
#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tests {

using Journal = std::vector<WideString>;

// "box CAPTION: TEXT [KIND]"; answers are given in their order, then 0.
class JournalBoxes final : public values::MessageBoxes {
 public:
  explicit JournalBoxes(Journal& journal) : journal_(journal) {}

  int Show(WideStringView text, WideStringView caption, int kind) override {
    journal_.push_back(u"box " + WideString(caption) + u": " + WideString(text) + u" [" + base::ToText(kind) + u"]");
    if (answers.empty()) return 0;
    const int answer = answers.front();
    answers.pop_front();
    return answer;
  }

  std::deque<int> answers;

 private:
  Journal& journal_;
};

// "note TEXT", "page LINE / LINE", "system CAPTION: TEXT", "focus".
class JournalShell final : public rules::Shell {
 public:
  explicit JournalShell(Journal& journal) : journal_(journal) {}

  model::MenuItem* CurrentMenu() override { return menu; }
  void LineChanged(model::MenuItem& item) override { changedLines.push_back(item.Path()); }
  void Refill() override { journal_.emplace_back(u"refill"); }
  void FocusList() override { journal_.emplace_back(u"focus"); }
  void ShowNote(WideStringView text) override { journal_.push_back(u"note " + WideString(text)); }
  void ShowTextPage(const std::vector<WideString>& lines) override {
    WideString text = u"page";
    for (const WideString& line : lines) text += u" / " + line;
    journal_.push_back(text);
  }
  void ShowSystemMessage(WideStringView text, WideStringView caption) override {
    journal_.push_back(u"system " + WideString(caption) + u": " + WideString(text));
  }
  platform::WindowHandle MainWindow() override { return nullptr; }

  model::MenuItem* menu = nullptr;
  std::vector<WideString> changedLines;  // paths

 private:
  Journal& journal_;
};

// Logs into the journal and fails one call when asked to.
class JournalDevice final : public platform::ISnmpConfig {
 public:
  struct Calls {
    Journal& journal;
    bool logGets = false;
    int count = 0;
    int failing = 0;  // the call with this number fails; 0: none
  };

  JournalDevice(std::unique_ptr<platform::ISnmpConfig> device, Calls& calls)
      : device_(std::move(device)), calls_(calls) {}

  platform::ResultCode Set(const WideString& oid, const WideString& type, const WideString& value) override {
    return LogSet(u"set ", oid, type, value, Fails() ? platform::kAccessDenied : device_->Set(oid, type, value));
  }
  platform::ResultCode SetSpecial(const WideString& oid, const WideString& type, const WideString& value) override {
    return LogSet(u"setspecial ", oid, type, value,
                  Fails() ? platform::kAccessDenied : device_->SetSpecial(oid, type, value));
  }
  platform::ResultCode Get(const WideString& oid, const WideString& type, std::optional<WideString>& value) override {
    if (calls_.logGets) calls_.journal.push_back(u"get " + oid + u" " + type);
    return Fails() ? platform::kFailed : device_->Get(oid, type, value);
  }
  platform::ResultCode GetSpecial(const WideString& oid, const WideString& type,
                                  std::optional<WideString>& value) override {
    if (calls_.logGets) calls_.journal.push_back(u"getspecial " + oid + u" " + type);
    return Fails() ? platform::kFailed : device_->GetSpecial(oid, type, value);
  }

 private:
  bool Fails() { return ++calls_.count == calls_.failing; }

  platform::ResultCode LogSet(WideStringView verb, const WideString& oid, const WideString& type,
                              const WideString& value, platform::ResultCode result) {
    WideString line = WideString(verb) + oid + u" " + type + u" " + value;
    if (result < 0) line += u" refused";
    calls_.journal.push_back(line);
    return result;
  }

  std::unique_ptr<platform::ISnmpConfig> device_;
  Calls& calls_;
};

// "pulse NAME", "start PROGRAM | ARGUMENTS", "warm reset"; debug lines are kept apart.
class JournalObserver final : public platform::host::Observer {
 public:
  explicit JournalObserver(Journal& journal) : journal_(journal) {}

  void Debug(WideStringView line) override { debugLines.emplace_back(line); }
  void Pulsed(WideStringView eventName) override { journal_.push_back(u"pulse " + WideString(eventName)); }
  void Started(WideStringView program, WideStringView arguments, std::uint32_t) override {
    journal_.push_back(u"start " + WideString(program) + u" | " + WideString(arguments));
  }
  void WarmReset() override { journal_.emplace_back(u"warm reset"); }

  std::vector<WideString> debugLines;

 private:
  Journal& journal_;
};

class RulesTest : public testing::Test {
 protected:
  RulesTest() {
    platform::host::CurrentEnvironment().observer = &observer_;
    platform::host::CurrentEnvironment().root = root_;
    std::filesystem::remove_all(root_);
    std::filesystem::create_directories(root_);
  }
  ~RulesTest() override { std::filesystem::remove_all(root_); }

  // `groups`: what stands within the root, whose name is "R".
  void Build(std::string_view groups) {
    ASSERT_TRUE(model_.Build(tests::TreeOf("<GROUP name='R'>" + std::string(groups) + "</GROUP>"), u"R"));
    shell_.menu = &model_.Root();
    TakeJournal();
    shell_.changedLines.clear();
    observer_.debugLines.clear();
  }

  // The item of a path below the root, such as u"menu\\a".
  model::MenuItem& Item(WideStringView path) {
    model::MenuItem* item = &model_.Root();
    const WideString wanted = u"R\\" + WideString(path);
    while (item->Path() != wanted) {
      model::MenuItem* next = nullptr;
      for (const auto& child : item->Children()) {
        const bool onTheWay = wanted == child->Path() || wanted.starts_with(child->Path() + u"\\");
        if (onTheWay) next = child.get();
      }
      if (next == nullptr) {
        ADD_FAILURE() << "no item " << base::ToUtf8(path);
        return model_.Root();
      }
      item = next;
    }
    return *item;
  }

  Journal TakeJournal() { return std::exchange(journal_, {}); }

  std::string FileText(const std::string& name) const {
    const auto bytes = platform::ReadWholeFile(base::FromUtf8("\\" + name));
    return bytes.value_or("(no file)");
  }

  static std::filesystem::path TemporaryFolder() {
    return std::filesystem::temp_directory_path() / ("kel_rules_" + std::to_string(std::random_device()()));
  }

  TestTerminal terminal_;
  Journal journal_;
  JournalObserver observer_{journal_};
  std::filesystem::path root_ = TemporaryFolder();
  FakeDevice fake_;
  JournalDevice::Calls calls_{journal_};
  JournalBoxes boxes_{journal_};
  JournalShell shell_{journal_};
  values::SymbolTable symbols_{values::SymbolTable::Texts{{u"SYM_MODES", u"1#One|2#Two"}}};
  values::DeviceAccess device_{[this] {
    auto inner = fake_.Connector()();
    return inner == nullptr ? nullptr : std::make_unique<JournalDevice>(std::move(inner), calls_);
  }};
  platform::Event deviceGate_{u"", true};
  model::MenuModel model_{{device_, symbols_, deviceGate_, boxes_}};
  values::ChangeList changes_;
  values::EventNames events_;
  values::EditState edit_;
  bool flashWrite_ = false;
  rules::Rules rules_{{model_, device_, symbols_, changes_, events_, edit_, boxes_, shell_, flashWrite_}};
};

// "<GROUP name='NAME'>VALUES</GROUP>"
inline std::string Group(std::string_view name, std::string_view contents) {
  return "<GROUP name='" + std::string(name) + "'>" + std::string(contents) + "</GROUP>";
}

// A value tag.
inline std::string Tag(std::string_view name, std::string_view text) {
  return "<" + std::string(name) + ">" + std::string(text) + "</" + std::string(name) + ">";
}

// A property with its name, OID and type, and further tags.
inline std::string Property(std::string_view name, std::string_view oid, std::string_view type,
                            std::string_view more = "") {
  return Group(name, Tag("DisplayName", name) + Tag("OID", oid) + Tag("Type", type) + std::string(more));
}

}  // namespace tests
