// Configurations of any size in the shape of a real one: menus in menus, and properties with their values.
#pragma once

#include <cstddef>
#include <string>

namespace bench {

enum class Shape {
  kNested,  // menus of ten, down to the properties
  kFlat,    // all properties in one menu
};

// A document of about 350 bytes for each key, in UTF-8.
std::string ConfigurationText(std::size_t keys, Shape shape = Shape::kNested);

}  // namespace bench
