// How a message reaches a window, and the loop that brings them.
#pragma once

#include "platform/host/session.h"

namespace platform::host {

// The next message for the modal loop that asks: posted ones first, then the quit, then keys, then painting; waits for
// the display when there is none. The quit is message::kQuit without a window. `beforeWaiting` is called when the
// queue is found empty, and the queue is then looked at again.
QueuedMessage NextMessage(const std::function<void()>& beforeWaiting);

// Posts the character that a key-down types, as a message of its own.
void TranslateKey(const QueuedMessage& message);

// Sends one window that is due its paint message. False when none is due.
bool PaintOne();
bool IsPaintDue();

}  // namespace platform::host
