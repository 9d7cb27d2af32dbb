// The texts of the main window, in both languages; those of commands are in commands.h.
#pragma once
#include <QString>

#include "desktop/loop/worded.h"

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
  kSelectAll,
  kExtents,
  kZoomIn,
  kZoomOut,
  kZoomWindow,
  kToolBar,
  kHelpContents,
  kBack,
  kForward,
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
  Worded words;
};
const CaptionRow& captionRow(Caption caption);

}  // namespace kovra::desktop
