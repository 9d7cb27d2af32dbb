#include "desktop/frame/drawing_files.h"

#include <QFileDialog>
#include <QTemporaryDir>

#include "desktop/frame/captions.h"
#include "desktop/frame/questions.h"
#include "desktop/frame/settings.h"
#include "desktop/frame/unwinding.h"
#include "desktop/loop/texts.h"
#include "launch/picture_library.h"
#include "platform/win/base/interaction.h"
#include "platform/win/base/run_settings.h"

namespace kovra::desktop {
namespace {

namespace editor = arx::host;
using editor::DrawingId;
using editor::DrawingInfo;

std::filesystem::path toPath(const QString& name) {
  return name.toStdString();
}

void note(Caption caption, const std::string& file) {
  win::interaction().freshLine();
  win::interaction().print(say(caption).arg(QString::fromStdString(file)).toStdString() + "\n");
}

/// Where dialogs begin: beside the drawing, else in the project, else where the program was
/// started.
QString usualFolder() {
  if (const auto drawing = findDrawing(editor::currentDrawing()); drawing && !drawing->file.empty())
    return QFileInfo(QString::fromStdString(drawing->file.string())).absolutePath();
  const std::filesystem::path& project = win::runSettings().projectFolder;
  return project.empty() ? QDir::currentPath() : QString::fromStdString(project.string());
}

QString withEnding(QString name, const char* ending) {
  if (QFileInfo(name).suffix().isEmpty()) name += QLatin1String(ending);
  return name;
}

}  // namespace

std::optional<DrawingInfo> findDrawing(DrawingId id) {
  for (DrawingInfo& drawing : editor::drawings())
    if (drawing.id == id) return std::move(drawing);
  return std::nullopt;
}

void openProject(const QString& folder) {
  win::setCurrentProject(toPath(folder));
  if (!folder.isEmpty()) noteRecent(Recent::kProjects, folder);
}

DrawingFiles::DrawingFiles(QWidget& window, std::function<void(DrawingId)> saved)
    : window_(window), saved_(std::move(saved)) {}

bool DrawingFiles::open(const QString& file) {
  const auto opened = editor::openDrawing(toPath(file));
  if (!opened) tellFailure(&window_, say(Caption::kCannotOpen), opened.error().message);
  return static_cast<bool>(opened);
}

void DrawingFiles::openNew() {
  if (const auto made = editor::newDrawing(); !made)
    tellFailure(&window_, say(Caption::kCannotOpen), made.error().message);
}

void DrawingFiles::chooseAndOpen() {
  const QStringList files = QFileDialog::getOpenFileNames(
      &window_, sayPlain(Caption::kOpen), usualFolder(),
      say(Caption::kDrawings) + QStringLiteral(";;") + say(Caption::kAllFiles));
  for (const QString& file : files)
    if (!open(file)) return;
}

bool DrawingFiles::save(DrawingId id) {
  const auto drawing = findDrawing(id);
  if (!drawing) return true;
  if (drawing->file.empty()) return saveAs(id);
  const auto saved = editor::saveDrawing(id, nullptr, {.backup = win::runSettings().keepBackup});
  if (!saved) {
    tellFailure(&window_, say(Caption::kCannotSave), saved.error().message);
    return false;
  }
  note(Caption::kSaved, drawing->file.string());
  saved_(id);
  return true;
}

bool DrawingFiles::saveAs(DrawingId id) {
  const auto drawing = findDrawing(id);
  if (!drawing) return true;
  const QString begin = drawing->file.empty()
                            ? usualFolder() + QLatin1Char('/') + toQt(drawing->title)
                            : QString::fromStdString(drawing->file.string());
  const QString name = QFileDialog::getSaveFileName(&window_, sayPlain(Caption::kSaveAs), begin,
                                                    say(Caption::kDrawings));
  if (name.isEmpty()) return false;
  const std::filesystem::path file = toPath(withEnding(name, ".dxf"));
  const auto saved = editor::saveDrawing(
      id, &file, {.backup = win::runSettings().keepBackup, .copy = false, .rename = true});
  if (!saved) {
    tellFailure(&window_, say(Caption::kCannotSave), saved.error().message);
    return false;
  }
  note(Caption::kSaved, file.string());
  saved_(id);
  return true;
}

bool DrawingFiles::saveAll() {
  for (const DrawingInfo& drawing : editor::drawings())
    if (drawing.modified && !save(drawing.id)) return false;
  return true;
}

bool DrawingFiles::settleUnsaved(const std::vector<DrawingInfo>& drawings) {
  QStringList names;
  for (const DrawingInfo& drawing : drawings)
    if (drawing.modified) names.append(toQt(drawing.title));
  if (names.isEmpty()) return true;
  const Unsaved wanted = askUnsaved(&window_, names);
  if (wanted != Unsaved::kSave) return wanted == Unsaved::kDiscard;
  for (const DrawingInfo& drawing : drawings)
    if (drawing.modified && !save(drawing.id)) return false;
  return true;
}

bool DrawingFiles::mayQuit() {
  return settleUnsaved(editor::drawings());
}

void DrawingFiles::close(DrawingId id) {
  const auto finish = [this, id] {
    const auto drawing = findDrawing(id);
    if (!drawing || !settleUnsaved({*drawing})) return;
    if (const auto closed = editor::closeDrawing(id); !closed)
      tellFailure(&window_, say(Caption::kCannotSwitch), closed.error().message);
  };
  // What a command of it may still take back couldn't be saved.
  editor::topWait().drawing == id ? unwindThen(finish) : finish();
}

void DrawingFiles::reload(DrawingId id) {
  unwindThen([this, id] {
    if (!findDrawing(id)) return;
    if (const auto read = editor::reloadDrawing(id); !read)
      tellFailure(&window_, say(Caption::kCannotOpen), read.error().message);
  });
}

void DrawingFiles::plot() {
  const auto drawing = findDrawing(editor::currentDrawing());
  if (!drawing) return;
  const QString begin = usualFolder() + QLatin1Char('/') +
                        QFileInfo(toQt(drawing->title)).completeBaseName() + QStringLiteral(".svg");
  const QString name = QFileDialog::getSaveFileName(&window_, sayPlain(Caption::kPlot), begin,
                                                    say(Caption::kPictures));
  if (name.isEmpty()) return;
  // The picture shows the drawing as it is here, saved or not.
  const QTemporaryDir folder;
  const std::filesystem::path copy = toPath(folder.filePath(QStringLiteral("drawing.dxf")));
  const std::filesystem::path picture = toPath(withEnding(name, ".svg"));
  const auto fail = [this](const Error& error) {
    tellFailure(&window_, say(Caption::kCannotPlot), error.message);
  };
  const auto form = launch::pictureForm(picture);
  if (!form) return fail(form.error());
  const auto library = launch::loadPictureLibrary();
  if (!library) return fail(library.error());
  const auto copied = editor::saveDrawing(drawing->id, &copy, {.backup = false, .copy = true});
  if (!copied) return fail(copied.error());
  const auto drawn = library.value().plot(copy, {}, picture, form.value());
  drawn ? note(Caption::kPlotted, picture.string()) : fail(drawn.error());
}

void DrawingFiles::chooseProject() {
  const QString folder =
      QFileDialog::getExistingDirectory(&window_, sayPlain(Caption::kOpenProject), usualFolder());
  if (!folder.isEmpty()) openProject(folder);
}

}  // namespace kovra::desktop
