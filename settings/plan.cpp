#include "settings/plan.h"

#include "settings/plan_attempt.h"

#include <memory>

namespace settings {
namespace {

// Each attempt costs as much as the first. What refuses each other in more ways than that is refused.
constexpr int kMostAttempts = 24;

// Orders that contradict each other hold nothing up, but say nothing either.
bool AddOrders(const Orders& suggested, Orders& orders) {
  bool added = false;
  for (const auto& [first, second] : suggested) {
    if (!orders.contains({second, first})) added = orders.emplace(first, second).second || added;
  }
  return added;
}

}  // namespace

Plan MakePlan(const authoring::Configuration& configuration, std::vector<WantedSetting> wanted,
              const PlanOptions& options) {
  Orders orders;
  std::optional<Plan> best;
  for (int attempt = 0; attempt < kMostAttempts; ++attempt) {
    PlanAttempt trying(configuration, wanted, orders, options);
    trying.Run();
    if (!best || trying.Result().refusals.size() < best->refusals.size()) best = trying.Result();
    if (best->refusals.empty() || !AddOrders(trying.Suggested(), orders)) break;
  }
  best->wanted = std::move(wanted);
  return std::move(*best);
}

}  // namespace settings
