#include "simulator/key_sequences.h"

#include "platform/messages.h"

namespace simulator {
namespace {

namespace key = platform::key;
using platform::host::KeyStroke;

// Without their Esc. "O" ones come from terminals whose cursor keys are in application mode, which a program that ran
// before may have left on.
const struct {
  KeyStroke stroke;
  std::vector<const char*> usual;
  std::vector<const char*> capabilities;
} kKeys[] = {
    {{key::kUp}, {"[A", "OA"}, {"kcuu1"}},
    {{key::kDown}, {"[B", "OB"}, {"kcud1"}},
    {{key::kRight}, {"[C", "OC"}, {"kcuf1"}},
    {{key::kLeft}, {"[D", "OD"}, {"kcub1"}},
    {{key::kHome}, {"[H", "OH", "[1~", "[7~"}, {"khome", "kfnd", "ka1"}},
    {{key::kEnd}, {"[F", "OF", "[4~", "[8~"}, {"kend", "kslt", "kc1"}},
    {{key::kPageUp}, {"[5~"}, {"kpp", "ka3"}},
    {{key::kPageDown}, {"[6~"}, {"knp", "kc3"}},
    {{key::kInsert}, {"[2~"}, {"kich1"}},
    {{key::kDelete}, {"[3~"}, {"kdch1"}},
    {{key::kEnter, u'\r'}, {"OM"}, {"kent"}},
    {{key::kTab, u'\t', true}, {"[Z"}, {"kcbt"}},
    {{key::kF1}, {"OP", "[P", "[11~", "[[A"}, {"kf1"}},
    {{key::kF2}, {"OQ", "[Q", "[12~", "[[B"}, {"kf2"}},
    {{key::kF3}, {"OR", "[R", "[13~", "[[C"}, {"kf3"}},
    {{key::kF4}, {"OS", "[S", "[14~", "[[D"}, {"kf4"}},
};

}  // namespace

std::vector<KeySequence> UsualKeySequences() {
  std::vector<KeySequence> sequences;
  for (const auto& entry : kKeys) {
    for (const char* usual : entry.usual) sequences.push_back({"\x1B" + std::string(usual), entry.stroke});
  }
  return sequences;
}

std::vector<KeySequence> DescribedKeySequences(const std::function<std::string(const char* name)>& capability) {
  std::vector<KeySequence> sequences;
  for (const auto& entry : kKeys) {
    for (const char* name : entry.capabilities) {
      std::string bytes = capability(name);
      // Of the control characters that some old terminals send, each is a key of its own here.
      if (bytes.size() > 1 && bytes.front() == '\x1B') sequences.push_back({std::move(bytes), entry.stroke});
    }
  }
  return sequences;
}

}  // namespace simulator
