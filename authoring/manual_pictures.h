// Pictures of a configuration's menus and editors, as the terminal shows them.
#pragma once

#include "authoring/configuration.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace authoring {

struct ManualPictures {
  std::string problem;
  std::map<std::string, std::vector<std::string>> menus;  // by path, the page by page
  std::map<std::string, std::string> editors;             // by path
};

ManualPictures TakePictures(const Configuration& configuration, std::size_t mostKeys,
                            const std::function<void(std::size_t done, std::size_t all)>& progress);

}  // namespace authoring
