// Checks of commands of fixed columns and their fields.
#include "authoring/checks/lists.h"

#include "authoring/checks/range_text.h"
#include "base/number.h"
#include "base/utf8.h"
#include "model/defaults_walk.h"
#include "values/attributes.h"

#include <algorithm>

namespace authoring::checks {
namespace {

struct Field {
  const Subject* command = nullptr;  // null: there is none
  std::int32_t number = 0;           // as it is written
};

Field FieldOf(const Subject& subject) {
  const WideStringView text = subject.Get(Attribute::kCmdOid);
  const std::size_t colon = text.find(u':');
  const auto commands = subject.All().WithOid(text.substr(0, colon));
  Field field;
  if (!commands.empty()) field.command = commands.back();
  if (colon != WideStringView::npos) field.number = base::ToLong(text.substr(colon + 1));
  return field;
}

bool IsLaidOut(const Subject& command) {
  return command.Layout() != nullptr && command.Layout()->Text() != values::kUnresolved;
}

bool ComesBefore(const Subject& first, const Subject& second) { return &first < &second; }

// The width of a field's column; 0: it has none.
std::int32_t WidthOf(const Field& field) {
  if (field.command == nullptr || !IsLaidOut(*field.command)) return 0;
  return std::max(0, field.command->Layout()->Width(field.number - 1));
}

std::string Columns(std::size_t count) { return std::to_string(count) + (count == 1 ? " column" : " columns"); }

}  // namespace

void CmdStringMalformed(const Subject& subject, Findings& findings) {
  if (!IsLaidOut(subject)) return;
  const values::FieldWidthList& layout = *subject.Layout();
  if (layout.StatedCount() != layout.Count()) {
    findings.Add(subject, Attribute::kCmdString,
                 "The CmdString says " + std::to_string(layout.StatedCount()) + " fields and gives the widths of " +
                     std::to_string(layout.Count()) + "; fields are cut by the widths, restoring goes by the lesser.",
                 "Begin it with the number of widths that follow.");
  }
  for (int i = 0; i < layout.Count(); ++i) {
    if (layout.Width(i) > 0) continue;
    findings.Add(subject, Attribute::kCmdString,
                 "Field " + std::to_string(i + 1) + " of the CmdString is " + std::to_string(layout.Width(i)) +
                     " characters wide: it is never read or written.",
                 "Write decimal widths with commas between.");
  }
}

void CommandTextLength(const Subject& subject, Findings& findings) {
  if (!IsLaidOut(subject)) return;
  const auto width = static_cast<std::size_t>(std::max(0, subject.Layout()->Start(subject.Layout()->Count())));
  const auto test = [&](Attribute attribute, WideStringView text, const char* what) {
    if (text.empty() || text.size() == width) return;
    findings.Add(subject, attribute,
                 std::string(what) + " has " + std::to_string(text.size()) + " characters and the layout " +
                     Columns(width) + (text.size() < width ? ": fields behind its end have no value." : "."),
                 "Make it as long as the widths together.");
  };
  test(Attribute::kDefVal, subject.Get(Attribute::kDefVal), "The DefVal");
  const WideStringView dependency = subject.Get(Attribute::kDependency);
  if (std::count(dependency.begin(), dependency.end(), u'|') == 2) {
    test(Attribute::kDependency, model::ThirdPart(dependency), "The third part of the Dependency");
  }
  if (const WideString* text = subject.All().DeviceText(subject.Get(Attribute::kOid))) {
    test(Attribute::kCmdString, *text, "The device's value");
  }
}

void FieldCommandUnknown(const Subject& subject, Findings& findings) {
  const Field field = FieldOf(subject);
  if (field.command != nullptr && field.command->Layout() != nullptr) return;
  const WideStringView text = subject.Get(Attribute::kCmdOid);
  findings.Add(subject, Attribute::kCmdOid,
               "No property with a CmdString has the OID " + Quoted(text.substr(0, text.find(u':'))) +
                   ": the field has no value and cannot be saved.",
               "Name a command's OID, a colon and the number of the field.");
}

void FieldOutsideCommand(const Subject& subject, Findings& findings) {
  const Field field = FieldOf(subject);
  if (field.command == nullptr || !IsLaidOut(*field.command)) return;
  const int count = field.command->Layout()->Count();
  if (field.number >= 1 && field.number <= count) return;
  findings.Add(subject, Attribute::kCmdOid,
               "The command has the fields 1 to " + std::to_string(count) + " and none of the number " +
                   std::to_string(field.number) + ": the field has no value.",
               "Write a number from 1 to " + std::to_string(count) + " behind the colon.");
}

void FieldWithoutOrdinal(const Subject& subject, Findings& findings) {
  if (subject.Has(Attribute::kOrdinal)) return;
  findings.Add(subject, "A field without an Ordinal is neither read nor written.", "Give it an Ordinal.");
}

void FieldBeforeCommand(const Subject& subject, Findings& findings) {
  const Field field = FieldOf(subject);
  if (field.command == nullptr || ComesBefore(*field.command, subject)) return;
  findings.Add(subject, Attribute::kCmdOid,
               "Its command comes later in the order of the menus, so the field has no value when it is read.",
               "Put the command before its fields, as their menu or as an earlier sibling.");
}

void FieldTooWide(const Subject& subject, Findings& findings) {
  const auto width = static_cast<std::size_t>(WidthOf(FieldOf(subject)));
  if (width == 0) return;
  if (subject.Has(Attribute::kChoiceFmt)) {
    for (const auto& choice : subject.Choices().Entries()) {
      const std::size_t length = subject.IsInteger() ? base::ToText(choice.number).size() : choice.key.size();
      if (length <= width) continue;
      findings.Add(subject, Attribute::kChoiceFmt,
                   "The key " + Quoted(choice.key) + " is longer than the field, which has " + Columns(width) +
                       ": its end is cut off.",
                   "Widen the field in the CmdString, or shorten the key.");
    }
    return;
  }
  const WideStringView range = subject.Resolved(Attribute::kRange);
  if (!range.empty() && range != values::kUnresolved) {
    for (const RangePart& part : PartsOfRange(range)) {
      if (base::ToText(part.high).size() <= width) continue;
      findings.Add(subject, Attribute::kRange,
                   "The Range goes up to " + std::to_string(part.high) + " and the field has " + Columns(width) +
                       ": longer numbers cannot be typed.",
                   "Widen the field in the CmdString, or narrow the Range.");
    }
    return;
  }
  if (subject.Has(Attribute::kMaxChars) && subject.TypedLimit() > width) {
    findings.Add(subject, Attribute::kMaxChars,
                 "The field has " + Columns(width) + ", so no more can be typed, whatever MaxChars says.",
                 "Make MaxChars as large as the field is wide.");
  }
}

}  // namespace authoring::checks
