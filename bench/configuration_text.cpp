#include "bench/configuration_text.h"

namespace bench {
namespace {

void AddValue(std::string& text, const char* name, const std::string& value) {
  text.append("        <").append(name).append(">").append(value).append("</").append(name).append(">\n");
}

void AddProperty(std::string& text, std::size_t number) {
  const std::string n = std::to_string(number);
  text += "      <GROUP name=\"Property" + n + "\">\n";
  AddValue(text, "DisplayName", "Receive threshold " + n);
  AddValue(text, "Type", number % 3 == 0 ? "Octet String" : "Integer");
  AddValue(text, "OID", "1.3.6.1.4.1.4242.10.7." + n + ".0");
  AddValue(text, "Ordinal", std::to_string(number % 10 + 1));
  if (number % 2 == 0)
    AddValue(text, "ChoiceFmt", "1#Enabled on all ports|2#Disabled|3#Automatic when docked|4#As the host decides");
  if (number % 2 == 1) AddValue(text, "Range", "1-128 &amp; 255");
  if (number % 2 == 1) {
    AddValue(text, "Dependency", "IF 1.3.6.1.4.1.4242.10.7." + n + ".1|Integer|2 THEN NoEdit ELSE Normal");
  }
  AddValue(text, "DefVal", std::to_string(number % 128));
  if (number % 16 == 0) text += "        <!-- measured on the second board -->\n";
  text += "      </GROUP>\n";
}

void OpenMenu(std::string& text, std::size_t number) {
  const std::string n = std::to_string(number);
  text += "    <GROUP name=\"Menu" + n + "\">\n";
  AddValue(text, "DisplayName", "Menu number " + n);
  AddValue(text, "Ordinal", std::to_string(number % 10 + 1));
}

// A menu that holds menus, down to menus of ten properties, for as many keys as are left.
class NestedMenus {
 public:
  NestedMenus(std::string& text, std::size_t keys) : text_(text), left_(keys) {}

  // A menu over `levels` levels of menus.
  void Add(int levels) {
    OpenMenu(text_, left_);
    Use();
    for (int i = 0; i < 10 && left_ > 0; ++i) {
      if (levels > 0) {
        Add(levels - 1);
      } else {
        AddProperty(text_, left_);
        Use();
      }
    }
    text_ += "    </GROUP>\n";
  }

  std::size_t Left() const { return left_; }

 private:
  void Use() {
    if (left_ > 0) --left_;
  }

  std::string& text_;
  std::size_t left_;
};

}  // namespace

std::string ConfigurationText(std::size_t keys, Shape shape) {
  std::string text = "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<GROUP name=\"CONFIGAPP\">\n";
  text.reserve(keys * 400);
  AddValue(text, "DisplayName", "Main Menu");
  if (shape == Shape::kFlat) {
    OpenMenu(text, 1);
    for (std::size_t i = 2; i < keys; ++i) AddProperty(text, i);
    text += "    </GROUP>\n";
  } else {
    int levels = 0;
    for (std::size_t size = 100; size < keys; size *= 10) ++levels;
    NestedMenus menus(text, keys > 1 ? keys - 1 : 0);
    while (menus.Left() > 0) menus.Add(levels > 1 ? levels - 1 : 0);
  }
  text += "</GROUP>\n";
  return text;
}

}  // namespace bench
