#include "simulator/options.h"

#include "tests/printing.h"

namespace {

using simulator::Options;

std::optional<Options> Parse(std::vector<std::string> words, std::string& problem) {
  words.insert(words.begin(), "kelterm");
  std::vector<char*> arguments;
  for (std::string& word : words) arguments.push_back(word.data());
  return simulator::ParseOptions(static_cast<int>(arguments.size()), arguments.data(), problem);
}

TEST(Options, WithoutArgumentsTheDemonstrationIsShownAsText) {
  std::string problem;
  const auto options = Parse({}, problem);
  ASSERT_TRUE(options);
  EXPECT_TRUE(options->root.empty());
  EXPECT_EQ(240, options->screenWidthPx);
  EXPECT_EQ(320, options->screenHeightPx);
  EXPECT_EQ(Options::DisplayKind::kText, options->display);
  EXPECT_EQ(u"", options->commandLine);
}

TEST(Options, EveryOptionIsTaken) {
  std::string problem;
  const auto options = Parse({"--root", "dir", "--screen=160x200", "--display", "none", "--script", "-", "--log", "l",
                              "HKEY_LOCAL_MACHINE\\Grüße", "two"},
                             problem);
  ASSERT_TRUE(options) << problem;
  EXPECT_EQ("dir", options->root);
  EXPECT_EQ(160, options->screenWidthPx);
  EXPECT_EQ(200, options->screenHeightPx);
  EXPECT_EQ(Options::DisplayKind::kNone, options->display);
  EXPECT_EQ("-", options->script);
  EXPECT_EQ("l", options->log);
  EXPECT_EQ(u"HKEY_LOCAL_MACHINE\\Grüße two", options->commandLine);
  EXPECT_TRUE(Parse({"--reset"}, problem)->reset);
  EXPECT_TRUE(Parse({"--watch"}, problem)->watch);
  EXPECT_FALSE(options->agent);
  EXPECT_EQ("", Parse({"--agent"}, problem)->agent);
  EXPECT_EQ("[::1]:0", Parse({"--agent=[::1]:0", "--credentials", "words"}, problem)->agent);
  EXPECT_EQ("words", Parse({"--agent", "--credentials=words"}, problem)->credentials);
  EXPECT_TRUE(Parse({"--version"}, problem)->version);
  EXPECT_TRUE(Parse({"--help"}, problem)->help);
  EXPECT_TRUE(Parse({"-h"}, problem)->help);
  const auto network =
      Parse({"--device", "snmp://h", "--credentials", "words", "--restart-oid", "1.3", "--truth-values"}, problem);
  ASSERT_TRUE(network) << problem;
  EXPECT_EQ("snmp://h", network->device);
  EXPECT_EQ("words", network->credentials);
  EXPECT_EQ("1.3", network->restartOid);
  EXPECT_TRUE(network->truthValues);
}

TEST(Options, UnusableArgumentsAreOneLine) {
  const struct {
    std::vector<std::string> words;
    const char* problem;
  } cases[] = {
      {{"--bogus"}, "there is no option --bogus; see kelterm --help"},
      {{"a", "-hx", "b"}, "there is no option -x; see kelterm --help"},
      {{"-x"}, "there is no option -x; see kelterm --help"},
      {{"SOURCE", "--reset", "--bogus"}, "there is no option --bogus; see kelterm --help"},
      {{"--root"}, "--root needs an argument; see kelterm --help"},
      {{"--root", ""}, "--root takes a folder"},
      {{"--watch", "--script", "-"}, "--watch is for people: it cannot go with --script or --display none"},
      {{"--display=none", "--watch"}, "--watch is for people: it cannot go with --script or --display none"},
      {{"--screen", "240"}, "--screen takes WIDTHxHEIGHT in pixels, each from 100 to 2000"},
      {{"--screen", "240x99"}, "--screen takes WIDTHxHEIGHT in pixels, each from 100 to 2000"},
      {{"--screen", "240x320x"}, "--screen takes WIDTHxHEIGHT in pixels, each from 100 to 2000"},
      {{"--screen", "99999999999x320"}, "--screen takes WIDTHxHEIGHT in pixels, each from 100 to 2000"},
      {{"--display", "colour"}, "--display is text or none"},
      {{"--agent", "--watch"},
       "--agent cannot go with --watch: each start would take the device away from those who ask"},
      {{"--credentials", "words"}, "--credentials goes with --agent or --device"},
      {{"--device"}, "--device needs an argument; see kelterm --help"},
      {{"--device", ""}, "--device takes snmp://[USER@]HOST[:PORT]"},
      {{"--device", "snmp://h", "--restart-oid", ""}, "--restart-oid takes an OID"},
      {{"--agent", "--device", "snmp://h"}, "--agent answers for the storage's device, and cannot go with --device"},
      {{"--restart-oid", "1.3"}, "--restart-oid and --truth-values go with --device"},
      {{"--truth-values"}, "--restart-oid and --truth-values go with --device"},
      {{"--agent", "--credentials", ""}, "--credentials takes a file"},
      {{"--reset", "--root", "x"}, "--reset is for the demonstration terminal and cannot go with --root"},
  };
  for (const auto& c : cases) {
    std::string problem;
    EXPECT_FALSE(Parse(c.words, problem));
    EXPECT_EQ(c.problem, problem);
  }
}

}  // namespace
