#include "platform/host/reg_file.h"

#include "base/utf8.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace platform::host {
namespace {

constexpr std::size_t kMaxLevels = 512;  // as the registry itself has it
constexpr std::uint32_t kTypeBinary = 3;

const struct {
  WideStringView name;
  RegistryRoot root;
} kRoots[] = {
    {u"HKEY_CLASSES_ROOT", RegistryTree::kClassesRoot},     {u"HKEY_CURRENT_USER", RegistryTree::kCurrentUser},
    {u"HKEY_LOCAL_MACHINE", RegistryTree::kLocalMachine},   {u"HKEY_USERS", RegistryTree::kUsers},
    {u"HKEY_CURRENT_CONFIG", RegistryTree::kCurrentConfig},
};

WideString Decode(std::string_view bytes) {
  const auto utf16 = [&bytes](int low, int high) {
    WideString text;
    text.reserve(bytes.size() / 2);
    for (std::size_t i = 2; i + 1 < bytes.size(); i += 2) {
      const auto unit = [&](int offset) {
        return static_cast<unsigned char>(bytes[i + static_cast<std::size_t>(offset)]);
      };
      text.push_back(static_cast<char16_t>(unit(low) | (unit(high) << 8)));
    }
    return text;
  };
  if (bytes.starts_with("\xFF\xFE")) return utf16(0, 1);
  if (bytes.starts_with("\xFE\xFF")) return utf16(1, 0);
  if (bytes.starts_with("\xEF\xBB\xBF")) bytes.remove_prefix(3);
  return base::FromUtf8(bytes);
}

std::optional<std::uint32_t> HexDigit(char16_t unit) {
  if (unit >= u'0' && unit <= u'9') return unit - u'0';
  const char16_t upper = base::ToUpper(unit);
  if (upper >= u'A' && upper <= u'F') return upper - u'A' + 10u;
  return std::nullopt;
}

std::optional<std::uint32_t> HexNumber(WideStringView digits) {
  if (digits.empty() || digits.size() > 8) return std::nullopt;
  std::uint32_t number = 0;
  for (const char16_t unit : digits) {
    const auto digit = HexDigit(unit);
    if (!digit) return std::nullopt;
    number = (number << 4) | *digit;
  }
  return number;
}

bool StartsWithIgnoringCase(WideStringView text, WideStringView start) {
  return text.size() >= start.size() && base::EqualsIgnoringCase(text.substr(0, start.size()), start);
}

// Reads the file statement by statement; a statement may run over several lines.
class Reader {
 public:
  explicit Reader(WideStringView text) : text_(text), tree_(std::make_shared<RegistryTree>()) {}

  RegFile Read() {
    bool good = SkipToStatement() ? Header() : true;
    while (good && SkipToStatement()) good = Statement();
    if (good) return {tree_, 0, {}};
    return {nullptr, statementLine_, problem_};
  }

 private:
  bool Fail(std::string problem) {
    problem_ = std::move(problem);
    return false;
  }

  bool AtEnd() const { return at_ >= text_.size(); }
  char16_t Peek() const { return AtEnd() ? u'\0' : text_[at_]; }

  void SkipBlanks() {
    while (!AtEnd() && (Peek() == u' ' || Peek() == u'\t')) ++at_;
  }

  // The rest of the line, blanks at its ends cut off; the line end is passed.
  WideStringView RestOfLine() {
    const std::size_t end = std::min(text_.find_first_of(u"\r\n", at_), text_.size());
    const WideStringView rest = base::Trim(text_.substr(at_, end - at_));
    at_ = end;
    PassLineEnd();
    return rest;
  }

  void PassLineEnd() {
    if (Peek() == u'\r') ++at_;
    if (Peek() == u'\n') ++at_;
    ++line_;
  }

  bool AtLineEnd() const { return AtEnd() || Peek() == u'\r' || Peek() == u'\n'; }

  // Passes empty lines and comments. False at the end of the file.
  bool SkipToStatement() {
    while (!AtEnd()) {
      SkipBlanks();
      if (Peek() == u';') {
        RestOfLine();
      } else if (!AtEnd() && AtLineEnd()) {
        PassLineEnd();
      } else {
        break;
      }
    }
    statementLine_ = line_;
    return !AtEnd();
  }

  bool Header() {
    const WideStringView line = RestOfLine();
    if (line == u"REGEDIT4") {
      wideData_ = false;
    } else if (line != u"Windows Registry Editor Version 5.00") {
      return Fail("the first line is not that of a registry file");
    }
    return true;
  }

  bool Statement() {
    if (Peek() == u'[') return KeyLine();
    if (Peek() == u'"' || Peek() == u'@') return ValueLine();
    return Fail("neither a key nor a value");
  }

  bool KeyLine() {
    WideStringView line = RestOfLine();
    // A key's name may itself hold brackets: the last one of the line closes.
    const std::size_t close = line.rfind(u']');
    if (close == WideStringView::npos) return Fail("the key has no closing bracket");
    const WideStringView after = base::Trim(line.substr(close + 1));
    if (!after.empty() && after[0] != u';') return Fail("unexpected text after the key");
    WideStringView path = line.substr(1, close - 1);
    const bool remove = path.starts_with(u'-');
    if (remove) path.remove_prefix(1);
    if (static_cast<std::size_t>(std::count(path.begin(), path.end(), u'\\')) > kMaxLevels) {
      return Fail("the key lies too deep");
    }
    const std::size_t end = std::min(path.find(u'\\'), path.size());
    const auto* root = std::find_if(std::begin(kRoots), std::end(kRoots), [&](const auto& entry) {
      return base::EqualsIgnoringCase(entry.name, path.substr(0, end));
    });
    if (root == std::end(kRoots)) return Fail("no such root key");
    path.remove_prefix(end);
    key_ = nullptr;
    ignoring_ = remove;
    if (remove) {
      tree_->Remove(root->root, path);
    } else {
      key_ = &tree_->Add(root->root, path);
    }
    return true;
  }

