#include "settings/plan_attempt.h"

#include "authoring/items.h"
#include "authoring/secrets.h"
#include "base/format.h"
#include "base/string_table.h"
#include "base/utf8.h"
#include "settings/catalogue.h"
#include "values/shown_value.h"

#include <algorithm>

namespace settings {

using model::DisplayState;
using model::MenuItem;
using values::PropertyDescriptor;
using Origin = PlannedSet::Origin;

namespace {

constexpr WideStringView kActiveProfile = u"cfg|80211PM|ActiveProfile";

bool IsOfProfile(const WantedSetting& setting) { return setting.oid.find(u'*') != WideString::npos; }

bool IsHidden(const MenuItem& item) {
  return item.State() == DisplayState::kNotDisplayed || item.State() == DisplayState::kBlank;
}

// A device that refuses says no more than that; a message of the menus says the rest.
std::string LastBox(const authoring::QuietScreen& screen, bool isSecret) {
  if (screen.shown.empty()) return "it is refused";
  // What is said of a value may repeat it.
  const bool repeats = isSecret && screen.shown.back().find(u'{') != WideString::npos;
  return repeats ? "it is out of its range" : base::ToUtf8(screen.shown.back());
}

}  // namespace

PlanAttempt::PlanAttempt(const authoring::Configuration& configuration, const std::vector<WantedSetting>& wanted,
                         const Orders& orders, const PlanOptions& options)
    : wanted_(wanted),
      options_(options),
      trial_(configuration, &readers_),
      committer_(trial_.Committer()),
      walk_(trial_, readers_, *this),
      entries_(wanted.size()) {
  const auto items = authoring::ItemsOf(trial_.Model());
  std::optional<std::size_t> profile;
  for (std::size_t i = 0; i < wanted_.size(); ++i) {
    entries_[i].item = items[wanted_[i].item];
    if (wanted_[i].oid == kActiveProfile) profile = i;
  }
  for (const auto& [first, second] : orders) entries_[second].after.push_back(first);
  // Which settings those of the profile in use are, that one says.
  for (std::size_t i = 0; profile && i < wanted_.size(); ++i) {
    if (IsOfProfile(wanted_[i])) entries_[i].after.push_back(*profile);
  }
}

// --- the way through the menus ---

void PlanAttempt::Opening(MenuItem&) {
  open_.push_back({trial_.Device().Writes().size(), plan_.sets.size(), plan_.remarks.size(), {}});
}

void PlanAttempt::Opened(MenuItem&) {
  Collect(Origin::kFollows, {});
  CollectRemarks();
}

bool PlanAttempt::Leaving(MenuItem&) { return !open_.back().changed.empty(); }

void PlanAttempt::Left(MenuItem&) {
  const Open left = std::move(open_.back());
  open_.pop_back();
  if (left.changed.empty()) {
    TakeBack(left);
    return;
  }
  Collect(Origin::kCommand, left.changed);
  CollectRemarks();
  if (!open_.empty()) {
    open_.back().changed.insert(open_.back().changed.end(), left.changed.begin(), left.changed.end());
  }
}

// Nobody opens a menu in vain: what opening it would have stored is not asked for.
void PlanAttempt::TakeBack(const Open& open) {
  const auto& writes = trial_.Device().Writes();
  std::unordered_map<WideString, WideString> types;
  for (std::size_t i = open.writes; i < writes.size(); ++i) types[writes[i].oid] = writes[i].type;
  for (std::size_t i = plan_.sets.size(); i > open.sets; --i) {
    const PlannedSet& set = plan_.sets[i - 1];
    texts_[set.oid] = set.before;
    trial_.Device().Put(set.oid, set.before.value_or(WideString()));
  }
  plan_.sets.resize(open.sets);
  plan_.remarks.resize(open.remarks);
  for (const auto& [oid, type] : types) {
    trial_.Rules().items.Reread(oid, type);
    walk_.Changed(oid);
  }
}

// --- what is written meanwhile ---

PlannedSet PlanAttempt::SetOf(const authoring::MemoryDevice::Write& write) const {
  PlannedSet set{write.oid, write.type, write.value, std::nullopt, Origin::kFollows, {}, base::ToUtf8(write.oid), false};
  const auto known = texts_.find(write.oid);
  if (known != texts_.end()) {
    set.before = known->second;
  } else {
    const auto& device = trial_.Source().Terminal().device;
    const auto line = device.find(write.oid);
    if (line != device.end() && !line->second.line.options.null) set.before = line->second.line.value;
  }
  const PropertyDescriptor* property = trial_.Model().FindDescriptor(write.oid);
  set.isSecret = property == nullptr ? values::MaskedText(write.type, u"any") != u"any" : authoring::IsSecret(*property);
  return set;
}

void PlanAttempt::Collect(Origin origin, const std::vector<std::size_t>& causes) {
  const auto& writes = trial_.Device().Writes();
  for (; collected_ < writes.size(); ++collected_) {
    const auto& write = writes[collected_];
    walk_.Changed(SettingOf(write.oid));
    if (write.result < 0) continue;
    PlannedSet set = SetOf(write);
    texts_[write.oid] = write.value;
    // On leaving a menu settings are kept in agreement, and the device is told to take them over.
    const PropertyDescriptor* property = trial_.Model().FindDescriptor(write.oid);
    const MenuItem* item = property == nullptr ? nullptr : trial_.Model().ItemOf(*property);
    const bool isSetting = item != nullptr && CanBeEdited(*item, editors_);
    if (isSetting) set.name = ToText(NamesOf(*item));
    set.origin = origin == Origin::kCommand && isSetting ? Origin::kFollows : origin;
    if (set.origin != Origin::kCommand && set.before == set.value) continue;
    set.causes = causes;
    PlannedSet* last = plan_.sets.empty() ? nullptr : &plan_.sets.back();
    const bool isSameCommand = last != nullptr && last->oid == set.oid && last->origin == Origin::kAsked &&
                               set.origin == Origin::kAsked && open_.back().sets < plan_.sets.size();
    if (isSameCommand) {  // two fields of it are one change
      last->value = std::move(set.value);
      last->causes.insert(last->causes.end(), causes.begin(), causes.end());
    } else {
      plan_.sets.push_back(std::move(set));
    }
  }
}

void PlanAttempt::CollectRemarks() {
  auto& shown = trial_.Screen().shown;
  for (const WideString& text : shown) {
    if (text == LoadText(TextId::kWarmBootPrompt)) {
      plan_.needsRestart = true;
    } else if (std::string remark = base::ToUtf8(text);
               std::find(plan_.remarks.begin(), plan_.remarks.end(), remark) == plan_.remarks.end()) {
      plan_.remarks.push_back(std::move(remark));
    }
  }
  shown.clear();
}

// --- one setting ---

bool PlanAttempt::Refuse(Entry& entry, Reason reason) const {
  entry.reason = std::move(reason);
  return false;
}

// The settings of a profile are others once another one is in use.
void PlanAttempt::ReadAgain(const Entry& entry) {
  const PropertyDescriptor& property = *entry.item->Descriptor();
  const WideString oid = property.GetOID();
  if (oid.find(u'*') != WideString::npos) trial_.Rules().items.Reread(oid, property.GetType());
}

bool PlanAttempt::LooksAsWanted(std::size_t number) {
  const Entry& entry = entries_[number];
  ReadAgain(entry);
  const PropertyDescriptor& property = *entry.item->Descriptor();
  return property.IsAvailable() &&
         IsPresent(property, wanted_[number].value, ReadAsEntered(property, editors_, wanted_[number].value));
}

bool PlanAttempt::TryToSet(std::size_t number) {
  Entry& entry = entries_[number];
  const PropertyDescriptor& property = *entry.item->Descriptor();
  if (!property.IsAvailable()) return Refuse(entry, {"the device does not give its value", {}, {}});
  if (LooksAsWanted(number)) {
    entry.state = State::kPresent;
    entry.settled = property.GetValue();
    return true;
  }
  if (!CanBeEdited(*entry.item, editors_)) {
    return Refuse(entry, {property.IsReadOnly() ? "it is read only" : "it cannot be edited in the menus", {}, {}});
  }
  const bool isShut = IsHidden(*entry.item) && !options_.hidden;
  if (isShut || entry.item->State() == DisplayState::kNoEdit) {
    return Refuse(entry, ReasonOfState(readers_.Trace(), *entry.item, false));
  }
  const Reading reading = ReadAsEntered(property, editors_, wanted_[number].value);
  if (!reading.entered) return Refuse(entry, ReasonOfChoices(readers_.Trace(), *entry.item, reading.refusal));
  return Edit(number, *reading.entered);
}

bool PlanAttempt::Edit(std::size_t number, const EnteredValue& entered) {
  Entry& entry = entries_[number];
  CollectRemarks();
  int outcome = 0;
  const std::size_t events = plan_.events.size();
  const bool isTaken = committer_.CommitEditedValue(entry.item, entered.text, entered.mode);
  for (const WideString& name : trial_.Events().Names()) {
    if (std::find(plan_.events.begin(), plan_.events.end(), name) == plan_.events.end()) plan_.events.push_back(name);
  }
  if (!isTaken || !trial_.Rules().applier.ApplyChanges(outcome)) {
    plan_.events.resize(events);
    const std::string why = LastBox(trial_.Screen(), wanted_[number].isSecret);
    trial_.Screen().shown.clear();
    Collect(Origin::kAsked, {number});
    return Refuse(entry, {why, {}, {}});
  }
  Collect(Origin::kAsked, {number});
  walk_.Changed(SettingOf(wanted_[number].oid));  // also of what lives in the program alone
  open_.back().changed.push_back(number);
  RunAfterEdit(*entry.item);
  Collect(Origin::kFollows, {number});
  walk_.Refill();
  Collect(Origin::kFollows, {number});
  CollectRemarks();
  entry.state = State::kSet;
  entry.settled = entry.item->Descriptor()->GetValue();
  return true;
}

void PlanAttempt::RunAfterEdit(MenuItem& item) {
  const PropertyDescriptor& property = *item.Descriptor();
  WideString command(property.Attributes().Get(TextId::kOnExit));
  for (int number = 1; !command.empty(); ++number) {
    trial_.Rules().postEdit.RunPostEditAction(command, item);
    command = property.Attributes().Get(base::Format(u"%s%d", LoadText(TextId::kOnExit), number));
  }
}

// --- all of them ---

// In the order of the file, what is in one menu together, and of that the fields of one command.
std::vector<PlanAttempt::Menu> PlanAttempt::MenusOf() const {
  std::vector<Menu> menus;
  std::unordered_map<const MenuItem*, std::size_t> places;
  for (std::size_t i = 0; i < entries_.size(); ++i) {
    if (entries_[i].state != State::kPending) continue;
    const auto [place, isNew] = places.try_emplace(entries_[i].item->Parent(), menus.size());
    if (isNew) menus.push_back({entries_[i].item->Parent(), {}});
    menus[place->second].entries.push_back(i);
  }
  for (Menu& menu : menus) {
    std::unordered_map<WideString, std::size_t> first;
    for (const std::size_t i : menu.entries) first.try_emplace(SettingOf(wanted_[i].oid), i);
    std::stable_sort(menu.entries.begin(), menu.entries.end(), [&](std::size_t a, std::size_t b) {
      return first.at(SettingOf(wanted_[a].oid)) < first.at(SettingOf(wanted_[b].oid));
    });
  }
  return menus;
}

bool PlanAttempt::IsBlocked(const Entry& entry) const {
  return !released_ && std::any_of(entry.after.begin(), entry.after.end(),
                                   [this](std::size_t first) { return entries_[first].state == State::kPending; });
}

bool PlanAttempt::SweepMenu(const Menu& menu) {
  const auto isOpen = [&](std::size_t i) { return entries_[i].state == State::kPending && !IsBlocked(entries_[i]); };
  if (std::none_of(menu.entries.begin(), menu.entries.end(), isOpen)) return false;
  if (const MenuItem* shut = walk_.GoTo(*menu.item, options_.hidden)) {
    const Reason reason = ReasonOfState(readers_.Trace(), *shut, true);
    for (const std::size_t i : menu.entries) {
      if (isOpen(i)) Refuse(entries_[i], reason);
    }
    return false;
  }
  bool progress = false;
  bool again = true;
  while (again) {
    again = false;
    for (const std::size_t i : menu.entries) {
      if (isOpen(i) && TryToSet(i)) again = true;
    }
    progress = progress || again;
    // What is left has been refused by what there is now.
    if (std::none_of(menu.entries.begin(), menu.entries.end(), isOpen)) break;
  }
  return progress;
}

bool PlanAttempt::Sweep(const std::vector<Menu>& menus) {
  bool progress = false;
  for (const Menu& menu : menus) progress = SweepMenu(menu) || progress;
  return progress;
}

void PlanAttempt::NotePresent() {
  for (std::size_t i = 0; i < entries_.size(); ++i) {
    Entry& entry = entries_[i];
    // What lives in the program alone has no value before its menu is opened.
    if (!entry.after.empty() || values::IsPseudoOid(wanted_[i].oid) || !LooksAsWanted(i)) continue;
    entry.state = State::kPresent;
    entry.settled = entry.item->Descriptor()->GetValue();
  }
}

// What was as wanted and is not any more, because of what followed from another setting.
std::size_t PlanAttempt::RevisitOverwritten() {
  std::size_t count = 0;
  for (std::size_t i = 0; i < entries_.size(); ++i) {
    Entry& entry = entries_[i];
    if (entry.state == State::kPending) continue;
    ReadAgain(entry);
    if (entry.settled == entry.item->Descriptor()->GetValue()) continue;
    ++count;
    entry.state = State::kPending;
    entry.reason = {"what follows from another setting changes it again", {}, {}};
    const WideString oid = SettingOf(wanted_[i].oid);
    for (const PlannedSet& set : plan_.sets) {
      if (set.oid != oid || set.origin == Origin::kAsked) continue;
      for (const std::size_t cause : set.causes) {
        if (cause != i) suggested_.emplace(cause, i);
      }
    }
  }
  return count;
}

void PlanAttempt::Run() {
  NotePresent();
  constexpr int kMostRounds = 3;
  for (int round = 0; round < kMostRounds; ++round) {
    const std::vector<Menu> menus = MenusOf();
    released_ = false;
    while (true) {
      while (Sweep(menus)) {
      }
      if (released_) break;
      released_ = true;
    }
    walk_.LeaveAll();
    if (RevisitOverwritten() == 0) break;
  }
  Finish();
}

// What was set before and has a part in the refusal: set later, it may leave room.
void PlanAttempt::Suggest(std::size_t number, const Causes& causes) {
  for (const WideString& lever : entries_[number].reason.levers) {
    const auto found = causes.find(lever);
    if (found == causes.end()) continue;
    for (const std::size_t cause : found->second) {
      if (cause != number) suggested_.emplace(number, cause);
    }
  }
}

void PlanAttempt::Finish() {
  Causes causes;
  for (const PlannedSet& set : plan_.sets) {
    auto& of = causes[SettingOf(set.oid)];
    of.insert(of.end(), set.causes.begin(), set.causes.end());
  }
  for (std::size_t i = 0; i < entries_.size(); ++i) {
    Entry& entry = entries_[i];
    if (entry.state != State::kPending) continue;
    Suggest(i, causes);
    if (entry.reason.why.empty()) entry.reason.why = "it waits for another setting that is refused";
    plan_.refusals.push_back({i, entry.reason.why, entry.reason.because});
  }
}

}  // namespace settings
