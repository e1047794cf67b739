// Finds the angle brackets of a text, piece by piece. A text that is still UTF-8 is converted on the way, so that each
// piece of it is taken apart while it is at hand in the processor's cache.
#pragma once

#include "base/wide_string.h"
#include "config/shared_text.h"
#include "config/text_blocks.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace config {

class BracketReader {
 public:
  // So many places are at hand at any time. Behind the last bracket come as many as are asked for of the text's end,
  // where a 0 stands.
  static constexpr std::size_t kAhead = 4;
  // To be passed on step by step: `next` is the first place that still counts; from `refill` on it has to be renewed.
  struct Places {
    const std::uint32_t* next;
    const std::uint32_t* refill;
  };

  // What is read stays where it is.
  explicit BracketReader(WideStringView text, const TextBlocks& blocks = *UsableTextBlocks().front());
  explicit BracketReader(const Utf8Text& text, const TextBlocks& blocks = *UsableTextBlocks().front());
  BracketReader(Utf8Text&&, const TextBlocks&) = delete;
  BracketReader(const BracketReader&) = delete;
  BracketReader& operator=(const BracketReader&) = delete;

  const char16_t* Units() const { return units_; }
  // As far as it has been converted: to the last place at hand, or farther.
  WideStringView Text() const { return {units_, converted_}; }
  bool IsWhole() const { return bytes_.empty(); }
  std::size_t MaxLength() const { return converted_ + bytes_.size(); }  // of the whole text

  Places First() { return Refilled(places_); }
  Places Refilled(const std::uint32_t* next);
  // The places that are not before `position`, which Text() reaches.
  Places From(const std::uint32_t* next, std::size_t position);

  // Converts more of the text, as much again as Text() has from `position` on. False when there is no more.
  bool ReadOn(std::size_t position);
  void ReadAll();

 private:
  static constexpr std::size_t kPiece = 4096;     // units that are gone over at once
  static constexpr std::size_t kSlowPiece = 512;  // bytes that are converted at once where others than ASCII are

  void AddPiece();
  void Convert(std::size_t size);
  void Advance(std::size_t bytes, std::size_t units);
  bool IsAllMarked() const { return IsWhole() && marked_ == converted_; }

  const TextBlocks& blocks_;
  std::string_view bytes_;  // not converted yet
  char16_t* const output_;  // null when all was converted before
  const char16_t* const units_;
  std::size_t converted_ = 0;
  std::size_t marked_ = 0;  // the brackets before are in places_, or were
  std::uint32_t* end_ = places_;
  std::uint32_t places_[kAhead + kPiece + kAhead + TextBlocks::kPlacesOver];
};

}  // namespace config
