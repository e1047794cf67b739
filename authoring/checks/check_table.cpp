// The table of all checks.
#include "authoring/checks/lists.h"

namespace authoring {
namespace {

using enum Severity;
using enum Attribute;
using namespace checks;

constexpr AttributeSet kProperties = {kOid, kCmdOid};
constexpr bool kByProofs = true;

constexpr Check kChecks[] = {
    // The document
    {"document-broken", kError, "a document that is not well formed"},
    {"root-name-backslash", kError, "a backslash in the root's name", RootNameBackslash},
    {"after-the-root", kWarning, "a GROUP behind the first element", AfterTheRoot},
    {"group-without-name", kError, "a GROUP without a name", GroupWithoutName},
    {"name-with-backslash", kError, "a backslash in a name", NameWithBackslash},
    {"name-hkey", kError, "a name that begins a registry path", NameHkey},
    {"sibling-name-twice", kError, "siblings of one name", SiblingNameTwice},
    {"attribute-twice", kWarning, "an attribute twice", AttributeTwice},
    {"attribute-with-elements", kWarning, "elements in an attribute", AttributeWithElements},
    {"attribute-empty", kNote, "an attribute without a text", AttributeEmpty},
    {"attribute-unknown", kWarning, "an unknown or miscased attribute", AttributeUnknown, {kUnknown}},

    // Entries and menus
    {"display-name-missing", kWarning, "an entry without a name", DisplayNameMissing},
    {"entry-nothing", kWarning, "an entry that is nothing", EntryNothing},
    {"entry-two-things",
     kError,
     "an entry that is two things at once",
     EntryTwoThings,
     {kOid, kCmdOid, kFunction, kAppName}},
    {"oid-twice", kError, "two entries with one OID", OidTwice},
    {"sibling-title-twice", kWarning, "two lines of a menu that read alike", SiblingTitleTwice},
    {"ordinal-out-of-range", kWarning, "an Ordinal out of range", OrdinalOutOfRange},
    {"ordinal-twice", kWarning, "an Ordinal twice", OrdinalTwice},
    {"ordinal-gap", kNote, "a gap in the Ordinals", OrdinalGap},
    {"descendent-nowhere", kError, "a Descendent to nowhere", DescendentNowhere, {kDescendent}},
    {"descendent-circle", kWarning, "a Descendent in a circle", DescendentCircle, {kDescendent}},
    {"number-gap", kError, "a gap in numbered attributes", NumberGap, {kDependency, kOnExit}},

    // Properties
    {"type-missing", kError, "a property without a Type", TypeMissing, kProperties},
    {"type-unknown", kError, "an unknown Type", TypeUnknown, kProperties},
    {"type-miscased", kError, "a Type in another case", TypeMiscased, kProperties},
    {"editor-unknown", kError, "an unknown editor", EditorUnknown, {kPropEditor}},
    {"subtype-unknown", kNote, "a SubType that means nothing", SubTypeUnknown, {kSubType}},
    {"filloid-unknown", kWarning, "a FillOID that fills nothing in", FillOidUnknown, {kFillOid}},
    {"star-without-filloid", kError, "a star that nothing fills in", StarWithoutFillOid, {kOid}},
    {"profile-missing", kError, "a star without an active profile", ProfileMissing, {kFillOid}},
    {"oid-blanks", kError, "blanks around an OID", OidBlanks, kProperties},
    {"secret-in-clear", kError, "an unguarded secret", SecretInClear, kProperties},
    {"key-without-wep", kError, "a pre-shared key without WEP", KeyWithoutWep, kProperties},

    // Choices
    {"choice-key-twice", kWarning, "a choice key twice", ChoiceKeyTwice, {kChoiceFmt}},
    {"choice-text-twice", kWarning, "two choices that read alike", ChoiceTextTwice, {kChoiceFmt}},
    {"choice-without-sign", kWarning, "a choice without #", ChoiceWithoutSign, {kChoiceFmt}},
    {"choice-key-no-number", kError, "a text key on a number", ChoiceKeyNoNumber, {kChoiceFmt}},
    {"choice-out-of-range", kError, "a choice outside the range", ChoiceOutOfRange, {kChoiceFmt}},
    {"choice-too-long", kNote, "a choice longer than MaxChars", ChoiceTooLong, {kChoiceFmt}},
    {"symbol-missing", kError, "a symbol that is not there", SymbolMissing, {kChoiceFmt}},

    // Ranges, lengths, defaults
    {"range-malformed", kError, "a range that is not numbers", RangeMalformed, {kRange}},
    {"range-reversed", kError, "a reversed range", RangeReversed, {kRange}},
    {"range-empty", kError, "a range without a number", RangeEmpty, {kRange}},
    {"range-below-zero", kWarning, "a range of numbers that nobody can type", RangeBelowZero, {kRange}},
    {"range-on-text", kWarning, "a range on a text", RangeOnText, {kRange}},
    {"mask-excludes-range", kWarning, "a limit shorter than the range's numbers", MaskExcludesRange, {kRange}},
    {"default-of-field", kNote, "a default of a field", DefaultOfField, {kDefVal}},
    {"default-no-property", kNote, "a default of what is no property", DefaultNoProperty, {kDefVal}},
    {"default-not-a-value", kWarning, "a default that is no value of its type", DefaultNotAValue, {kDefVal}},
    {"default-not-a-choice", kWarning, "a default that is no choice", DefaultNotAChoice, {kDefVal}},
    {"default-out-of-range", kWarning, "a default out of range", DefaultOutOfRange, {kDefVal}},
    {"default-too-long", kWarning, "a default that nobody could type", DefaultTooLong, {kDefVal}},
    {"default-missing", kNote, "a property that restoring leaves alone", DefaultMissing},

    // Commands of fixed columns
    {"cmdstring-malformed", kError, "a layout that does not add up", CmdStringMalformed, {kCmdString}},
    {"command-text-length", kWarning, "a command's text of another length", CommandTextLength, {kCmdString}},
    {"field-command-unknown", kError, "a field of no command", FieldCommandUnknown, {kCmdOid}},
    {"field-outside-command", kError, "a field that its command lacks", FieldOutsideCommand, {kCmdOid}},
    {"field-without-ordinal", kError, "a field without an Ordinal", FieldWithoutOrdinal, {kCmdOid}},
    {"field-before-command", kError, "a field before its command", FieldBeforeCommand, {kCmdOid}},
    {"field-too-wide", kWarning, "a field wider than its column", FieldTooWide, {kCmdOid}},

    // What a configuration refers to
    {"table-missing",
     kError,
     "a table that is not there",
     TableMissing,
     {kCmdString, kChoiceFmt, kRange, kEvent, kWep, kPassWordChar, kSubType, kUnavailable, kFillOid}},
    {"table-not-asked",
     kError,
     "a table where none is asked",
     TableWhereNoneIs,
     {kOid, kType, kDefVal, kOrdinal, kTextFmt, kMaxChars, kDisplayName, kPropEditor}},
    {"display-name-no-symbol", kWarning, "a name that looks like a symbol", DisplayNameNoSymbol, {kDisplayName}},
    {"registry-text-missing", kWarning, "a text that the registry lacks", RegistryTextMissing, {kOnError}},
    {"program-missing", kError, "a program that is not there", ProgramMissing, {kAppName}},

    // Rules
    {"rule-malformed", kError, "a malformed rule", RuleMalformed, {kDependency}},
    {"rule-trailing", kWarning, "more behind a rule", RuleTrailing, {kDependency}},
    {"rule-action-missing", kError, "a rule without an action", RuleActionMissing, {kDependency}},
    {"action-unknown", kError, "an unknown action", ActionUnknown, {kDependency}},
    {"rule-not-four-parts", kError, "a flag rule of another number of parts", RuleNotFourParts, {kDependency}},
    {"flag-unknown", kError, "an unknown flag", FlagUnknown, {kDependency}},
    {"rule-oid-unknown", kError, "an OID that nothing has", RuleOidUnknown, {kDependency}},
    {"rule-name-unknown", kError, "a name that no property has", RuleNameUnknown, {kDependency}},
    {"rule-name-twice", kWarning, "a name that several properties have", RuleNameTwice, {kDependency}},
    {"empty-in-condition", kWarning, "the word Empty in a condition", EmptyInCondition, {kDependency}},
    {"check-mark-over-name", kWarning, "a check mark over a name", CheckMarkOverName, {kDependency}},
    {"choice-of-rule-unlisted",
     kWarning,
     "a rule's choice that the property lacks",
     ChoiceOfRuleUnlisted,
     {kDependency}},
    {"fallback-not-a-choice", kError, "a fallback that is no choice", FallbackNotAChoice, {kDependency}},
    {"fallback-name-shared", kWarning, "a fallback of a name that several have", FallbackNameShared, {kDependency}},
    {"choices-of-no-property", kError, "choices of what is no property", ChoicesOfNoProperty, {kDependency}},

    // Proofs
    {"comparison-never-true", kWarning, "a comparison that never holds", kByProofs},
    {"comparison-always-true", kWarning, "a comparison that always holds", kByProofs},
    {"rule-overridden", kWarning, "a rule that is always overridden", kByProofs},
    {"rule-no-effect", kNote, "a rule that changes nothing", kByProofs},
    {"line-never-shown", kWarning, "a line that is never shown", kByProofs},
    {"no-way-back", kWarning, "a line that its own setting hides for good", kByProofs},
    {"menu-can-be-empty", kWarning, "a menu whose lines can all be hidden", kByProofs},
    {"rules-undo-each-other", kError, "rules that undo each other for ever", kByProofs},
    {"not-decided", kNote, "more cases than are gone through", kByProofs},

    // Handlers and commands
    {"handler-unknown", kError, "an unknown handler", HandlerUnknown, {kOnEnter, kOnExit}},
    {"handler-nothing-here", kWarning, "a handler that does nothing where it stands", HandlerNothingHere, {kOnExit}},
    {"handler-triple-broken", kError, "a handler without its triple", HandlerTripleBroken, {kOnExit}},
    {"handler-oid-unknown", kWarning, "a handler's OID that the device lacks", HandlerOidUnknown, {kOnExit}},
    {"changes-not-marked", kWarning, "changes that IfChanges does not see", ChangesNotMarked, {kOnExit}},
    {"function-unknown", kError, "an unknown Function", FunctionUnknown, {kFunction}},
    {"import-without-oid", kError, "an import without an OID", ImportWithoutOid, {kFunction}},

    // The device
    {"device-value-missing", kError, "a value that the device lacks", DeviceValueMissing, {kOid}},
    {"profile-value-missing", kWarning, "a value that another profile lacks", ProfileValueMissing, {kFillOid}},
    {"device-type-differs", kWarning, "a value of another type", DeviceTypeDiffers, {kOid}},
    {"device-value-no-choice", kWarning, "a device's value that is no choice", DeviceValueNoChoice, {kChoiceFmt}},
    {"device-value-out-of-range", kWarning, "a device's value out of range", DeviceValueOutOfRange, {kRange}},
    {"device-value-no-value", kWarning, "a device's value that is none of its type", DeviceValueNoValue, kProperties},
    {"device-value-too-long", kWarning, "a device's value that is too long", DeviceValueTooLong, {kMaxChars}},

    // The screen
    {"line-too-wide", kWarning, "a line wider than the screen", LineTooWide, {kDisplayName}},
    {"title-too-wide", kWarning, "a title wider than the screen", TitleTooWide, {kDisplayName}},
    {"description-too-wide", kWarning, "a description of more than two lines", DescriptionTooWide, {kShortDesc}},
    {"choice-too-wide", kWarning, "a choice wider than its list", ChoiceTooWide, {kChoiceFmt}},

    // The wireless page
    {"wireless-setting-missing", kWarning, "a setting that VerifyNetUI reads and nothing has", WirelessSettingMissing},
    {"wireless-key-type", kError, "a wireless key of another type", WirelessKeyType},
    {"wireless-choice-replaced", kNote, "choices that VerifyNetUI replaces", WirelessChoiceReplaced},
    {"wireless-not-verified", kWarning, "a wireless setting that is not verified", WirelessNotVerified},

    // Comments that silence
    {"allow-unused", kWarning, "a comment that silences nothing"},
    {"allow-unknown", kError, "a comment that names no check"},
};

}  // namespace

std::span<const Check> Checks() { return kChecks; }

}  // namespace authoring
