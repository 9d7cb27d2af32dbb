#include "host/program/line_source.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <iostream>

namespace kovra::host {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

}  // namespace

Result<std::unique_ptr<BatchLines>> BatchLines::open(std::vector<std::string> commands,
                                                     const std::string& script) {
  auto lines = std::make_unique<BatchLines>();
  lines->commands_ = std::move(commands);
  if (script.empty()) return lines;
  lines->scriptName_ = script == "-" ? "standard input" : script;
  lines->script_ = &std::cin;
  if (script == "-") return lines;
  lines->script_ = &lines->file_;
  std::error_code failure;
  if (std::filesystem::is_directory(script, failure))
    errno = EISDIR;
  else
    lines->file_.open(script, std::ios::binary);
  if (lines->file_.is_open()) return lines;
  return Error{ErrorKind::kNotReadable, script + " can't be read: " + std::strerror(errno)};
}

std::optional<InputLine> BatchLines::next() {
  if (nextCommand_ < commands_.size()) {
    const std::string place = "-c " + std::to_string(nextCommand_ + 1);
    return InputLine{commands_[nextCommand_++], place};
  }
  std::string text;
  if (script_ == nullptr || !std::getline(*script_, text)) return std::nullopt;
  ++lineNumber_;
  if (text.ends_with('\r')) text.pop_back();
  if (lineNumber_ == 1 && text.starts_with(kByteOrderMark)) text.erase(0, kByteOrderMark.size());
  return InputLine{std::move(text), scriptName_ + ":" + std::to_string(lineNumber_)};
}

}  // namespace kovra::host
