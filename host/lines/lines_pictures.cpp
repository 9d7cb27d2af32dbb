// Lines for pictures of what the screen shows.
#include "host/lines/line_handlers.h"
#include "launch/picture_library.h"
#include "platform/win/base/wide_text.h"

namespace kovra::host {
namespace {

Result<void> pictureLine(LineContext&, Arguments& arguments) {
  const Result<std::wstring> name = arguments.word("a picture's name");
  if (!name) return name.error();
  const bool alone = !arguments.atEnd();
  if (alone) {
    const Result<std::wstring> word = arguments.word("dialog");
    if (!word) return word.error();
    if (word.value() != L"dialog")
      return Error{ErrorKind::kInvalidInput, "@picture takes FILE or FILE dialog"};
  }
  if (const Result<void> end = arguments.end(); !end) return end;
  const std::filesystem::path file = win::toUtf8(name.value());
  const Result<launch::PictureForm> form = launch::pictureForm(file);
  if (!form) return form.error();
  const Result<launch::PictureLibrary> library = launch::loadPictureLibrary();
  if (!library) return library.error();
  const auto draw = alone ? library.value().dialog : library.value().screen;
  return draw(file, form.value());
}

constexpr LineHandler kLines[] = {
    {L"picture", pictureLine, true, L"FILE [dialog]",
     L"draws the screen or the dialog into FILE.svg or FILE.png"},
};

}  // namespace

std::span<const LineHandler> pictureLines() {
  return kLines;
}

}  // namespace kovra::host
