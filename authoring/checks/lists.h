// The functions of all checks, by the sources they stand in.
#pragma once

#include "authoring/checks/check.h"

namespace authoring::checks {

// document.cpp
void RootNameBackslash(const Survey& survey, Findings& findings);
void AfterTheRoot(const Survey& survey, Findings& findings);
void GroupWithoutName(const Subject& subject, Findings& findings);
void NameWithBackslash(const Subject& subject, Findings& findings);
void NameHkey(const Subject& subject, Findings& findings);
void SiblingNameTwice(const Subject& subject, Findings& findings);
void AttributeTwice(const Subject& subject, Findings& findings);
void AttributeWithElements(const Subject& subject, Findings& findings);
void AttributeEmpty(const Subject& subject, Findings& findings);
void AttributeUnknown(const Subject& subject, Findings& findings);

// entries.cpp
void DisplayNameMissing(const Subject& subject, Findings& findings);
void EntryNothing(const Subject& subject, Findings& findings);
void EntryTwoThings(const Subject& subject, Findings& findings);
void OidTwice(const Survey& survey, Findings& findings);
void SiblingTitleTwice(const Subject& subject, Findings& findings);
void OrdinalOutOfRange(const Subject& subject, Findings& findings);
void OrdinalTwice(const Subject& subject, Findings& findings);
void OrdinalGap(const Subject& subject, Findings& findings);
void DescendentNowhere(const Subject& subject, Findings& findings);
void DescendentCircle(const Subject& subject, Findings& findings);
void NumberGap(const Subject& subject, Findings& findings);

// properties.cpp
bool IsTypeName(WideStringView text);  // in this very case
void TypeMissing(const Subject& subject, Findings& findings);
void TypeUnknown(const Subject& subject, Findings& findings);
void TypeMiscased(const Subject& subject, Findings& findings);
void EditorUnknown(const Subject& subject, Findings& findings);
void SubTypeUnknown(const Subject& subject, Findings& findings);
void FillOidUnknown(const Subject& subject, Findings& findings);
void StarWithoutFillOid(const Subject& subject, Findings& findings);
void ProfileMissing(const Subject& subject, Findings& findings);
void OidBlanks(const Subject& subject, Findings& findings);
void SecretInClear(const Subject& subject, Findings& findings);
void KeyWithoutWep(const Subject& subject, Findings& findings);

// choices.cpp
void ChoiceKeyTwice(const Subject& subject, Findings& findings);
void ChoiceTextTwice(const Subject& subject, Findings& findings);
void ChoiceWithoutSign(const Subject& subject, Findings& findings);
void ChoiceKeyNoNumber(const Subject& subject, Findings& findings);
void ChoiceOutOfRange(const Subject& subject, Findings& findings);
void ChoiceTooLong(const Subject& subject, Findings& findings);
void SymbolMissing(const Subject& subject, Findings& findings);

// limits.cpp
void RangeMalformed(const Subject& subject, Findings& findings);
void RangeReversed(const Subject& subject, Findings& findings);
void RangeEmpty(const Subject& subject, Findings& findings);
void RangeBelowZero(const Subject& subject, Findings& findings);
void RangeOnText(const Subject& subject, Findings& findings);
void MaskExcludesRange(const Subject& subject, Findings& findings);
void DefaultOfField(const Subject& subject, Findings& findings);
void DefaultNoProperty(const Subject& subject, Findings& findings);
void DefaultNotAValue(const Subject& subject, Findings& findings);
void DefaultNotAChoice(const Subject& subject, Findings& findings);
void DefaultOutOfRange(const Subject& subject, Findings& findings);
void DefaultTooLong(const Subject& subject, Findings& findings);
void DefaultMissing(const Survey& survey, Findings& findings);

// commands.cpp
void CmdStringMalformed(const Subject& subject, Findings& findings);
void CommandTextLength(const Subject& subject, Findings& findings);
void FieldCommandUnknown(const Subject& subject, Findings& findings);
void FieldOutsideCommand(const Subject& subject, Findings& findings);
void FieldWithoutOrdinal(const Subject& subject, Findings& findings);
void FieldBeforeCommand(const Subject& subject, Findings& findings);
void FieldTooWide(const Subject& subject, Findings& findings);

// lookups.cpp
void TableMissing(const Subject& subject, Findings& findings);
void TableWhereNoneIs(const Subject& subject, Findings& findings);
void DisplayNameNoSymbol(const Subject& subject, Findings& findings);
void RegistryTextMissing(const Subject& subject, Findings& findings);
void ProgramMissing(const Subject& subject, Findings& findings);

// rules.cpp
void RuleMalformed(const Subject& subject, Findings& findings);
void RuleTrailing(const Subject& subject, Findings& findings);
void RuleActionMissing(const Subject& subject, Findings& findings);
void ActionUnknown(const Subject& subject, Findings& findings);
void RuleNotFourParts(const Subject& subject, Findings& findings);
void FlagUnknown(const Subject& subject, Findings& findings);
void RuleOidUnknown(const Subject& subject, Findings& findings);
void RuleNameUnknown(const Subject& subject, Findings& findings);
void RuleNameTwice(const Subject& subject, Findings& findings);
void EmptyInCondition(const Subject& subject, Findings& findings);
void CheckMarkOverName(const Subject& subject, Findings& findings);
void ChoiceOfRuleUnlisted(const Subject& subject, Findings& findings);
void FallbackNotAChoice(const Subject& subject, Findings& findings);
void FallbackNameShared(const Subject& subject, Findings& findings);
void ChoicesOfNoProperty(const Subject& subject, Findings& findings);

// handlers.cpp
void HandlerUnknown(const Subject& subject, Findings& findings);
void HandlerNothingHere(const Subject& subject, Findings& findings);
void HandlerTripleBroken(const Subject& subject, Findings& findings);
void HandlerOidUnknown(const Subject& subject, Findings& findings);
void ChangesNotMarked(const Subject& subject, Findings& findings);
void FunctionUnknown(const Subject& subject, Findings& findings);
void ImportWithoutOid(const Subject& subject, Findings& findings);

// device.cpp
void DeviceValueMissing(const Subject& subject, Findings& findings);
void ProfileValueMissing(const Subject& subject, Findings& findings);
void DeviceTypeDiffers(const Subject& subject, Findings& findings);
void DeviceValueNoChoice(const Subject& subject, Findings& findings);
void DeviceValueOutOfRange(const Subject& subject, Findings& findings);
void DeviceValueNoValue(const Subject& subject, Findings& findings);
void DeviceValueTooLong(const Subject& subject, Findings& findings);

// screen.cpp
void LineTooWide(const Subject& subject, Findings& findings);
void TitleTooWide(const Subject& subject, Findings& findings);
void DescriptionTooWide(const Subject& subject, Findings& findings);
void ChoiceTooWide(const Subject& subject, Findings& findings);

// wireless.cpp
void WirelessSettingMissing(const Survey& survey, Findings& findings);
void WirelessKeyType(const Survey& survey, Findings& findings);
void WirelessChoiceReplaced(const Survey& survey, Findings& findings);
void WirelessNotVerified(const Survey& survey, Findings& findings);

}  // namespace authoring::checks
