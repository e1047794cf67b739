#include "authoring/checks/allow_comments.h"

#include "authoring/checks/check.h"
#include "base/utf8.h"

#include <algorithm>
#include <string>

namespace authoring {
namespace {

using config::XmlIndex;

constexpr WideStringView kSign = u"check: allow";

struct Allowance {
  std::size_t at = 0;         // in the text
  std::uint32_t element = 0;  // that it stands before
  std::string id;
  bool used = false;
};

// The first element that begins behind a place; 0: none.
std::uint32_t ElementBehind(const XmlIndex& index, std::size_t at) {
  std::size_t first = 1;
  std::size_t last = index.Count();
  while (first < last) {
    const std::size_t middle = (first + last) / 2;
    if (index[static_cast<std::uint32_t>(middle)].startTagStart < at) {
      first = middle + 1;
    } else {
      last = middle;
    }
  }
  return first == index.Count() ? 0 : static_cast<std::uint32_t>(first);
}

// The start of the comment that a place lies in.
std::optional<std::size_t> CommentAround(WideStringView text, std::size_t at) {
  const std::size_t open = text.rfind(u"<!--", at);
  if (open == WideStringView::npos) return std::nullopt;
  const bool blank = base::Trim(text.substr(open + 4, at - open - 4)).empty();
  return blank ? std::optional<std::size_t>(open) : std::nullopt;
}

std::vector<Allowance> ReadAllowances(const XmlIndex& index) {
  std::vector<Allowance> allowances;
  const WideStringView text = index.Text().View();
  for (std::size_t at = text.find(kSign); at != WideStringView::npos; at = text.find(kSign, at + 1)) {
    const auto comment = CommentAround(text, at);
    const std::size_t end = text.find(u"-->", at);
    if (!comment || end == WideStringView::npos) continue;
    WideStringView ids = text.substr(at + kSign.size(), end - at - kSign.size());
    ids = ids.substr(0, ids.find(u':'));
    const std::uint32_t element = ElementBehind(index, end);
    while (!ids.empty()) {
      const std::size_t comma = ids.find(u',');
      allowances.push_back({*comment, element, base::ToUtf8(base::Trim(ids.substr(0, comma)))});
      ids = comma == WideStringView::npos ? WideStringView() : ids.substr(comma + 1);
    }
  }
  return allowances;
}

bool Covers(const XmlIndex& index, const Allowance& allowance, const Finding& finding) {
  if (allowance.element == 0 || finding.element == 0 || allowance.id != finding.id) return false;
  if (finding.element == allowance.element) return true;
  return finding.element == index[allowance.element].parentIndex && finding.value == index.TagName(allowance.element) &&
         !finding.value.empty();
}

}  // namespace

void ApplyAllowComments(const Configuration& configuration, bool proofs, std::vector<Finding>& findings) {
  if (configuration.Index() == nullptr) return;
  const XmlIndex& index = *configuration.Index();
  std::vector<Allowance> allowances = ReadAllowances(index);
  if (allowances.empty()) return;
  std::erase_if(findings, [&](const Finding& finding) {
    bool silenced = false;
    for (Allowance& allowance : allowances) {
      if (!Covers(index, allowance, finding)) continue;
      allowance.used = true;
      silenced = true;
    }
    return silenced;
  });
  Findings report(configuration, findings);
  for (const Allowance& allowance : allowances) {
    const Check* check = FindCheck(allowance.id);
    if (allowance.used || (check != nullptr && check->isProof && !proofs)) continue;
    report.Begin(*FindCheck(check == nullptr ? "allow-unknown" : "allow-unused"));
    report.AddAt(configuration.PositionAt(allowance.at),
                 check == nullptr ? "There is no check " + Quoted(base::FromUtf8(allowance.id)) + " to allow."
                                  : "The comment allows " + allowance.id + ", and nothing behind it is found by that.",
                 check == nullptr ? "Write the id of a check." : "Leave the comment out.");
  }
}

}  // namespace authoring
