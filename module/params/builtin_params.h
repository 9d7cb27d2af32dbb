#pragma once

namespace kovra {

/// The value of a key of section TEXT for projects that don't give one; null for a key that has
/// none. Case doesn't matter.
const wchar_t* BuiltinParam(const wchar_t* key);

}  // namespace kovra
