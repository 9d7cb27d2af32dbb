#pragma once

#include <functional>
#include <string>

#include "platform/dxf/result.h"

namespace kovra::launch {

/// A function of this name that a library of the installed program exports. The library is loaded
/// if it isn't yet, and stays until the program ends. kNotFound without its file; kNotReadable when
/// it or a library that it needs can't be loaded, or when it is another one: then `failure` stands
/// in front of the reason.
Result<void (*)()> findProgramExport(const std::string& library, const char* name,
                                     const std::string& failure);

/// The same as the function's type.
template <class Function>
Result<Function*> loadProgramExport(const std::string& library, const char* name,
                                    const std::string& failure) {
  const Result<void (*)()> found = findProgramExport(library, name, failure);
  if (!found) return found.error();
  return reinterpret_cast<Function*>(found.value());
}

/// Calls `use` with such a function; the library is held no longer than that lasts. For libraries
/// that come and go with the module, which would stay in memory for one that does.
Result<void> withProgramExport(const std::string& library, const char* name,
                               const std::string& failure,
                               const std::function<void(void (*)())>& use);

}  // namespace kovra::launch
