#pragma once

#include <optional>

#include "platform/win/base/windows_types.h"

namespace kovra::win {

/// The characters that keys pressed since the last call have made; the input functions send them
/// on.
std::optional<wchar_t> takeTranslatedCharacter();

/// Dispatches a message of the keyboard; of a pressed key its character is kept for
/// takeTranslatedCharacter(), with the keys that are held down. Other messages are dispatched only.
void translateAndDispatch(const MSG& message);

}  // namespace kovra::win