  bool ValueLine() {
    WideString name;
    if (Peek() == u'@') {
      ++at_;
    } else if (!QuotedText(name)) {
      return false;
    }
    SkipBlanks();
    if (Peek() != u'=') return Fail("the value has no \"=\"");
    ++at_;
    SkipBlanks();
    if (key_ == nullptr && !ignoring_) return Fail("a value before the first key");
    RegistryTreeKey ignored;
    return Data(key_ != nullptr ? *key_ : ignored, name);
  }

  bool Data(RegistryTreeKey& key, WideStringView name) {
    if (Peek() == u'"') {
      WideString text;
      if (!QuotedText(text)) return false;
      if (!EndOfStatement()) return false;
      RegistryTree::SetText(key, name, text);
      return true;
    }
    if (Peek() == u'-') {
      ++at_;
      if (!EndOfStatement()) return false;
      if (const auto value = key.values.find(name); value != key.values.end()) key.values.erase(value);
      return true;
    }
    const WideStringView rest = text_.substr(at_);
    if (StartsWithIgnoringCase(rest, u"dword:")) return Number(key, name);
    if (StartsWithIgnoringCase(rest, u"hex")) return Bytes(key, name);
    return Fail("the value's data is of no known kind");
  }

  bool Number(RegistryTreeKey& key, WideStringView name) {
    at_ += WideStringView(u"dword:").size();
    WideStringView digits = RestOfLine();
    digits = base::Trim(digits.substr(0, digits.find(u';')));
    const auto number = HexNumber(digits);
    if (!number) return Fail("a dword needs one to eight hexadecimal digits");
    RegistryTree::SetNumber(key, name, *number);
    return true;
  }

  // hex: or hex(TYPE):, then bytes separated by commas; a backslash at a line's end goes on with the next line.
  bool Bytes(RegistryTreeKey& key, WideStringView name) {
    at_ += WideStringView(u"hex").size();
    std::uint32_t type = kTypeBinary;
    if (Peek() == u'(') {
      const std::size_t close = text_.find_first_of(u")\r\n", at_);
      const auto number =
          close == WideStringView::npos ? std::nullopt : HexNumber(text_.substr(at_ + 1, close - at_ - 1));
      if (!number || text_[close] != u')') return Fail("the type of the hexadecimal data is not understood");
      type = *number;
      at_ = close + 1;
    }
    if (Peek() != u':') return Fail("the hexadecimal data has no \":\"");
    ++at_;
    std::string bytes;
    if (!ByteList(bytes)) return false;
    const bool isText = type == 1 || type == 2 || type == 7;
    if (isText && !wideData_) bytes = RegistryBytes(base::FromUtf8(bytes));
    RegistryTree::SetBytes(key, name, type, std::move(bytes));
    return true;
  }

  bool ByteList(std::string& bytes) {
    bool wantsByte = true;
    for (;;) {
      SkipBlanks();
      if (Peek() == u'\\' && !AtEnd()) {
        ++at_;
        SkipBlanks();
        if (!AtLineEnd() || AtEnd()) return Fail("a backslash that is not the line's last character");
        PassLineEnd();
        continue;
      }
      if (AtLineEnd() || Peek() == u';') {
        RestOfLine();
        return true;
      }
      if (Peek() == u',' && !wantsByte) {
        ++at_;
        wantsByte = true;
        continue;
      }
      std::size_t length = 0;
      while (length < 2 && at_ + length < text_.size() && HexDigit(text_[at_ + length])) ++length;
      if (length == 0 || !wantsByte) return Fail("the hexadecimal data is not a list of bytes");
      bytes.push_back(static_cast<char>(*HexNumber(text_.substr(at_, length))));
      at_ += length;
      wantsByte = false;
    }
  }

  // A text in quotes; it may hold line ends. A backslash takes the next character as it is, and n, r and 0 as the
  // controls that they stand for.
  bool QuotedText(WideString& text) {
    ++at_;
    while (!AtEnd()) {
      char16_t unit = text_[at_++];
      if (unit == u'"') return true;
      if (unit == u'\n') ++line_;
      if (unit == u'\\') {
        if (AtEnd()) break;
        unit = text_[at_++];
        if (unit == u'\n') ++line_;
        unit = unit == u'n' ? u'\n' : unit == u'r' ? u'\r' : unit == u'0' ? u'\0' : unit;
      }
      text.push_back(unit);
    }
    return Fail("a text without its closing quote");
  }

  bool EndOfStatement() {
    SkipBlanks();
    if (!AtLineEnd() && Peek() != u';') return Fail("unexpected text after the value");
    RestOfLine();
    return true;
  }

  WideStringView text_;
  std::size_t at_ = 0;
  std::size_t line_ = 1;
  std::size_t statementLine_ = 1;
  std::string problem_;
  bool wideData_ = true;
  bool ignoring_ = false;  // the values after a deleted key
  std::shared_ptr<RegistryTree> tree_;
  RegistryTreeKey* key_ = nullptr;
};

}  // namespace

RegFile ReadRegFile(std::string_view bytes) {
  const WideString text = Decode(bytes);
  return Reader(text).Read();
}

}  // namespace platform::host
