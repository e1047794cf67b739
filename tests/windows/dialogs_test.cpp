// Dialogs, windows and controls as the program uses them, on the system's own.
#include "platform/canvas.h"
#include "platform/controls.h"
#include "platform/dialog.h"
#include "platform/win32/windows_api.h"
#include "tests/printing.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace platform {
namespace {

constexpr int kListId = 1002;
constexpr int kFieldId = 1035;
constexpr int kTextId = 1014;

constexpr DialogControl kControls[] = {
    {kTextId, u"Static", u"Title", style::kVisible, 0, 0, 60, 8},
    {kListId, u"ListBox", u"", style::kVisible | style::kTabStop | style::kListNotify | style::kListNoIntegralHeight, 0,
     10, 60, 40},
    {kFieldId, u"Edit", u"abc", style::kVisible | style::kTabStop | style::kEditAutoHorizontalScroll, 0, 52, 60, 12},
};
constexpr DialogTemplate kDialog{
    120, u"Caption", style::kPopup | style::kVisible | style::kCaption, 0, 0, 99, 74, u"Tahoma", 8, kControls};

class Handler : public MessageHandler {
 public:
  using Function = std::function<std::optional<LResult>(WindowHandle, const Message&)>;
  explicit Handler(Function function) : function_(std::move(function)) {}
  std::optional<LResult> OnMessage(WindowHandle window, const Message& message) override {
    return function_(window, message);
  }

