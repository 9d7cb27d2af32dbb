#include "host/lines/completion_offers.h"

#include <algorithm>
#include <charconv>
#include <filesystem>

#include "platform/arx/editor/host_api.h"
#include "platform/win/base/interaction.h"
#include "platform/win/base/run_settings.h"
#include "platform/win/base/wide_text.h"
#include "platform/win/desktop/dialog_outline.h"
#include "platform/win/desktop/user_input.h"
#include "platform/win/dialogs/dialogs.h"
#include "platform/win/windows/window.h"

namespace kovra::host {
namespace {

namespace fs = std::filesystem;
using launch::Offer;
using launch::OfferKind;

std::vector<Offer> plain(const std::vector<std::wstring>& names) {
  std::vector<Offer> offers;
  for (const std::wstring& name : names) offers.push_back({name, {}});
  return offers;
}

std::vector<Offer> lineOffers() {
  std::vector<Offer> offers;
  for (const auto& table : lineTables()) {
    for (const LineHandler& handler : table)
      offers.push_back({L'@' + std::wstring(handler.name), std::wstring(handler.usage)});
  }
  offers.push_back({L"@refused", L"LINE"});
  return offers;
}

/// Whether a user could do with the control what the line does.
bool suits(const win::ControlListing& control, std::wstring_view line) {
  if (!control.visible || !control.enabled) return false;
  const bool field = win::isField(control);
  if (line == L"@spin") return control.kind == "spin";
  if (control.kind == "spin") return false;
  if (line == L"@click") return !field;
  if (line == L"@check") return control.check.has_value();
  if (line == L"@choose") return !control.items.empty();
  if (line == L"@cell" || line == L"@cells") return control.table.has_value();
  return field || line == L"@focus" || line == L"@key";
}

std::vector<Offer> controlOffers(const LineContext& context, std::wstring_view line) {
  std::vector<Offer> offers;
  const HWND dialog = meantDialog(context);
  if (dialog == nullptr) return offers;
  const win::DialogListing listing = win::listDialog(dialog);
  const std::vector<win::OutlineGroup> outline = win::outlineOf(listing);
  for (const win::ControlListing& control : listing.controls) {
    const bool inert = control.kind == "label" || control.kind == "icon" || control.kind == "group";
    if (inert || !suits(control, line)) continue;
    offers.push_back({std::to_wstring(control.id), win::captionOf(outline, control)});
  }
  return offers;
}

std::vector<Offer> itemOffers(const LineContext& context, std::wstring_view id) {
  const std::string digits = win::toUtf8(id);
  int number = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), number);
  const HWND dialog = meantDialog(context);
  const HWND control = dialog != nullptr ? win::controlWithId(dialog, number) : nullptr;
  return control != nullptr ? plain(win::listControl(control).items) : std::vector<Offer>();
}

std::vector<Offer> templateOffers() {
  std::vector<Offer> offers;
  for (const HWND dialog : win::openDialogs())
    offers.push_back({std::to_wstring(win::templateOf(dialog)), win::windowText(dialog)});
  return offers;
}

std::vector<Offer> answerOffers() {
  std::vector<Offer> offers;
  for (const int button : {IDOK, IDCANCEL, IDYES, IDNO, IDRETRY, IDABORT, IDIGNORE})
    offers.push_back({win::fromUtf8(win::answerName(button)), {}});
  return offers;
}

std::vector<Offer> keyOffers() {
  std::vector<Offer> offers;
  for (const std::string& name : win::keyNames()) offers.push_back({win::fromUtf8(name), {}});
  return offers;
}

/// By their files, relative to the current folder, or by their titles.
std::vector<Offer> drawingOffers() {
  std::vector<Offer> offers;
  std::error_code failure;
  for (const arx::host::DrawingInfo& drawing : arx::host::drawings()) {
    const fs::path file = drawing.file.empty() ? fs::path() : fs::proximate(drawing.file, failure);
    offers.push_back({file.empty() ? drawing.title : win::fromUtf8(file.string()), {}});
  }
  return offers;
}

bool isDrawingFile(const fs::path& file) {
  return win::equalNoCase(win::fromUtf8(file.extension().string()), L".dxf");
}

std::vector<Offer> fileOffers(OfferKind kind, std::wstring_view folder) {
  const fs::path& project = win::runSettings().projectFolder;
  const fs::path base = kind == OfferKind::kProjectFile && !project.empty() ? project : ".";
  std::vector<Offer> offers;
  std::error_code failure;
  for (fs::directory_iterator entry(base / win::toUtf8(folder), failure), end;
       !failure && entry != end; entry.increment(failure)) {
    const bool isFolder = entry->is_directory(failure);
    const bool wanted = isFolder || kind == OfferKind::kFile || kind == OfferKind::kProjectFile ||
                        (kind == OfferKind::kDrawingFile && isDrawingFile(entry->path()));
    if (wanted) offers.push_back({win::fromUtf8(entry->path().filename().string()), {}, isFolder});
    failure.clear();
  }
  std::sort(offers.begin(), offers.end(),
            [](const Offer& a, const Offer& b) { return a.name < b.name; });
  return offers;
}

}  // namespace

std::vector<Offer> offersNow(const LineContext& context, OfferKind kind, std::wstring_view detail) {
  switch (kind) {
    case OfferKind::kLine:
      return lineOffers();
    case OfferKind::kCommand:
    case OfferKind::kVariable:
    case OfferKind::kLayer:
    case OfferKind::kTextStyle:
      return launch::editorOffers(kind);
    case OfferKind::kControl:
      return controlOffers(context, detail);
    case OfferKind::kItem:
      return itemOffers(context, detail);
    case OfferKind::kTemplate:
      return templateOffers();
    case OfferKind::kKey:
      return keyOffers();
    case OfferKind::kAnswer:
      return answerOffers();
    case OfferKind::kOpenDrawing:
      return drawingOffers();
    default:
      return fileOffers(kind, detail);
  }
}

}  // namespace kovra::host
