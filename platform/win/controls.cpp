#include "platform/win/controls.h"

namespace kovra::win {

void registerControlClasses() {
  static bool done = false;
  if (done) return;
  done = true;
  registerButtonClass();
  registerEditClass();
  registerComboClass();
  registerStaticClass();
  registerDialogClass();
  registerDesktopClasses();
}

}  // namespace kovra::win