 private:
  Function function_;
};

// Runs `inside` when the dialog is made, then ends it.
LResult InDialog(const std::function<void(WindowHandle)>& inside) {
  Handler handler([&](WindowHandle dialog, const Message& message) -> std::optional<LResult> {
    if (message.id != message::kInitDialog) return std::nullopt;
    inside(dialog);
    EndDialog(dialog, 42);
    return 1;
  });
  return RunDialog(kDialog, nullptr, handler);
}

TEST(WindowsDialog, IsMadeFromItsTableAndReturnsItsResult) {
  int calls = 0;
  const LResult result = InDialog([&](WindowHandle dialog) {
    ++calls;
    EXPECT_EQ(u"Caption", TextOf(dialog));
    EXPECT_EQ(u"Title", TextOf(ControlOf(dialog, kTextId)));
    EXPECT_EQ(u"abc", TextOf(ControlOf(dialog, kFieldId)));
    EXPECT_EQ(nullptr, ControlOf(dialog, 1));
    EXPECT_EQ(kListId, IdOf(ControlOf(dialog, kListId)));
    EXPECT_EQ(dialog, ParentOf(ControlOf(dialog, kListId)));
  });
  EXPECT_EQ(42, result);
  EXPECT_EQ(1, calls);
}

TEST(WindowsDialog, UnitsAreThoseOfItsFont) {
  InDialog([](WindowHandle dialog) {
    // Tahoma of 8 points: 6 pixels to 4 units across, 13 to 8 down.
    EXPECT_EQ((Rect{0, 0, 90, 13}), RectInParent(ControlOf(dialog, kTextId)));
    EXPECT_EQ((Rect{0, 0, 149, 120}), ClientRect(dialog));
  });
}

TEST(WindowsDialog, QuittingEndsItWithZero) {
  Handler handler([](WindowHandle, const Message& message) -> std::optional<LResult> {
    if (message.id == message::kInitDialog) PostQuit(0);
    return std::nullopt;
  });
  EXPECT_EQ(0, RunDialog(kDialog, nullptr, handler));
  // What ended it stays in the queue, to end those around it as well.
  MSG message = {};
  EXPECT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
}

TEST(WindowsDialog, OneOfAnUnknownClassIsNotMade) {
  static constexpr DialogControl kUnknown[] = {{1, u"NoSuchClass", u"", style::kVisible, 0, 0, 10, 10}};
  DialogTemplate dialog = kDialog;
  dialog.controls = kUnknown;
  Handler handler([](WindowHandle, const Message&) { return std::nullopt; });
  EXPECT_EQ(-1, RunDialog(dialog, nullptr, handler));
}

TEST(WindowsControls, AListKeepsItsLinesDataSelectionAndTop) {
  InDialog([](WindowHandle dialog) {
    const ListBox list(ControlOf(dialog, kListId));
    for (int i = 0; i < 20; ++i) EXPECT_EQ(i, list.Add(u"line " + WideString(1, static_cast<char16_t>(u'a' + i))));
    int data = 0;
    list.SetData(3, &data);
    list.Select(4);
    list.SetTop(2);
    list.ReplaceLine(3, u"other");
    EXPECT_EQ(20, list.Count());
    EXPECT_EQ(u"other", list.Line(3));
    EXPECT_EQ(u"", list.Line(20));
    EXPECT_EQ(&data, list.Data<int>(3));
    EXPECT_EQ(nullptr, list.Data<int>(4));
    EXPECT_EQ(nullptr, list.Data<int>(20));
    EXPECT_EQ(4, list.Selected());
    EXPECT_EQ(2, list.Top());
  });
}

TEST(WindowsControls, FontsSetTheHeightOfAListsLines) {
  InDialog([](WindowHandle dialog) {
    const ListBox list(ControlOf(dialog, kListId));
    SetFont(list.Handle(), {u"Courier", 13, 400});
    EXPECT_EQ(13, list.ItemHeight());
    list.SetItemHeight(20);
    EXPECT_EQ(20, list.ItemHeight());
  });
}

TEST(WindowsControls, AFieldKeepsItsSelection) {
  InDialog([](WindowHandle dialog) {
    const EditField field(ControlOf(dialog, kFieldId));
    field.Select(1, 2);
    EXPECT_EQ((EditField::Selection{1, 2}), field.GetSelection());
    field.ReplaceSelection(u"XY");
    EXPECT_EQ(u"aXYc", TextOf(field.Handle()));
  });
}

TEST(WindowsControls, NoWindowAnswersLikeAnEmptyOne) {
  EXPECT_EQ(u"", TextOf(nullptr));
  EXPECT_EQ(Rect{}, ClientRect(nullptr));
  EXPECT_FALSE(IsVisible(nullptr));
  EXPECT_EQ(0, Send(nullptr, message::kGetText));
  EXPECT_EQ(0, ListBox().Count());
  Post(nullptr, message::kClose);
  Focus(nullptr);
  Invalidate(nullptr);
  Destroy(nullptr);
}

TEST(WindowsSubclass, TheLatestComesFirstAndGoesAlone) {
  InDialog([](WindowHandle dialog) {
    const WindowHandle field = ControlOf(dialog, kFieldId);
    std::vector<std::string> log;
    const auto noting = [&log](const char* name) {
      return Handler([&log, name](WindowHandle, const Message& message) -> std::optional<LResult> {
        if (message.id == message::kUser) log.push_back(name);
        return std::nullopt;
      });
    };
    Handler first = noting("first");
    Handler second = noting("second");
    auto firstSubclass = std::make_unique<Subclass>(field, first);
    Subclass secondSubclass(field, second);
    Send(field, message::kUser);
    EXPECT_EQ((std::vector<std::string>{"second", "first"}), log);
    firstSubclass.reset();
    Send(field, message::kUser);
    EXPECT_EQ((std::vector<std::string>{"second", "first", "second"}), log);
  });
}

TEST(WindowsSubclass, AnAnswerStaysTheControlsOwnWorkAndThePreviousOneCanBeAsked) {
  InDialog([](WindowHandle dialog) {
    const WindowHandle field = ControlOf(dialog, kFieldId);
    Subclass* subclass = nullptr;
    Handler handler([&](WindowHandle, const Message& message) -> std::optional<LResult> {
      if (message.id != message::kGetTextLength) return std::nullopt;
      return subclass->CallPrevious(message) + 100;
    });
    Subclass made(field, handler);
    subclass = &made;
    EXPECT_EQ(103, Send(field, message::kGetTextLength));
  });
}

// Counts the handlers that live.
class Counted : public MessageHandler {
 public:
  static inline int alive = 0;
  static inline std::vector<std::uint32_t> seen = {};
  Counted() { ++alive; }
  ~Counted() override { --alive; }
  std::optional<LResult> OnMessage(WindowHandle window, const Message& message) override {
    seen.push_back(message.id);
    if (message.id == message::kUser) Destroy(window);
    if (message.id == message::kPaint) BeginPaint(window)->Fill({0, 0, 5, 5}, kBlack);
    return std::nullopt;
  }
};

TEST(WindowsClasses, AHandlerLivesUntilItsWindowsLastMessage) {
  RegisterWindowClass({u"KEL_TestClass", false, [](WindowHandle) { return std::make_unique<Counted>(); }});
  RegisterWindowClass({u"KEL_TestClass", false, [](WindowHandle) { return std::unique_ptr<Counted>(); }});
  InDialog([](WindowHandle dialog) {
    WindowSpec spec;
    spec.className = u"kel_testclass";
    spec.style = style::kChild | style::kVisible;
    spec.width = 10;
    spec.height = 10;
    spec.parent = dialog;
    spec.id = 7;
    const WindowHandle window = MakeWindow(spec);
    ASSERT_NE(nullptr, window);
    EXPECT_EQ(1, Counted::alive);
    EXPECT_EQ(window, ControlOf(dialog, 7));
    Send(window, message::kUser);
    EXPECT_EQ(0, Counted::alive);
    EXPECT_EQ(message::kNonClientDestroy, Counted::seen.back());
  });
}

TEST(WindowsClasses, AnUnknownOneMakesNoWindow) {
  WindowSpec spec;
  spec.className = u"NoSuchClass";
  EXPECT_EQ(nullptr, MakeWindow(spec));
}

TEST(WindowsCursor, TheWaitCursorIsOffWhileItPausesAndBackAfterwards) {
  InDialog([](WindowHandle dialog) {
    const HCURSOR before = GetCursor();
    const HCURSOR waiting = LoadCursorW(nullptr, IDC_WAIT);
    {
      const WaitCursor outer(dialog);
      const WaitCursor inner(dialog);
      EXPECT_EQ(waiting, GetCursor());
      {
        const WaitCursorPause pause;
        EXPECT_EQ(before, GetCursor());
      }
      EXPECT_EQ(waiting, GetCursor());
    }
    EXPECT_EQ(before, GetCursor());
  });
}

TEST(WindowsDesktop, OtherWindowsAreListedByTheirTitles) {
  InDialog([](WindowHandle dialog) {
    int found = 0;
    for (const WindowHandle window : TopLevelWindows()) found += window == dialog ? 1 : 0;
    EXPECT_EQ(1, found);
  });
}

}  // namespace
}  // namespace platform
