// Message boxes, file choices, menus and the clipboard of the desktop.
#pragma once
#include <QString>
#include <functional>
#include <optional>
#include <string>

#include "platform/win/windows/menus.h"

class QWidget;

namespace kovra::desktop {

/// Answers for as long as it lives what the module asks outside its dialogs. Boxes are named
/// "message-box", the file choice "file-choice", menus "menu"; the buttons of a box are named by
/// its answers ("ok", "yes" ...).
class NativeAnswers {
 public:
  /// `owner` gives the widget that a box belongs to, and shows the windows as they are now.
  explicit NativeAnswers(std::function<QWidget*()> owner);
  ~NativeAnswers();
  NativeAnswers(const NativeAnswers&) = delete;
  NativeAnswers& operator=(const NativeAnswers&) = delete;

  /// Hands on what the windows in memory have put into the clipboard.
  void followClipboard();

 private:
  std::function<QWidget*()> owner_;
  win::MenuAnswer menus_;
  std::optional<std::wstring> clipboard_;  ///< what both clipboards hold
  std::function<void()> disconnect_;
};

}  // namespace kovra::desktop
