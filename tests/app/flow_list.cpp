// What users do, each on a configuration of its own that is no larger than it takes.
#include "tests/app/flow.h"

namespace tests {
namespace {

std::string Group(const std::string& name, const std::string& body) {
  return "<GROUP name=\"" + name + "\"><DisplayName>" + name + "</DisplayName>" + body + "</GROUP>";
}

std::string Property(const std::string& name, const std::string& oid, const std::string& type,
                     const std::string& more = {}) {
  return Group(name, "<OID>" + oid + "</OID><Type>" + type + "</Type>" + more);
}

std::string Line(const std::string& oid, const std::string& type, const std::string& value) {
  return oid + "\t" + type + "\t" + value + "\n";
}

// A registry file with the texts of some keys.
std::string Registry(const std::string& keys) { return "REGEDIT4\n\n" + keys; }

constexpr const char* kNoConfiguration = "Error: Error getting configuration data. Warm boot and try again.";
constexpr const char* kSaved = "\n\nSaved";
constexpr const char* kApplying = "\nApplying Network Settings";
constexpr const char* kNotSaved = "Error: An error occurred.  Change was not saved.";

const std::string kVolume = Property("Volume", "1.1", "Integer");
const std::string kVolumeOnDevice = Line("1.1", "Integer", "5");
const std::string kVolumeInRegistry = Registry(
    "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Valtorix\\ZEP\\CONFIGAPP]\n\"DisplayName\"=\"Main Menu\"\n\n"
    "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Valtorix\\ZEP\\CONFIGAPP\\Volume]\n\"DisplayName\"=\"Volume\"\n"
    "\"OID\"=\"1.1\"\n\"Type\"=\"Integer\"\n");

std::vector<Flow> Starts() {
  return {
      {.name = "StartFromTheXmlFile",
       .menu = kVolume,
       .device = kVolumeOnDevice,
       .calls = {"open 1", "read 1", "open 2", "read 2", "connect", "get 1.1"},
       // The second file read is the group file, which need not be there.
       .consequences = {{"open 1", kNoConfiguration, ""}, {"read 1", kNoConfiguration, ""}},
       .files = {{"Windows/ekt.xml", "<GROUP name=\"CONFIGAPP\"></GROUP>"}}},
      {.name = "StartFromANamedFile",
       .menu = kVolume,
       .device = kVolumeOnDevice,
       .calls = {"open 1", "read 1", "connect", "get 1.1"},
       .consequences = {{"open", kNoConfiguration, ""}, {"read", kNoConfiguration, ""}},
       .commandLine = "\\Windows\\OVU.XML",
       .files = {{"registry.reg", kVolumeInRegistry}}},
      {.name = "StartFromTheRegistryWithoutAnXmlFile",
       .menu = kVolume,
       .device = kVolumeOnDevice,
       .calls = {"open 1", "read 1", "connect", "get 1.1"},
       .consequences = {{"open", "", ""}, {"read", "", ""}},
       .files = {{"registry.reg", kVolumeInRegistry}}},
      {.name = "StartFromARegistryKey",
       .device = kVolumeOnDevice,
       .keys = "key 1\ntype 7\nkey Enter",
       .calls = {"connect", "get 1.1", "set 1.1 7"},
       .notes = {kSaved},
       .consequences = {{"set", kNotSaved, kSaved}},
       .commandLine = "HKEY_LOCAL_MACHINE\\SOFTWARE\\Valtorix\\ZEP\\CONFIGAPP",
       .files = {{"registry.reg", kVolumeInRegistry}}},
  };
}

std::string TwelveProperties() {
  std::string menu;
  for (int i = 1; i <= 12; ++i) menu += Property("P" + std::to_string(i), "2." + std::to_string(i), "Octet String");
  return menu;
}

std::string TwelveLines() {
  std::string lines;
  for (int i = 1; i <= 12; ++i) lines += Line("2." + std::to_string(i), "Octet String", "v");
  return lines;
}

std::vector<Flow> Walks() {
  return {
      {.name = "EnterPages",
       .menu = Group("Many", TwelveProperties()) + kVolume,
       .device = TwelveLines() + kVolumeOnDevice,
       .keys = "key 1 Down Up Up Enter Up Enter 9 Home 1 Esc 2 Esc",
       .calls = {"get 2.1", "get 2.12", "get 1.1"}},
      {.name = "ReadTheSummary",
       .menu = kVolume + Group("Summary", "<Function>Summary</Function>"),
       .device = kVolumeOnDevice,
       .keys = "key 2 Down Up Esc",
       .calls = {"get 1.1"}},
  };
}

// One property that is edited: the call that stores it, what is typed, and what stands on the device before and after.
Flow Edit(const std::string& name, const std::string& type, const std::string& attributes, const std::string& before,
          const std::string& keys, const std::string& after) {
  return {.name = name,
          .menu = Property("Setting", "3.1", type, attributes),
          .device = Line("3.1", type, before),
          .keys = "key 1\n" + keys + "\nkey Enter",
          .calls = {"get 3.1", "set 3.1 " + after},
          .notes = {kSaved},
          .consequences = {{"set", kNotSaved, kSaved}}};
}

std::vector<Flow> Edits() {
  Flow explained = Edit("EditARefusedSetting", "Integer",
                        "<_OnError>HKEY_LOCAL_MACHINE\\SOFTWARE\\Texts\\Refused</_OnError>", "5", "type 6", "6");
  explained.files["registry.reg"] = Registry("[HKEY_LOCAL_MACHINE\\SOFTWARE\\Texts]\n\"Refused\"=\"Not today.\"\n");
  explained.consequences = {{"set", "Error: Not today.", kSaved}};

  Flow ranged = Edit("EditWithARangeFromATable", "Integer", "<Range>Table,RANGES,Tone</Range>", "5", "type 6", "6");
  ranged.files["tables.txt"] = "RANGES\tTone\t1-99\n";
  ranged.calls = {"get 3.1", "table RANGES Tone", "set 3.1 6"};
  ranged.mayAlsoShow = {"Error: Cannot perform range test.  Range table not found."};

  Flow special = Edit("EditASpecialSetting", "Password", "<PassWordChar>*</PassWordChar>", "old", "type new", "new");
  for (std::string* text : {&special.menu, &special.device}) {
    text->replace(text->find("3.1"), 3, "1.3.6.1.4.1.4242.10.5.1.2.0");
  }
  special.calls = {"get 1.3.6.1.4.1.4242.10.5.1.2.0", "set 1.3.6.1.4.1.4242.10.5.1.2.0 new"};

  return {
      Edit("EditAnInteger", "Integer", "<Range>1-99</Range>", "5", "type 42", "42"),
      Edit("EditAChoice", "Integer", "<ChoiceFmt>1#One|2#Two|3#Three</ChoiceFmt>", "1", "key Down Down", "3"),
      Edit("EditABool", "Bool", "", "1", "key Down", "0"),
      Edit("EditAText", "Octet String", "<MaxChars>8</MaxChars>", "abc", "type hello", "hello"),
      Edit("EditAPassword", "Password", "<PassWordChar>*</PassWordChar>", "secret", "type other", "other"),
      Edit("EditAnAddress", "IP Address", "", "10.0.0.1", "type 192.168.7.9", "192.168.7.9"),
      Edit("EditADate", "Integer", "<SubType>Date</SubType>", "20240315", "key Up", "20240415"),
      Edit("EditATime", "Integer", "<SubType>Time</SubType>", "93000", "key Up", "103000"),
      Edit("EditAWepKey", "Hex", "<WEP>Encrypted</WEP>", "", "type abcde", "6162636465"),
      Edit("EditAPassPhrase", "Hex32", "<WEP>Encrypted</WEP><SubType>Funk</SubType>", "", "type passphrase",
           "passphrase"),
      explained,
      ranged,
      special,
  };
}

std::vector<Flow> Rules() {
  return {
      {.name = "EditACommandField",
       .menu = Group("Options", "<OID>4.1</OID><Type>ReaderCmd</Type><CmdString>2,1,3</CmdString>" +
                                    Group("Beeps", "<Ordinal>1</Ordinal><CmdOID>4.1:1</CmdOID><Type>Integer</Type>") +
                                    Group("Timeout",
                                          "<Ordinal>2</Ordinal><CmdOID>4.1:2</CmdOID><Type>Integer</Type>"
                                          "<_OnExit>Refresh</_OnExit>")),
       .device = Line("4.1", "ReaderCmd", "1050"),
       .keys = "key 1 2\ntype 75\nkey Enter",
       .calls = {"get 4.1", "set 4.1 1075", "get 4.1"},
       .notes = {kSaved},
       .consequences = {{"set", kNotSaved, kSaved}}},
      {.name = "ApplyWithEvents",
       .menu = Property("Speed", "5.1", "Integer", "<Event>Table,EVENTS,Speed</Event>") +
               Property("Mode", "5.2", "Integer", "<Event>ModeChanged</Event>"),
       .device = Line("5.1", "Integer", "1") + Line("5.2", "Integer", "1"),
       .keys = "key 1\ntype 2\nkey Enter 2\ntype 3\nkey Enter",
       .calls = {"table EVENTS Speed", "set 5.1 2", "set 5.2 3"},
       .notes = {kSaved, kSaved},
       .files = {{"tables.txt", "EVENTS\tSpeed\tSpeedChanged\n"}}},
      {.name = "FollowARule",
       .menu = Property("Mode", "5.1", "Integer", "<ChoiceFmt>1#One|2#Two</ChoiceFmt>") +
               Property("Level", "5.2", "Integer", "<Dependency>IF Mode EQ 2 THEN NoDisplay</Dependency>") +
               Property("Signal", "5.3", "Gauge", "<Dependency>this|Gauge|Empty|Refresh</Dependency>") +
               Property("Rate", "5.4", "Integer",
                        "<ChoiceFmt>1#1|2#2</ChoiceFmt><Dependency>IF Mode EQ 2 THEN \"ChoiceFmt=1#1:1\"</Dependency>"),
       .device = Line("5.1", "Integer", "1") + Line("5.2", "Integer", "1") + Line("5.3", "Gauge", "70") +
                 Line("5.4", "Integer", "2"),
       .keys = "key 1 Down Enter",
       .calls = {"get 5.3", "set 5.1 2", "get 5.3"},
       .notes = {kSaved},
       .consequences = {{"set 5.1", kNotSaved, kSaved}}},
      {.name = "LeaveAChangedPage",
       .menu = Group("Adapter", Property("Speed", "5.1", "Integer", "<_OnExit>FlagChanges</_OnExit>") +
                                    "<_OnExit>IfChanges:5.8|Integer|1</_OnExit>"
                                    "<_OnExit1>Rebind:1.2.840.10036.1.1.1.8.2|Integer|1</_OnExit1>"),
       .device =
           Line("5.1", "Integer", "1") + Line("5.8", "Integer", "0") + Line("1.2.840.10036.1.1.1.8.2", "Integer", "0"),
       .keys = "key 1 1\ntype 2\nkey Enter Esc",
       .calls = {"set 5.1 2", "set 5.8 1", "set 1.2.840.10036.1.1.1.8.2 1"},
       .notes = {kSaved, kApplying}},
      {.name = "EditAProfile",
       .menu = Property("Network", "cfg|80211PM|*|SSID", "Octet String", "<FillOID>Profile</FillOID>") +
               Group("Apply", "<Function>ApplyNetworkSettings</Function>"),
       .device = Line("cfg|80211PM|ZeroConfig", "Octet String", "Off") +
                 Line("cfg|80211PM|ActiveProfile", "Octet String", "Yard") +
                 Line("cfg|80211PM|ConfigureProfile", "Octet String", "") +
                 Line("cfg|80211PM|Yard|SSID", "Octet String", "old") + Line("1.2.840.10036.1.1.1.8.2", "Integer", "0"),
       .keys = "key 1\ntype new\nkey Enter 2",
       .calls = {"get cfg|80211PM|ActiveProfile", "get cfg|80211PM|Yard|SSID", "set cfg|80211PM|Yard|SSID new",
                 "get cfg|80211PM|ZeroConfig", "set cfg|80211PM|ConfigureProfile Yard"},
       .notes = {kSaved, "\nApplying Profile Settings"},
       // Without its profile's name the setting's OID is one that the device does not know.
       .mayAlsoShow = {kNotSaved}},
  };
}

std::string WirelessMenu() {
  const std::string verify = "<_OnExit>VerifyNetUI</_OnExit><_OnExit1>FlagChanges</_OnExit1>";
  return Group("Wireless",
               "<_OnEnter>VerifyNetUI</_OnEnter><_OnExit>CheckWEPKey</_OnExit>"
               "<_OnExit1>IfChanges:ApplyNetworkSettings</_OnExit1>" +
                   Property("Type", "1.2.840.10036.1.1.1.10.2", "Integer",
                            "<ChoiceFmt>1#Infrastructure|2#Ad hoc</ChoiceFmt>" + verify) +
                   Property("Authentication", "1.2.840.10036.1.2.1.2.2", "Integer",
                            "<ChoiceFmt>1#Open|2#Shared|4#WPA|5#WPA-PSK|6#WPA-None</ChoiceFmt>" + verify) +
                   Property("Encryption", "1.2.840.10036.1.5.1.1.2", "Integer",
                            "<ChoiceFmt>1#Disabled|0#WEP|4#TKIP</ChoiceFmt>" + verify) +
                   Property("Method", "1.2.840.10036.4242.1.2", "Integer",
                            "<ChoiceFmt>0#Disabled|13#TLS|25#PEAP</ChoiceFmt>" + verify) +
                   Property("Setting", "_Network Key Setting", "Integer",
                            "<ChoiceFmt>1#Automatic|0#Enter</ChoiceFmt><_OnExit>SetKeyIndex</_OnExit>"
                            "<_OnExit1>VerifyNetUI</_OnExit1>") +
                   Property("Index", "1.2.840.10036.1.5.1.2.2", "Integer") +
                   Property("Key", "1.2.840.10036.1.3.1.2.2", "Hex", "<WEP>Encrypted</WEP>"));
}

std::string WirelessDevice() {
  return Line("1.2.840.10036.1.1.1.10.2", "Integer", "1") + Line("1.2.840.10036.1.2.1.2.2", "Integer", "1") +
         Line("1.2.840.10036.1.5.1.1.2", "Integer", "0") + Line("1.2.840.10036.4242.1.2", "Integer", "0") +
         Line("1.2.840.10036.1.5.1.2.2", "Integer", "4") + Line("1.2.840.10036.1.3.1.2.2", "Hex", "") +
         Line("cfg|80211PM|ZeroConfig", "Octet String", "On") + Line("1.2.840.10036.1.1.1.8.2", "Integer", "0");
}

// Boxes that a wireless setting can bring about; which ones depends on the settings that could be read.
const std::vector<std::string> kWirelessBoxes = {
    kNotSaved,
    "Alert: Network Authentication changed to Open",
    "Alert: Data Encryption has been disabled",
    "Alert: Data Encryption changed to TKIP",
    "Alert: 802.1X authentication has been disabled",
    "Alert: 802.1X authentication has been enabled",
    "Alert: Valid network key must be entered",
    "Alert: You must enter a valid WEP key or this setting will remain automatic"};

std::vector<Flow> Wireless() {
  return {
      {.name = "WalkThroughTheWirelessCouplings",
       .menu = WirelessMenu(),
       .device = WirelessDevice(),
       // WPA, then ad hoc.
       .keys = "key 1 2 Down Down Enter 1 Down Enter Esc",
       .calls = {"set 1.2.840.10036.1.2.1.2.2 4", "set 1.2.840.10036.4242.1.2 13", "set 1.2.840.10036.1.1.1.10.2 2",
                 "set 1.2.840.10036.1.2.1.2.2 1", "set 1.2.840.10036.4242.1.2 0",
                 "set 1.2.840.10036.1.1.1.8.2 5677765"},
       .boxes = {"Alert: 802.1X authentication has been enabled", "Alert: Network Authentication changed to Open",
                 "Alert: 802.1X authentication has been disabled"},
       .notes = {kSaved, kSaved, kApplying},
       .mayAlsoShow = kWirelessBoxes},
      {.name = "EnterANetworkKeyByHand",
       .menu = WirelessMenu(),
       .device = WirelessDevice(),
       .keys = "key 1 5 Down Enter Esc",
       .calls = {"set 1.2.840.10036.1.5.1.2.2 0", "get 1.2.840.10036.1.3.1.2.2"},
       .boxes = {"Alert: You must enter a valid WEP key or this setting will remain automatic",
                 "Alert: Valid network key must be entered"},
       .notes = {kSaved},
       .mayAlsoShow = kWirelessBoxes},
      {.name = "OpenTheWepProperties",
       .menu = Group("WEP", "<Function>WEP_Properties</Function>"),
       .device = Line("1.2.840.10036.1.1.1.8.2", "Integer", "0"),
       .keys = "key 1",
       .calls = {"set 1.2.840.10036.1.1.1.8.2 5677766"},
       .mayAlsoShow = {kNotSaved}},
  };
}

std::vector<Flow> Commands() {
  return {
      {.name = "RestoreDefaults",
       .menu = Property("Volume", "1.1", "Integer", "<DefVal>9</DefVal>") +
               Group("Options",
                     "<OID>4.1</OID><Type>ReaderCmd</Type><CmdString>Table,COMMANDS,Options</CmdString>"
                     "<DefVal>2020</DefVal><Dependency>4.1|ReaderCmd|-0</Dependency>") +
               Property("Tone", "1.2", "Integer", "<DefVal>7</DefVal><Event>ToneChanged</Event>") +
               Group("Restore", "<Function>RestoreDefaults</Function>"),
       .device = kVolumeOnDevice + Line("4.1", "ReaderCmd", "1050") + Line("1.2", "Integer", "3"),
       .keys = "key 4",
       .calls = {"get 1.1", "get 4.1", "get 1.2", "set 1.1 9", "set 4.1", "set 1.2 7"},
       .boxes = {"Alert: Restoring Factory Defaults will replace all the current settings.\nRestore now? [Yes] [No]",
                 "Apply: Changes applied successfully"},
       .consequences = {{"set", "Error: An error occurred restoring all factory defaults.", ""}},
       .mayAlsoShow = {kNotSaved},
       .files = {{"tables.txt", "COMMANDS\tOptions\t2,1,3\n"}}},
      {.name = "StoreSettings",
       .menu = kVolume + Group("Sub", Property("Tone", "1.2", "Integer")) +
               Group("Store", "<Function>StoreConfig</Function>"),
       .device = kVolumeOnDevice + Line("1.2", "Integer", "3"),
       .keys = "key 3",
       .calls = {"create 1", "get 1.1", "get 1.2", "write 1", "replace 1"},
       .notes = {kSaved},
       .consequences = {{"create", "", kSaved}, {"write", "", kSaved}, {"replace", "", kSaved}},
       .files = {{"CfgSettings.txt", "what was stored the last time"}}},
      {.name = "ImportCertificates",
       .menu = Property("Certificates", "6.1", "Octet String",
                        "<Function>ImportCertificates</Function><_OnError>No certificates.</_OnError>"),
       .device = Line("6.1", "Octet String", "False"),
       .keys = "key 1",
       .calls = {"set 6.1 True"},
       .boxes = {"Success: Certificates were successfully imported."},
       .consequences = {{"set", "Error: No certificates.", ""}}},
      {.name = "StartAProgram",
       .menu = Group("Check", "<AppName>\\Windows\\KelWrite2Flash.exe /all</AppName>") + kVolume,
       .device = kVolumeOnDevice,
       .keys = "key 1 2 Esc",
       .calls = {"start 1"},
       .consequences = {{"start", "Error: Unable to execute command \\Windows\\KelWrite2Flash.exe /all", ""}}},
      {.name = "LeaveAfterAChangeThroughTheFlashWriter",
       .menu = kVolume,
       .device = kVolumeOnDevice,
       .keys = "key 1\ntype 6\nkey Enter Esc",
       .calls = {"set 1.1 6", "start 1"},
       .notes = {kSaved},
       .consequences = {{"set", kNotSaved, kSaved},
                        {"start", "Error: Unable to execute command KelWrite2Flash.exe", ""}}},
      {.name = "WarmBoot",
       .menu = Property("Country", "7.1", "Integer",
                        "<ChoiceFmt>1#America|2#Europe</ChoiceFmt><_OnExit>PromptWarmBoot</_OnExit>"
                        "<Dependency>this|Integer|Empty|Refresh</Dependency>"),
       .device = Line("7.1", "Integer", "1"),
       .keys = "key 1 Down Enter 1 Esc Esc",
       .calls = {"get 7.1", "set 7.1 2", "connect", "get 7.1"},
       .boxes = {"Alert: You must warm-boot the device for this change to take effect\r\nDo you wish to warm-boot now?"
                 " [Yes] [No]"},
       .consequences = {{"open 2", kNoConfiguration, ""}, {"read 2", kNoConfiguration, ""}}},
  };
}

}  // namespace

const std::vector<Flow>& AllFlows() {
  static const std::vector<Flow> flows = [] {
    std::vector<Flow> all;
    for (const auto& part : {Starts(), Walks(), Edits(), Rules(), Wireless(), Commands()}) {
      all.insert(all.end(), part.begin(), part.end());
    }
    return all;
  }();
  return flows;
}

}  // namespace tests
