// Lines about drawings, projects and the module.
#include <filesystem>

#include "host/lines/line_handlers.h"
#include "host/texts/row_writer.h"
#include "launch/text_module.h"
#include "platform/arx/database/database.h"
#include "platform/arx/editor/documents/document_list.h"
#include "platform/arx/editor/documents/sysvars.h"
#include "platform/arx/editor/host_api.h"
#include "platform/win/base/interaction.h"
#include "platform/win/base/pump.h"
#include "platform/win/base/run_settings.h"
#include "platform/win/base/wide_text.h"

namespace kovra::host {
namespace {

namespace editor = arx::host;
using std::filesystem::path;

Error refused(std::string message) {
  return {ErrorKind::kInvalidInput, std::move(message)};
}

Result<path> filePath(Arguments& arguments) {
  Result<std::wstring> text = arguments.text("a file's name");
  if (!text) return text.error();
  if (text.value().empty()) return refused("a file's name is empty");
  return path(win::toUtf8(text.value()));
}

Result<editor::DrawingId> openDrawing() {
  const editor::DrawingId id = editor::currentDrawing();
  if (id == 0) return refused("no drawing is open");
  return id;
}

// By the file itself, by its name as it was given, or by the title.
Result<editor::DrawingId> findDrawing(const path& wanted) {
  for (const editor::DrawingInfo& drawing : editor::drawings()) {
    if (!drawing.file.empty() && std::filesystem::absolute(wanted).lexically_normal() ==
                                     std::filesystem::absolute(drawing.file).lexically_normal()) {
      return drawing.id;
    }
  }
  std::error_code failure;
  for (const editor::DrawingInfo& drawing : editor::drawings()) {
    if (!drawing.file.empty() && std::filesystem::equivalent(wanted, drawing.file, failure)) {
      return drawing.id;
    }
    if (drawing.title == win::fromUtf8(wanted.string())) return drawing.id;
  }
  return refused("'" + wanted.string() + "' isn't open");
}

Result<void> openLine(LineContext&, Arguments& arguments) {
  const Result<path> file = filePath(arguments);
  if (!file) return file.error();
  const Result<editor::DrawingId> drawing = editor::openDrawing(file.value());
  return drawing ? Result<void>() : drawing.error();
}

Result<void> activateLine(LineContext&, Arguments& arguments) {
  const Result<path> file = filePath(arguments);
  if (!file) return file.error();
  const Result<editor::DrawingId> drawing = findDrawing(file.value());
  return drawing ? editor::activateDrawing(drawing.value()) : drawing.error();
}

Result<void> closeDrawingLine(LineContext&, Arguments& arguments) {
  if (const Result<void> end = arguments.end(); !end) return end;
  const Result<editor::DrawingId> drawing = openDrawing();
  return drawing ? editor::closeDrawing(drawing.value()) : drawing.error();
}

Result<void> saveLine(LineContext& context, Arguments& arguments) {
  const Result<editor::DrawingId> drawing = openDrawing();
  if (!drawing) return drawing.error();
  const editor::SaveOptions options{context.options.backup};
  if (arguments.atEnd()) return editor::saveDrawing(drawing.value(), nullptr, options);
  const Result<path> file = filePath(arguments);
  if (!file) return file.error();
  return editor::saveDrawing(drawing.value(), &file.value(), options);
}

Result<void> projectLine(LineContext&, Arguments& arguments) {
  path folder;
  if (!arguments.atEnd()) {
    const Result<path> given = filePath(arguments);
    if (!given) return given.error();
    std::error_code failure;
    folder = std::filesystem::absolute(given.value(), failure);
    if (!std::filesystem::is_directory(folder, failure)) {
      return Error{ErrorKind::kNotFound, given.value().string() + " is no folder"};
    }
  }
  win::setCurrentProject(folder);
  return {};
}

// The code of a command that waits somewhere below would vanish under its feet.
Result<void> reloadLine(LineContext& context, Arguments& arguments) {
  if (const Result<void> end = arguments.end(); !end) return end;
  const editor::WaitKind wait = editor::topWait().kind;
  const bool idle = wait == editor::WaitKind::kIdle || wait == editor::WaitKind::kNone;
  if (!idle || win::Pump::instance().depth() > 1) return refused("a command is running");
  if (const Result<void> unloaded = context.module.unload(); !unloaded) return unloaded;
  return context.module.load();
}

Result<void> listLine(LineContext& context, Arguments& arguments) {
  if (const Result<void> end = arguments.end(); !end) return end;
  const Result<editor::DrawingId> drawing = openDrawing();
  if (!drawing) return drawing.error();
  AcApDocument* document = arx::DocumentList::instance().find(drawing.value());
  const AcDbDatabase& database = *document->database();
  win::interaction().freshLine();
  writeRows(context.out, {}, {}, [&](const auto& take) {
    forEachText(database.store(), database.structure(), {}, take);
  });
  return {};
}

Result<void> showLine(LineContext& context, Arguments& arguments) {
  const Result<std::wstring> name = arguments.word("a variable's name");
  if (!name) return name.error();
  if (const Result<void> end = arguments.end(); !end) return end;
  const Result<editor::DrawingId> drawing = openDrawing();
  if (!drawing) return drawing.error();
  AcApDocument* document = arx::DocumentList::instance().find(drawing.value());
  const Result<arx::VariableValue> value = arx::readVariable(*document, name.value());
  if (!value) return value.error();
  win::interaction().freshLine();
  context.out << win::toUtf8(win::upperCase(name.value())) << '='
              << win::toUtf8(arx::variableText(value.value())) << '\n';
  return {};
}

constexpr LineHandler kLines[] = {
    {L"open", openLine, true, L"FILE.dxf", L"opens a drawing"},
    {L"activate", activateLine, false, L"DRAWING", L"makes an open drawing current"},
    {L"closedrawing", closeDrawingLine, false, L"",
     L"closes the current drawing; unsaved changes are dropped"},
    {L"save", saveLine, true, L"[FILE.dxf]", L"saves the current drawing, or a copy elsewhere"},
    {L"project", projectLine, true, L"[DIR]", L"makes another project current, or none"},
    {L"reload", reloadLine, false, L"", L"loads the module with the text commands again"},
    {L"list", listLine, false, L"", L"prints the texts of the current drawing"},
    {L"show", showLine, false, L"VARIABLE", L"prints a system variable"},
};

}  // namespace

std::span<const LineHandler> documentLines() {
  return kLines;
}

}  // namespace kovra::host
