#include "authoring/manual.h"

#include "authoring/goals.h"
#include "authoring/manual_pictures.h"
#include "authoring/rule_words.h"
#include "authoring/screen_svg.h"
#include "base/format.h"
#include "base/number.h"
#include "base/utf8.h"
#include "values/value_types.h"

#include <algorithm>
#include <map>
#include <vector>

namespace authoring {
namespace {

using model::MenuItem;
using values::PropertyDescriptor;
using values::TypeCode;

const char* const kStyles =
    "body{font:16px/1.5 system-ui,sans-serif;color:#1a1a1a;background:#fff;max-width:60rem;margin:0 "
    "auto;padding:1rem}\n"
    "h1{font-size:1.8rem;margin:.2rem 0}h2{font-size:1.4rem;border-bottom:2px solid #1d4f91;margin-top:2.5rem}\n"
    "h3{font-size:1.1rem;margin:1.6rem 0 .2rem}a{color:#1d4f91}p,ul,dl{margin:.3rem 0}\n"
    "nav ul{list-style:none;padding-left:1.2rem}nav>ul{padding-left:0}\n"
    "kbd{border:1px solid #99a;border-radius:3px;padding:0 .35em;font:inherit;font-size:.85em;background:#f4f5f8}\n"
    ".menu{display:flex;flex-wrap:wrap;gap:1.2rem;align-items:flex-start}.menu>*{min-width:0}\n"
    "ol.lines{list-style:none;padding:0;margin:0;flex:1 1 16rem}ol.lines li{padding:.15rem 0}\n"
    "dl{display:grid;grid-template-columns:max-content 1fr;gap:.1rem .8rem}dt{color:#556}dd{margin:0;"
    "overflow-wrap:anywhere}\n"
    ".path{color:#556;font-size:.9rem}details{margin:.4rem 0}summary{cursor:pointer;color:#1d4f91}\n"
    "table{border-collapse:collapse;width:100%}td,th{text-align:left;padding:.15rem .6rem .15rem 0;"
    "vertical-align:top;overflow-wrap:anywhere}\n"
    "@media(max-width:30rem){body{padding:.6rem}dl{grid-template-columns:1fr}dt{margin-top:.3rem;font-weight:600}}\n"
    "@media print{body{max-width:none;font-size:10.5pt}a{color:inherit;text-decoration:none}h2{break-before:page}\n"
    "article,.menu{break-inside:avoid}svg.screen{box-shadow:none;border:1px solid #999}details:not([open])>*{display:"
    "block}summary{display:none}}\n";

struct ManualEntry {
  const MenuItem* item = nullptr;
  std::string id;  // of its section; that of the first one when the entry stands in several menus
  std::string title;
  std::string path;
  bool isFirst = true;
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

  // In the order of the menus, each menu before what stands in it.
  void Collect() {
    const auto keys = KeysByPlace();
    trial_.Rebuild();  // what rules have narrowed on the way is whole again
    std::vector<const MenuItem*> open{&trial_.Model().Root()};
    std::map<WideString, std::string> known;
    while (!open.empty()) {
      const MenuItem* item = open.back();
      open.pop_back();
      ManualEntry entry{item, "e" + std::to_string(entries_.size()), base::ToUtf8(base::Trim(item->Title())),
                        PathText(*item), true};
      if (entry.title.empty()) entry.title = "(no name)";
      const auto [place, isNew] = known.emplace(item->Path(), entry.id);
      entry.id = place->second;
      entry.isFirst = isNew;
      byItem_[item] = entries_.size();
      if (const auto found = keys.find(PlaceOf(*item)); found != keys.end()) keys_[item] = found->second;
      entries_.push_back(std::move(entry));
      for (auto child = item->Children().rbegin(); child != item->Children().rend(); ++child)
        open.push_back(child->get());
    }
  }

  // Opening the menus gives the keys; what is hidden now has none.
  std::map<ItemPlace, WideString> KeysByPlace() {
    std::map<ItemPlace, WideString> keys;
    std::vector<MenuItem*> items{&trial_.Model().Root()};
    for (std::size_t i = 0; i < items.size(); ++i) {
      for (const auto& child : items[i]->Children()) items.push_back(child.get());
      if (items[i]->Parent() == nullptr) continue;
      if (auto found = trial_.KeysTo(*items[i])) keys[PlaceOf(*items[i])] = *std::move(found);
    }
    return keys;
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
    Add("</dl>\n<p>Keys such as <kbd>2</kbd> <kbd>3</kbd> are pressed one after the other, from the main menu on.</p>\n"
        "</section>\n");
  }

