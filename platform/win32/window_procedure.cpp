#include "platform/win32/window_procedure.h"

#include "platform/debug.h"
#include "platform/win32/window_classes.h"

#include <exception>
#include <unordered_map>
#include <utility>

namespace platform::win32 {

namespace {

struct HandledWindow {
  WNDPROC ownProcedure = DefWindowProcW;
  std::shared_ptr<HandlerLink> latest;
};

std::unordered_map<HWND, HandledWindow>& HandledWindows() {
  static std::unordered_map<HWND, HandledWindow> windows;
  return windows;
}

HandledWindow* Find(HWND window) {
  const auto found = HandledWindows().find(window);
  return found == HandledWindows().end() ? nullptr : &found->second;
}

WNDPROC ReplaceProcedure(HWND window) {
#ifdef UNDER_CE
  return reinterpret_cast<WNDPROC>(SetWindowLongW(window, GWL_WNDPROC, reinterpret_cast<LONG>(WindowProcedure)));
#else
  return reinterpret_cast<WNDPROC>(
      SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(WindowProcedure)));
#endif
}

// A window of a class of the program's own gets its handler with its first message. False: there is no memory for it,
// and so no window.
bool AdoptOwnClass(HWND window) {
  try {
    std::shared_ptr<MessageHandler> handler = MakeHandlerFor(window);
    if (!handler) return true;
    auto link = std::make_shared<HandlerLink>();
    link->handler = handler.get();
    link->owned = std::move(handler);
    HandledWindows()[window].latest = std::move(link);
    return true;
  } catch (const std::exception&) {
    DebugOutput(u"EXCEPTION: AdoptOwnClass()\r\n");
    return false;
  }
}

}  // namespace

std::shared_ptr<HandlerLink> PutInFront(HWND window, MessageHandler& handler) {
  if (!IsWindow(window)) return nullptr;
  if (Find(window) == nullptr) {
    // The window stands in the table before its messages arrive here.
    HandledWindows()[window];
    const WNDPROC ownProcedure = ReplaceProcedure(window);
    HandledWindows()[window].ownProcedure = ownProcedure;
  }
  auto link = std::make_shared<HandlerLink>();
  link->handler = &handler;
  link->previous = std::exchange(Find(window)->latest, link);
  return link;
}

void TakeOut(HWND window, const std::shared_ptr<HandlerLink>& link) {
  if (!link) return;
  link->handler = nullptr;
  HandledWindow* handled = Find(window);
  if (handled == nullptr) return;
  for (std::shared_ptr<HandlerLink>* place = &handled->latest; *place; place = &(*place)->previous) {
    if (*place != link) continue;
    *place = link->previous;
    return;
  }
}

LResult AskFrom(std::shared_ptr<HandlerLink> link, HWND window, const Message& message) {
  for (; link; link = link->previous) {
    if (link->handler == nullptr) continue;
    if (const auto answer = AnswerOf(*link->handler, FromApi(window), message)) return *answer;
  }
  return AskOwnProcedure(window, message);
}

LResult AskOwnProcedure(HWND window, const Message& message) {
  const HandledWindow* handled = Find(window);
  const WNDPROC procedure = handled != nullptr ? handled->ownProcedure : DefWindowProcW;
  return CallWindowProcW(procedure, window, message.id, message.wParam, message.lParam);
}

LRESULT CALLBACK WindowProcedure(HWND window, UINT id, WPARAM wParam, LPARAM lParam) {
  if (id == WM_NCCREATE && Find(window) == nullptr && !AdoptOwnClass(window)) return FALSE;
  const HandledWindow* handled = Find(window);
  const std::shared_ptr<HandlerLink> latest = handled != nullptr ? handled->latest : nullptr;
  const LResult result = AskFrom(latest, window, {id, wParam, lParam});
  // The handler itself goes with `latest`, when the last message that runs in it is done.
  if (id == WM_NCDESTROY) HandledWindows().erase(window);
  return result;
}

}  // namespace platform::win32
