#include "platform/host/dispatch.h"

namespace platform::host {

namespace {

constexpr std::int32_t kKeyUpFlags = static_cast<std::int32_t>(0xC0000001);
// Windows that invalidate themselves while they paint must not keep the keys from being read.
constexpr int kPaintsBetweenKeys = 1000;

void SetKeyState(std::uint16_t virtualKey, bool down) {
  std::set<std::uint16_t>& keys = CurrentSession().keysDown;
  if (down) {
    keys.insert(virtualKey);
  } else {
    keys.erase(virtualKey);
  }
}

// Keys go to the window that has the focus when they are read; without one they are lost.
QueuedMessage ReadKey(const MessageQueue::KeyEvent& event) {
  const KeyStroke& stroke = event.stroke;
  SetKeyState(key::kShift, stroke.shift && event.down);
  SetKeyState(key::kControl, stroke.control && event.down);
  const WindowHandle focused = CurrentSession().focused;
  if (stroke.virtualKey == 0) return {focused, {message::kChar, stroke.character, 1}, 0};
  SetKeyState(stroke.virtualKey, event.down);
  if (event.down) return {focused, {message::kKeyDown, stroke.virtualKey, 1}, stroke.character};
  return {focused, {message::kKeyUp, stroke.virtualKey, kKeyUpFlags}, 0};
}

// What a key types on the keypad; 0: nothing.
char16_t CharacterOf(WParam virtualKey) {
  switch (virtualKey) {
    case key::kBackspace:
    case key::kTab:
    case key::kEnter:
    case key::kEscape:
    case key::kSpace: return static_cast<char16_t>(virtualKey);
    default: break;
  }
  if (virtualKey >= u'0' && virtualKey <= u'9') return static_cast<char16_t>(virtualKey);
  if (virtualKey < u'A' || virtualKey > u'Z') return 0;
  if (IsKeyDown(key::kControl)) return static_cast<char16_t>(virtualKey - u'A' + 1);
  return static_cast<char16_t>(IsKeyDown(key::kShift) ? virtualKey : virtualKey - u'A' + u'a');
}

}  // namespace

QueuedMessage NextMessage(const std::function<void()>& beforeWaiting) {
  Session& session = CurrentSession();
  MessageQueue& queue = session.queue;
  int paints = 0;
  while (true) {
    if (const auto code = queue.TakeQuit()) return {nullptr, {message::kQuit, static_cast<WParam>(*code), 0}, 0};
    if (const auto posted = queue.TakePosted()) {
      if (Find(posted->window)) return *posted;
      continue;
    }
    if (const auto event = queue.TakeKey()) {
      const QueuedMessage read = ReadKey(*event);
      if (Find(read.window)) return read;
      continue;
    }
    if (beforeWaiting) beforeWaiting();
    if (queue.HasPosted() || queue.IsQuitting() || queue.IsResetting()) continue;
    if (paints < kPaintsBetweenKeys && PaintOne()) {
      ++paints;
      continue;
    }
    paints = 0;
    Display* const display = session.environment.display;
    if (display == nullptr) {
      queue.PostQuit(0);  // nobody will ever press a key
    } else if (const auto stroke = display->NextKey()) {
      queue.PressKey(*stroke);
    }
  }
}

void TranslateKey(const QueuedMessage& message) {
  if (message.message.id != message::kKeyDown) return;
  const char16_t character = message.character != 0 ? message.character : CharacterOf(message.message.wParam);
  if (character != 0) Post(message.window, message::kChar, character, message.message.lParam);
}

}  // namespace platform::host

namespace platform {

void PostQuit(int exitCode) { host::CurrentSession().queue.PostQuit(exitCode); }

bool IsKeyDown(std::uint16_t virtualKey) { return host::CurrentSession().keysDown.count(virtualKey) != 0; }

void PauseMs(int milliseconds) {
  if (host::IsWarmReset()) return;
  for (int paints = 0; paints < host::kPaintsBetweenKeys && host::PaintOne(); ++paints) {
  }
  if (host::Display* display = host::CurrentEnvironment().display)
    display->Pause(std::chrono::milliseconds(milliseconds));
}

void Beep() {
  if (host::Display* display = host::CurrentEnvironment().display) display->Beep();
}

}  // namespace platform
