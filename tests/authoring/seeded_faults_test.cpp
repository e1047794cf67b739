// The demonstration with one fault at a time, at each place where it can stand: it is found there, and nothing is said
// that does not follow from it.
#include "authoring/check_run.h"
#include "authoring/finding_formats.h"
#include "base/utf8.h"
#include "tests/authoring/storage_folder.h"

#include <algorithm>
#include <regex>
#include <set>
#include <sstream>

namespace {

using IdSet = std::set<std::string>;

// What follows from a property whose values are others than before.
const IdSet kOtherValues = {"comparison-never-true",  "comparison-always-true", "rule-no-effect",
                            "line-never-shown",       "rule-overridden",        "menu-can-be-empty",
                            "device-value-no-choice", "default-not-a-choice",   "fallback-not-a-choice"};
// What follows from a property that is not found where it was.
const IdSet kLost = {"rule-name-unknown",     "rule-oid-unknown",       "device-value-missing",
                     "field-command-unknown", "field-outside-command",  "wireless-setting-missing",
                     "comparison-never-true", "comparison-always-true", "rule-no-effect",
                     "line-never-shown",      "menu-can-be-empty",      "ordinal-gap"};

IdSet operator+(IdSet a, const IdSet& b) {
  a.insert(b.begin(), b.end());
  return a;
}

enum class Where { kLine, kEntry };  // the finding is at the line that was changed, or anywhere in its entry

struct Fault {
  const char* id;
  const char* pattern;      // of a line
  const char* replacement;  // in the manner of std::regex_replace
  IdSet consequences = {};
  Where where = Where::kLine;
  const char* needs = "";  // what the entry's own lines have to hold
};

const Fault kFaults[] = {
    {"document-broken", "</GROUP>", "</GRUOP>"},
    {"attribute-twice", "<DisplayName>(.*)</DisplayName>", "$&$&"},
    {"attribute-empty", "<ShortDesc>.*</ShortDesc>", "<ShortDesc></ShortDesc>"},
    {"attribute-with-elements", "<ShortDesc>(.*)</ShortDesc>", "<ShortDesc><b>$1</b></ShortDesc>", {"attribute-empty"}},
    {"attribute-unknown", "<(ShortDesc|Event|_OnError)>(.*)</.*>", "<$1s>$2</$1s>"},
    {"attribute-unknown", "<(Unavailable|TextFmt)>(.*)</.*>", "<x$1>$2</x$1>", {"default-too-long"}},
    {"name-with-backslash", "<GROUP name=\"(Dns|Speed|Ssid|Trigger|Beeper|Tone|Date|Server)\">",
     "<GROUP name=\"x\\$1\">", kLost},
    {"sibling-name-twice", "<GROUP name=\"(Mask|Gateway|Dns)\">", "<GROUP name=\"Address\">", kLost},
    {"display-name-missing", "<DisplayName>.*</DisplayName>", "", kLost, Where::kEntry},
    {"oid-twice", "<OID>1\\.3\\.6\\.1\\.4\\.1\\.4242\\.10\\.[4-8]\\..*</OID>", "<OID>1.3.6.1.4.1.4242.10.1.1.0</OID>",
     kLost + IdSet{"device-type-differs", "device-value-no-choice", "device-value-out-of-range",
                   "device-value-no-value", "device-value-too-long", "default-missing"}},
    {"oid-blanks", "<OID>(1.*)</OID>", "<OID> $1</OID>", kLost + IdSet{"wireless-not-verified"}},
    {"ordinal-twice", "<Ordinal>2</Ordinal>", "<Ordinal>1</Ordinal>", {"field-before-command"}},
    {"ordinal-out-of-range", "<Ordinal>1</Ordinal>", "<Ordinal>99</Ordinal>", kLost + IdSet{"field-before-command"}},
    {"descendent-nowhere", "<Descendent>.*</Descendent>", "<Descendent>No\\Where</Descendent>"},
    {"number-gap", "<_OnExit1>(.*)</_OnExit1>", "<_OnExit3>$1</_OnExit3>", {"changes-not-marked"}},
    {"number-gap", "<Dependency1>(.*)</Dependency1>", "<Dependency2>$1</Dependency2>", kOtherValues},
    {"type-unknown", "<Type>[A-Z].*</Type>", "<Type>Nmber</Type>",
     kOtherValues + IdSet{"handler-nothing-here", "wireless-key-type", "entry-two-things", "rule-not-four-parts",
                          "subtype-unknown"}},
    {"type-miscased", "<Type>Integer</Type>", "<Type>integer</Type>", kOtherValues},
    {"type-missing", "<Type>(Bool|IP Address|Gauge)</Type>", "", kOtherValues + IdSet{"handler-nothing-here"},
     Where::kEntry},
    {"editor-unknown", "<PropEditor>.*</PropEditor>", "<PropEditor>Switch</PropEditor>"},
    {"subtype-unknown", "<SubType>.*</SubType>", "<SubType>Day</SubType>", {"default-too-long", "default-not-a-value"}},
    {"filloid-unknown", "<FillOID>Profile", "<FillOID>profile", {"device-value-missing"}},
    {"star-without-filloid", "<FillOID>Profile</FillOID>", "", {"device-value-missing"}, Where::kEntry},
    {"secret-in-clear",
     "<DisplayName>(Data Prefix|SSID)</DisplayName>",
     "<DisplayName>Secret</DisplayName>",
     {},
     Where::kEntry},
    {"key-without-wep", "<WEP>.*</WEP>", "", {"default-not-a-value", "subtype-unknown"}, Where::kEntry, "<Type>Hex32"},
    {"wireless-key-type", "<WEP>.*</WEP>", "", {}, Where::kEntry, "<OID>1.2.840.10036.1.3.1.2.2"},
    {"choice-key-twice", "<ChoiceFmt>([0-9]+)#([^|<]*)\\|[0-9]+#", "<ChoiceFmt>$1#$2|$1#",
     kOtherValues + IdSet{"wireless-choice-replaced"}},
    {"choice-text-twice", "<ChoiceFmt>([0-9]+)#([^|<]*)\\|([0-9]+)#[^|<]*", "<ChoiceFmt>$1#$2|$3#$2",
     kOtherValues + IdSet{"wireless-choice-replaced"}},
    {"choice-without-sign", "\\|[^#|<]*#([^|<]*)</ChoiceFmt>", "|No $1</ChoiceFmt>",
     kOtherValues + IdSet{"choice-key-twice", "wireless-choice-replaced"}},
    {"choice-key-no-number", "<ChoiceFmt>0#", "<ChoiceFmt>x#", kOtherValues},
    {"symbol-missing", "<ChoiceFmt>FMT_[A-Z]+", "<ChoiceFmt>FMT_NONE", kOtherValues + IdSet{"field-too-wide"}},
    {"range-reversed",
     "<Range>([1-9][0-9]*)-([0-9]+)</Range>",
     "<Range>0,$2-$1</Range>",
     {"default-out-of-range", "device-value-out-of-range", "default-too-long", "comparison-never-true"}},
    {"range-empty", "<Range>([1-9][0-9]*)-([0-9]+)</Range>", "<Range>$2-$1</Range>", {"comparison-never-true"}},
    {"range-below-zero", "<Range>([1-9][0-9]*)-([0-9]+)</Range>", "<Range>-$1-$2</Range>"},
    {"range-malformed",
     "<Range>([0-9]+)[-,]([0-9]+)</Range>",
     "<Range>$1 to $2</Range>",
     {"default-out-of-range", "device-value-out-of-range", "default-too-long"}},
    {"mask-excludes-range", "<TextFmt>####?</TextFmt>", "<TextFmt>#</TextFmt>", {"default-too-long"}},
    {"default-not-a-choice", "<DefVal>.*</DefVal>", "<DefVal>9999</DefVal>", kOtherValues, Where::kLine,
     "<ChoiceFmt>[\\s\\S]*<DefVal>"},
    {"default-out-of-range",
     "<DefVal>.*</DefVal>",
     "<DefVal>99999</DefVal>",
     {"default-too-long"},
     Where::kLine,
     "<OID>[\\s\\S]*<Range>[0-9]"},
    {"default-not-a-value",
     "<DefVal>.*</DefVal>",
     "<DefVal>1.2.3</DefVal>",
     {},
     Where::kLine,
     "<Type>IP Address</Type>"},
    {"default-too-long",
     "<DefVal>.*</DefVal>",
     "<DefVal>"
     "This is longer than anybody would ever want to type it on a keypad of this size"
     "</DefVal>",
     {},
     Where::kLine,
     "<Type>Octet String</Type>\\s*<MaxChars>"},
    {"default-missing", "<DefVal>.*</DefVal>", "", {}, Where::kEntry, "<OID>[\\s\\S]*<(ChoiceFmt>|Range>(?!Table))"},
    {"cmdstring-malformed", "<CmdString>([0-9]+),", "<CmdString>1$1,"},
    {"command-text-length", "<DefVal>(.*)</DefVal>", "<DefVal>$1Z</DefVal>", {}, Where::kLine, "<CmdString>"},
    {"field-command-unknown", "<CmdOID>.*</CmdOID>", "<CmdOID>1.9:1</CmdOID>", kLost},
    {"field-outside-command", "<CmdOID>(.*):[0-9]+</CmdOID>", "<CmdOID>$1:99</CmdOID>", kLost},
    {"field-without-ordinal",
     "<Ordinal>[0-9]+</Ordinal>",
     "",
     {"ordinal-gap", "ordinal-out-of-range"},
     Where::kEntry,
     "<CmdOID>"},
    {"table-missing",
     "Table,(EVENTS|LAYOUTS|RANGES),(Display|LabelLengths?|BeeperTone)",
     "Table,$1,Nothing",
     {"default-too-long", "field-outside-command"}},
    {"registry-text-missing", "<_OnError>HKEY_LOCAL_MACHINE", "<_OnError>HKEY_LOCAL_MACHINE\\NONE"},
    {"program-missing", "<AppName>([A-Z\\\\].*(Diag|Check|Flash).*)\\.exe", "<AppName>$1x.exe"},
    {"rule-malformed", "<Dependency(1?)>IF (.*) (EQ|NEQ) ", "<Dependency$1>IF $2 IS ", {}},
    {"action-unknown", "THEN (NoEdit|NoDisplay|Display|Blank)\\b", "THEN Hide", {"rule-no-effect", "line-never-shown"}},
    {"flag-unknown", "\\|(Display|NoDisplay|NoEdit|Blank|CheckMark|Refresh)</Dependency", "|Hidden</Dependency"},
    {"rule-name-unknown", "<Dependency(1?)>IF (\\(?\"?)([A-Z])", "<Dependency$1>IF $2Zz$3", kOtherValues},
    {"rule-not-four-parts", "<Dependency>([0-9.]+\\|[A-Za-z]+)\\|[^|<]*\\|([A-Za-z]+)</Dep", "<Dependency>$1|$2</Dep"},
    {"empty-in-condition", "<Dependency(1?)>IF (.*) EQ [0-9]+ THEN", "<Dependency$1>IF $2 EQ Empty THEN", kOtherValues},
    {"check-mark-over-name", "<DisplayName> (.*)</DisplayName>", "<DisplayName>$1</DisplayName>",
     kLost + IdSet{"line-too-wide"}, Where::kEntry, "CheckMark"},
    {"choice-of-rule-unlisted", "ChoiceFmt=([0-9]+)#", "ChoiceFmt=77#", kOtherValues},
    {"rule-oid-unknown", "<Dependency>1\\.3([0-9.]*\\|[A-Za-z ]+\\|[^|<]*\\|[A-Z])", "<Dependency>1.9$1"},
    {"comparison-never-true",
     "<Dependency(1?)>IF (\"?[A-Z][A-Za-z0-9 ]*\"?) EQ [0-9]+ THEN",
     "<Dependency$1>IF $2 EQ 77 THEN",
     {"rule-no-effect", "line-never-shown"}},
    {"handler-unknown", "<_OnExit(1?)>FlagChanges", "<_OnExit$1>FlgChanges", {"changes-not-marked"}},
    {"changes-not-marked",
     "<_OnExit>FlagChanges</_OnExit>",
     "",
     {"number-gap"},
     Where::kEntry,
     "4242\\.10\\.1\\.[2-6]\\.0"},
    {"handler-nothing-here",
     "<_OnExit>FlagChanges",
     "<_OnExit>CheckWEPKey",
     {"changes-not-marked"},
     Where::kLine,
     "<(OID|CmdOID)>[\\s\\S]*<DefVal>"},
    {"handler-triple-broken", "(IfChanges|Rebind):([0-9.]+)\\|.*</", "$1:$2</"},
    {"handler-oid-unknown", "(IfChanges|Rebind):1\\.3", "$1:1.9"},
    {"function-unknown", "<Function>([A-Z])", "<Function>x$1", {"device-value-missing", "entry-two-things"}},
    {"device-value-missing", "<OID>1\\.3\\.6\\.1\\.4\\.1\\.4242\\.10\\.([678])", "<OID>1.9.6.1.4.1.4242.10.$1",
     kLost + IdSet{"default-missing"}},
    {"device-type-differs", "<Type>Bool</Type>", "<Type>Integer</Type>", kOtherValues, Where::kLine, "<OID>"},
    {"line-too-wide", "<DisplayName>([A-Z][a-z]*)</DisplayName>", "<DisplayName>$1 and a bit more</DisplayName>",
     kLost},
    {"description-too-wide", "<ShortDesc>(.*)</ShortDesc>",
     "<ShortDesc>$1 and so much more that nobody would ever read it to its very end</ShortDesc>"},
    {"choice-too-wide",
     "<ChoiceFmt>([0-9]+#)",
     "<ChoiceFmt>$1Some choice that is far too long for a list, ",
     {"wireless-choice-replaced"}},
    {"wireless-not-verified",
     "<_OnExit>VerifyNetUI</_OnExit>",
     "",
     {"number-gap", "changes-not-marked"},
     Where::kEntry},
};

class Document {
 public:
  explicit Document(const std::filesystem::path& file) {
    std::ifstream input(file);
    for (std::string line; std::getline(input, line);) lines_.push_back(line);
  }

