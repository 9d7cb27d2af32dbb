#include "desktop/frame/captions.h"

#include <QRegularExpression>
#include <array>

namespace kovra::desktop {
namespace {

using enum Caption;

constexpr std::array kRows{
    CaptionRow{kFileMenu, {"&File", "ファイル(&F)"}},
    CaptionRow{kEditMenu, {"&Edit", "編集(&E)"}},
    CaptionRow{kViewMenu, {"&View", "表示(&V)"}},
    CaptionRow{kTextMenu, {"&Text", "文字(&T)"}},
    CaptionRow{kProjectMenu, {"&Project", "プロジェクト(&P)"}},
    CaptionRow{kHelpMenu, {"&Help", "ヘルプ(&H)"}},
    CaptionRow{kNew, {"&New", "新規作成(&N)"}},
    CaptionRow{kOpen, {"&Open...", "開く(&O)..."}},
    CaptionRow{kOpenProject, {"&Open project...", "プロジェクトを開く(&O)..."}},
    CaptionRow{kCloseProject, {"&Close project", "プロジェクトを閉じる(&C)"}},
    CaptionRow{kRecentDrawings, {"&Recent drawings", "最近使った図面(&R)"}},
    CaptionRow{kRecentProjects, {"&Recent projects", "最近使ったプロジェクト(&R)"}},
    CaptionRow{kSave, {"&Save", "上書き保存(&S)"}},
    CaptionRow{kSaveAs, {"Save &as...", "名前を付けて保存(&A)..."}},
    CaptionRow{kSaveAll, {"Save a&ll", "すべて保存(&L)"}},
    CaptionRow{kPlot, {"&Plot...", "印刷イメージの出力(&P)..."}},
    CaptionRow{kClose, {"&Close", "閉じる(&C)"}},
    CaptionRow{kQuit, {"&Quit", "終了(&X)"}},
    CaptionRow{kUndo, {"&Undo", "元に戻す(&U)"}},
    CaptionRow{kUndoNamed, {"&Undo %1", "%1 を元に戻す(&U)"}},
    CaptionRow{kRedo, {"&Redo", "やり直し(&R)"}},
    CaptionRow{kRedoNamed, {"&Redo %1", "%1 をやり直す(&R)"}},
    CaptionRow{kSelectAll, {"Select &all", "すべて選択(&A)"}},
    CaptionRow{kExtents, {"Zoom to &extents", "図面全体(&E)"}},
    CaptionRow{kZoomIn, {"Zoom &in", "拡大(&I)"}},
    CaptionRow{kZoomOut, {"Zoom &out", "縮小(&O)"}},
    CaptionRow{kZoomWindow, {"Zoom &window", "窓ズーム(&W)"}},
    CaptionRow{kToolBar, {"&Toolbar", "ツールバー(&T)"}},
    CaptionRow{kHelpContents, {"&Contents", "目次(&C)"}},
    CaptionRow{kBack, {"Back", "戻る"}},
    CaptionRow{kForward, {"Forward", "進む"}},
    CaptionRow{kAbout, {"&About Kovra", "Kovra について(&A)"}},
    CaptionRow{kCommandLine, {"Command line", "コマンドライン"}},
    CaptionRow{kProject, {"Project", "プロジェクト"}},
    CaptionRow{kNoProject, {"No project is open.", "プロジェクトは開かれていません。"}},
    CaptionRow{kTypeHere, {"Type a command or an answer", "コマンドまたは答えを入力"}},
    CaptionRow{kLayer, {"Current layer", "現在の画層"}},
    CaptionRow{kOrtho, {"ORTHO", "直交"}},
    CaptionRow{kSnap, {"SNAP", "スナップ"}},
    CaptionRow{kObjectSnaps, {"OSNAP", "Oスナップ"}},
    CaptionRow{kScale, {"Scale of dimensions", "寸法尺度"}},
    CaptionRow{kDrawings, {"Drawings (*.dxf *.DXF)", "図面 (*.dxf *.DXF)"}},
    CaptionRow{kPictures, {"Pictures (*.svg *.png)", "画像 (*.svg *.png)"}},
    CaptionRow{kAllFiles, {"All files (*)", "すべてのファイル (*)"}},
    CaptionRow{kUnsavedTitle, {"Unsaved changes", "保存されていない変更"}},
    CaptionRow{kUnsavedOne, {"Save the changes in %1?", "%1 の変更を保存しますか?"}},
    CaptionRow{
        kUnsavedSome,
        {"These drawings have unsaved changes:", "次の図面には保存されていない変更があります:"}},
    CaptionRow{kSaveAllButton, {"&Save", "保存(&S)"}},
    CaptionRow{kDiscard, {"&Don't save", "保存しない(&N)"}},
    CaptionRow{kCancel, {"&Cancel", "キャンセル(&C)"}},
    CaptionRow{kCannotOpen, {"The drawing can't be opened.", "図面を開けません。"}},
    CaptionRow{kCannotSave, {"The drawing isn't saved.", "図面は保存されていません。"}},
    CaptionRow{kCannotSwitch,
               {"The drawing can't be made current now.", "いまは図面を切り替えられません。"}},
    CaptionRow{kCannotPlot, {"The picture isn't drawn.", "画像は作成されていません。"}},
    CaptionRow{kPlotted, {"Drawn: %1", "作成しました: %1"}},
    CaptionRow{kSaved, {"Saved: %1", "保存しました: %1"}},
    CaptionRow{kChangedTitle, {"Changed on disk", "ディスク上で変更されました"}},
    CaptionRow{kChangedText,
               {"%1 was changed by another program.", "%1 は別のプログラムで変更されました。"}},
    CaptionRow{kChangedModified,
               {"Reloading drops your own changes. Keeping lets you save them under another name.",
                "読み直すと、ここでの変更は失われます。残す場合は別の名前で保存できます。"}},
    CaptionRow{kReload, {"&Reload", "読み直す(&R)"}},
    CaptionRow{kKeep, {"&Keep", "残す(&K)"}},
    CaptionRow{kRecoverTitle, {"Recover drawings", "図面の復元"}},
    CaptionRow{kRecoverText,
               {"The program ended without saving these drawings. Copies of them were kept:",
                "前回、次の図面が保存されずに終了しました。自動保存されたコピーがあります:"}},
    CaptionRow{kRecover, {"&Recover", "復元(&R)"}},
    CaptionRow{kRecoverLater, {"&Later", "後で(&L)"}},
    CaptionRow{kRecoverStale, {"the file was changed since", "その後ファイルが変更されています"}},
    CaptionRow{kUntitled, {"(never saved)", "(未保存)"}},
    CaptionRow{kBlocked, {"blocked: must not be written", "ロック: 書き込み禁止"}},
    CaptionRow{kMissing, {"the file is missing", "ファイルがありません"}},
    CaptionRow{kNoHelp, {"The help isn't installed.", "ヘルプがインストールされていません。"}},
    CaptionRow{kAboutText,
               {"Text tools for electrical drawings in DXF files.",
                "DXF 形式の電気図面のための文字ツールです。"}},
};
static_assert(kRows.size() == static_cast<std::size_t>(kCount));

}  // namespace

const CaptionRow& captionRow(Caption caption) {
  return kRows[static_cast<std::size_t>(caption)];
}

QString say(Caption caption) {
  return captionRow(caption).words.text();
}

QString withoutKey(QString name) {
  static const QRegularExpression kKey(QStringLiteral("\\(&.\\)|&|\\.\\.\\.$"));
  return name.remove(kKey);
}

QString sayPlain(Caption caption) {
  return withoutKey(say(caption));
}

}  // namespace kovra::desktop
