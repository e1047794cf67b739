#include "platform/host/dispatch.h"

#include <utility>

namespace platform {

using namespace host;

namespace {

// A window's own handling, behind all handlers of the program.
LResult HandleByItself(WindowRecord& window, const Message& message) {
  return window.behaviour ? window.behaviour->Handle(window, message) : HandlePlainMessage(window, message);
}

LResult HandleBehindSubclasses(WindowRecord& window, const Message& message) {
  MessageHandler* const handler = window.programHandler ? window.programHandler.get() : window.dialogHandler;
  if (handler != nullptr) {
    if (const auto answer = AnswerOf(*handler, window.handle, message)) return *answer;
  }
  return HandleByItself(window, message);
}

LResult HandleFrom(const std::shared_ptr<SubclassLink>& first, WindowRecord& window, const Message& message) {
  for (std::shared_ptr<SubclassLink> link = first; link; link = link->previous) {
    if (link->handler == nullptr) continue;
    if (const auto answer = AnswerOf(*link->handler, window.handle, message)) return *answer;
  }
  return HandleBehindSubclasses(window, message);
}

}  // namespace

LResult Send(WindowHandle window, std::uint32_t id, WParam wParam, LParam lParam) {
  const std::shared_ptr<WindowRecord> record = Find(window);
  return record ? HandleFrom(record->subclasses, *record, {id, wParam, lParam}) : 0;
}

void Post(WindowHandle window, std::uint32_t id, WParam wParam, LParam lParam) {
  if (window != nullptr) CurrentSession().queue.Post(window, {id, wParam, lParam});
}

LResult DefaultHandling(WindowHandle window, const Message& message) {
  const std::shared_ptr<WindowRecord> record = Find(window);
  return record ? HandleByItself(*record, message) : 0;
}

struct Subclass::State {
  WindowHandle window = nullptr;
  std::shared_ptr<SubclassLink> link;
};

Subclass::Subclass(WindowHandle window, MessageHandler& handler) : state_(std::make_unique<State>()) {
  const std::shared_ptr<WindowRecord> record = Find(window);
  if (!record) return;
  state_->window = window;
  state_->link = std::make_shared<SubclassLink>(SubclassLink{&handler, record->subclasses});
  record->subclasses = state_->link;
}

Subclass::~Subclass() {
  if (!state_->link) return;
  state_->link->handler = nullptr;
  const std::shared_ptr<WindowRecord> record = Find(state_->window);
  if (!record) return;
  std::shared_ptr<SubclassLink>* place = &record->subclasses;
  while (*place && *place != state_->link) place = &(*place)->previous;
  if (*place) *place = std::shared_ptr<SubclassLink>((*place)->previous);
}

LResult Subclass::CallPrevious(const Message& message) {
  const std::shared_ptr<WindowRecord> record = Find(state_->window);
  if (!record || !state_->link) return 0;
  return HandleFrom(std::shared_ptr<SubclassLink>(state_->link->previous), *record, message);
}

}  // namespace platform
