// Properties made from their attributes, over a device in memory.
#pragma once

#include "tests/printing.h"
#include "tests/support/config_tree.h"
#include "tests/support/fake_device.h"
#include "tests/support/test_terminal.h"
#include "values/property_descriptor.h"

#include <memory>
#include <vector>

namespace tests {

using Lines = std::vector<WideString>;

class PropertyTest : public testing::Test {
 protected:
  values::PropertyDescriptor& Make(KeyValues values) {
    trees_.push_back(
        std::make_unique<ConfigTree>(std::vector<std::pair<WideString, KeyValues>>{{u"Property", std::move(values)}}));
    owned_.push_back(
        std::make_unique<values::PropertyDescriptor>(trees_.back()->Key(u"Property"), access_, symbols_, descriptors_));
    return *owned_.back();
  }

  // A property of a type that holds the value `text`.
  values::PropertyDescriptor& MakeWithValue(WideStringView type, WideStringView text, KeyValues more = {}) {
    device_.Put(u"1.2.3", text);
    more.insert(more.end(), {{u"OID", u"1.2.3"}, {u"Type", WideString(type)}, {u"DisplayName", u"Thing"}});
    return Make(std::move(more));
  }

  void SetSymbols(values::SymbolTable::Texts texts) { symbols_ = values::SymbolTable(std::move(texts)); }

  TestTerminal terminal_;
  FakeDevice device_;
  values::DeviceAccess access_{device_.Connector()};
  values::SymbolTable symbols_;
  values::DescriptorMap descriptors_;

 private:
  std::vector<std::unique_ptr<ConfigTree>> trees_;
  std::vector<std::unique_ptr<values::PropertyDescriptor>> owned_;
};

}  // namespace tests
