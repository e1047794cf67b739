#include "tools/console.h"

#include "base/utf8.h"

#include <windows.h>

#include <fcntl.h>
#include <io.h>
#include <shellapi.h>

#include <algorithm>
#include <cstdio>
#include <iostream>
#include <streambuf>
#include <string_view>

namespace tools {
namespace {

WideStringView TextOf(const wchar_t* text) { return reinterpret_cast<const char16_t*>(text); }

std::vector<std::string> Utf8Arguments() {
  int count = 0;
  const std::unique_ptr<LPWSTR, decltype(&LocalFree)> arguments(CommandLineToArgvW(GetCommandLineW(), &count),
                                                                LocalFree);
  std::vector<std::string> texts;
  for (int i = 1; arguments && i < count; ++i) texts.push_back(base::ToUtf8(TextOf(arguments.get()[i])));
  return texts;
}

// How many of the bytes are whole characters: of the last one some may still be to come.
std::size_t WholeCharacters(std::string_view bytes) {
  for (std::size_t back = 1; back <= std::min<std::size_t>(3, bytes.size()); ++back) {
    const auto byte = static_cast<unsigned char>(bytes[bytes.size() - back]);
    if ((byte & 0xC0) == 0x80) continue;
    const std::size_t length = byte >= 0xF0 ? 4 : byte >= 0xE0 ? 3 : byte >= 0xC0 ? 2 : 1;
    return length > back ? bytes.size() - back : bytes.size();
  }
  return bytes.size();
}

bool IsFirstOfPair(char16_t unit) { return unit >= 0xD800 && unit < 0xDC00; }

// The console's own code page knows but a few characters; in UTF-16 it takes them all.
class ConsoleBuffer final : public std::streambuf {
 public:
  explicit ConsoleBuffer(HANDLE console) : console_(console) {}

 protected:
  int_type overflow(int_type character) override {
    if (traits_type::eq_int_type(character, traits_type::eof())) return traits_type::not_eof(character);
    const char byte = traits_type::to_char_type(character);
    return xsputn(&byte, 1) == 1 ? character : traits_type::eof();
  }

  std::streamsize xsputn(const char* bytes, std::streamsize count) override {
    bytes_.append(bytes, static_cast<std::size_t>(count));
    return bytes_.size() < kEnough || Write() ? count : 0;
  }

  int sync() override { return Write() ? 0 : -1; }

 private:
  static constexpr std::size_t kEnough = 8192;
  static constexpr std::size_t kMostUnits = 8192;  // old consoles take 64 KB

  bool Write() {
    const std::size_t whole = WholeCharacters(bytes_);
    const WideString text = base::FromUtf8(std::string_view(bytes_).substr(0, whole));
    bytes_.erase(0, whole);
    for (WideStringView rest = text; !rest.empty();) {
      std::size_t length = std::min(rest.size(), kMostUnits);
      if (length < rest.size() && IsFirstOfPair(rest[length - 1])) --length;
      DWORD written = 0;
      if (!WriteConsoleW(console_, rest.data(), static_cast<DWORD>(length), &written, nullptr)) return false;
      if (written == 0) return false;
      rest.remove_prefix(written);
    }
    return true;
  }

  const HANDLE console_;
  std::string bytes_;
};

// One of the two streams. Into a file or another program go the bytes as they are; on a console they are shown.
class Stream {
 public:
  Stream(std::ostream& stream, std::FILE* file, DWORD which) : stream_(stream), handle_(GetStdHandle(which)) {
    if (!GetConsoleMode(handle_, &mode_)) {
      _setmode(_fileno(file), _O_BINARY);
      return;
    }
    takesSequences_ =
        SetConsoleMode(handle_, mode_ | ENABLE_PROCESSED_OUTPUT | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
    buffer_ = std::make_unique<ConsoleBuffer>(handle_);
    replaced_ = stream_.rdbuf(buffer_.get());
  }
  ~Stream() {
    if (!buffer_) return;
    stream_.flush();
    stream_.rdbuf(replaced_);
    SetConsoleMode(handle_, mode_);
  }
  Stream(const Stream&) = delete;
  Stream& operator=(const Stream&) = delete;

  // Colours, and what wipes a line.
  bool TakesSequences() const { return takesSequences_; }

 private:
  std::ostream& stream_;
  const HANDLE handle_;
  DWORD mode_ = 0;
  bool takesSequences_ = false;
  std::unique_ptr<ConsoleBuffer> buffer_;
  std::streambuf* replaced_ = nullptr;
};

}  // namespace

class Console::Streams {
 public:
  Stream out{std::cout, stdout, STD_OUTPUT_HANDLE};
  Stream errors{std::cerr, stderr, STD_ERROR_HANDLE};
};

// What main() gets is in the code page of the PC, which has no place for many characters.
Console::Console(int, char**)
    : streams_(std::make_unique<Streams>()),
      arguments_(Utf8Arguments()),
      wantsColours_(!RefusesColours() && streams_->out.TakesSequences()),
      isErrorATerminal_(streams_->errors.TakesSequences()) {}

Console::~Console() = default;

}  // namespace tools
