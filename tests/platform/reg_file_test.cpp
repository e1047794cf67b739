#include "platform/host/reg_file.h"

#include "tests/printing.h"

namespace {

using platform::host::ReadRegFile;
using platform::host::RegistryTree;
using platform::host::RegistryTreeKey;

const std::string kHeader = "Windows Registry Editor Version 5.00\r\n\r\n";

// A value's text without the zeros that end it.
WideString TextOf(const platform::RegistryValue& value) {
  WideString text;
  for (std::size_t i = 0; i + 1 < value.data.size(); i += 2) {
    const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(value.data[at]); };
    text.push_back(static_cast<char16_t>(byte(i) | (byte(i + 1) << 8)));
  }
  while (text.ends_with(u'\0')) text.pop_back();
  return text;
}

const RegistryTreeKey* Key(const platform::host::RegFile& file, WideStringView path) {
  return file.tree ? file.tree->Find(RegistryTree::kLocalMachine, path) : nullptr;
}

TEST(RegFile, EveryKindOfValueIsRead) {
  const auto file = ReadRegFile(kHeader +
                                "; a comment\r\n"
                                "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Valtorix]\r\n"
                                "@=\"default\"\r\n"
                                "\"Name\"=\"A \\\"quoted\\\" C:\\\\path\"\r\n"
                                "\"Count\"=dword:0000001f ; thirty-one\r\n"
                                "\"Raw\"=hex:01,02,\\\r\n"
                                "  ff\r\n"
                                "\"Path\"=hex(2):25,00,41,00,25,00,00,00\r\n"
                                "\"List\"=hex(7):61,00,00,00,62,00,00,00,00,00\r\n"
                                "\"Big\"=hex(b):01,00,00,00,00,00,00,00\r\n"
                                "\"Empty\"=hex(7):\r\n");
  ASSERT_TRUE(file.tree) << file.line << ": " << file.problem;
  const RegistryTreeKey* key = Key(file, u"software\\VALTORIX");
  ASSERT_NE(nullptr, key);
  const struct {
    const char16_t* name;
    std::uint32_t type;
    std::string data;
  } values[] = {
      {u"Count", 4, std::string("\x1F\0\0\0", 4)},        {u"Raw", 3, "\x01\x02\xFF"},
      {u"Path", 2, std::string("%\0A\0%\0\0\0", 8)},      {u"List", 7, std::string("a\0\0\0b\0\0\0\0\0", 10)},
      {u"Big", 11, std::string("\x01\0\0\0\0\0\0\0", 8)}, {u"Empty", 7, ""},
  };
  for (const auto& expected : values) {
    ASSERT_TRUE(key->values.contains(expected.name)) << base::ToUtf8(expected.name);
    EXPECT_EQ(expected.type, key->values.at(expected.name).type) << base::ToUtf8(expected.name);
    EXPECT_EQ(expected.data, key->values.at(expected.name).data) << base::ToUtf8(expected.name);
  }
  EXPECT_EQ(u"default", TextOf(key->values.at(u"")));
  EXPECT_EQ(u"A \"quoted\" C:\\path", TextOf(key->values.at(u"name")));
}

TEST(RegFile, OlderFilesHoldTheirTextsInBytes) {
  const auto file = ReadRegFile(
      "REGEDIT4\n[HKEY_LOCAL_MACHINE\\K]\n\"List\"=hex(7):61,00,c3,a9,00,00\n\"Text\"=hex(1):61,00\n"
      "\"Path\"=hex(2):25,00\n\"Raw\"=hex:61,c3,a9\n\"Big\"=hex(b):61,00\n");
  ASSERT_TRUE(file.tree) << file.problem;
  const auto& values = Key(file, u"K")->values;
  EXPECT_EQ(std::string("a\0\0\0\xE9\0\0\0\0\0", 10), values.at(u"List").data);
  EXPECT_EQ(std::string("a\0\0\0", 4), values.at(u"Text").data);
  EXPECT_EQ(std::string("%\0\0\0", 4), values.at(u"Path").data);
  EXPECT_EQ("a\xC3\xA9", values.at(u"Raw").data);
  EXPECT_EQ(std::string("a\0", 2), values.at(u"Big").data);
}

