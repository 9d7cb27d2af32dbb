#pragma once

#include <functional>

#include "platform/win/controls/edit_text.h"
#include "platform/win/windows/window.h"

namespace kovra::win {

/// What a field keeps beside the fields of a window. The window's own text follows `edit`.
class EditState : public WindowState {
 public:
  EditText edit;
  std::size_t limit = kNoLimit;  ///< characters that a user can type in all
  bool modified = false;
  /// Whether a user may come by this text, by typing or pasting; empty: by any.
  std::function<bool(std::wstring_view)> allows;

  const char* kind(const Window& /*window*/) const override { return "edit"; }

  static constexpr std::size_t kNoLimit = 0x7FFFFFFE;
};

}  // namespace kovra::win
