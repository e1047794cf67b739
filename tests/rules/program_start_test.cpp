#include "rules/program_start.h"

#include "tests/printing.h"

namespace {

TEST(CommandLine, IsSplitAtTheFirstBlankAfterTheProgram) {
  const struct {
    WideStringView text;
    WideStringView program;
    WideStringView arguments;
  } cases[] = {
      {u"a.exe", u"a.exe", u""},
      {u"a.exe /v", u"a.exe", u"/v"},
      {u"a.exe\t/v", u"a.exe", u"/v"},
      {u" \t a.exe /v /w", u"a.exe", u"/v /w"},
      {u"a.exe  /v ", u"a.exe", u" /v "},  // one blank divides
      {u"a.exe ", u"a.exe", u""},
      {u"\"\\Program Files\\a.exe\" /v", u"\"\\Program Files\\a.exe\"", u"/v"},  // the quotes stay
      {u"\"\\Program Files\\a.exe\"", u"\"\\Program Files\\a.exe\"", u""},
      {u"\"a b\"c d", u"\"a b\"c", u"d"},
      {u"\"a b", u"\"a b", u""},
      {u"a\"b c\"", u"a\"b", u"c\""},  // quotes count in front only
      {u"\"\" x", u"\"\"", u"x"},
      {u" \t", u"", u""},
      {u"", u"", u""},
  };
  for (const auto& c : cases) {
    const rules::CommandLine command = rules::SplitCommandLine(c.text);
    EXPECT_EQ(c.program, command.program) << base::ToUtf8(c.text);
    EXPECT_EQ(c.arguments, command.arguments) << base::ToUtf8(c.text);
  }
}

TEST(CommandLine, AProgramHasAtMost519Characters) {
  const rules::CommandLine command = rules::SplitCommandLine(WideString(600, u'a') + u" /v");
  EXPECT_EQ(WideString(519, u'a'), command.program);
  EXPECT_EQ(u"/v", command.arguments);
}

}  // namespace