TEST(RegFile, Utf16WithAMarkAndUtf8ReadAlike) {
  const WideString text = u"Windows Registry Editor Version 5.00\r\n[HKEY_LOCAL_MACHINE\\Gerät]\r\n\"ü\"=\"中\"\r\n";
  std::string bigEndian = "\xFE\xFF";
  for (const char16_t unit : text) {
    bigEndian.push_back(static_cast<char>(unit >> 8));
    bigEndian.push_back(static_cast<char>(unit & 0xFF));
  }
  for (const std::string& bytes : {base::ToUtf8(text), "\xEF\xBB\xBF" + base::ToUtf8(text),
                                   "\xFF\xFE" + platform::host::RegistryBytes(text), bigEndian}) {
    const auto file = ReadRegFile(bytes);
    ASSERT_TRUE(file.tree) << file.problem;
    ASSERT_NE(nullptr, Key(file, u"gerÄt"));
    EXPECT_EQ(u"中", TextOf(Key(file, u"Gerät")->values.at(u"ü")));
  }
}

TEST(RegFile, DeletionsTakeKeysAndValuesAwayAgain) {
  const auto file = ReadRegFile(kHeader +
                                "[HKEY_LOCAL_MACHINE\\A]\n\"x\"=\"1\"\n\"y\"=\"2\"\n\"X\"=-\n\"none\"=-\n"
                                "[HKEY_LOCAL_MACHINE\\B\\C]\n\"z\"=\"3\"\n"
                                "[-HKEY_LOCAL_MACHINE\\B]\n\"ignored\"=\"4\"\n"
                                "[-HKEY_LOCAL_MACHINE\\Missing]\n");
  ASSERT_TRUE(file.tree) << file.line << file.problem;
  EXPECT_FALSE(Key(file, u"A")->values.contains(u"x"));
  EXPECT_TRUE(Key(file, u"A")->values.contains(u"y"));
  EXPECT_EQ(nullptr, Key(file, u"B\\C"));
  EXPECT_EQ(nullptr, Key(file, u"B"));
}

TEST(RegFile, OfTwoValuesTheLastCounts) {
  const auto file = ReadRegFile(kHeader + "[HKEY_LOCAL_MACHINE\\A]\n\"x\"=\"1\"\n\"X\"=dword:2\n");
  ASSERT_TRUE(file.tree);
  EXPECT_EQ(1u, Key(file, u"A")->values.size());
  EXPECT_EQ(4u, Key(file, u"A")->values.at(u"x").type);
}

TEST(RegFile, TextsInQuotesMayHoldLineEnds) {
  const auto file = ReadRegFile(kHeader + "[HKEY_LOCAL_MACHINE\\A]\n\"x\"=\"one\ntwo\\nthree\"\n\"bad\n");
  EXPECT_FALSE(file.tree);
  EXPECT_EQ(6u, file.line);
  const auto good = ReadRegFile(kHeader + "[HKEY_LOCAL_MACHINE\\A]\n\"x\"=\"one\ntwo\\nthree\"\n");
  ASSERT_TRUE(good.tree);
  EXPECT_EQ(u"one\ntwo\nthree", TextOf(Key(good, u"A")->values.at(u"x")));
}

TEST(RegFile, NothingIsAnEmptyRegistry) {
  for (const char* bytes : {"", "\r\n", "; only a comment", "REGEDIT4", "\xEF\xBB\xBF"}) {
    const auto file = ReadRegFile(bytes);
    EXPECT_TRUE(file.tree) << bytes;
    EXPECT_EQ(nullptr, Key(file, u"A"));
  }
}

