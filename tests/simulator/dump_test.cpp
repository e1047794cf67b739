#include "simulator/dump.h"

#include <gtest/gtest.h>

namespace {

using namespace simulator;
using Kind = ControlPicture::Kind;

ControlPicture Control(Kind kind, int id, WideStringView text = {}) {
  ControlPicture control;
  control.kind = kind;
  control.id = id;
  control.text = text;
  return control;
}

TEST(Dump, AMenuReadsAsItIsShown) {
  ControlPicture list = Control(Kind::kList, 1002);
  list.lines = {u"1  Network", u"2  Wireless", u"3  Tools"};
  list.selected = 1;
  const ScreenPicture screen{{{u"Configuration Utility",
                               true,
                               {Control(Kind::kStatic, 1014, u"Main Menu"),
                                Control(Kind::kStatic, 1031, u"Exit [Esc]          Select [Enter]"), list}}},
                             FocusPicture{false, 1002, 0}};
  EXPECT_EQ(
      "window \"Configuration Utility\"\n"
      "  1014 static \"Main Menu\"\n"
      "  1031 static \"Exit [Esc]          Select [Enter]\"\n"
      "  1002 list 3 lines, top 0\n"
      "    \"1  Network\"\n"
      "  > \"2  Wireless\"\n"
      "    \"3  Tools\"\n"
      "focus 1002\n",
      Dump(screen));
}

TEST(Dump, EachKindOfControlHasItsLine) {
  ControlPicture edit = Control(Kind::kEdit, 1035, u"128");
  edit.selectionEnd = 3;
  ControlPicture page = Control(Kind::kEdit, 1021, u"a\r\nb");
  page.top = 1;
  page.enabled = false;
  ControlPicture address = Control(Kind::kAddress, 1012);
  address.lines = {u"192", u"168", u"0", u"1"};
  ControlPicture check = Control(Kind::kButton, 1013, u"On");
  check.checked = true;
  ControlPicture empty = Control(Kind::kList, 1028);
  empty.enabled = false;
  ControlPicture progress = Control(Kind::kProgress, 1016);
  progress.position = 40;
  const ScreenPicture screen{{{u"Owner", false, {}},
                              {u"",
                               true,
                               {edit, page, address, Control(Kind::kButton, 1052, u"Save"), check, empty,
                                Control(Kind::kPicker, 1047, u"Nov 21, 2026"), Control(Kind::kCombo, 1010, u"a\tb"),
                                progress, Control(Kind::kScrollBar, 0), Control(Kind::kOther, 7, u"\\\"")}}},
                             FocusPicture{false, 1012, 2}};
  EXPECT_EQ(
      "window \"Owner\" (disabled)\n"
      "window \"\"\n"
      "  1035 edit \"128\" selected 0-3\n"
      "  1021 edit \"a\\r\\nb\" selected 0-0, top 1 (disabled)\n"
      "  1012 ip \"192\" \"168\" \"0\" \"1\"\n"
      "  1052 button \"Save\"\n"
      "  1013 button \"On\" checked\n"
      "  1028 list 0 lines, top 0 (disabled)\n"
      "  1047 picker \"Nov 21, 2026\"\n"
      "  1010 combo \"a\\tb\"\n"
      "  1016 progress 40\n"
      "  0 scrollbar\n"
      "  7 window \"\\\\\\\"\"\n"
      "focus 1012 field 2\n",
      Dump(screen));
}

TEST(Dump, AScreenWithoutFocusSaysSoAndAnEmptyOneNothing) {
  EXPECT_EQ("window \"x\"\nfocus none\n", Dump({{{u"x", true, {}}}, std::nullopt}));
  EXPECT_EQ("window \"x\"\nfocus window\n", Dump({{{u"x", true, {}}}, FocusPicture{true, 0, 0}}));
  EXPECT_EQ("", Dump({}));
}

}  // namespace
