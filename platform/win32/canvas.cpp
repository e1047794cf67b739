#include "platform/canvas.h"

#include "platform/win32/windows_api.h"

#include <map>

namespace platform {

namespace {

using win32::ToApi;

COLORREF ToApi(Color color) { return RGB(color.red, color.green, color.blue); }

struct DeleteGdiObject {
  void operator()(void* object) const { DeleteObject(object); }
};
using GdiObject = std::unique_ptr<void, DeleteGdiObject>;

// An object in a device context; the one before it comes back.
class Selected {
 public:
  Selected(HDC context, HGDIOBJ object) : context_(context), previous_(SelectObject(context, object)) {}
  ~Selected() { SelectObject(context_, previous_); }
  Selected(const Selected&) = delete;
  Selected& operator=(const Selected&) = delete;

 private:
  HDC context_;
  HGDIOBJ previous_;
};

class PaintedWindow final : public Canvas {
 public:
  explicit PaintedWindow(HWND window) : window_(window), context_(::BeginPaint(window, &paint_)) {
    SetBkMode(context_, TRANSPARENT);
  }
  ~PaintedWindow() override { EndPaint(window_, &paint_); }

  void Fill(const Rect& rect, Color color) override {
    const GdiObject brush(CreateSolidBrush(ToApi(color)));
    const RECT area = ToApi(rect);
    FillRect(context_, &area, static_cast<HBRUSH>(brush.get()));
  }

  void Frame(const Rect& rect, Color pen, Color inside) override {
    const GdiObject penObject(CreatePen(PS_SOLID, 1, ToApi(pen)));
    const GdiObject brush(CreateSolidBrush(ToApi(inside)));
    const Selected selectedPen(context_, penObject.get());
    const Selected selectedBrush(context_, brush.get());
    Rectangle(context_, rect.left, rect.top, rect.right, rect.bottom);
  }

  void Text(Point topLeft, WideStringView text, Color color) override {
    SetTextColor(context_, ToApi(color));
    ExtTextOutW(context_, topLeft.x, topLeft.y, 0, nullptr, ToApi(text.data()), static_cast<UINT>(text.size()),
                nullptr);
  }

 private:
  HWND window_;
  PAINTSTRUCT paint_ = {};
  HDC context_;
};

// One brush a colour, until the program ends: the system keeps the brush that a control is painted with.
HBRUSH BrushFor(Color color) {
  static std::map<COLORREF, HBRUSH> brushes;
  HBRUSH& brush = brushes[ToApi(color)];
  if (brush == nullptr) brush = CreateSolidBrush(ToApi(color));
  return brush;
}

}  // namespace

Color ColorOf(SystemColor color) {
  int index = COLOR_WINDOW;
  switch (color) {
    case SystemColor::kWindow: index = COLOR_WINDOW; break;
    case SystemColor::kWindowText: index = COLOR_WINDOWTEXT; break;
    case SystemColor::kGrayText: index = COLOR_GRAYTEXT; break;
  }
  const COLORREF rgb = GetSysColor(index);
  return {GetRValue(rgb), GetGValue(rgb), GetBValue(rgb)};
}

std::unique_ptr<Canvas> BeginPaint(WindowHandle window) { return std::make_unique<PaintedWindow>(ToApi(window)); }

LResult AnswerControlColors(const Message& message, Color text, Color background) {
  const auto context = reinterpret_cast<HDC>(message.wParam);
  SetTextColor(context, ToApi(text));
  SetBkColor(context, ToApi(background));
  return ToLParam(BrushFor(background));
}

}  // namespace platform
