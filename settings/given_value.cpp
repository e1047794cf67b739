#include "settings/given_value.h"

#include "base/utf8.h"

namespace settings {

std::string ToText(const std::vector<WideString>& path) {
  std::string text;
  for (const WideString& name : path) text += (text.empty() ? "" : "/") + base::ToUtf8(name);
  return text;
}

std::string ToText(const authoring::Position& position) {
  std::string text = position.file;
  if (position.line != 0) text += ":" + std::to_string(position.line);
  if (position.column != 0) text += ":" + std::to_string(position.column);
  return text;
}

}  // namespace settings