  void Contents() {
    Add("<nav id=\"contents\" aria-label=\"Contents\">\n<h2>Contents</h2>\n");
    std::size_t depth = 0;
    for (const ManualEntry& entry : entries_) {
      if (!entry.isFirst || !IsMenu(entry)) continue;
      std::size_t level = 1;
      for (const MenuItem* at = entry.item->Parent(); at != nullptr; at = at->Parent()) ++level;
      const bool goesDown = level > depth;
      for (; depth < level; ++depth) Add("\n<ul><li>");
      for (; depth > level; --depth) Add("</li></ul>");
      if (!goesDown) Add("</li>\n<li>");
      Add(Link(entry));
    }
    for (; depth > 0; --depth) Add("</li></ul>");
    Add("\n<p><a href=\"#by-name\">Index by name</a>, <a href=\"#by-oid\">index by OID</a></p>\n</nav>\n");
  }

  std::string KeysHtml(const MenuItem& item) const {
    const auto found = keys_.find(&item);
    if (found == keys_.end()) return {};
    std::string html;
    for (const char16_t key : found->second)
      html += (html.empty() ? "<kbd>" : " <kbd>") + base::ToUtf8(WideString(1, key)) + "</kbd>";
    return html;
  }

  void Menu(const ManualEntry& entry) {
    Add("<section id=\"" + entry.id + "\">\n<h2>");
    Text(entry.title);
    Add("</h2>\n");
    Where(entry);
    for (const std::string& sentence : RulesInWords(trial_, *entry.item)) Add("<p>" + EscapedHtml(sentence) + "</p>\n");
    Add("<div class=\"menu\">\n");
    const auto pictures = pictures_.menus.find(entry.path);
    if (pictures != pictures_.menus.end()) {
      for (const std::string& picture : pictures->second) Add("<div>" + picture + "</div>\n");
    }
    Add("<ol class=\"lines\">\n");
    for (const auto& child : entry.item->Children()) {
      const ManualEntry& line = entries_[byItem_.at(child.get())];
      const auto keys = keys_.find(child.get());
      Add("<li>");
      Add(keys == keys_.end() ? "" : "<kbd>" + base::ToUtf8(keys->second.substr(keys->second.size() - 1)) + "</kbd> ");
      Add(Link(line));
      if (keys == keys_.end()) Add(" (not always shown)");
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

  void Where(const ManualEntry& entry) {
    std::string path;
    for (const MenuItem* at = entry.item->Parent(); at != nullptr; at = at->Parent()) {
      const std::string link = Link(entries_[byItem_.at(at)]);
      path = path.empty() ? link : link + " &#8250; " + path;
    }
    const std::string keys = KeysHtml(*entry.item);
    if (path.empty() && keys.empty()) return;
    Add("<p class=\"path\">" + path + (keys.empty() || path.empty() ? "" : " &#183; keys ") + keys + "</p>\n");
  }

  const config::ConfigKey* KeyOf(const ManualEntry& entry) const { return trial_.Model().FindKey(entry.item->Path()); }

  void Article(const ManualEntry& entry) {
    Add("<article id=\"" + entry.id + "\">\n<h3>");
    Text(entry.title);
    Add("</h3>\n");
    Where(entry);
    Details(entry);
    Add("</article>\n");
  }

  void Details(const ManualEntry& entry) {
    const config::ConfigKey* key = KeyOf(entry);
    if (key == nullptr) return;
    const PropertyDescriptor* property = entry.item->Descriptor();
    const WideStringView description = key->Value(TextId::kShortDesc);
    if (!description.empty()) Add("<p>" + EscapedHtml(base::ToUtf8(description)) + "</p>\n");
    if (const std::string command = CommandInWords(*key); !command.empty()) Add("<p>" + command + "</p>\n");
    std::string terms;
    html_.swap(terms);
    if (property != nullptr) PropertyTerms(*property, *key);
    for (const std::string& sentence : RulesInWords(trial_, *entry.item)) {
      if (!IsMenu(entry)) Term("Depends", EscapedHtml(sentence));
    }
    AfterChange(entry, *key);
    html_.swap(terms);
    if (!terms.empty()) Add("<dl>\n" + terms + "</dl>\n");
    const auto picture = pictures_.editors.find(entry.path);
    if (picture != pictures_.editors.end()) {
      Add("<details><summary>How it is edited</summary>\n<div>" + picture->second + "</div></details>\n");
    }
  }

  static std::string CommandInWords(const config::ConfigKey& key) {
    static const struct {
      WideStringView function;
      const char* words;
    } kFunctions[] = {
        {u"Summary", "Shows all settings as a text."},
        {u"StoreConfig", "Writes all settings to a file."},
        {u"RestoreDefaults", "Asks, and then sets the settings back to their factory values."},
        {u"ApplyNetworkSettings", "Lets the network settings take effect."},
        {u"WEP_Properties", "Lets the radio take over its key settings."},
        {u"ImportCertificates", "Imports certificates."},
    };
    for (const auto& known : kFunctions) {
      if (key.Value(TextId::kFunction) == known.function) return known.words;
    }
    const WideStringView program = key.Value(TextId::kAppName);
    if (program.empty()) return {};
    return "Starts a program: <code>" + EscapedHtml(base::ToUtf8(program)) + "</code>";
  }

  void PropertyTerms(const PropertyDescriptor& property, const config::ConfigKey& key) {
    const WideStringView typeText = property.Attributes().Get(TextId::kType);
    const values::ChoiceFormat choices = property.Choices();
    if (const std::string kind = KindInWords(typeText, property, choices); !kind.empty())
      Term("What", EscapedHtml(kind));
    std::string list;
    for (const auto& entry : choices.Entries()) list += (list.empty() ? "" : ", ") + base::ToUtf8(entry.text);
    if (!list.empty()) Term("Choices", EscapedHtml(list));
    const WideString range = property.Resolve(TextId::kRange);
    if (choices.Count() == 0 && !range.empty() && range != values::kUnresolved) {
      Term("Allowed", EscapedHtml(RangeInWords(range)));
    }
    if (property.GetMaxChars() > 0 && choices.Count() == 0) {
      Term("Length", "up to " + std::to_string(property.GetMaxChars()) + " characters");
    }
    const WideStringView fallback = key.Value(TextId::kDefVal);
    if (!fallback.empty() && !IsSecret(property) && property.CommandLayout() == nullptr) {
      const WideStringView oid = key.Value(TextId::kOid);
      std::string words = ValueInWords(trial_, oid, fallback);
      if (words.size() > 1 && words.front() == '"') words = words.substr(1, words.size() - 2);
      Term("Factory value", EscapedHtml(words));
    }
    const WideStringView oid = key.Value(TextId::kOid).empty() ? key.Value(TextId::kCmdOid) : key.Value(TextId::kOid);
    Term("OID", "<code>" + EscapedHtml(base::ToUtf8(oid)) + "</code>");
  }

  static bool IsSecret(const PropertyDescriptor& property) {
    return !property.Resolve(TextId::kPassWordChar).empty() || !property.Resolve(TextId::kWep).empty() ||
           values::TypeCodeOf(property.Attributes().Get(TextId::kType)) == TypeCode::kPassword;
  }

  static std::string KindInWords(WideStringView type, const PropertyDescriptor& property,
                                 const values::ChoiceFormat& choices) {
    std::string kind;
    const WideStringView subType = property.Attributes().Get(TextId::kSubType);
    if (subType == u"Date") {
      kind = "a date";
    } else if (subType == u"Time") {
      kind = "a time of day";
    } else if (choices.Count() > 0) {
      kind = "one of several choices";
    } else {
      switch (values::TypeCodeOf(type).value_or(TypeCode::kNone)) {
        case TypeCode::kInteger: kind = "a number"; break;
        case TypeCode::kBool: kind = "TRUE or FALSE"; break;
        case TypeCode::kOctetString: kind = "a text"; break;
        case TypeCode::kIpAddress: kind = "a network address of four numbers"; break;
        case TypeCode::kPassword: kind = "a password; it is shown as stars"; break;
        case TypeCode::kHex: kind = "a key; it is never shown"; break;
        case TypeCode::kReaderCmd: kind = "several settings, edited one by one"; break;
        default: break;
      }
    }
    if (property.Attributes().Has(TextId::kSecurity)) kind += kind.empty() ? "to be read only" : ", to be read only";
    return kind;
  }

  // "from 1 to 99", "0, or from 10 to 600".
  static std::string RangeInWords(WideStringView range) {
    std::vector<std::string> parts;
    bool hasSpan = false;
    while (!range.empty()) {
      const std::size_t comma = range.find(u',');
      const WideStringView part = range.substr(0, comma);
      const std::size_t dash = part.rfind(u'-');
      hasSpan = hasSpan || dash != WideStringView::npos;
      parts.push_back(dash == WideStringView::npos || dash == 0 ? base::ToUtf8(part)
                                                                : "from " + base::ToUtf8(part.substr(0, dash)) +
                                                                      " to " + base::ToUtf8(part.substr(dash + 1)));
      range = comma == WideStringView::npos ? WideStringView() : range.substr(comma + 1);
    }
    if (parts.size() == 2 && !hasSpan) return "from " + parts[0] + " to " + parts[1];
    std::string words;
    for (std::size_t i = 0; i < parts.size(); ++i)
      words += (i == 0 ? "" : i + 1 == parts.size() ? " or " : ", ") + parts[i];
    return words;
  }

  void AfterChange(const ManualEntry& entry, const config::ConfigKey& key) {
    if (entry.item->Descriptor() != nullptr && !IsMenu(entry)) {
      if (HasHandler(key, u"PromptWarmBoot")) Term("After a change", "the terminal asks whether to restart");
      const MenuItem* menu = entry.item->Parent();
      const config::ConfigKey* menuKey = menu == nullptr ? nullptr : trial_.Model().FindKey(menu->Path());
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
      Add("</td><td>" + KeysHtml(*entry->item) + "</td></tr>\n");
    }
    Add("</table>\n</section>\n");
  }

  void IndexByOid() {
    std::map<WideString, const ManualEntry*> sorted;
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
