// A whole session: a configuration, the device's file and keys, with a zero byte between them. What the keys' first
// byte says is as for utility_keys. The utility must stay usable and end, and leave the device's file as its answers
// said.
#include "base/utf8.h"
#include "simulator/device_store.h"
#include "tests/app/random_keys.h"
#include "tests/app/utility_run.h"

#include <stdlib.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string_view>

namespace {

// A terminal in memory, where there is a file system that has it there.
struct Terminal {
  std::filesystem::path root;

  Terminal() {
    const std::filesystem::path memory = "/dev/shm";
    const auto& folder = access(memory.c_str(), W_OK) == 0 ? memory : std::filesystem::temp_directory_path();
    std::string pattern = (folder / "kel-fuzz-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) std::abort();
    root = pattern;
    std::filesystem::create_directory(root / "Windows");
  }
  ~Terminal() {
    std::error_code ignored;
    std::filesystem::remove_all(root, ignored);
  }

  void Write(const char* name, std::string_view bytes) const { std::ofstream(root / name, std::ios::binary) << bytes; }
};

struct Session {
  std::string_view configuration;
  std::string_view device;
  std::string_view keys;
};

Session Parts(std::string_view input) {
  const auto take = [&input] {
    const std::string_view part = input.substr(0, input.find('\0'));
    input.remove_prefix(std::min(part.size() + 1, input.size()));
    return part;
  };
  Session session;
  session.configuration = take();
  session.device = take();
  session.keys = input;
  return session;
}

void Demand(const std::string& problem) {
  if (problem.empty()) return;
  std::fprintf(stderr, "%s\n", problem.c_str());
  std::abort();
}

// Every value is what the last Set that succeeded gave it.
std::string ProblemOfTheDevice(const std::filesystem::path& file, const std::map<std::string, std::string>& stored) {
  const auto opened = simulator::DeviceStore::Open(file);
  if (!opened.store) return opened.problem;
  for (const auto& [oid, value] : stored) {
    std::optional<WideString> now;
    opened.store->Get(base::FromUtf8(oid), now);
    // "null" and "get=" hide what is there.
    if (now && base::ToUtf8(*now) != value) return oid + " is not \"" + value + "\"";
  }
  return {};
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  static const Terminal terminal;
  const Session session = Parts({reinterpret_cast<const char*>(bytes), size});
  terminal.Write("Windows/ovu.xml", session.configuration);
  terminal.Write("device.txt", session.device);

  const auto choice = static_cast<std::uint8_t>(session.keys.empty() ? '\0' : session.keys.front());
  const std::size_t failing = choice & 0x0F;
  const bool small = (choice & 0x80) != 0;
  tests::FailingCalls calls([failing](std::size_t number) { return failing > 2 && number % failing == 0; });
  std::size_t next = 1;
  tests::Keypad keypad([&]() -> std::optional<platform::host::KeyStroke> {
    if (next + 2 > session.keys.size()) return std::nullopt;
    const auto low = static_cast<std::uint8_t>(session.keys[next++]);
    const auto high = static_cast<std::uint8_t>(session.keys[next++]);
    return tests::KeyFor(low + 256U * high);
  });
  keypad.answersBoxes = false;
  keypad.beforeEachKey = [] { Demand(tests::ProblemOfTheWindows()); };
  // A device file that cannot be read ends the start; that is no problem of the program.
  const std::string unusable =
      tests::RunUtilityOn({terminal.root, "", small ? 160 : 240, small ? 160 : 320}, keypad, calls);
  if (!unusable.empty()) return -1;
  if (keypad.IsStuck()) Demand("the program cannot be left");
  Demand(ProblemOfTheDevice(terminal.root / "device.txt", calls.Stored()));
  return 0;
}
