#include "host/subcommands/run_command.h"

#include <iostream>
#include <memory>

#include "host/libraries/terminal_library.h"
#include "host/lines/completion_offers.h"
#include "host/lines/line_runner.h"
#include "host/lines/terminal_guide.h"
#include "launch/program_files.h"
#include "launch/text_module.h"
#include "platform/arx/editor/host_api.h"
#include "platform/win/base/interaction.h"
#include "platform/win/base/run_settings.h"

namespace kovra::host {
namespace {

namespace editor = arx::host;
using std::filesystem::path;

constexpr const char* kOutputIsInput = "the output is one of the inputs";

bool isInput(const path& file, const RunOptions& options) {
  for (const path& drawing : options.drawings) {
    if (launch::isSameFile(file, drawing)) return true;
  }
  for (const editor::DrawingInfo& drawing : editor::drawings()) {
    if (!drawing.file.empty() && launch::isSameFile(file, drawing.file)) return true;
  }
  return !options.script.empty() && launch::isSameFile(file, options.script);
}

// What must be there before anything is opened; false when it isn't.
bool checkPlaces(const RunOptions& options, ProgramErrors& errors) {
  if (!options.output.empty() && isInput(options.output, options)) {
    errors.report(kExitUsage, options.output.string(), kOutputIsInput);
  } else if (const Result<void> places = launch::checkPlaces(options); !places) {
    errors.report(kExitFile, {}, places.error().message);
  }
  return errors.status() == kExitDone;
}

/// `resources`: the folder of the compiled resource files.
void applySettings(const RunOptions& options, const path& resources) {
  launch::applySettings(options, resources);
  if (!options.quiet) {
    win::interaction().setTranscript([](std::string_view text) { std::cout << text; });
  }
}

bool openAll(const RunOptions& options, ProgramErrors& errors) {
  for (const path& file : options.drawings) {
    const auto opened = editor::openDrawing(file);
    if (!opened) errors.report(kExitFile, {}, opened.error().message);
  }
  if (!options.drawings.empty()) return errors.status() == kExitDone;
  const auto created = editor::newDrawing();
  if (!created) errors.report(kExitFile, {}, created.error().message);
  return created.ok();
}

void saveOutput(const RunOptions& options, ProgramErrors& errors) {
  const editor::DrawingId drawing = editor::currentDrawing();
  if (drawing == 0) return errors.report(kExitRefused, {}, "no drawing is open to be saved");
  // A drawing may have been opened by a line, or a link made, since the start.
  if (isInput(options.output, options)) {
    return errors.report(kExitUsage, options.output.string(), kOutputIsInput);
  }
  const auto saved = editor::saveDrawing(drawing, &options.output, {options.backup});
  if (!saved) errors.report(kExitFile, {}, saved.error().message);
}

void saveChanged(const RunOptions& options, ProgramErrors& errors) {
  for (const editor::DrawingInfo& drawing : editor::drawings()) {
    if (!drawing.modified) continue;
    if (drawing.file.empty()) {
      // A new drawing that went to the output is safe.
      if (!options.output.empty() && drawing.id == editor::currentDrawing()) continue;
      errors.report(kExitFile, {}, "a new drawing has no file to be saved to");
      continue;
    }
    const auto saved = editor::saveDrawing(drawing.id, nullptr, {options.backup});
    if (!saved) errors.report(kExitFile, {}, saved.error().message);
  }
}

// As a user would: each drawing is closed, and what that sets off comes to rest.
void closeAll(ProgramErrors& errors) {
  while (const editor::DrawingId drawing = editor::currentDrawing()) {
    const auto closed = editor::closeDrawing(drawing);
    if (!closed) return errors.report(kExitRefused, {}, closed.error().message);
    editor::runIdle();
    if (editor::currentDrawing() == drawing) return;
  }
}

bool isInteractive(const RunOptions& options) {
  return options.script.empty() && options.commands.empty() && terminalIsThere();
}

// `context` outlives the lines.
Result<std::unique_ptr<LineSource>> openInput(const RunOptions& options,
                                              const LineContext& context) {
  if (isInteractive(options)) {
    const auto complete = [&context](std::wstring_view line) {
      return launch::complete(line, editor::topWait(),
                              [&context](launch::OfferKind kind, std::wstring_view detail) {
                                return offersNow(context, kind, detail);
                              });
    };
    return openTerminal(options.saveAll || !options.output.empty(), complete);
  }
  auto lines = BatchLines::open(options.commands, options.script);
  if (!lines) return lines.error();
  return std::unique_ptr<LineSource>(std::move(lines).value());
}

void runLines(const RunOptions& options, LineContext& context, LineSource& lines,
              ProgramErrors& errors) {
  std::optional<TerminalGuide> guide;
  if (isInteractive(options)) context.guide = &guide.emplace(context);
  LineRunner runner(context, lines, errors);
  editor::setEnterRepeats(isInteractive(options));
  editor::setInputShown(!isInteractive(options));
  editor::runIdle();
  runner.finish();
  const bool mayWrite = errors.status() == kExitDone || options.keepGoing;
  if (mayWrite && !options.output.empty()) saveOutput(options, errors);
  if (mayWrite && options.saveAll) saveChanged(options, errors);
  closeAll(errors);
}

void runWithHands(const RunOptions& options, launch::TextModule& module, UserHands& hands,
                  ProgramErrors& errors) {
  LineContext context{options, module, hands, std::cout};
  const auto lines = openInput(options, context);
  if (!lines) return errors.report(kExitFile, {}, lines.error().message);
  if (openAll(options, errors)) {
    runLines(options, context, *lines.value(), errors);
  } else {
    closeAll(errors);
  }
}

void runSession(const RunOptions& options, const path& moduleFile, const HandsMaker& makeHands,
                ProgramErrors& errors) {
  applySettings(options, moduleFile.parent_path());
  launch::TextModule module(moduleFile);
  if (const auto loaded = module.load(); !loaded) {
    return errors.report(kExitFile, {}, loaded.error().message);
  }
  runWithHands(options, module, *makeHands(), errors);
  if (const auto unloaded = module.unload(); !unloaded) {
    errors.report(kExitRefused, {}, unloaded.error().message);
  }
}

}  // namespace

int runDrawings(const RunOptions& options) {
  return runDrawingsByHand(options, [] { return std::make_unique<UserHands>(); });
}

int runDrawingsByHand(const RunOptions& given, const HandsMaker& makeHands) {
  RunOptions options = given;
  // A person sees what went wrong and goes on.
  if (isInteractive(options)) options.keepGoing = true;
  ProgramErrors errors;
  if (!checkPlaces(options, errors)) return errors.status();
  const Result<path> module = launch::findProgramFile("kovra_text.so");
  if (!module) {
    errors.report(kExitFile, {}, module.error().message);
    return errors.status();
  }
  runSession(options, module.value(), makeHands, errors);
  win::interaction().freshLine();
  return errors.status();
}

}  // namespace kovra::host
