#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace kovra::arx {

/// The command names that an idle document knows and what they run. Built-in names are there from
/// the start; the program binds its own.
class CommandTable {
 public:
  using Function = std::function<void()>;

  static CommandTable& instance();

  void bind(std::wstring_view name, Function run);
  void unbind(std::wstring_view name);
  /// Looks a typed name up: any case; "." and "_" before it, in any order, one or both. "." asks
  /// for the built-in command of that name. Empty when there is none.
  Function find(std::wstring_view typed) const;

 private:
  CommandTable();

  std::map<std::wstring, Function> builtIn_;
  std::map<std::wstring, Function> bound_;
};

/// "_.-Layer" -> "-LAYER".
std::wstring canonicalCommandName(std::wstring_view typed);

/// Runs the command of a typed name in the current document, or the variable of that name through
/// SETVAR. False when the document knows neither. Exceptions end here; what they say goes to the
/// command line.
bool runCommandByName(std::wstring_view typed);

}  // namespace kovra::arx
