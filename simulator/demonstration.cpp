#include "simulator/demonstration.h"

#include <cstdlib>
#include <initializer_list>
#include <system_error>

namespace simulator {
namespace {

namespace fs = std::filesystem;

fs::path Beside(const fs::path& root, const char* suffix) {
  fs::path path = root;
  path += suffix;
  return path;
}

// An installed original may be read-only, and all may read it; the copy is the user's alone, as are the secrets that go
// into it.
void MakeOwn(const fs::path& folder, std::error_code& error) {
  constexpr auto kOthers = fs::perms::group_all | fs::perms::others_all;
  fs::permissions(folder, fs::perms::owner_all, error);
  for (fs::recursive_directory_iterator at(folder, error), end; !error && at != end; at.increment(error)) {
    const auto bits = at->is_directory() ? fs::perms::owner_all : fs::perms::owner_read | fs::perms::owner_write;
    fs::permissions(at->path(), bits, fs::perm_options::add, error);
    if (!error) fs::permissions(at->path(), kOthers, fs::perm_options::remove, error);
  }
}

std::string CopyFresh(const fs::path& original, const fs::path& fresh) {
  if (original.empty())
    return "the demonstration terminal is not installed with this program; name a storage by --root";
  std::error_code error;
  fs::remove_all(fresh, error);
  fs::create_directories(fresh.parent_path(), error);
  if (!error) fs::copy(original, fresh, fs::copy_options::recursive, error);
  if (!error) MakeOwn(fresh, error);
  return error ? fresh.string() + ": cannot be written: " + error.message() : "";
}

}  // namespace

fs::path StateFolder() {
  const auto variable = [](const char* name) -> fs::path {
    const char* text = std::getenv(name);
    return text == nullptr ? "" : text;
  };
  const fs::path state = variable("XDG_STATE_HOME");
  if (state.is_absolute()) return state / "kelterm";
  const fs::path home = variable("HOME");
  return home.empty() ? fs::path() : home / ".local" / "state" / "kelterm";
}

fs::path DemonstrationRoot() {
  const fs::path folder = StateFolder();
  return folder.empty() ? fs::path() : folder / "terminal";
}

fs::path DemonstrationOriginal() {
  std::error_code error;
  const fs::path folder = fs::read_symlink("/proc/self/exe", error).parent_path();
  if (error) return {};
  // Beside kelterm, as built; where programs are installed; beside kelterm again, for a program of a folder next to it.
  for (const fs::path& candidate :
       {folder / "share", folder.parent_path() / "share", folder.parent_path() / "simulator" / "share"}) {
    const fs::path original = candidate / "kelterm" / "terminal";
    if (fs::is_directory(original, error)) return original;
  }
  return {};
}

std::string ProvideDemonstration(const fs::path& original, const fs::path& root) {
  std::error_code error;
  if (fs::exists(root, error)) return {};
  return ResetDemonstration(original, root);
}

std::string ResetDemonstration(const fs::path& original, const fs::path& root) {
  const fs::path fresh = Beside(root, ".new");
  const fs::path old = Beside(root, ".old");
  if (auto problem = CopyFresh(original, fresh); !problem.empty()) return problem;
  std::error_code error;
  fs::remove_all(old, error);
  if (fs::exists(root, error)) fs::rename(root, old, error);
  if (!error) fs::rename(fresh, root, error);
  if (error) return root.string() + ": cannot be written: " + error.message();
  fs::remove_all(old, error);
  return {};
}

}  // namespace simulator
