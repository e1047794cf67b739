#include "bench/configuration_text.h"

namespace bench {
namespace {

void AddValue(std::string& text, const char* name, const std::string& value) {
  text.append("        <").append(name).append(">").append(value).append("</").append(name).append(">\n");
}

struct Words {
  const char* property;
  const char* menu;
  const char* choices;
  const char* comment;
};

// By Script.
constexpr Words kWords[] = {
    {"Receive threshold ", "Menu number ",
     "1#Enabled on all ports|2#Disabled|3#Automatic when docked|4#As the host decides", "measured on the second board"},
    {"Порог приёма ", "Меню номер ",
     "1#Включено на всех портах|2#Выключено|3#Автоматически на подставке|4#По решению узла",
     "измерено на второй плате"},
    {"接收信号的最低门限值设置 ", "菜单编号 ",
     "1#在所有的端口上都启用该功能|2#停用该功能|3#放入底座时自动启用该功能|4#由主机决定是否启用",
     "在第二块电路板上测得的数值"}};

void AddProperty(std::string& text, std::size_t number, const Words& words) {
  const std::string n = std::to_string(number);
  text += "      <GROUP name=\"Property" + n + "\">\n";
  AddValue(text, "DisplayName", words.property + n);
  AddValue(text, "Type", number % 3 == 0 ? "Octet String" : "Integer");
  AddValue(text, "OID", "1.3.6.1.4.1.4242.10.7." + n + ".0");
  AddValue(text, "Ordinal", std::to_string(number % 10 + 1));
  if (number % 2 == 0) AddValue(text, "ChoiceFmt", words.choices);
  if (number % 2 == 1) AddValue(text, "Range", "1-128 &amp; 255");
  if (number % 2 == 1) {
    AddValue(text, "Dependency", "IF 1.3.6.1.4.1.4242.10.7." + n + ".1|Integer|2 THEN NoEdit ELSE Normal");
  }
  AddValue(text, "DefVal", std::to_string(number % 128));
  if (number % 16 == 0) text += std::string("        <!-- ") + words.comment + " -->\n";
  text += "      </GROUP>\n";
}

void OpenMenu(std::string& text, std::size_t number, const Words& words) {
  const std::string n = std::to_string(number);
  text += "    <GROUP name=\"Menu" + n + "\">\n";
  AddValue(text, "DisplayName", words.menu + n);
  AddValue(text, "Ordinal", std::to_string(number % 10 + 1));
}

// A menu that holds menus, down to menus of ten properties, for as many keys as are left.
class NestedMenus {
 public:
  NestedMenus(std::string& text, std::size_t keys, const Words& words) : text_(text), left_(keys), words_(words) {}

  // A menu over `levels` levels of menus.
  void Add(int levels) {
    OpenMenu(text_, left_, words_);
    Use();
    for (int i = 0; i < 10 && left_ > 0; ++i) {
      if (levels > 0) {
        Add(levels - 1);
      } else {
        AddProperty(text_, left_, words_);
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
  const Words& words_;
};

}  // namespace

std::string ConfigurationText(std::size_t keys, Shape shape, Script script) {
  const Words& words = kWords[static_cast<std::size_t>(script)];
  std::string text = "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<GROUP name=\"CONFIGAPP\">\n";
  text.reserve(keys * 400);
  AddValue(text, "DisplayName", "Main Menu");
  if (shape == Shape::kFlat) {
    OpenMenu(text, 1, words);
    for (std::size_t i = 2; i < keys; ++i) AddProperty(text, i, words);
    text += "    </GROUP>\n";
  } else {
    int levels = 0;
    for (std::size_t size = 100; size < keys; size *= 10) ++levels;
    NestedMenus menus(text, keys > 1 ? keys - 1 : 0, words);
    while (menus.Left() > 0) menus.Add(levels > 1 ? levels - 1 : 0);
  }
  text += "</GROUP>\n";
  return text;
}

}  // namespace bench
