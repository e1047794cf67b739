#include "settings/export.h"

#include "authoring/secrets.h"
#include "base/string_table.h"
#include "base/utf8.h"
#include "settings/catalogue.h"
#include "settings/entered_value.h"
#include "settings/given_value.h"
#include "settings/yaml_text.h"
#include "values/shown_value.h"
#include "values/value_types.h"

#include <algorithm>
#include <unordered_set>

namespace settings {
namespace {

using model::MenuItem;
using values::PropertyDescriptor;

// "Integer, 1-65535", "Integer: Off, Fast, Maximum"
std::string TypeComment(const PropertyDescriptor& property) {
  constexpr std::size_t kMostChoices = 40;
  std::string comment = CommentText(property.HeldType());
  const values::ChoiceFormat choices = property.Choices();
  for (std::size_t i = 0; i < choices.Count() && i < kMostChoices; ++i) {
    comment += (i == 0 ? ": " : ", ") + CommentText(choices.Entries()[i].text);
  }
  if (choices.Count() > kMostChoices) comment += ", ...";
  if (choices.Count() > 0) return comment;
  if (values::TypeCodeOf(property.HeldType()) == values::TypeCode::kBool) return comment + ": TRUE, FALSE";
  const WideString range = property.Resolve(TextId::kRange);
  if (!range.empty() && range != values::kUnresolved) comment += ", " + CommentText(range);
  if (property.GetMaxChars() > 0) comment += ", at most " + std::to_string(property.GetMaxChars()) + " characters";
  return comment;
}

// What reads back as the value: as the screen shows it where that does, else as the device has it.
std::optional<std::string> ValueText(const PropertyDescriptor& property, const ui::EditorTable& editors) {
  const GivenValue shown{GivenValue::Kind::kShown, values::ShownValue(property)};
  if (IsPresent(property, shown, ReadAsEntered(property, editors, shown))) return YamlText(shown.text);
  const auto raw = YamlText(property.GetValue().AsText());
  return raw ? std::optional<std::string>("!raw " + *raw) : std::nullopt;
}

class Writer {
 public:
  Writer(authoring::Trial& trial, std::ostream& out) : catalogue_(trial.Model()), out_(out) {}

  void Write(MenuItem& root) {
    std::vector<MenuItem*> open{&root};
    while (!open.empty()) {
      MenuItem& item = *open.back();
      open.pop_back();
      if (item.Descriptor() != nullptr) WriteEntry(item);
      for (auto child = item.Children().rbegin(); child != item.Children().rend(); ++child) {
        open.push_back(child->get());
      }
    }
    menus_.clear();
    for (const auto& [item, path] : byOid_) WriteLine(*item, path);
  }

 private:
  void WriteEntry(MenuItem& item) {
    const WideStringView oid = OidOf(item);
    if (values::IsPseudoOid(oid) || !written_.insert(WideString(oid)).second) return;
    if (!CanBeEdited(item, editors_)) return;
    std::vector<WideString> path = catalogue_.PathTo(item);
    if (path.empty()) {
      out_ << "# " << CommentText(NameOf(item)) << " (" << CommentText(oid) << "): no name that a file can hold\n";
    } else if (path.size() == 1 && item.Parent() != nullptr && path.front() == oid) {
      byOid_.emplace_back(&item, std::move(path));
    } else {
      WriteLine(item, path);
    }
  }

  void WriteLine(MenuItem& item, const std::vector<WideString>& path) {
    const PropertyDescriptor& property = *item.Descriptor();
    OpenMenus(path);
    const std::string indent(2 * menus_.size(), ' ');
    const std::string name = *YamlText(path.back());
    const std::string description = CommentText(property.Attributes().Get(TextId::kShortDesc));
    if (menus_.empty()) out_ << "# " << CommentText(ToWide(ToText(NamesOf(item)))) << '\n';
    out_ << indent << "# " << (description.empty() ? "" : description + ". ") << TypeComment(property) << '\n';
    if (authoring::IsSecret(property)) {
      out_ << indent << "# " << name << ": !secret NAME\n";
    } else if (const auto value = ValueText(property, editors_)) {
      out_ << indent << name << ": " << *value << '\n';
    } else {
      out_ << indent << "# " << name << ": its value is no text that a file can hold\n";
    }
  }

  static WideString ToWide(const std::string& text) { return base::FromUtf8(text); }

  // The menus above an entry stand as far as they are not open already.
  void OpenMenus(const std::vector<WideString>& path) {
    const std::vector<WideString> menus(path.begin(), path.end() - 1);
    const auto [differs, known] = std::mismatch(menus.begin(), menus.end(), menus_.begin(), menus_.end());
    for (auto menu = differs; menu != menus.end(); ++menu) {
      const auto depth = static_cast<std::size_t>(menu - menus.begin());
      if (depth == 0) out_ << '\n';
      out_ << std::string(2 * depth, ' ') << *YamlText(*menu) << ":\n";
    }
    menus_ = menus;
  }

  Catalogue catalogue_;
  const ui::EditorTable editors_;
  std::ostream& out_;
  std::unordered_set<WideString> written_;
  std::vector<WideString> menus_;  // that are open in the file
  std::vector<std::pair<MenuItem*, std::vector<WideString>>> byOid_;
};

}  // namespace

void WriteSettings(authoring::Trial& trial, std::ostream& out) {
  out << "# Settings, by the menus and names on the screen. Values are as the screen shows them; \"!raw 0\" is as the\n"
         "# device has it, \"!default\" the factory value, \"!secret NAME\" a secret. What does not stand here stays.\n";
  Writer(trial, out).Write(trial.Model().Root());
}

}  // namespace settings
