#include "simulator/usage.h"

namespace simulator {

const char* const kUsage = R"(kelterm [options] [SOURCE...]

Runs the configuration utility in a simulated terminal, in this text window.

  SOURCE               the utility's command line: nothing, a HKEY_LOCAL_MACHINE path, or the path of an XML file

Options:
  --root DIR           the terminal's storage; default: the demonstration terminal, copied on first use to
                       $XDG_STATE_HOME/kelterm/terminal
  --screen WxH         default 240x320; 160x160 is the small layout
  --display text|none  default text
  --script FILE        play a UI script ("-" is standard input); implies --display none
  --log FILE           debug output; default: nowhere
  --reset              put the demonstration terminal back to its first state, then start
  --watch              start the utility again when a file of the storage changes, and go back to the same line
  --agent[=ADDR:PORT]  answer SNMP meanwhile, on the same values; default 127.0.0.1:1161, as kelagent does
  --device snmp://[USER@]HOST[:PORT]
                       work on a device on the network; the configuration is still that of --root
  --credentials FILE   who may ask the agent, or as whom to ask the device; only its owner may read it
  --restart-oid OID    what restarts the device on the network when it is set to 1; default: a person does
  --truth-values       a Bool of the device on the network is 1 or 2 (TruthValue), not 1 or 0
  --version            the program's name and version
  -h, --help           this text

Keys:
  Beside the screen stands what the keys do. Ctrl-W says why the selected line looks as it does, and which lines of its
  menu are hidden; Ctrl-L draws the screen anew, Ctrl-C turns the terminal off at once.

Environment:
  TERM                 the kind of terminal this window is
  LC_ALL, LANG         what characters it shows; without UTF-8, frames are of ASCII
  NO_COLOR             if set, no colours
  ESCDELAY             how many milliseconds Esc waits for the rest of another key; default 40, more for a slow line
  XDG_STATE_HOME       where the demonstration terminal lies; default: ~/.local/state
  KEL_SNMP_COMMUNITY and others: who may ask the agent, or as whom to ask, as kelagent(1) says

Exit status:
  0    the utility ran to its end, or this terminal already runs and was rung
  1    a script failed
  2    the arguments, the storage or the configuration cannot be used; a line on standard error says why
  130  turned off by Ctrl-C

Examples:
  kelterm --root my-terminal
  kelterm --watch --root my-terminal
  KEL_SNMP_COMMUNITY=look kelterm --agent
  kelterm --device snmp://admin@10.0.0.5 --root my-terminal
  kelterm --screen 160x160 '\Windows\ovu.xml'
  printf 'wait\nkey 1\ndump\n' | kelterm --script -
)";

}  // namespace simulator
