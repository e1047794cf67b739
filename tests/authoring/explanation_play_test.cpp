// Every way that an explanation offers is taken: the utility itself, on a terminal whose device holds the changed
// values, shows the line, opens its editor, or offers the choice.
#include "authoring/entry_lookup.h"
#include "authoring/explanation.h"
#include "base/utf8.h"
#include "platform/host/desktop.h"
#include "simulator/device_store.h"
#include "tests/app/utility_run.h"
#include "tests/authoring/storage_folder.h"
#include "ui/menu_list.h"

#include <algorithm>
#include <random>

namespace {

using authoring::Wish;
using platform::WindowHandle;
namespace host = platform::host;

struct Played {
  Wish::Goal goal = Wish::Goal::kShow;
  std::string what;  // for messages
  std::string device;
  std::string keys;     // to the menu
  std::string choice;   // its text
  std::string line;     // as the menu is to show it
  std::string ownKeys;  // from the menu to the editor
};

std::string DeviceText(const authoring::MemoryDevice& device) {
  std::string text;
  for (const auto& [oid, entry] : device.Values()) {
    simulator::DeviceLine line = entry.line;
    line.oid = oid;
    if (line.type.empty()) line.type = u"Octet String";
    line.optionsText = line.options.readOnly ? u"readonly" : u"";
    if (line.options.get) continue;  // as good as not there
    text += simulator::FormatDeviceLine(line);
    if (!text.ends_with('\n')) text += '\n';
  }
  return text;
}

// The ways of all wishes there are, some of each.
std::vector<Played> WaysOf(const authoring::Configuration& configuration) {
  authoring::RuleTrace trace;
  authoring::Trial trial(configuration, &trace);
  std::vector<authoring::ItemPlace> places;
  std::vector<model::MenuItem*> items{&trial.Model().Root()};
  for (std::size_t i = 0; i < items.size(); ++i) {
    places.push_back(authoring::PlaceOf(*items[i]));
    for (const auto& child : items[i]->Children()) items.push_back(child.get());
  }

  std::vector<Played> all;
  for (const auto& place : places) {
    const auto explanation = authoring::Explain(trial, trace, place);
    authoring::Assumption assumption(trial);
    for (const Wish& wish : explanation.wishes) {
      for (std::size_t i = 0; i < std::min<std::size_t>(wish.ways.size(), 2); ++i) {
        std::vector<authoring::SettingChange> changes;
        for (const auto& step : wish.ways[i]) changes.push_back(step.change);
        assumption.Assume(changes);
        Played played{wish.goal, base::ToUtf8(explanation.line.path), DeviceText(trial.Device()), {}, {}, {}, {}};
        played.choice = base::ToUtf8(wish.choice);
        model::MenuItem& item = *authoring::ItemAtPlace(trial.Model(), place);
        const auto keys = trial.KeysTo(item);
        const auto menuKeys = trial.KeysTo(*item.Parent());
        if (!keys || !menuKeys) {
          ADD_FAILURE() << played.what << " has no keys";
          continue;
        }
        played.line = base::ToUtf8(item.LineText());
        played.keys = base::ToUtf8(*menuKeys);
        played.ownKeys = base::ToUtf8(*keys).substr(played.keys.size());
        all.push_back(std::move(played));
      }
    }
  }
  return all;
}

std::vector<std::string> LinesOfList(int controlId) {
  std::vector<std::string> lines;
  const WindowHandle list = platform::ControlOf(platform::ActiveWindow(), controlId);
  if (const auto state = host::ListStateOf(list)) {
    for (const WideString& line : state->lines) lines.push_back(base::ToUtf8(line));
  }
  return lines;
}

// Texts of everything in the window in front.
std::vector<std::string> TextsInFront() {
  std::vector<std::string> texts;
  for (const WindowHandle child : host::ChildrenOf(platform::ActiveWindow())) {
    if (!platform::IsVisible(child)) continue;
    if (const auto state = host::ListStateOf(child)) {
      for (const WideString& line : state->lines) texts.push_back(base::ToUtf8(line));
    }
    texts.push_back(base::ToUtf8(platform::TextOf(child)));
  }
  return texts;
}

void ExpectThatTheUtilityDoesIt(const std::filesystem::path& root, const Played& played) {
  std::ofstream(root / "device.txt", std::ios::binary | std::ios::trunc) << played.device;
  tests::Keypad keypad;
  std::string keys = "wait\n";
  for (const char key : played.keys) keys += std::string("key ") + key + "\n";
  ASSERT_EQ(0u, tests::PressKeysOf(keys, keypad));
  std::vector<std::string> menu;
  keypad.Then([&] { menu = LinesOfList(ui::kMenuListId); });
  const bool opens = played.goal == Wish::Goal::kUnlock || played.goal == Wish::Goal::kChoice;
  tests::Front front = tests::Front::kNothing;
  std::vector<std::string> texts;
  if (opens) {
    for (const char key : played.ownKeys) tests::PressKeysOf(std::string("key ") + key + "\n", keypad);
    keypad.Then([&] {
      front = tests::WhatIsInFront();
      texts = TextsInFront();
    });
  }
  ASSERT_EQ("", tests::RunUtilityOn({root}, keypad));

  const bool shown = std::any_of(menu.begin(), menu.end(), [&](const std::string& line) {
    return line.size() > 3 && line.substr(3) == played.line;
  });
  EXPECT_TRUE(shown) << played.what << " is to be \"" << played.line << "\", keys " << played.keys;
  if (played.goal == Wish::Goal::kUnlock) {
    EXPECT_EQ(tests::Front::kEditDialog, front) << played.what;
  }
  // A property that cannot be edited has its choices all the same.
  if (played.goal == Wish::Goal::kChoice && front == tests::Front::kEditDialog) {
    EXPECT_TRUE(std::find(texts.begin(), texts.end(), played.choice) != texts.end())
        << played.what << " lacks " << played.choice;
  }
}

TEST(ExplanationPlayed, EveryWayOfTheDemonstrationDoesWhatItPromises) {
  tests::StorageFolder folder;
  std::filesystem::copy(tests::kDemonstration, folder.Path(),
                        std::filesystem::copy_options::recursive | std::filesystem::copy_options::overwrite_existing);
  const auto all = WaysOf(*folder.Load());
  EXPECT_LT(25u, all.size());
  for (const Played& played : all) ExpectThatTheUtilityDoesIt(folder.Path(), played);
}

// --- random rules ---

class RandomMenu {
 public:
  explicit RandomMenu(std::uint32_t seed) : random_(seed) {}

