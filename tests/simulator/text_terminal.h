// kelterm in a text terminal of the test's own: a pseudo terminal whose other end the test holds.
#pragma once

#include <chrono>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include <sys/types.h>

namespace tests {

class TextTerminal {
 public:
  using Milliseconds = std::chrono::milliseconds;
  using Variables = std::map<std::string, std::string>;

  // Started with these arguments; the variables count over those of the test's own environment.
  TextTerminal(const std::vector<std::string>& arguments, const Variables& variables, int columns = 80, int rows = 24);
  ~TextTerminal();
  TextTerminal(const TextTerminal&) = delete;
  TextTerminal& operator=(const TextTerminal&) = delete;

  // Returns when the program has read them.
  void Send(std::string_view bytes) const;
  void Resize(int columns, int rows) const;

  // Whether the text comes to stand on the screen: it is asked to draw all anew until it does. Texts within a row, of
  // one style.
  bool Shows(std::string_view text);
  // Whether a whole drawing comes to have the one text and not the other; what older drawings left unread does not
  // count.
  bool ShowsWithout(std::string_view text, std::string_view absent);
  // How long it takes from these bytes until this text is written, unasked.
  Milliseconds TimeFrom(std::string_view bytes, std::string_view text);

  // What it wrote last, for messages.
  const std::string& Output() const { return output_; }
  pid_t ProcessId() const { return child_; }
  // Its exit status, or the number of the signal that ended it as a negative one.
  int Wait();

 private:
  bool ReadMore(Milliseconds patience);

  int descriptor_ = -1;
  pid_t child_ = -1;
  std::string output_;
};

}  // namespace tests
