#include "simulator/windows/driver/line_file.h"

#include <fstream>
#include <iterator>

namespace simulator {

std::vector<std::string> LineFile::NewLines() {
  std::ifstream input(file_, std::ios::binary);
  input.seekg(read_);
  const std::string bytes{std::istreambuf_iterator<char>(input), std::istreambuf_iterator<char>()};
  std::vector<std::string> lines;
  std::size_t start = 0;
  for (std::size_t end = bytes.find('\n'); end != std::string::npos; end = bytes.find('\n', start)) {
    lines.push_back(bytes.substr(start, end - start));
    start = end + 1;
  }
  read_ += static_cast<std::streamoff>(start);
  return lines;
}

}  // namespace simulator
