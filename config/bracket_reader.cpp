#include "config/bracket_reader.h"

#include "base/utf8.h"

#include <algorithm>

namespace config {

BracketReader::BracketReader(WideStringView text, const TextBlocks& blocks)
    : blocks_(blocks), output_(nullptr), units_(text.data()), converted_(text.size()) {}

BracketReader::BracketReader(const Utf8Text& text, const TextBlocks& blocks)
    : blocks_(blocks), bytes_(text.bytes), output_(text.units.get()), units_(output_) {
  Advance(0, 0);
}

BracketReader::Places BracketReader::Refilled(const std::uint32_t* next) {
  if (static_cast<std::size_t>(end_ - next) >= kAhead) return {next, end_ - (kAhead - 1)};
  end_ = std::copy(next, static_cast<const std::uint32_t*>(end_), places_);
  while (static_cast<std::size_t>(end_ - places_) < kAhead && !IsAllMarked()) AddPiece();
  if (static_cast<std::size_t>(end_ - places_) < kAhead) {
    end_ = std::fill_n(end_, kAhead, static_cast<std::uint32_t>(converted_));
  }
  return {places_, end_ - (kAhead - 1)};
}

BracketReader::Places BracketReader::From(const std::uint32_t* next, std::size_t position) {
  if (position > marked_) {
    marked_ = position;
    return Refilled(end_);
  }
  return Refilled(std::find_if(next, static_cast<const std::uint32_t*>(end_),
                               [position](std::uint32_t place) { return place >= position; }));
}

bool BracketReader::ReadOn(std::size_t position) {
  if (IsWhole()) return false;
  Convert(std::max(converted_ - position, kPiece));
  return true;
}

void BracketReader::ReadAll() { Convert(bytes_.size()); }

// What has been converted is gone over before more is. Blocks of ASCII are converted and gone over in one; what stands
// behind them is only converted, and gone over when it is asked for.
void BracketReader::AddPiece() {
  if (marked_ < converted_) {
    const std::size_t length = std::min(converted_ - marked_, kPiece);
    end_ = blocks_.mark(units_, length, static_cast<std::uint32_t>(marked_), end_);
    marked_ += length;
    return;
  }
  const std::size_t blocks = std::min(bytes_.size(), kPiece) / kTextBlock;
  const TextBlocks::Result ascii =
      blocks_.widen(bytes_.data(), blocks, output_, static_cast<std::uint32_t>(converted_), end_);
  end_ = ascii.places;
  Advance(ascii.count * kTextBlock, ascii.count * kTextBlock);
  marked_ = converted_;
  if (ascii.count < kPiece / kTextBlock) Convert(kSlowPiece);
}

void BracketReader::Convert(std::size_t size) {
  const std::string_view bytes = base::Utf8Prefix(bytes_, size);
  char16_t* const from = output_ + converted_;
  Advance(bytes.size(), static_cast<std::size_t>(base::DecodeUtf8(bytes, from) - from));
}

void BracketReader::Advance(std::size_t bytes, std::size_t units) {
  bytes_.remove_prefix(bytes);
  converted_ += units;
  if (IsWhole() && output_ != nullptr) std::fill_n(output_ + converted_, SharedText::kPadding, u'\0');
}

}  // namespace config
