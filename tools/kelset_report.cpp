#include "tools/kelset_report.h"

#include "base/utf8.h"

namespace tools {

using nlohmann::ordered_json;
using settings::Difference;
using settings::Plan;
using settings::PlannedSet;
using settings::WantedSetting;
using Origin = PlannedSet::Origin;

namespace {

std::string OriginOf(const PlannedSet& set) {
  switch (set.origin) {
    case Origin::kAsked: return "asked";
    case Origin::kFollows: return "follows";
    case Origin::kCommand: return "command";
  }
  return {};
}

std::vector<std::string> CausesOf(const Plan& plan, const PlannedSet& set) {
  std::vector<std::string> names;
  for (const std::size_t cause : set.causes) names.push_back(plan.wanted[cause].name);
  return names;
}

std::string Behind(const Plan& plan, const PlannedSet& set) {
  if (set.origin == Origin::kAsked) return {};
  const std::vector<std::string> causes = CausesOf(plan, set);
  if (causes.empty()) return "  (on opening the menu)";
  const std::string after = causes.size() == 1 ? causes.front() : std::to_string(causes.size()) + " settings";
  return (set.origin == Origin::kCommand ? "  (a command, after " : "  (follows from ") + after + ")";
}

ordered_json TextOrNull(const std::optional<WideString>& text, bool isSecret) {
  if (!text || isSecret) return nullptr;
  return base::ToUtf8(*text);
}

ordered_json PlaceOf(const WantedSetting& setting) {
  return {{"name", setting.name},
          {"oid", base::ToUtf8(setting.oid)},
          {"file", setting.at.file},
          {"line", setting.at.line},
          {"column", setting.at.column}};
}

}  // namespace

std::string NameAndOid(const PlannedSet& set) {
  const std::string oid = base::ToUtf8(set.oid);
  return set.name == oid ? oid : set.name + " (" + oid + ")";
}

std::string ShownText(const WideString& text, bool isSecret) {
  return isSecret ? "****" : "\"" + base::ToUtf8(text) + "\"";
}

void PrintPlan(const Plan& plan, std::ostream& out) {
  std::size_t number = 0;
  for (const PlannedSet& set : plan.sets) {
    out << ++number << "  " << NameAndOid(set) << ": "
        << (set.before ? ShownText(*set.before, set.isSecret) : std::string("unknown")) << " -> "
        << ShownText(set.value, set.isSecret) << Behind(plan, set) << '\n';
  }
  if (plan.sets.empty()) out << "nothing to set\n";
  for (const WideString& event : plan.events) out << "event " << base::ToUtf8(event) << '\n';
  for (const std::string& remark : plan.remarks) out << "the menus would say: " << remark << '\n';
  if (plan.needsRestart) out << "the terminal is to be restarted for that\n";
  PrintRefusals(plan, out);
}

void PrintRefusals(const Plan& plan, std::ostream& out) {
  for (const settings::Refusal& refusal : plan.refusals) {
    const WantedSetting& setting = plan.wanted[refusal.setting];
    out << "refused  " << setting.name << " (" << settings::ToText(setting.at) << "): " << refusal.why << '\n';
    for (const std::string& because : refusal.because) out << "    " << because << '\n';
  }
}

ordered_json ToJson(const Plan& plan) {
  ordered_json json;
  json["sets"] = ordered_json::array();
  for (const PlannedSet& set : plan.sets) {
    json["sets"].push_back({{"name", set.name},
                            {"oid", base::ToUtf8(set.oid)},
                            {"type", base::ToUtf8(set.type)},
                            {"before", TextOrNull(set.before, set.isSecret)},
                            {"value", TextOrNull(set.value, set.isSecret)},
                            {"secret", set.isSecret},
                            {"origin", OriginOf(set)},
                            {"causes", CausesOf(plan, set)}});
  }
  json["refused"] = ordered_json::array();
  for (const settings::Refusal& refusal : plan.refusals) {
    ordered_json entry = PlaceOf(plan.wanted[refusal.setting]);
    entry["why"] = refusal.why;
    entry["because"] = refusal.because;
    json["refused"].push_back(std::move(entry));
  }
  json["events"] = ordered_json::array();
  for (const WideString& event : plan.events) json["events"].push_back(base::ToUtf8(event));
  json["remarks"] = plan.remarks;
  json["needsRestart"] = plan.needsRestart;
  return json;
}

void PrintDifferences(const std::vector<WantedSetting>& wanted, const std::vector<Difference>& differences,
                      std::ostream& out) {
  for (const Difference& difference : differences) {
    const WantedSetting& setting = wanted[difference.setting];
    out << "differs  " << setting.name << " (" << settings::ToText(setting.at) << "): it is \"" << difference.present
        << "\"\n";
  }
  out << wanted.size() - differences.size() << " of " << wanted.size() << " as wanted\n";
}

ordered_json ToJson(const std::vector<WantedSetting>& wanted, const std::vector<Difference>& differences) {
  ordered_json json;
  json["asWanted"] = wanted.size() - differences.size();
  json["differ"] = ordered_json::array();
  for (const Difference& difference : differences) {
    ordered_json entry = PlaceOf(wanted[difference.setting]);
    entry["present"] = difference.present;
    json["differ"].push_back(std::move(entry));
  }
  return json;
}

}  // namespace tools
