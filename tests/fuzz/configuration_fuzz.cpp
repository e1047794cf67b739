// Any bytes as configuration: the utility loads them, and every menu is entered and every entry tried, a bounded number
// of times.
#include "tests/app/utility_run.h"
#include "tests/fuzz/fuzz_storage.h"

#include "platform/host/desktop.h"
#include "platform/messages.h"
#include "ui/menu_list.h"

#include <cstdint>
#include <cstdlib>
#include <vector>

namespace {

using platform::host::KeyStroke;

constexpr int kMostKeys = 400;

// Presses 1 to 9 in each menu, one level after the other, and Esc when it has nothing more to offer.
class Walker {
 public:
  std::optional<KeyStroke> Next() {
    if (++pressed_ > kMostKeys) return std::nullopt;
    if (tests::WhatIsInFront() == tests::Front::kEditDialog) return Edit();
    typed_ = false;
    const auto list = platform::host::ListStateOf(platform::ControlOf(platform::ActiveWindow(), ui::kMenuListId));
    if (!list) return kEscape;
    if (menus_.empty() || list->lines != menus_.back().lines) {
      if (menus_.size() > 1 && list->lines == menus_[menus_.size() - 2].lines) {
        menus_.pop_back();
      } else {
        menus_.push_back({list->lines, u'1'});
      }
    }
    if (menus_.back().next > u'9') return kEscape;
    const char16_t digit = menus_.back().next++;
    return KeyStroke{digit, digit, false, false};
  }

 private:
  static constexpr KeyStroke kEscape{platform::key::kEscape, u'\x1B', false, false};
  static constexpr KeyStroke kEnter{platform::key::kEnter, u'\r', false, false};

  // Types a character, saves, and gives up when that was refused.
  KeyStroke Edit() {
    if (typed_) return saved_ ? kEscape : (saved_ = true, kEnter);
    typed_ = true;
    saved_ = false;
    return {u'1', u'1', false, false};
  }

  struct Menu {
    std::vector<WideString> lines;
    char16_t next;
  };
  std::vector<Menu> menus_;
  int pressed_ = 0;
  bool typed_ = false;
  bool saved_ = false;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  static const fuzz::Storage terminal;
  terminal.Write({reinterpret_cast<const char*>(bytes), size});
  Walker walker;
  tests::Keypad keypad([&walker] { return walker.Next(); });
  if (!tests::RunUtilityOn({terminal.root}, keypad).empty()) std::abort();
  if (keypad.IsStuck()) std::abort();
  return 0;
}