TEST(RegFile, ABrokenLineIsNamed) {
  const struct {
    const char* after;  // the header and the first key
    std::size_t line;
    const char* problem;
  } cases[] = {
      {"nonsense", 4, "neither a key nor a value"},
      {"\"x\"=\"1\"\n\n[HKEY_LOCAL_MACHINE\\B", 6, "the key has no closing bracket"},
      {"[HKLM\\B]", 4, "no such root key"},
      {"[HKEY_LOCAL_MACHINE\\B] x", 4, "unexpected text after the key"},
      {"\"x\" \"1\"", 4, "the value has no \"=\""},
      {"\"x\"=\"1", 4, "a text without its closing quote"},
      {"\"x\"=\"1\" 2", 4, "unexpected text after the value"},
      {"\"x\"=1", 4, "the value's data is of no known kind"},
      {"\"x\"=dword:", 4, "a dword needs one to eight hexadecimal digits"},
      {"\"x\"=dword:123456789", 4, "a dword needs one to eight hexadecimal digits"},
      {"\"x\"=hex:01,zz", 4, "the hexadecimal data is not a list of bytes"},
      {"\"x\"=hex:0102", 4, "the hexadecimal data is not a list of bytes"},
      {"\"x\"=dword:0000000g", 4, "a dword needs one to eight hexadecimal digits"},
      {"\"x\"=dword:1/", 4, "a dword needs one to eight hexadecimal digits"},
      {"\"x\"=dword:1@", 4, "a dword needs one to eight hexadecimal digits"},
      {"\"x\"=hex:,01", 4, "the hexadecimal data is not a list of bytes"},
      {"\"x\"=hex:01 02", 4, "the hexadecimal data is not a list of bytes"},
      {"\"x\"=hex(2", 4, "the type of the hexadecimal data is not understood"},
      {"\"x\"=hex(2\n):01", 4, "the type of the hexadecimal data is not understood"},
      {"\"x\"=hex():01", 4, "the type of the hexadecimal data is not understood"},
      {"\"x\"=hex:01,\\", 4, "a backslash that is not the line's last character"},
      {"\"x\"=-1", 4, "unexpected text after the value"},
      {"\"x", 4, "a text without its closing quote"},
      {"\"x\"=\"1\\", 4, "a text without its closing quote"},
      {"\"x\"=\"1\n2\\\n3\"\n nonsense", 7, "neither a key nor a value"},
      {"\"x\"=hex(q):01", 4, "the type of the hexadecimal data is not understood"},
      {"\"x\"=hex 01", 4, "the hexadecimal data has no \":\""},
      {"\"x\"=hex:01,\\ 02", 4, "a backslash that is not the line's last character"},
  };
  for (const auto& c : cases) {
    const auto file = ReadRegFile(kHeader + "[HKEY_LOCAL_MACHINE\\A]\n" + c.after);
    EXPECT_FALSE(file.tree) << c.after;
    EXPECT_EQ(c.line, file.line) << c.after;
    EXPECT_EQ(c.problem, file.problem) << c.after;
  }
  EXPECT_EQ("the first line is not that of a registry file", ReadRegFile("[HKEY_LOCAL_MACHINE\\A]").problem);
  EXPECT_EQ("a value before the first key", ReadRegFile(kHeader + "@=\"x\"").problem);
}

TEST(RegFile, AKeyOfEndlessDepthIsRefused) {
  std::string deep = kHeader + "[HKEY_LOCAL_MACHINE";
  for (int i = 0; i < 100'000; ++i) deep += "\\a";
  EXPECT_EQ("the key lies too deep", ReadRegFile(deep + "]").problem);
}

TEST(RegFile, BlanksAndCommentsMayStandAroundWhatCounts) {
  const auto file = ReadRegFile(kHeader +
                                "\t[HKEY_LOCAL_MACHINE\\A[1]]  ; a comment\r\n"
                                " \t\"n\" \t= \"v\" ; a comment\n"
                                "\"h\"=hex: 1 ,\t0A,\\ \t\r\n  b ; a comment\n"
                                "\"e\"=hex:01,\n"
                                "@ =dword:FfAa09 \n"
                                "\"t\"=\"a\\nb\\rc\\0d\\q\"");
  ASSERT_TRUE(file.tree) << file.line << ": " << file.problem;
  const RegistryTreeKey* const key = Key(file, u"A[1]");
  ASSERT_NE(nullptr, key);
  EXPECT_EQ(u"v", TextOf(key->values.at(u"n")));
  EXPECT_EQ("\x01\x0A\x0B", key->values.at(u"h").data);
  EXPECT_EQ("\x01", key->values.at(u"e").data);
  EXPECT_EQ(std::string("\x09\xAA\xFF\0", 4), key->values.at(u"").data);
  EXPECT_EQ(WideString(u"a\nb\rc\0dq", 8), TextOf(key->values.at(u"t")));
}

TEST(RegFile, ARootThatIsDeletedIsEmptyAndOneThatIsNotThereStaysAway) {
  const auto file =
      ReadRegFile(kHeader + "[-HKEY_USERS]\n[HKEY_LOCAL_MACHINE\\A]\n@=\"x\"\n[-HKEY_LOCAL_MACHINE]\n@=\"y\"\n");
  ASSERT_TRUE(file.tree) << file.line << ": " << file.problem;
  EXPECT_EQ(nullptr, Key(file, u"A"));
  EXPECT_TRUE(Key(file, u"")->values.empty());
  EXPECT_EQ(nullptr, file.tree->Find(RegistryTree::kUsers, u""));
}

}  // namespace
