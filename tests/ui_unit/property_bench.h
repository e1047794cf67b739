// Properties made from their attributes, over a device in memory and a terminal with a scripted keypad.
#pragma once

#include "tests/printing.h"
#include "tests/support/config_tree.h"
#include "tests/support/fake_device.h"
#include "tests/support/scripted_terminal.h"
#include "values/property_descriptor.h"

#include <memory>
#include <vector>

namespace ui_test {

inline constexpr WideStringView kOid = u"1.2.3";

class PropertyBench {
 public:
  // A property of a type, named "Thing", which holds `value` on the device. Its OID is kOid unless `more` names one.
  values::PropertyDescriptor& Make(WideStringView type, WideStringView value, tests::KeyValues more = {}) {
    const bool named = std::any_of(more.begin(), more.end(), [](const auto& entry) { return entry.first == u"OID"; });
    if (!named) {
      device.Put(kOid, value);
      more.push_back({u"OID", WideString(kOid)});
    }
    more.push_back({u"Type", WideString(type)});
    more.push_back({u"DisplayName", u"Thing"});
    return MakeFrom(std::move(more));
  }

  values::PropertyDescriptor& MakeFrom(tests::KeyValues values) {
    const std::vector<std::pair<WideString, tests::KeyValues>> keys = {{u"P", std::move(values)}};
    trees_.push_back(std::make_unique<tests::ConfigTree>(keys));
    owned_.push_back(
        std::make_unique<values::PropertyDescriptor>(trees_.back()->Key(u"P"), access, symbols, descriptors));
    return *owned_.back();
  }

  tests::ScriptedTerminal terminal;
  tests::FakeDevice device;
  values::DeviceAccess access{device.Connector()};
  values::SymbolTable symbols;
  values::DescriptorMap descriptors;

 private:
  std::vector<std::unique_ptr<tests::ConfigTree>> trees_;
  std::vector<std::unique_ptr<values::PropertyDescriptor>> owned_;
};

}  // namespace ui_test
