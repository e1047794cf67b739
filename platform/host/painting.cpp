#include "platform/host/painting.h"

#include "platform/canvas.h"
#include "platform/host/dispatch.h"
#include "platform/host/window_tree.h"

namespace platform::host {

namespace {

class RecordingCanvas : public Canvas {
 public:
  explicit RecordingCanvas(std::weak_ptr<WindowRecord> window) : window_(std::move(window)) {}

  void Fill(const Rect& rect, Color color) override { Keep({Drawing::Kind::kFill, rect, color, {}, {}}); }
  void Frame(const Rect& rect, Color pen, Color inside) override {
    Keep({Drawing::Kind::kFrame, rect, pen, inside, {}});
  }
  void Text(Point topLeft, WideStringView text, Color color) override {
    Keep({Drawing::Kind::kText, {topLeft.x, topLeft.y, topLeft.x, topLeft.y}, color, {}, WideString(text)});
  }

 private:
  void Keep(Drawing drawing) {
    if (const auto window = window_.lock()) window->drawings.push_back(std::move(drawing));
  }

  std::weak_ptr<WindowRecord> window_;
};

// The first visible window that is due, parents before their children; null when there is none.
WindowHandle FirstDue() {
  const Session& session = CurrentSession();
  std::vector<WindowHandle> pending(session.topLevels.rbegin(), session.topLevels.rend());
  while (!pending.empty()) {
    const auto record = Find(pending.back());
    pending.pop_back();
    if (!record || !record->Has(style::kVisible)) continue;
    if (record->needsPaint) return record->handle;
    pending.insert(pending.end(), record->children.rbegin(), record->children.rend());
  }
  return nullptr;
}

void PaintNow(WindowHandle window) {
  Send(window, message::kPaint);
  if (const auto record = Find(window)) record->needsPaint = false;
}

}  // namespace

bool IsPaintDue() { return FirstDue() != nullptr; }

bool PaintOne() {
  const WindowHandle window = FirstDue();
  if (window == nullptr) return false;
  PaintNow(window);
  return true;
}

void PaintControl(WindowRecord& control, message::Id colorMessage) {
  control.needsPaint = false;
  ControlColors colors;
  const WindowHandle asked = control.IsChild() ? control.parent : control.handle;
  const bool answered = Send(asked, colorMessage, ToWParam(&colors), ToLParam(control.handle)) != 0;
  control.colors = answered ? std::optional(colors) : std::nullopt;
}

}  // namespace platform::host

namespace platform {

using namespace host;

Color ColorOf(SystemColor color) {
  switch (color) {
    case SystemColor::kWindow: return kWhite;
    case SystemColor::kWindowText: return kBlack;
    case SystemColor::kGrayText: break;
  }
  return {128, 128, 128};
}

std::unique_ptr<Canvas> BeginPaint(WindowHandle window) {
  const auto record = Find(window);
  if (record) {
    record->needsPaint = false;
    record->drawings.clear();
  }
  return std::make_unique<RecordingCanvas>(record);
}

LResult AnswerControlColors(const Message& message, Color text, Color background) {
  if (auto* colors = FromParam<ControlColors>(message.wParam)) *colors = {text, background};
  return 1;
}

void Invalidate(WindowHandle window) { InvalidateTree(window); }

void Update(WindowHandle window) {
  const auto record = Find(window);
  if (record && record->needsPaint && IsVisible(window)) PaintNow(window);
}

}  // namespace platform
