// Dialogs run from templates in memory, made from the program's own tables when a dialog is opened. So the tables are
// the only description of a dialog, the same on every platform, and no resource compiler has to understand them.
#include "platform/dialog.h"

#include "platform/debug.h"
#include "platform/win32/window_procedure.h"

#include <exception>

namespace platform {

namespace {

using win32::ToApi;

// The words of a DLGTEMPLATE with its items.
class TemplateWords {
 public:
  explicit TemplateWords(const DialogTemplate& dialog) {
    const bool hasFont = !dialog.fontFace.empty();
    Append32(dialog.style | (hasFont ? style::kDialogSetFont : 0));
    Append32(0);
    Append16(static_cast<int>(dialog.controls.size()));
    AppendRect(dialog);
    Append16(0);  // no menu
    Append16(0);  // the dialogs' own window class
    AppendText(dialog.caption);
    if (hasFont) {
      Append16(dialog.fontPoints);
      AppendText(dialog.fontFace);
    }
    for (const DialogControl& control : dialog.controls) AppendControl(control);
  }

  const DLGTEMPLATE* Get() const { return reinterpret_cast<const DLGTEMPLATE*>(words_.data()); }

 private:
  void Append16(int number) { words_.push_back(static_cast<WORD>(number)); }
  void Append32(std::uint32_t number) {
    words_.push_back(static_cast<WORD>(number & 0xFFFF));
    words_.push_back(static_cast<WORD>(number >> 16));
  }
  void AppendText(WideStringView text) {
    words_.insert(words_.end(), text.begin(), text.end());
    words_.push_back(0);
  }
  template <typename Place>
  void AppendRect(const Place& place) {
    for (const int number : {place.x, place.y, place.width, place.height}) Append16(number);
  }
  void AppendControl(const DialogControl& control) {
    if (words_.size() % 2 != 0) words_.push_back(0);  // items begin at multiples of four bytes
    Append32(control.style | style::kChild);
    Append32(0);
    AppendRect(control);
    Append16(control.id);
    AppendText(control.className);
    AppendText(control.text);
    Append16(0);  // no creation data
  }

  std::vector<WORD> words_;
};

// Only the first message of a dialog is answered here: from then on the handler stands in front of the window's own
// procedure, as in front of any other window.
INT_PTR CALLBACK DialogProcedure(HWND dialog, UINT id, WPARAM wParam, LPARAM lParam) {
  if (id != WM_INITDIALOG) return FALSE;
  auto& handler = *FromParam<MessageHandler>(static_cast<LParam>(lParam));
  try {
    win32::PutInFront(dialog, handler);
  } catch (const std::exception&) {
    DebugOutput(u"EXCEPTION: DialogProcedure()\r\n");
    ::EndDialog(dialog, 0);  // nobody would answer it
    return TRUE;
  }
  constexpr LResult kFocusFirstControl = 1;
  return AnswerOf(handler, win32::FromApi(dialog), {id, wParam, 0}).value_or(kFocusFirstControl);
}

}  // namespace

LResult RunDialog(const DialogTemplate& dialogTemplate, WindowHandle owner, MessageHandler& handler) {
  const TemplateWords words(dialogTemplate);
  const LResult result = DialogBoxIndirectParamW(GetModuleHandleW(nullptr), words.Get(), ToApi(owner), DialogProcedure,
                                                 ToLParam(&handler));
  // A dialog that ended because the program quits leaves that message to those around it, and has no result.
  MSG message = {};
  return PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_NOREMOVE) ? 0 : result;
}

void EndDialog(WindowHandle dialog, LResult result) { ::EndDialog(ToApi(dialog), result); }

}  // namespace platform
