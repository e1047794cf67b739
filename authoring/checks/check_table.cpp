// The table of all checks.
#include "authoring/checks/lists.h"

namespace authoring {
namespace {

using enum Severity;
using enum Attribute;
using namespace checks;

constexpr AttributeSet kProperties{kOid, kCmdOid};

constexpr Check OfEntries(std::string_view id, Severity severity, std::string_view title,
                          void (*find)(const Subject&, Findings&), AttributeSet attributes = {}) {
  return {id, severity, title, find, attributes, nullptr};
}

constexpr Check OfAll(std::string_view id, Severity severity, std::string_view title,
                      void (*find)(const Survey&, Findings&)) {
  return {id, severity, title, nullptr, {}, find};
}

constexpr Check Elsewhere(std::string_view id, Severity severity, std::string_view title) {
  return {id, severity, title, nullptr, {}, nullptr};
}

constexpr Check OfProofs(std::string_view id, Severity severity, std::string_view title) {
  return {id, severity, title, nullptr, {}, nullptr, true};
}

constexpr Check kChecks[] = {
    // The document
    Elsewhere("document-broken", kError, "a document that is not well formed"),
    OfAll("root-name-backslash", kError, "a backslash in the root's name", RootNameBackslash),
    OfAll("after-the-root", kWarning, "a GROUP behind the first element", AfterTheRoot),
    OfEntries("group-without-name", kError, "a GROUP without a name", GroupWithoutName),
    OfEntries("name-with-backslash", kError, "a backslash in a name", NameWithBackslash),
    OfEntries("name-hkey", kError, "a name that begins a registry path", NameHkey),
    OfEntries("sibling-name-twice", kError, "siblings of one name", SiblingNameTwice),
    OfEntries("attribute-twice", kWarning, "an attribute twice", AttributeTwice),
    OfEntries("attribute-with-elements", kWarning, "elements in an attribute", AttributeWithElements),
    OfEntries("attribute-empty", kNote, "an attribute without a text", AttributeEmpty),
    OfEntries("attribute-unknown", kWarning, "an unknown or miscased attribute", AttributeUnknown,
              AttributeSet(kUnknown)),

    // Entries and menus
    OfEntries("display-name-missing", kWarning, "an entry without a name", DisplayNameMissing),
    OfEntries("entry-nothing", kWarning, "an entry that is nothing", EntryNothing),
    OfEntries("entry-two-things", kError, "an entry that is two things at once", EntryTwoThings,
              AttributeSet(kOid, kCmdOid, kFunction, kAppName)),
    OfAll("oid-twice", kError, "two entries with one OID", OidTwice),
    OfEntries("sibling-title-twice", kWarning, "two lines of a menu that read alike", SiblingTitleTwice),
    OfEntries("ordinal-out-of-range", kWarning, "an Ordinal out of range", OrdinalOutOfRange),
    OfEntries("ordinal-twice", kWarning, "an Ordinal twice", OrdinalTwice),
    OfEntries("ordinal-gap", kNote, "a gap in the Ordinals", OrdinalGap),
    OfEntries("descendent-nowhere", kError, "a Descendent to nowhere", DescendentNowhere, AttributeSet(kDescendent)),
    OfEntries("descendent-circle", kWarning, "a Descendent in a circle", DescendentCircle, AttributeSet(kDescendent)),
    OfEntries("number-gap", kError, "a gap in numbered attributes", NumberGap, AttributeSet(kDependency, kOnExit)),

    // Properties
    OfEntries("type-missing", kError, "a property without a Type", TypeMissing, kProperties),
    OfEntries("type-unknown", kError, "an unknown Type", TypeUnknown, kProperties),
    OfEntries("type-miscased", kError, "a Type in another case", TypeMiscased, kProperties),
    OfEntries("editor-unknown", kError, "an unknown editor", EditorUnknown, AttributeSet(kPropEditor)),
    OfEntries("subtype-unknown", kNote, "a SubType that means nothing", SubTypeUnknown, AttributeSet(kSubType)),
    OfEntries("filloid-unknown", kWarning, "a FillOID that fills nothing in", FillOidUnknown, AttributeSet(kFillOid)),
    OfEntries("star-without-filloid", kError, "a star that nothing fills in", StarWithoutFillOid, AttributeSet(kOid)),
    OfEntries("profile-missing", kError, "a star without an active profile", ProfileMissing, AttributeSet(kFillOid)),
    OfEntries("oid-blanks", kError, "blanks around an OID", OidBlanks, kProperties),
    OfEntries("secret-in-clear", kError, "an unguarded secret", SecretInClear, kProperties),
    OfEntries("key-without-wep", kError, "a pre-shared key without WEP", KeyWithoutWep, kProperties),

    // Choices
    OfEntries("choice-key-twice", kWarning, "a choice key twice", ChoiceKeyTwice, AttributeSet(kChoiceFmt)),
    OfEntries("choice-text-twice", kWarning, "two choices that read alike", ChoiceTextTwice, AttributeSet(kChoiceFmt)),
    OfEntries("choice-without-sign", kWarning, "a choice without #", ChoiceWithoutSign, AttributeSet(kChoiceFmt)),
    OfEntries("choice-key-no-number", kError, "a text key on a number", ChoiceKeyNoNumber, AttributeSet(kChoiceFmt)),
    OfEntries("choice-out-of-range", kError, "a choice outside the range", ChoiceOutOfRange, AttributeSet(kChoiceFmt)),
    OfEntries("choice-too-long", kNote, "a choice longer than MaxChars", ChoiceTooLong, AttributeSet(kChoiceFmt)),
    OfEntries("symbol-missing", kError, "a symbol that is not there", SymbolMissing, AttributeSet(kChoiceFmt)),

    // Ranges, lengths, defaults
    OfEntries("range-malformed", kError, "a range that is not numbers", RangeMalformed, AttributeSet(kRange)),
    OfEntries("range-reversed", kError, "a reversed range", RangeReversed, AttributeSet(kRange)),
    OfEntries("range-empty", kError, "a range without a number", RangeEmpty, AttributeSet(kRange)),
    OfEntries("range-below-zero", kWarning, "a range of numbers that nobody can type", RangeBelowZero,
              AttributeSet(kRange)),
    OfEntries("range-on-text", kWarning, "a range on a text", RangeOnText, AttributeSet(kRange)),
    OfEntries("mask-excludes-range", kWarning, "a limit shorter than the range's numbers", MaskExcludesRange,
              AttributeSet(kRange)),
    OfEntries("default-of-field", kNote, "a default of a field", DefaultOfField, AttributeSet(kDefVal)),
    OfEntries("default-no-property", kNote, "a default of what is no property", DefaultNoProperty,
              AttributeSet(kDefVal)),
    OfEntries("default-not-a-value", kWarning, "a default that is no value of its type", DefaultNotAValue,
              AttributeSet(kDefVal)),
    OfEntries("default-not-a-choice", kWarning, "a default that is no choice", DefaultNotAChoice,
              AttributeSet(kDefVal)),
    OfEntries("default-out-of-range", kWarning, "a default out of range", DefaultOutOfRange, AttributeSet(kDefVal)),
    OfEntries("default-too-long", kWarning, "a default that nobody could type", DefaultTooLong, AttributeSet(kDefVal)),
    OfAll("default-missing", kNote, "a property that restoring leaves alone", DefaultMissing),

    // Commands of fixed columns
    OfEntries("cmdstring-malformed", kError, "a layout that does not add up", CmdStringMalformed,
              AttributeSet(kCmdString)),
    OfEntries("command-text-length", kWarning, "a command's text of another length", CommandTextLength,
              AttributeSet(kCmdString)),
    OfEntries("field-command-unknown", kError, "a field of no command", FieldCommandUnknown, AttributeSet(kCmdOid)),
    OfEntries("field-outside-command", kError, "a field that its command lacks", FieldOutsideCommand,
              AttributeSet(kCmdOid)),
    OfEntries("field-without-ordinal", kError, "a field without an Ordinal", FieldWithoutOrdinal,
              AttributeSet(kCmdOid)),
    OfEntries("field-before-command", kError, "a field before its command", FieldBeforeCommand, AttributeSet(kCmdOid)),
    OfEntries("field-too-wide", kWarning, "a field wider than its column", FieldTooWide, AttributeSet(kCmdOid)),

    // What a configuration refers to
    OfEntries(
        "table-missing", kError, "a table that is not there", TableMissing,
        AttributeSet(kCmdString, kChoiceFmt, kRange, kEvent, kWep, kPassWordChar, kSubType, kUnavailable, kFillOid)),
    OfEntries("table-not-asked", kError, "a table where none is asked", TableWhereNoneIs,
              AttributeSet(kOid, kType, kDefVal, kOrdinal, kTextFmt, kMaxChars, kDisplayName, kPropEditor)),
    OfEntries("display-name-no-symbol", kWarning, "a name that looks like a symbol", DisplayNameNoSymbol,
              AttributeSet(kDisplayName)),
    OfEntries("registry-text-missing", kWarning, "a text that the registry lacks", RegistryTextMissing,
              AttributeSet(kOnError)),
    OfEntries("program-missing", kError, "a program that is not there", ProgramMissing, AttributeSet(kAppName)),

    // Rules
    OfEntries("rule-malformed", kError, "a malformed rule", RuleMalformed, AttributeSet(kDependency)),
    OfEntries("rule-trailing", kWarning, "more behind a rule", RuleTrailing, AttributeSet(kDependency)),
    OfEntries("rule-action-missing", kError, "a rule without an action", RuleActionMissing, AttributeSet(kDependency)),
    OfEntries("action-unknown", kError, "an unknown action", ActionUnknown, AttributeSet(kDependency)),
    OfEntries("rule-not-four-parts", kError, "a flag rule of another number of parts", RuleNotFourParts,
              AttributeSet(kDependency)),
    OfEntries("flag-unknown", kError, "an unknown flag", FlagUnknown, AttributeSet(kDependency)),
    OfEntries("rule-oid-unknown", kError, "an OID that nothing has", RuleOidUnknown, AttributeSet(kDependency)),
    OfEntries("rule-name-unknown", kError, "a name that no property has", RuleNameUnknown, AttributeSet(kDependency)),
    OfEntries("rule-name-twice", kWarning, "a name that several properties have", RuleNameTwice,
              AttributeSet(kDependency)),
    OfEntries("empty-in-condition", kWarning, "the word Empty in a condition", EmptyInCondition,
              AttributeSet(kDependency)),
    OfEntries("check-mark-over-name", kWarning, "a check mark over a name", CheckMarkOverName,
              AttributeSet(kDependency)),
    OfEntries("choice-of-rule-unlisted", kWarning, "a rule's choice that the property lacks", ChoiceOfRuleUnlisted,
              AttributeSet(kDependency)),
    OfEntries("fallback-not-a-choice", kError, "a fallback that is no choice", FallbackNotAChoice,
              AttributeSet(kDependency)),
    OfEntries("fallback-name-shared", kWarning, "a fallback of a name that several have", FallbackNameShared,
              AttributeSet(kDependency)),
    OfEntries("choices-of-no-property", kError, "choices of what is no property", ChoicesOfNoProperty,
              AttributeSet(kDependency)),

    // Proofs
    OfProofs("comparison-never-true", kWarning, "a comparison that never holds"),
    OfProofs("comparison-always-true", kWarning, "a comparison that always holds"),
    OfProofs("rule-overridden", kWarning, "a rule that is always overridden"),
    OfProofs("rule-no-effect", kNote, "a rule that changes nothing"),
    OfProofs("line-never-shown", kWarning, "a line that is never shown"),
    OfProofs("no-way-back", kWarning, "a line that its own setting hides for good"),
    OfProofs("menu-can-be-empty", kWarning, "a menu whose lines can all be hidden"),
    OfProofs("rules-undo-each-other", kError, "rules that undo each other for ever"),
    OfProofs("not-decided", kNote, "more cases than are gone through"),

    // Handlers and commands
    OfEntries("handler-unknown", kError, "an unknown handler", HandlerUnknown, AttributeSet(kOnEnter, kOnExit)),
    OfEntries("handler-nothing-here", kWarning, "a handler that does nothing where it stands", HandlerNothingHere,
              AttributeSet(kOnExit)),
    OfEntries("handler-triple-broken", kError, "a handler without its triple", HandlerTripleBroken,
              AttributeSet(kOnExit)),
    OfEntries("handler-oid-unknown", kWarning, "a handler's OID that the device lacks", HandlerOidUnknown,
              AttributeSet(kOnExit)),
    OfEntries("changes-not-marked", kWarning, "changes that IfChanges does not see", ChangesNotMarked,
              AttributeSet(kOnExit)),
    OfEntries("function-unknown", kError, "an unknown Function", FunctionUnknown, AttributeSet(kFunction)),
    OfEntries("import-without-oid", kError, "an import without an OID", ImportWithoutOid, AttributeSet(kFunction)),

    // The device
    OfEntries("device-value-missing", kError, "a value that the device lacks", DeviceValueMissing, AttributeSet(kOid)),
    OfEntries("profile-value-missing", kWarning, "a value that another profile lacks", ProfileValueMissing,
              AttributeSet(kFillOid)),
    OfEntries("device-type-differs", kWarning, "a value of another type", DeviceTypeDiffers, AttributeSet(kOid)),
    OfEntries("device-value-no-choice", kWarning, "a device's value that is no choice", DeviceValueNoChoice,
              AttributeSet(kChoiceFmt)),
    OfEntries("device-value-out-of-range", kWarning, "a device's value out of range", DeviceValueOutOfRange,
              AttributeSet(kRange)),
    OfEntries("device-value-no-value", kWarning, "a device's value that is none of its type", DeviceValueNoValue,
              kProperties),
    OfEntries("device-value-too-long", kWarning, "a device's value that is too long", DeviceValueTooLong,
              AttributeSet(kMaxChars)),

    // The screen
    OfEntries("line-too-wide", kWarning, "a line wider than the screen", LineTooWide, AttributeSet(kDisplayName)),
    OfEntries("title-too-wide", kWarning, "a title wider than the screen", TitleTooWide, AttributeSet(kDisplayName)),
    OfEntries("description-too-wide", kWarning, "a description of more than two lines", DescriptionTooWide,
              AttributeSet(kShortDesc)),
    OfEntries("choice-too-wide", kWarning, "a choice wider than its list", ChoiceTooWide, AttributeSet(kChoiceFmt)),

    // The wireless page
    OfAll("wireless-setting-missing", kWarning, "a setting that VerifyNetUI reads and nothing has",
          WirelessSettingMissing),
    OfAll("wireless-key-type", kError, "a wireless key of another type", WirelessKeyType),
    OfAll("wireless-choice-replaced", kNote, "choices that VerifyNetUI replaces", WirelessChoiceReplaced),
    OfAll("wireless-not-verified", kWarning, "a wireless setting that is not verified", WirelessNotVerified),

    // Comments that silence
    Elsewhere("allow-unused", kWarning, "a comment that silences nothing"),
    Elsewhere("allow-unknown", kError, "a comment that names no check"),
};

}  // namespace

std::span<const Check> Checks() { return kChecks; }

}  // namespace authoring
