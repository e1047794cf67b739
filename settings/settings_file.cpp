#include "settings/settings_file.h"

#include "base/utf8.h"

#include <yaml-cpp/eventhandler.h>
#include <yaml-cpp/exceptions.h>
#include <yaml-cpp/parser.h>

#include <algorithm>
#include <exception>
#include <set>
#include <sstream>
#include <utility>

namespace settings {
namespace {

// Menus do not lie deeper, and the reader's own stack would have to hold them.
constexpr std::size_t kMostLevels = 100;

// Ends the reading where going on says nothing more.
struct EndOfReading : std::exception {};

struct TagRow {
  std::string_view tag;
  GivenValue::Kind kind;
  bool hasText;
};
constexpr TagRow kTags[] = {
    {"!raw", GivenValue::Kind::kRaw, true},
    {"!default", GivenValue::Kind::kDefault, false},
    {"!secret", GivenValue::Kind::kSecret, true},
};

// The reader counts bytes; people count characters.
class Places {
 public:
  Places(std::string file, std::string_view bytes) : file_(std::move(file)), bytes_(bytes) {}

  authoring::Position Of(const YAML::Mark& mark) const {
    if (mark.is_null()) return {file_, 1, 1};
    const std::size_t end = std::min(static_cast<std::size_t>(mark.pos), bytes_.size());
    const std::size_t lineStart = end == 0 ? 0 : bytes_.rfind('\n', end - 1) + 1;  // npos + 1 is the first
    const std::string_view before = bytes_.substr(lineStart, end - lineStart);
    const auto characters = std::count_if(before.begin(), before.end(), [](char c) { return (c & 0xC0) != 0x80; });
    return {file_, static_cast<std::size_t>(mark.line) + 1, static_cast<std::size_t>(characters) + 1};
  }

 private:
  std::string file_;
  std::string_view bytes_;
};

class Reader final : public YAML::EventHandler {
 public:
  Reader(const Places& places, SettingsFile& file) : places_(places), file_(file) {}

  void OnDocumentStart(const YAML::Mark& mark) override {
    if (documents_++ == 0) return;
    Complain(mark, "a settings file is one document; \"---\" begins another");
    throw EndOfReading();
  }
  void OnDocumentEnd() override {}

  void OnMapStart(const YAML::Mark& mark, const std::string& tag, YAML::anchor_t anchor,
                  YAML::EmitterStyle::value) override {
    CheckAnchor(mark, anchor);
    if (!tag.empty() && tag != "?") Complain(mark, "a menu has no tag; \"" + tag + "\" is for values");
    if (expectsKey_ && !path_.empty()) Complain(mark, "a name is one text");
    if (path_.size() >= kMostLevels) {
      Complain(mark, "menus do not lie that deep");
      throw EndOfReading();
    }
    if (expectsKey_ && isOpen_) throw EndOfReading();
    isOpen_ = true;
    names_.emplace_back();
    path_.emplace_back();
    expectsKey_ = true;
  }

  void OnMapEnd() override {
    path_.pop_back();
    names_.pop_back();
    expectsKey_ = true;
  }

  void OnScalar(const YAML::Mark& mark, const std::string& tag, YAML::anchor_t anchor,
                const std::string& value) override {
    CheckAnchor(mark, anchor);
    if (path_.empty()) {
      Complain(mark, "a settings file is a map of menus and names, such as \"Network:\"");
    } else if (expectsKey_) {
      TakeName(mark, tag, value);
    } else {
      TakeValue(mark, tag, value);
    }
  }

  void OnNull(const YAML::Mark& mark, YAML::anchor_t anchor) override {
    CheckAnchor(mark, anchor);
    if (path_.empty()) return;  // an empty file sets nothing
    if (expectsKey_) {
      Complain(mark, "a name is missing");
      path_.back().clear();
      nameAt_ = places_.Of(mark);
    } else {
      file_.Add(path_, {GivenValue::Kind::kNothing, {}}, nameAt_);
    }
    expectsKey_ = !expectsKey_;
  }

  void OnAlias(const YAML::Mark& mark, YAML::anchor_t) override {
    Complain(mark, "an alias (\"*\") has no meaning here; put the text into quotes");
    nameAt_ = places_.Of(mark);
    if (!path_.empty()) expectsKey_ = !expectsKey_;
  }

  void OnSequenceStart(const YAML::Mark& mark, const std::string&, YAML::anchor_t, YAML::EmitterStyle::value) override {
    Complain(mark, "a list has no meaning here; a setting has one value");
    throw EndOfReading();
  }
  void OnSequenceEnd() override {}

 private:
  void Complain(const YAML::Mark& mark, std::string sentence) {
    file_.Complain(places_.Of(mark), std::move(sentence));
  }

  void CheckAnchor(const YAML::Mark& mark, YAML::anchor_t anchor) {
    if (anchor != YAML::NullAnchor) Complain(mark, "an anchor (\"&\") has no meaning here; put the text into quotes");
  }

  void TakeName(const YAML::Mark& mark, const std::string& tag, const std::string& value) {
    if (tag != "?" && tag != "!") Complain(mark, "a name has no tag");
    if (!names_.back().insert(value).second) Complain(mark, "\"" + value + "\" stands here twice");
    path_.back() = base::FromUtf8(value);
    nameAt_ = places_.Of(mark);
    expectsKey_ = false;
  }

  void TakeValue(const YAML::Mark& mark, const std::string& tag, const std::string& value) {
    expectsKey_ = true;
    GivenValue given{GivenValue::Kind::kShown, base::FromUtf8(value)};
    if (tag != "?" && tag != "!") {
      const auto* row = std::find_if(std::begin(kTags), std::end(kTags), [&](const TagRow& r) { return r.tag == tag; });
      if (row == std::end(kTags)) {
        Complain(mark, "there is no tag \"" + tag + "\"; there are !raw, !default and !secret");
        return;
      }
      if (!row->hasText && !value.empty()) Complain(mark, "!default takes no value");
      if (row->kind == GivenValue::Kind::kSecret && value.empty()) Complain(mark, "!secret takes the secret's name");
      given.kind = row->kind;
    }
    file_.Add(path_, std::move(given), nameAt_);
  }

  const Places& places_;
  SettingsFile& file_;
  int documents_ = 0;
  bool isOpen_ = false;
  bool expectsKey_ = false;
  std::vector<WideString> path_;              // the last is the name read last of the innermost menu
  std::vector<std::set<std::string>> names_;  // of each open menu
  authoring::Position nameAt_;
};

}  // namespace

SettingsFile ReadSettingsFile(const std::string& file, std::string_view bytes) {
  SettingsFile read;
  if (bytes.starts_with("\xEF\xBB\xBF")) bytes.remove_prefix(3);
  const Places places(file, bytes);
  if (base::ToUtf8(base::FromUtf8(bytes)) != bytes) {
    read.Complain({file, 0, 0}, "this is no UTF-8 text");
    return read;
  }
  Reader reader(places, read);
  try {
    std::istringstream input{std::string(bytes)};
    YAML::Parser parser(input);
    while (parser.HandleNextDocument(reader)) {
    }
  } catch (const EndOfReading&) {
  } catch (const YAML::Exception& broken) {
    read.Complain(places.Of(broken.mark), broken.msg);
  } catch (const std::exception& broken) {
    read.Complain({file, 0, 0}, broken.what());
  }
  return read;
}

}  // namespace settings
