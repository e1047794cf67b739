// Keys, two bytes each, against the whole utility with the demonstration terminal; the device fails at times. The first
// byte says how often, and chooses the layout.
#include "simulator/text_file.h"
#include "tests/app/random_keys.h"
#include "tests/app/utility_run.h"

#include <stdlib.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>

namespace {

struct Terminal {
  std::filesystem::path root;
  std::string device;
  std::set<std::string> titles;

  Terminal() {
    std::string pattern = (std::filesystem::temp_directory_path() / "kel-fuzz-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) std::abort();
    root = pattern;
    std::filesystem::copy(KEL_DEMONSTRATION, root, std::filesystem::copy_options::recursive);
    device = simulator::ReadTextFile(root / "device.txt").value_or("");
    titles = tests::DisplayNamesIn(simulator::ReadTextFile(root / "Windows/ovu.xml").value_or(""));
    titles.insert("Scanner");  // the text of a symbol
  }
  ~Terminal() {
    std::error_code ignored;
    std::filesystem::remove_all(root, ignored);
  }
};

void Demand(const std::string& problem) {
  if (problem.empty()) return;
  std::fprintf(stderr, "%s\n", problem.c_str());
  std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  static const Terminal terminal;
  if (size == 0) return 0;
  std::ofstream(terminal.root / "device.txt", std::ios::binary) << terminal.device;
  const std::size_t failing = bytes[0] & 0x0F;
  tests::FailingCalls calls([failing](std::size_t number) { return failing > 2 && number % failing == 0; });
  const std::uint8_t* key = bytes + 1;
  tests::Keypad keypad([&]() -> std::optional<platform::host::KeyStroke> {
    if (bytes + size - key < 2) return std::nullopt;
    key += 2;
    return tests::KeyFor(key[-2] + 256U * key[-1]);
  });
  keypad.answersBoxes = false;
  keypad.beforeEachKey = [] { Demand(tests::ProblemOfTheScreen(terminal.titles)); };
  const bool small = (bytes[0] & 0x80) != 0;
  Demand(tests::RunUtilityOn({terminal.root, "", small ? 160 : 240, small ? 160 : 320}, keypad, calls));
  if (keypad.IsStuck()) Demand("the program cannot be left");
  return 0;
}
