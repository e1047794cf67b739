// Configurations of any size in the shape of a real one: menus in menus, and properties with their values.
#pragma once

#include <cstddef>
#include <string>

namespace bench {

enum class Shape {
  kNested,  // menus of ten, down to the properties
  kFlat,    // all properties in one menu
};

// What the texts are written in that a person reads.
enum class Script { kLatin, kCyrillic, kChinese };

// A document of about 350 bytes for each key, in UTF-8; more in scripts whose characters have two bytes or three.
std::string ConfigurationText(std::size_t keys, Shape shape = Shape::kNested, Script script = Script::kLatin);

}  // namespace bench
