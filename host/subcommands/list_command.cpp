#include "host/subcommands/list_command.h"

#include <iostream>

#include "host/batch/drawing_list.h"
#include "host/program/program_errors.h"
#include "host/program/script_text.h"
#include "host/subcommands/each_in_order.h"
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
  const Result<std::vector<BatchDrawing>> found = findDrawings(options.drawings, {});
  if (!found) return fail(kExitFile, found.error());
  const TextFilter filter{wideOption(options.layer), wideOption(options.tagPattern)};
  const RowForm form{options.format, options.raw, found.value().size() > 1};
  writeListHead(std::cout, form);
  return forEachInOrder(found.value(), options.jobs, [&](const BatchDrawing& drawing) {
    const auto store = dxf::RecordStore::readFile(drawing.file.string());
    if (!store) return fail(kExitFile, store.error());
    const dxf::Structure structure(*store.value());
    writeRows(std::cout, form, drawing.file.string(),
              [&](const auto& take) { forEachText(*store.value(), structure, filter, take); });
    return static_cast<int>(kExitDone);
  });
}

int checkDrawings(const CheckOptions& options) {
  const Result<std::vector<BatchDrawing>> found = findDrawings(options.drawings, {});
  if (!found) return fail(kExitFile, found.error());
  return forEachInOrder(found.value(), options.jobs, [](const BatchDrawing& drawing) {
    const Result<void> same = dxf::checkRoundTrip(drawing.file.string());
    if (same) {
      std::cout << drawing.file.string() << ": every byte comes back\n";
      return static_cast<int>(kExitDone);
    }
    const bool differs = same.error().kind == ErrorKind::kNotSupported;
    return fail(differs ? kExitRefused : kExitFile, same.error());
  });
}

}  // namespace kovra::host
