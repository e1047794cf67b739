#include "rules/rule_actions.h"

#include <algorithm>

namespace rules {
namespace {

constexpr ActionRow kActions[] = {
    {u"Display", Effect::kShow},    {u"NoDisplay", Effect::kHide},     {u"Blank", Effect::kBlank},
    {u"CheckMark", Effect::kMark},  {u"UnCheckMark", Effect::kUnmark}, {u"NoEdit", Effect::kLock},
    {u"Refresh", Effect::kRefresh},
};

constexpr FlagRow kFlags[] = {
    {u"Display", Effect::kShow, Effect::kHide},   {u"NoDisplay", Effect::kHide, Effect::kNothing},
    {u"Blank", Effect::kBlank, Effect::kNothing}, {u"CheckMark", Effect::kMark, Effect::kUnmark},
    {u"NoEdit", Effect::kLock, Effect::kNothing}, {u"Refresh", Effect::kRefresh, Effect::kRefresh},
};

constexpr WideStringView kChoicesAction = u"ChoiceFmt=";

template <typename Row>
const Row* FindName(std::span<const Row> rows, WideStringView name) {
  const auto row =
      std::find_if(rows.begin(), rows.end(), [&](const Row& one) { return base::EqualsIgnoringCase(one.name, name); });
  return row == rows.end() ? nullptr : &*row;
}

}  // namespace

std::optional<model::DisplayState> StateOf(Effect effect) {
  switch (effect) {
    case Effect::kShow: return model::DisplayState::kNormal;
    case Effect::kHide: return model::DisplayState::kNotDisplayed;
    case Effect::kBlank: return model::DisplayState::kBlank;
    case Effect::kLock: return model::DisplayState::kNoEdit;
    default: return std::nullopt;
  }
}

std::span<const ActionRow> Actions() { return kActions; }
std::span<const FlagRow> Flags() { return kFlags; }

const ActionRow* FindAction(WideStringView name) { return FindName(Actions(), name); }
const FlagRow* FindFlag(WideStringView name) { return FindName(Flags(), name); }

std::optional<ChoicesAction> ReadChoicesAction(WideStringView action) {
  if (!base::EqualsIgnoringCase(action.substr(0, kChoicesAction.size()), kChoicesAction)) return std::nullopt;
  WideStringView text = action.substr(kChoicesAction.size());
  text.remove_prefix(std::min(text.find_first_not_of(u'"'), text.size()));
  text = text.substr(0, text.find(u'"'));
  const std::size_t colon = text.find(u':');
  return ChoicesAction{text.substr(0, colon),
                       colon == WideStringView::npos ? WideStringView() : text.substr(colon + 1)};
}

}  // namespace rules
