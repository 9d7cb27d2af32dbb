#include "host/subcommands/list_command.h"

#include <iostream>

#include "host/program/program_errors.h"
#include "host/program/script_text.h"
#include "host/texts/row_writer.h"
#include "platform/win/base/wide_text.h"

namespace kovra::host {
namespace {

// Reads an argument of the command line; bytes that aren't UTF-8 match nothing in a drawing.
std::optional<std::wstring> wideOption(const std::optional<std::string>& text) {
  if (!text) return std::nullopt;
  return win::fromUtf8(*text);
}

}  // namespace

int listDrawings(const ListOptions& options) {
  ProgramErrors errors;
  const TextFilter filter{wideOption(options.layer), wideOption(options.tagPattern)};
  bool head = true;
  for (const auto& file : options.drawings) {
    const auto store = dxf::RecordStore::readFile(file.string());
    if (!store) {
      errors.report(kExitFile, {}, store.error().message);
      continue;
    }
    const dxf::Structure structure(*store.value());
    const std::string name = options.drawings.size() > 1 ? file.string() : std::string();
    writeRows(std::cout, options.format, name, head,
              [&](const auto& take) { forEachText(*store.value(), structure, filter, take); });
    head = false;
  }
  return errors.status();
}

int checkDrawings(const CheckOptions& options) {
  ProgramErrors errors;
  for (const auto& file : options.drawings) {
    const Result<void> same = dxf::checkRoundTrip(file.string());
    if (same) {
      std::cout << file.string() << ": every byte comes back\n";
    } else {
      const bool differs = same.error().kind == ErrorKind::kNotSupported;
      errors.report(differs ? kExitRefused : kExitFile, {}, same.error().message);
    }
  }
  return errors.status();
}

}  // namespace kovra::host
