// Every text of the main window, in both languages.
#pragma once
#include <QString>

namespace kovra::desktop {

enum class Caption {
  kFileMenu,
  kEditMenu,
  kViewMenu,
  kTextMenu,
  kProjectMenu,
  kHelpMenu,
  kNew,
  kOpen,
  kOpenProject,
  kCloseProject,
  kRecentDrawings,
  kRecentProjects,
  kSave,
  kSaveAs,
  kSaveAll,
  kPlot,
  kClose,
  kQuit,
  kUndo,
  kUndoNamed,
  kRedo,
  kRedoNamed,
  kErase,
  kMove,
  kSelectAll,
  kExtents,
  kZoomIn,
  kZoomOut,
  kZoomWindow,
  kRegenerate,
  kToolBar,
  kText,
  kTextResize,
  kTextProperties,
  kTextCountUp,
  kAttrCopy,
  kAttrCopyAll,
  kAttrCopyLine,
  kTextSets,
  kTextAlign,
  kOptions,
  kHelpContents,
  kAbout,
  kCommandLine,
  kProject,
  kNoProject,
  kTypeHere,
  kLayer,
  kOrtho,
  kSnap,
  kObjectSnaps,
  kScale,
  kDrawings,
  kPictures,
  kAllFiles,
  kUnsavedTitle,
  kUnsavedOne,
  kUnsavedSome,
  kSaveAllButton,
  kDiscard,
  kCancel,
  kCannotOpen,
  kCannotSave,
  kCannotSwitch,
  kCannotPlot,
  kPlotted,
  kSaved,
  kChangedTitle,
  kChangedText,
  kChangedModified,
  kReload,
  kKeep,
  kRecoverTitle,
  kRecoverText,
  kRecover,
  kRecoverLater,
  kRecoverStale,
  kUntitled,
  kBlocked,
  kMissing,
  kNoHelp,
  kAboutText,
  kCount
};

/// In the language of this run, see win::runSettings().
QString say(Caption caption);
/// Without the access key and the dots of a menu entry: "Save as" of "Save &as...".
QString withoutKey(QString name);
QString sayPlain(Caption caption);

/// A row of the table, for tests.
struct CaptionRow {
  Caption caption;
  const char* english;
  const char* japanese;
};
const CaptionRow& captionRow(Caption caption);

}  // namespace kovra::desktop