  std::size_t Count() const { return lines_.size(); }
  const std::string& operator[](std::size_t line) const { return lines_[line]; }

  // The entry's own lines: from its start tag to the first tag of another entry, or its end.
  std::pair<std::size_t, std::size_t> EntryAround(std::size_t line) const {
    std::size_t first = line;
    while (first > 0 && lines_[first].find("<GROUP") == std::string::npos) --first;
    std::size_t last = first + 1;
    while (last + 1 < lines_.size() && lines_[last].find("GROUP") == std::string::npos) ++last;
    return {first, last};
  }

  std::string Text(std::size_t first, std::size_t last) const {
    std::string text;
    for (std::size_t i = first; i < last; ++i) text += lines_[i] + "\n";
    return text;
  }

  std::string With(std::size_t changed, const std::string& line) const {
    return Text(0, changed) + line + "\n" + Text(changed + 1, lines_.size());
  }

 private:
  std::vector<std::string> lines_;
};

class SeededFaults : public testing::TestWithParam<std::size_t> {};

TEST_P(SeededFaults, AreFoundWhereTheyStandAndNothingElseIs) {
  constexpr std::size_t kMostPlaces = KEL_SANITIZED ? 1 : 5;  // of one fault, spread over the document
  const Fault& fault = kFaults[GetParam()];
  const Document document(tests::kDemonstration / "Windows/ovu.xml");
  const std::regex pattern(fault.pattern);
  const std::regex needs(fault.needs);
  std::vector<std::size_t> places;
  for (std::size_t line = 0; line < document.Count(); ++line) {
    const auto [first, last] = document.EntryAround(line);
    if (std::regex_search(document[line], pattern) && std::regex_search(document.Text(first, last), needs)) {
      places.push_back(line);
    }
  }
  ASSERT_FALSE(places.empty()) << fault.id;

  tests::StorageFolder folder;
  std::filesystem::copy(tests::kDemonstration, folder.Path(),
                        std::filesystem::copy_options::recursive | std::filesystem::copy_options::overwrite_existing);
  const std::size_t step = (places.size() + kMostPlaces - 1) / kMostPlaces;
  for (std::size_t i = 0; i < places.size(); i += step) {
    const std::size_t line = places[i];
    const std::string changed = std::regex_replace(document[line], pattern, fault.replacement);
    folder.Write("Windows/ovu.xml", document.With(line, changed));
    const auto findings = authoring::CheckConfiguration(*folder.Load());
    const auto [first, last] = document.EntryAround(line);
    std::ostringstream said;
    PrintText(findings, false, said);
    bool found = false;
    for (const authoring::Finding& finding : findings) {
      const bool isIt = finding.id == fault.id;
      const std::size_t at = finding.position.line;
      const bool isThere = fault.where == Where::kLine ? at == line + 1 : at > first && at <= last + 1;
      found = found || (isIt && isThere);
      EXPECT_TRUE(isIt || fault.consequences.contains(std::string(finding.id)))
          << finding.id << " does not follow from " << changed << "\n"
          << said.str();
    }
    EXPECT_TRUE(found) << fault.id << " is not found at " << line + 1 << ": " << changed << "\n" << said.str();
  }
}

INSTANTIATE_TEST_SUITE_P(Demonstration, SeededFaults, testing::Range(std::size_t{0}, std::size(kFaults)),
                         [](const auto& parameter) {
                           std::string name = kFaults[parameter.param].id;
                           std::replace(name.begin(), name.end(), '-', '_');
                           return name + "_" + std::to_string(parameter.param);
                         });

}  // namespace