  std::string Text() {
    std::string menu;
    for (int i = 0; i < kProperties; ++i) {
      const bool nested = Pick(3) == 0;
      if (nested)
        menu += "<GROUP name=\"M" + std::to_string(i) + "\"><DisplayName>M" + std::to_string(i) + "</DisplayName>" +
                Rules();
      menu += Property(i);
      if (nested) menu += "</GROUP>\n";
    }
    return menu;
  }
  std::string Device() {
    std::string text;
    for (int i = 0; i < kProperties; ++i) {
      text += "1." + std::to_string(i) + "\tInteger\t" + std::to_string(Pick(3)) + "\n";
    }
    return text;
  }

 private:
  static constexpr int kProperties = 6;

  int Pick(int count) { return static_cast<int>(random_() % static_cast<std::uint32_t>(count)); }
  std::string Value() { return std::to_string(Pick(3)); }
  std::string Action() {
    static const char* const kActions[] = {"Display", "NoDisplay", "Blank", "NoEdit", "ChoiceFmt=\"0#Zero|1#One\""};
    return kActions[Pick(5)];
  }
  std::string Comparison() {
    return "P" + std::to_string(Pick(kProperties)) + (Pick(2) == 0 ? " EQ " : " NEQ ") + Value();
  }
  std::string Rule() {
    static const char* const kFlags[] = {"Display", "NoDisplay", "Blank", "NoEdit"};
    if (Pick(2) == 0) return "1." + std::to_string(Pick(kProperties)) + "|Integer|" + Value() + "|" + kFlags[Pick(4)];
    std::string rule = "IF " + Comparison();
    for (int more = Pick(3); more > 0; --more) rule += (Pick(2) == 0 ? " AND " : " OR ") + Comparison();
    rule += " THEN " + Action();
    return Pick(2) == 0 ? rule : rule + " ELSE " + Action();
  }
  std::string Rules() {
    std::string rules;
    for (int i = Pick(3), number = 0; i > 0; --i, ++number) {
      const std::string name = "Dependency" + (number == 0 ? "" : std::to_string(number));
      rules += "<" + name + ">" + Rule() + "</" + name + ">";
    }
    return rules;
  }
  std::string Property(int i) {
    const std::string n = std::to_string(i);
    return "<GROUP name=\"P" + n + "\"><DisplayName>P" + n + "</DisplayName><OID>1." + n +
           "</OID><Type>Integer</Type><ChoiceFmt>0#Zero|1#One|2#Two</ChoiceFmt>" + Rules() + "</GROUP>\n";
  }

  std::mt19937 random_;
};

TEST(ExplanationPlayed, EveryWayOfRandomRulesDoesWhatItPromises) {
  std::size_t played = 0;
  for (std::uint32_t seed = 1; seed <= 40; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    RandomMenu menu(seed);
    tests::StorageFolder folder;
    folder.WriteMenu(menu.Text()).Write("device.txt", menu.Device());
    for (const Played& way : WaysOf(*folder.Load())) {
      ExpectThatTheUtilityDoesIt(folder.Path(), way);
      ++played;
    }
  }
  EXPECT_LT(100u, played);
}

}  // namespace
