// One of the four fields of an address.
#pragma once

#include "platform/controls.h"
#include "platform/window.h"

#include <cstdint>
#include <memory>

namespace ui {

inline constexpr std::size_t kAddressFieldDigits = 3;

class AddressField {
 public:
  enum class Caret { kAll, kStart, kEnd };

  // Makes the edit field; its messages go to `handler` first. False when it cannot be made.
  bool Create(platform::WindowHandle control, const platform::Rect& place, platform::style::Bits alignment,
              platform::MessageHandler& handler);

  platform::WindowHandle Handle() const { return edit_.Handle(); }
  platform::LResult CallPrevious(const platform::Message& message) { return subclass_->CallPrevious(message); }

  void SetBounds(std::uint8_t low, std::uint8_t high);
  std::uint8_t Low() const { return low_; }
  std::uint8_t High() const { return high_; }

  WideString Text() const { return platform::TextOf(edit_.Handle()); }
  bool IsEmpty() const { return Text().empty(); }
  int Value() const;  // of an empty field 0
  bool IsWithinBounds() const;
  // 8 bits, whatever was typed: what exceeds a byte counts as the high bound.
  std::uint8_t Byte() const;

  void SetText(WideStringView text);
  // Rewrites a value within its bounds without leading zeros, or with three digits.
  void Tidy(bool leadingZeros);

  void Enter(Caret caret) const;
  void SelectAll() const { edit_.Select(0, -1); }
  bool IsCaretAt(int position) const;
  bool IsCaretAtEnd() const { return IsCaretAt(static_cast<int>(Text().size())); }
  bool HasSelection() const;
  void DeleteLastDigit() const;

 private:
  platform::EditField edit_;
  std::unique_ptr<platform::Subclass> subclass_;
  std::uint8_t low_ = 0;
  std::uint8_t high_ = 255;
};

}  // namespace ui
