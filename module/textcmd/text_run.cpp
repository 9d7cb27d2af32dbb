#include "module/textcmd/text_run.h"

#include <new>

#include "module/drawing/angles.h"
#include "module/drawing/attachment.h"
#include "module/drawing/current_database.h"
#include "module/drawing/drawing_scale.h"
#include "module/drawing/system_variables.h"
#include "module/drawing/text_styles.h"
#include "module/drawing/undo_mark.h"
#include "module/frame/reporting.h"
#include "module/frame/resource_scope.h"
#include "module/textcmd/entity_jig.h"
#include "module/textcmd/text_ids.h"
#include "module/textcmd/text_settings.h"

namespace kovra {
namespace {

constexpr UINT kTextEnded = 2721;

// The dialog of the run that exists; null without one.
const CTextDlg* openDialog = nullptr;

/// The stored settings, or what a user starts with who has none; false when there is no store.
bool loadSettings(TextSettings& settings) {
  if (LoadTextSettings(settings, false) != 0) WriteDefaultTextSettings();
  if (LoadTextSettings(settings, true) != 0) return false;
  // No text can have other values; the newer dialog stores what its fields hold, also nothing.
  settings.height = aboveZero(settings.height, kUsualTextHeight);
  settings.widthFactor = aboveZero(settings.widthFactor, kUsualTextWidthFactor);
  return true;
}

bool createDialog(TextRun& run, const TextSettings& settings) {
  const ResourceScope resources;
  CWnd* parent = acedGetAcadFrame();
  run.TextDialog.reset(new (std::nothrow) CTextDlg(parent));
  if (run.TextDialog == nullptr) {
    TraceError(L"Text error new");
    return false;
  }
  CTextDlg& dialog = *run.TextDialog;
  dialog.WindowX = settings.x;
  dialog.WindowY = settings.y;
  dialog.LayerList = run.TextTables.layers;
  dialog.HeightList = run.TextTables.heights;
  dialog.WidthList = run.TextTables.widthFactors;
  dialog.RotationList = run.TextTables.rotations;
  dialog.LayerIndex = settings.layerIndex;
  if (dialog.Create(textdlg::kTemplate, parent)) return true;
  TraceError(L"Text error Create");
  return false;
}

int checkedIndex(int index, int count) {
  return index >= 0 && index < count ? index : 0;
}

void showDialog(CTextDlg& dialog, const TextSettings& settings, double scale,
                const CString& style) {
  dialog.WindowX = settings.x;
  dialog.WindowY = settings.y;
  dialog.LayerIndex = checkedIndex(settings.layerIndex, dialog.LayerList.size());
  dialog.Scale = scale;
  dialog.StyleName = style;
  dialog.PaperHeight = settings.height;
  dialog.WidthFactor = settings.widthFactor;
  dialog.RotationDegrees = settings.rotation;
  const int attachment = checkedIndex(settings.attachmentIndex, kAttachments);
  dialog.AttachCode = AttachCodes[static_cast<std::size_t>(attachment)];
  dialog.ShowWindow(SW_SHOWNA);
}

bool makePreview(TextRun& run) {
  run.preview.reset(new (std::nothrow) AcDbText());
  if (run.preview == nullptr) {
    TraceError(L"Text error new AcDbText");
    return false;
  }
  const CTextDlg& dialog = *run.TextDialog;
  AcDbText& preview = *run.preview;
  preview.setLayer(dialog.PreviewLayer());
  AcDbObjectId style;
  if (GTxtStyId(dialog.StyleName.GetString(), style) == 0) preview.setTextStyle(style);
  preview.setHeight(dialog.PaperHeight * dialog.Scale);
  preview.setWidthFactor(dialog.WidthFactor);
  preview.setRotation(RadiansOf(dialog.RotationDegrees));
  int horizontal = 0;
  int vertical = 0;
  AttachIndexToModes(AttachIndex(dialog.AttachCode), horizontal, vertical);
  preview.setHorizontalMode(static_cast<AcDb::TextHorzMode>(horizontal));
  preview.setVerticalMode(static_cast<AcDb::TextVertMode>(vertical));
  return true;
}

/// A drag that never runs; it tells whoever watches the prompts that this command's are over.
void announceEnd() {
  AcEdJig jig;
  jig.setDispPrompt(L"%s", ResourceText(kTextEnded).GetString());
}

void noteSettings(const CTextDlg& dialog, TextSettings& settings) {
  settings.x = dialog.WindowX;
  settings.y = dialog.WindowY;
  settings.layerIndex = dialog.LayerIndex;
  settings.layerText = dialog.LayerText;
  settings.height = dialog.PaperHeight;
  settings.widthFactor = dialog.WidthFactor;
  settings.rotation = dialog.RotationDegrees;
  settings.attachmentIndex = AttachIndex(dialog.AttachCode);
}

}  // namespace

TextRun::~TextRun() {
  if (TextDialog != nullptr && TextDialog.get() == openDialog) openDialog = nullptr;
  if (preview != nullptr && preview.get() == TextPreview) TextPreview = nullptr;
}

int StartTextCommand(TextRun& run) {
  const double scale = FindDrawingScale(CurrentDatabase());
  CString style;
  GetVar(L"TEXTSTYLE", style);
  if (LoadParamTables(run.TextTables) != 0) return -1;
  TextSettings settings;
  if (!loadSettings(settings)) return -1;
  if (openDialog != nullptr) return 1;
  if (!createDialog(run, settings)) return -1;
  showDialog(*run.TextDialog, settings, scale, style);
  if (!makePreview(run)) return -1;
  openDialog = run.TextDialog.get();
  run.TextDialog->Preview = TextPreview = run.preview.get();
  MarkUndo();
  return 0;
}

void EndTextCommand(TextRun& run) {
  // What the dialog doesn't know stays as it is stored.
  TextSettings settings;
  LoadTextSettings(settings, false);
  if (!run.TextDialog->DestroyWindow()) TraceError(L"Text error DestroyWindow");
  noteSettings(*run.TextDialog, settings);
  run.TextDialog.reset();
  openDialog = nullptr;
  ClearParamTables(run.TextTables);
  SaveTextSettings(settings);
  run.preview.reset();
  TextPreview = nullptr;
  announceEnd();
}

}  // namespace kovra
