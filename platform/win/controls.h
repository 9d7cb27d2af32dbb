#pragma once

namespace kovra::win {

// Each makes one class of controls known.
void registerButtonClass();
void registerEditClass();
void registerComboClass();
void registerStaticClass();
void registerDialogClass();
void registerDesktopClasses();

/// All of them, at the first call.
void registerControlClasses();

}  // namespace kovra::win
