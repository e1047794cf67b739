// The keypad's keys from the bytes that a PC's terminal sends for them. Sequences may arrive in pieces; what looks like
// one and means no key of the keypad is passed over whole.
#pragma once

#include "platform/host/display.h"
#include "simulator/key_sequences.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace simulator {

class KeyDecoder {
 public:
  using Sequences = std::vector<KeySequence>;

  // `own` are those of this kind of terminal; those that most kinds send are known.
  explicit KeyDecoder(Sequences own = {});

  void Add(std::string_view bytes) { bytes_ += bytes; }

  // The next key that is there whole.
  std::optional<platform::host::KeyStroke> Next();

  // What the bytes left by Next() are.
  enum class Rest {
    kNothing,
    kEscape,  // the key Esc, or the first byte of a sequence
    kBegun,   // a sequence or a character that goes on
  };
  Rest Left() const;

  // The bytes left are all that comes: Next() makes keys of them.
  void Close();

 private:
  struct Reading {
    std::size_t length = 0;                             // 0: more bytes must come
    std::optional<platform::host::KeyStroke> stroke{};  // none: passed over
  };
  Reading Read() const;
  Reading ReadSequence() const;
  Reading ReadControlSequence() const;
  Reading ReadCharacter() const;
  Sequences::const_iterator Find(std::string_view sequence) const;
  bool BeginsKnown() const;

  Sequences known_;
  std::string bytes_;
  bool closed_ = false;
};

}  // namespace simulator
