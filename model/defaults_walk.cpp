#include "model/defaults_walk.h"

#include "base/string_table.h"
#include "model/key_walk.h"
#include "model/set_triple.h"
#include "values/attributes.h"
#include "values/field_width_list.h"

#include <algorithm>
#include <cstdint>

namespace model {
namespace {

constexpr WideStringView kIfChanges = u"IfChanges:";

WideString Text(const config::ConfigKey& key, TextId name) { return WideString(key.Value(name)); }

// False: the rules leave the key out.
bool QueueDefault(const config::ConfigKey& key, DefaultsHost& host) {
  WideString value = Text(key, TextId::kDefVal);
  if (value.empty()) return true;
  if (!host.IsActive(key)) return false;
  MergeReaderCommand(key, host, value);
  const WideString oid = Text(key, TextId::kOid);
  if (!oid.empty()) host.QueueChange(oid, Text(key, TextId::kType), value);
  return true;
}

void QueueExitRule(const config::ConfigKey& key, DefaultsHost& host) {
  WideStringView rule = key.Value(TextId::kOnExit);
  if (!rule.starts_with(kIfChanges)) return;
  // The prefix goes as a set of characters: the command's own first letters go with it where they are among them.
  rule.remove_prefix(std::min(rule.find_first_not_of(kIfChanges), rule.size()));
  if (const auto triple = ParseSetTriple(rule)) host.QueueChange(triple->oid, triple->type, triple->value);
}

WideStringView UpToBar(WideStringView text) { return text.substr(0, text.find(u'|')); }

WideStringView WithoutLeading(WideStringView text, WideStringView prefix) {
  while (text.starts_with(prefix)) text.remove_prefix(prefix.size());
  return text;
}

}  // namespace

// Both times the text is taken off the whole dependency. So a second part that equals the first goes with the first
// one's repetitions; then "first|second|" stands nowhere, and the third part is the first one.
WideStringView ThirdPart(WideStringView dependency) {
  const WideString first = WideString(UpToBar(dependency)) + u"|";
  const WideString both = first + WideString(UpToBar(WithoutLeading(dependency, first))) + u"|";
  return UpToBar(WithoutLeading(dependency, both));
}

void MergeReaderCommand(const config::ConfigKey& key, DefaultsHost& host, WideString& defaultValue) {
  if (key.Value(u"Type") != LoadText(TextId::kReaderCmd)) return;
  const WideStringView dependency = key.Value(u"Dependency");
  if (dependency.empty()) return;

  const WideStringView third = ThirdPart(dependency);
  const WideString current = host.ReadValue(Text(key, TextId::kOid), Text(key, TextId::kType));
  const values::FieldWidthList layout(values::ResolveText(key.Value(TextId::kCmdString)));
  const std::int32_t count = std::min<std::int32_t>(layout.StatedCount(), layout.Count());
  for (std::int32_t i = 0; i < count; ++i) {
    const auto kept = layout.Field(third, i);
    if (layout.Width(i) <= 0 || !kept || layout.Field(current, i) != kept) continue;
    const auto start = static_cast<std::size_t>(layout.Start(i));
    if (start >= defaultValue.size()) continue;
    const std::size_t length = std::min(kept->size(), defaultValue.size() - start);
    defaultValue.replace(start, length, *kept, 0, length);
  }
}

void WalkDefaults(const config::PDataStore& tree, WideStringView path, DefaultsMode mode, DefaultsHost& host) {
  KeyWalk walk(u"WalkDefaults");
  const auto visit = [&](const config::ConfigKey* key, WideStringView name) {
    if (key == nullptr) return;
    if (mode == DefaultsMode::kExitRules) {
      QueueExitRule(*key, host);
    } else if (!QueueDefault(*key, host)) {
      return;
    }
    walk.Enter(*key, name);
  };

  visit(tree.Find(path), path);
  while (const auto step = walk.Next()) visit(tree.FindBelow(step->parent, step->name), step->name);
}

}  // namespace model
