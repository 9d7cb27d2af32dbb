#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>

class AcApDocument;

namespace kovra::arx {

/// What a command name runs, in the current document.
struct Command {
  std::wstring name;          ///< without prefixes, upper case
  std::function<void()> run;  ///< empty: there is no such command
  bool journalled = true;     ///< begins a step of its own when started at the idle host
};

/// The command names that an idle document knows. Built-in names are there from the start; the
/// program binds its own.
class CommandTable {
 public:
  static CommandTable& instance();

  struct Bound {
    std::function<void()> run;
    std::wstring summary;
  };

  void bind(std::wstring_view name, Bound command);
  void unbind(std::wstring_view name);
  /// Looks a typed name up: any case; "." and "_" before it, in any order, one or both. "." asks
  /// for the built-in command of that name. A variable's bare name is a command that sets it.
  Command find(std::wstring_view typed) const;
  /// The bound commands by name.
  const std::map<std::wstring, Bound, std::less<>>& bound() const { return bound_; }

 private:
  CommandTable() = default;

  std::map<std::wstring, Bound, std::less<>> bound_;
};

/// "_.-Layer" -> "-LAYER".
std::wstring canonicalCommandName(std::wstring_view typed);

/// Runs the command of a typed name in the current document, inside the running one if there is
/// one. False when nothing is known by that name. Exceptions of the command end here; what they say
/// goes to the command line.
bool runCommandByName(std::wstring_view typed);

}  // namespace kovra::arx
