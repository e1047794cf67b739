#include "authoring/manual.h"

#include "authoring/goals.h"
#include "authoring/manual_pictures.h"
#include "authoring/manual_words.h"
#include "authoring/menu_keys.h"
#include "authoring/rule_words.h"
#include "authoring/screen_svg.h"
#include "authoring/units.h"
#include "authoring/wireless_words.h"
#include "base/format.h"
#include "base/number.h"
#include "base/utf8.h"
#include "values/value_types.h"

#include <algorithm>
#include <cctype>
#include <map>
#include <optional>
#include <unordered_map>
#include <vector>

namespace authoring {
namespace {

using model::MenuItem;
using values::PropertyDescriptor;
using values::TypeCode;

const char* const kStyles = R"(
body{font:16px/1.5 system-ui,sans-serif;color:#1a1a1a;background:#fff;max-width:60rem;margin:0 auto;padding:1rem;overflow-wrap:anywhere}
h1,h2,h3,p,dd,td,li{unicode-bidi:plaintext;text-align:left}a,code{unicode-bidi:isolate}
h1{font-size:1.8rem;margin:.2rem 0}h2{font-size:1.4rem;border-bottom:2px solid #1d4f91;margin-top:2.5rem}
h3{font-size:1.1rem;margin:1.6rem 0 .2rem}a{color:#1d4f91}p,ul,dl{margin:.3rem 0}
nav ul{list-style:none;padding-left:1.2rem}nav>ul{padding-left:0}
kbd{border:1px solid #99a;border-radius:3px;padding:0 .35em;font:inherit;font-size:.85em;background:#f4f5f8}
.menu{display:flex;flex-wrap:wrap;gap:1.2rem;align-items:flex-start}.menu>*{min-width:0}
ol.lines{list-style:none;padding:0;margin:0;flex:1 1 14rem}ol.lines li{padding:.15rem 0}
dl{display:grid;grid-template-columns:max-content minmax(0,1fr);gap:.1rem .8rem}dt{color:#556}dd{margin:0}
.path{color:#556;font-size:.9rem}details{margin:.4rem 0}summary{cursor:pointer;color:#1d4f91}
table{border-collapse:collapse;width:100%}td,th{text-align:left;padding:.15rem .6rem .15rem 0;vertical-align:top}
@media(max-width:30rem){body{padding:.6rem}dl{grid-template-columns:minmax(0,1fr)}dt{margin-top:.3rem;font-weight:600}}
@media print,(min-width:60rem){.menu svg.screen{width:22rem}
article{display:grid;grid-template-columns:minmax(0,1fr) auto;column-gap:1.2rem;grid-auto-rows:min-content}
article>*{grid-column:1}article>details{grid-column:2;grid-row:1/span 9;margin-top:1.8rem}
details svg.screen{width:16rem}details::details-content{content-visibility:visible;display:block}details summary{display:none}}
@media print{@page{margin:14mm}body{max-width:none;padding:0;font-size:10pt;line-height:1.35}a{color:inherit;text-decoration:none}
h2{margin-top:1.4rem;break-after:avoid}h3,.path{break-after:avoid}h3{margin-top:.9rem}
section>p{break-after:avoid}article,svg.screen,tr,li{break-inside:avoid}#e0,#by-name{break-before:page}.menu{gap:.8rem}
.menu svg.screen{width:7cm}article>details{margin-top:.9rem}details svg.screen{width:4.6cm}
svg.screen{box-shadow:none;border:1px solid #99a}nav ul{margin:0}}
)";

struct ManualEntry {
  const MenuItem* item = nullptr;
  std::string id;  // of its section; that of the first one when the entry stands in several menus
  std::string title;
  std::size_t level = 0;  // of the main menu 0
  bool isFirst = true;
};

// The terminal itself cuts what is longer, in bytes.
constexpr std::size_t kMostOfATitle = 120;
constexpr std::size_t kMostOfAValue = 300;
// Where menus lie deeper than anybody walks, what is said of each entry does not grow with its depth.
constexpr std::size_t kMostOfKeys = 40;
constexpr std::size_t kDeepestContents = 16;
constexpr std::size_t kMostMenusAbove = 12;

std::string Shortened(const std::string& text, std::size_t most) {
  if (text.size() <= most) return text;
  std::size_t end = most;
  while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) --end;  // not within a character
  return text.substr(0, end) + "\u2026";
}

// "1.9" before "1.10".
struct NumbersInOrder {
  bool operator()(const WideString& a, const WideString& b) const {
    std::size_t i = 0;
    std::size_t j = 0;
    while (i < a.size() && j < b.size()) {
      const WideStringView left = Part(a, i);
      const WideStringView right = Part(b, j);
      i += left.size();
      j += right.size();
      if (left == right) continue;
      const bool areNumbers = base::IsDigit(left.front()) && base::IsDigit(right.front());
      if (areNumbers && left.size() != right.size()) return left.size() < right.size();
      return left < right;
    }
    return a.size() - i < b.size() - j;
  }

 private:
  // A run of digits, or one other character.
  static WideStringView Part(WideStringView text, std::size_t at) {
    std::size_t end = at;
    while (end < text.size() && base::IsDigit(text[end])) ++end;
    return text.substr(at, std::max<std::size_t>(end - at, 1));
  }
};

class Writer {
 public:
  Writer(Trial& trial, const ManualTerms& terms, const ManualPictures& pictures)
      : trial_(trial), terms_(terms), pictures_(pictures) {
    Collect();
  }

  std::string Write() && {
    Head();
    Contents();
    for (const ManualEntry& entry : entries_) {
      if (entry.isFirst && IsMenu(entry)) Menu(entry);
    }
    IndexByName();
    IndexByOid();
    html_ += "</main>\n</body>\n</html>\n";
    return std::move(html_);
  }

 private:
  static bool IsMenu(const ManualEntry& entry) { return !entry.item->IsLeaf() || entry.item->Parent() == nullptr; }

  void Collect() {
    const auto keys = KeysInOrder();
    trial_.Rebuild();  // what rules have narrowed on the way is whole again
    std::unordered_map<const config::ConfigKey*, std::string> known;
    for (const MenuItem* item : ItemsInOrder()) {
      ManualEntry entry{item, "e" + std::to_string(entries_.size()), base::ToUtf8(base::Trim(item->Title()))};
      if (item->Parent() != nullptr) entry.level = entries_[byItem_.at(item->Parent())].level + 1;
      if (entry.title.empty()) entry.title = "(no name)";
      entry.title = Shortened(entry.title, kMostOfATitle);
      const auto [place, isNew] = known.emplace(item->Key(), entry.id);
      entry.id = place->second;
      entry.isFirst = isNew;
      if (const auto& found = keys.at(entries_.size())) keys_[item] = *found;
      byItem_[item] = entries_.size();
      entries_.push_back(std::move(entry));
    }
  }

  // All items, each menu before what stands in it.
  std::vector<MenuItem*> ItemsInOrder() {
    std::vector<MenuItem*> items;
    std::vector<MenuItem*> open{&trial_.Model().Root()};
    while (!open.empty()) {
      MenuItem* item = open.back();
      open.pop_back();
      items.push_back(item);
      for (auto child = item->Children().rbegin(); child != item->Children().rend(); ++child)
        open.push_back(child->get());
    }
    return items;
  }

  // In that order. Opening the menus gives the keys; what is hidden now has none.
  std::vector<std::optional<WideString>> KeysInOrder() {
    const std::vector<MenuItem*> items = ItemsInOrder();
    const MenuKeys keys(trial_, items);
    std::vector<std::optional<WideString>> all;
    all.reserve(items.size());
    for (const MenuItem* item : items) all.push_back(keys.To(*item));
    return all;
  }

  void Add(const std::string& text) { html_ += text; }
  void Text(std::string_view text) { html_ += EscapedHtml(text); }
  void Term(const char* name, const std::string& html) {
    html_ += std::string("<dt>") + name + "</dt><dd>" + html + "</dd>\n";
  }
  std::string Link(const ManualEntry& entry) const {
    return "<a href=\"#" + entry.id + "\">" + EscapedHtml(entry.title) + "</a>";
  }

  std::string Title() const { return terms_.title.empty() ? entries_.front().title : terms_.title; }

  void Head() {
    Add("<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
        "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n<title>");
    Text(Title());
    Add("</title>\n<style>\n" + std::string(kStyles) + kScreenStyles + "</style>\n</head>\n<body>\n<header>\n<h1>");
    Text(Title());
    Add("</h1>\n<p>The settings of the terminal, menu by menu.</p>\n</header>\n<main>\n"
        "<section id=\"keys\">\n<h2>Keys</h2>\n<dl>\n");
    Term("<kbd>1</kbd> to <kbd>9</kbd>", "open the line with that number");
    Term("<kbd>&#8593;</kbd> <kbd>&#8595;</kbd>", "choose a line or a value");
    Term("<kbd>Enter</kbd>", "open the chosen line; in an editor, save");
    Term("<kbd>Esc</kbd>", "one menu back; in an editor, leave it without saving");
    Term("<kbd>Home</kbd>", "back to the main menu");
    Add("</dl>\n<p>Keys such as <kbd>2</kbd> <kbd>3</kbd> are pressed one after the other, from the main menu on. A "
        "menu of "
        "more than nine lines has pages: <kbd>9</kbd> More... leads to the next one, <kbd>1</kbd> ...Back to the one "
        "before.</p>\n<p>The numbers are those of a terminal whose settings stand as they did for this manual: a line "
        "that is "
        "hidden has none, and those below it move up.</p>\n</section>\n");
  }

  void Contents() {
    Add("<nav id=\"contents\" aria-label=\"Contents\">\n<h2>Contents</h2>\n");
    std::size_t depth = 0;
    for (const ManualEntry& entry : entries_) {
      if (!entry.isFirst || !IsMenu(entry)) continue;
      const std::size_t level = std::min(entry.level + 1, kDeepestContents);
      const bool goesDown = level > depth;
      for (; depth < level; ++depth) Add("\n<ul><li>");
      for (; depth > level; --depth) Add("</li></ul>");
      if (!goesDown) Add("</li>\n<li>");
      Add(Link(entry));
    }
    for (; depth > 0; --depth) Add("</li></ul>");
    Add("\n<p><a href=\"#by-name\">Index by name</a>, <a href=\"#by-oid\">index by OID</a></p>\n</nav>\n");
  }

  // Null: none was taken.
  template <typename Pictures>
  static const typename Pictures::mapped_type* PictureOf(const ManualEntry& entry, const Pictures& pictures) {
    if (entry.level > kDeepestGoal) return nullptr;
    const auto found = pictures.find(PathText(*entry.item));
    return found == pictures.end() ? nullptr : &found->second;
  }

  static std::string KeysHtml(WideStringView keys) {
    std::string html;
    for (const char16_t key : keys.substr(0, kMostOfKeys))
      html += (html.empty() ? "<kbd>" : " <kbd>") + base::ToUtf8(WideString(1, key)) + "</kbd>";
    return keys.size() > kMostOfKeys ? html + " &#8230;" : html;
  }
  // Null while the item cannot be reached.
  const WideString* KeysOf(const MenuItem* item) const {
    const auto found = keys_.find(item);
    return found == keys_.end() ? nullptr : &found->second;
  }

  std::vector<std::string> Sentences(const ManualEntry& entry) const {
    std::vector<std::string> sentences = RulesInWords(trial_, *entry.item);
    std::string wireless = WirelessInWords(trial_, *entry.item);
    if (!wireless.empty()) sentences.push_back(std::move(wireless));
    return sentences;
  }

  void Menu(const ManualEntry& entry) {
    Add("<section id=\"" + entry.id + "\">\n<h2>");
    Text(entry.title);
    Add("</h2>\n");
    Where(entry);
    for (const std::string& sentence : Sentences(entry)) Add("<p>" + EscapedHtml(sentence) + "</p>\n");
    const config::ConfigKey* key = KeyOf(entry);
    if (key != nullptr && HasHandler(*key, u"CheckWEPKey")) {
      Add("<p>When the menu is left, the terminal warns of a network key that is missing.</p>\n");
    }
    Add("<div class=\"menu\">\n");
    if (const auto* pictures = PictureOf(entry, pictures_.menus)) {
      for (const std::string& picture : *pictures) Add("<div>" + picture + "</div>\n");
    }
    Add("<ol class=\"lines\">\n");
    const WideString* toMenu = KeysOf(entry.item);
    for (const auto& child : entry.item->Children()) {
      const ManualEntry& line = entries_[byItem_.at(child.get())];
      const WideString* keys = KeysOf(child.get());
      // From the menu on: a further page's lines have the key to it in front.
      const std::size_t known = toMenu == nullptr ? 0 : toMenu->size();
      Add("<li>");
      if (keys != nullptr) Add(KeysHtml(WideStringView(*keys).substr(std::min(known, keys->size()))) + " ");
      Add(Link(line));
      if (keys == nullptr) Add(Hint(line));
      Add("</li>\n");
    }
    if (entry.item->Children().empty()) Add("<li>(no items)</li>\n");
    Add("</ol>\n</div>\n");
    if (entry.item->Descriptor() != nullptr) Details(entry);
    for (const auto& child : entry.item->Children()) {
      const ManualEntry& line = entries_[byItem_.at(child.get())];
      if (line.isFirst && !IsMenu(line)) Article(line);
    }
    Add("</section>\n");
  }

  // Why a line has no number: rules can hide it, or it only shows something.
  std::string Hint(const ManualEntry& line) const {
    if (!RulesInWords(trial_, *line.item).empty() || !WirelessInWords(trial_, *line.item).empty()) {
      return " (not always shown)";
    }
    return {};
  }

  void Where(const ManualEntry& entry) {
    std::string path;
    std::size_t menus = 0;
    for (const MenuItem* at = entry.item->Parent(); at != nullptr; at = at->Parent()) {
      if (menus++ == kMostMenusAbove) {
        path = "&#8230; &#8250; " + path;
        break;
      }
      const std::string link = Link(entries_[byItem_.at(at)]);
      path = path.empty() ? link : link + " &#8250; " + path;
    }
    const std::string keys = HowToReach(*entry.item);
    if (path.empty()) return;
    Add("<p class=\"path\">In " + path + (keys.empty() ? "" : " &#183; ") + keys + "</p>\n");
  }

  std::string HowToReach(const MenuItem& item) const {
    if (const WideString* keys = KeysOf(&item)) return "keys " + KeysHtml(*keys);
    const WideString* menu = KeysOf(item.Parent());
    return menu == nullptr || menu->empty() ? "once it is shown" : "keys " + KeysHtml(*menu) + ", once it is shown";
  }

  const config::ConfigKey* KeyOf(const ManualEntry& entry) const { return entry.item->Key(); }

  static std::string Capital(std::string text) {
    if (!text.empty()) text.front() = static_cast<char>(std::toupper(static_cast<unsigned char>(text.front())));
    return text;
  }

  void Article(const ManualEntry& entry) {
    Add("<article id=\"" + entry.id + "\">\n<h3>");
    Text(entry.title);
    Add("</h3>\n<p class=\"path\">" + Capital(HowToReach(*entry.item)) + "</p>\n");
    Details(entry);
    Add("</article>\n");
  }

  void Details(const ManualEntry& entry) {
    const config::ConfigKey* key = KeyOf(entry);
    if (key == nullptr) return;
    const PropertyDescriptor* property = entry.item->Descriptor();
    const WideStringView description = key->Value(TextId::kShortDesc);
    if (!description.empty()) Add("<p>" + EscapedHtml(base::ToUtf8(description)) + "</p>\n");
    if (const std::string command = CommandHtml(*key); !command.empty()) Add("<p>" + command + "</p>\n");
    std::string terms;
    html_.swap(terms);
    if (property != nullptr) PropertyTerms(*property, *key);
    if (!IsMenu(entry)) {
      for (const std::string& sentence : Sentences(entry)) Term("Depends", EscapedHtml(sentence));
    }
    AfterChange(entry, *key);
    html_.swap(terms);
    if (!terms.empty()) Add("<dl>\n" + terms + "</dl>\n");
    if (const std::string* picture = PictureOf(entry, pictures_.editors)) {
      Add("<details><summary>How it is edited</summary>\n<div>" + *picture + "</div></details>\n");
    }
  }

  static std::string CommandHtml(const config::ConfigKey& key) {
    const std::string words = FunctionInWords(key.Value(TextId::kFunction));
    const WideStringView program = key.Value(TextId::kAppName);
    if (!words.empty() || program.empty()) return EscapedHtml(words);
    return "Starts a program: <code>" + EscapedHtml(base::ToUtf8(program)) + "</code>";
  }

  void PropertyTerms(const PropertyDescriptor& property, const config::ConfigKey& key) {
    const values::ChoiceFormat choices = property.Choices();
    if (const std::string kind = KindInWords(property); !kind.empty()) Term("What", EscapedHtml(kind));
    std::string list;
    for (const auto& entry : choices.Entries()) list += (list.empty() ? "" : ", ") + base::ToUtf8(entry.text);
    if (!list.empty()) Term("Choices", EscapedHtml(list));
    if (choices.Count() == 0) Limits(property, key);
    const std::string factory = FactoryValueInWords(trial_, property, key);
    if (!factory.empty()) Term("Factory value", EscapedHtml(Shortened(factory, kMostOfAValue)));
    if (key.Value(TextId::kFillOid) == u"Profile") {
      Term("Belongs to", "the wireless profile that is in use; each profile has its own");
    }
    const WideStringView oid = key.Value(TextId::kOid).empty() ? key.Value(TextId::kCmdOid) : key.Value(TextId::kOid);
    Term("OID", "<code>" + EscapedHtml(base::ToUtf8(oid)) + "</code>");
  }

  void Limits(const PropertyDescriptor& property, const config::ConfigKey& key) {
    const WideString range = property.Resolve(TextId::kRange);
    const bool hasRange = !range.empty() && range != values::kUnresolved;
    if (hasRange) Term("Allowed", EscapedHtml(RangeInWords(range)));
    const auto type = values::TypeCodeOf(property.Attributes().Get(TextId::kType));
    if (type == TypeCode::kInteger && property.Attributes().Get(TextId::kSubType).empty()) {
      const std::string unit =
          UnitIn(base::ToUtf8(property.DisplayName()), base::ToUtf8(key.Value(TextId::kShortDesc)));
      Term("Unit", unit.empty() ? "none is stated" : EscapedHtml(unit));
    }
    if (property.GetMaxChars() > 0 && !hasRange) {
      Term("Length", "up to " + std::to_string(property.GetMaxChars()) + " characters");
    }
  }

  void AfterChange(const ManualEntry& entry, const config::ConfigKey& key) {
    if (entry.item->Descriptor() != nullptr && !IsMenu(entry)) {
      if (HasHandler(key, u"PromptWarmBoot")) Term("After a change", "the terminal asks whether to restart");
      const MenuItem* menu = entry.item->Parent();
      const config::ConfigKey* menuKey = menu == nullptr ? nullptr : menu->Key();
      if (menuKey != nullptr && HasHandler(key, u"FlagChanges") && HasHandlerThatBegins(*menuKey, u"IfChanges:")) {
        Term("Takes effect", "when the menu is left");
      }
      if (HasHandler(key, u"VerifyNetUI")) {
        Term("After a change", "other wireless settings may be adjusted to fit; the terminal says so");
      }
    }
  }

  static bool HasHandlerThatBegins(const config::ConfigKey& key, WideStringView start) {
    WideStringView handler = key.Value(TextId::kOnExit);
    for (int number = 1; !handler.empty(); ++number) {
      if (handler.starts_with(start)) return true;
      handler = key.Value(base::Format(u"_OnExit%d", number));
    }
    return false;
  }
  static bool HasHandler(const config::ConfigKey& key, WideStringView name) {
    WideStringView handler = key.Value(TextId::kOnExit);
    for (int number = 1; !handler.empty(); ++number) {
      if (handler == name) return true;
      handler = key.Value(base::Format(u"_OnExit%d", number));
    }
    return false;
  }

  void IndexByName() {
    std::vector<const ManualEntry*> sorted;
    for (const ManualEntry& entry : entries_) {
      if (entry.isFirst && entry.item->Parent() != nullptr) sorted.push_back(&entry);
    }
    std::stable_sort(sorted.begin(), sorted.end(), [](const ManualEntry* a, const ManualEntry* b) {
      const WideString left = base::FromUtf8(a->title);
      const WideString right = base::FromUtf8(b->title);
      return std::lexicographical_compare(left.begin(), left.end(), right.begin(), right.end(),
                                          [](char16_t x, char16_t y) { return base::ToUpper(x) < base::ToUpper(y); });
    });
    Add("<section id=\"by-name\">\n<h2>Index by "
        "name</h2>\n<table>\n<tr><th>Name</th><th>Menu</th><th>Keys</th></tr>\n");
    for (const ManualEntry* entry : sorted) {
      Add("<tr><td>" + Link(*entry) + "</td><td>");
      Text(entries_[byItem_.at(entry->item->Parent())].title);
      Add("</td><td>" + (KeysOf(entry->item) == nullptr ? std::string() : KeysHtml(*KeysOf(entry->item))) +
          "</td></tr>\n");
    }
    Add("</table>\n</section>\n");
  }

  void IndexByOid() {
    std::map<WideString, const ManualEntry*, NumbersInOrder> sorted;
    for (const ManualEntry& entry : entries_) {
      const config::ConfigKey* key = KeyOf(entry);
      if (key == nullptr || !entry.isFirst) continue;
      const WideStringView oid =
          key->Value(TextId::kOid).empty() ? key->Value(TextId::kCmdOid) : key->Value(TextId::kOid);
      if (!oid.empty()) sorted.emplace(WideString(oid), &entry);
    }
    Add("<section id=\"by-oid\">\n<h2>Index by OID</h2>\n<table>\n<tr><th>OID</th><th>Name</th></tr>\n");
    for (const auto& [oid, entry] : sorted) {
      Add("<tr><td><code>" + EscapedHtml(base::ToUtf8(oid)) + "</code></td><td>" + Link(*entry) + "</td></tr>\n");
    }
    Add("</table>\n</section>\n");
  }

  Trial& trial_;
  const ManualTerms& terms_;
  const ManualPictures& pictures_;
  std::vector<ManualEntry> entries_;
  std::map<const MenuItem*, std::size_t> byItem_;
  std::map<const MenuItem*, WideString> keys_;
  std::string html_;
};

}  // namespace

Manual MakeManual(const Configuration& configuration, const ManualTerms& terms) {
  Manual manual;
  ManualPictures pictures;
  if (terms.pictures) pictures = TakePictures(configuration, terms.mostKeys, terms.progress);
  manual.problem = pictures.problem;
  if (!manual.problem.empty()) return manual;
  Trial trial(configuration);
  manual.html = Writer(trial, terms, pictures).Write();
  return manual;
}

}  // namespace authoring
