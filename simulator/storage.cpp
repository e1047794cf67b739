#include "simulator/storage.h"

#include "platform/host/reg_file.h"
#include "simulator/text_file.h"

#include <system_error>
#include <utility>

namespace simulator {
namespace {

std::string ReadRegistry(const std::filesystem::path& file, Storage& storage) {
  std::error_code error;
  const bool missing = !std::filesystem::exists(file, error) && !error;
  const auto bytes = missing ? std::string() : ReadTextFile(file);
  if (!bytes) return file.string() + ": cannot be read";
  auto read = platform::host::ReadRegFile(*bytes);
  if (!read.tree) return file.string() + ":" + std::to_string(read.line) + ": " + read.problem;
  storage.registry = std::move(read.tree);
  return {};
}

}  // namespace

std::string OpenFiles(const std::filesystem::path& root, Storage& storage) {
  std::error_code error;
  if (!std::filesystem::is_directory(root, error)) return root.string() + ": no such folder";
  storage.root = root;
  if (auto problem = ReadRegistry(root / "registry.reg", storage); !problem.empty()) return problem;
  return storage.tables.Read(root / "tables.txt");
}

std::string OpenStorage(const std::filesystem::path& root, Storage& storage) {
  if (auto problem = OpenFiles(root, storage); !problem.empty()) return problem;
  auto opened = DeviceStore::Open(root / "device.txt");
  storage.device = std::move(opened.store);
  return opened.problem;
}

}  // namespace simulator
