#include "model/set_triple.h"

namespace model {

std::optional<SetTriple> ParseSetTriple(WideStringView text) {
  const std::size_t first = text.find(u'|');
  if (first == WideStringView::npos || first == 0) return std::nullopt;
  const std::size_t second = text.find(u'|', first + 1);
  if (second == WideStringView::npos || second == first + 1) return std::nullopt;
  return SetTriple{WideString(text.substr(0, first)), WideString(text.substr(first + 1, second - first - 1)),
                   WideString(text.substr(second + 1))};
}

}  // namespace model
