#include "desktop/frame/status_fields.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QLabel>
#include <QStatusBar>
#include <QToolButton>

#include "desktop/frame/captions.h"
#include "desktop/loop/input_queue.h"
#include "desktop/loop/texts.h"
#include "desktop/view/drawing_view.h"
#include "platform/arx/database/database.h"
#include "platform/arx/editor/documents/document_list.h"
#include "platform/arx/editor/host_api.h"
#include "platform/dxf/record_store.h"
#include "platform/win/base/interaction.h"

namespace kovra::desktop {
namespace {

namespace editor = arx::host;

void setLater(const wchar_t* variable, const std::wstring& value) {
  inputQueue().add([variable, value] {
    const Result<void> set = editor::setVariable(variable, value);
    if (set) return;
    win::interaction().freshLine();
    win::interaction().print(set.error().message + "\n");
  });
}

std::wstring valueOf(const wchar_t* variable) {
  const Result<std::wstring> value = editor::variable(variable);
  return value ? value.value() : std::wstring();
}

/// Differs when the layer table may: another drawing, other records, another step done or undone.
std::wstring tableState() {
  const AcApDocument* document = arx::DocumentList::instance().current();
  if (document == nullptr) return {};
  return std::to_wstring(document->serial()) + L' ' +
         std::to_wstring(document->database()->store().count()) + L' ' +
         editor::undoName().value_or(L"-") + L' ' + editor::redoName().value_or(L"-");
}

}  // namespace

QToolButton* StatusFields::addSwitch(QStatusBar& bar, const QString& text) {
  auto* button = new QToolButton(&bar);
  button->setText(text);
  button->setCheckable(true);
  button->setAutoRaise(true);
  bar.addPermanentWidget(button);
  return button;
}

StatusFields::StatusFields(QStatusBar& bar, DrawingView& view) : view_(view) {
  coordinates_ = new QLabel(&bar);
  coordinates_->setObjectName(QStringLiteral("coordinates"));
  coordinates_->setMinimumWidth(
      coordinates_->fontMetrics().horizontalAdvance(QStringLiteral("-000000.0000, -000000.0000")));
  bar.addWidget(coordinates_);
  constexpr std::pair<Caption, const wchar_t*> kModes[] = {{Caption::kOrtho, L"ORTHOMODE"},
                                                           {Caption::kSnap, L"SNAPMODE"}};
  for (const auto& [caption, variable] : kModes) {
    QToolButton* button = addSwitch(bar, say(caption));
    QObject::connect(button, &QToolButton::clicked, button,
                     [this, name = variable] { toggle(name); });
    switches_.push_back({button, variable});
  }
  snaps_ = addSwitch(bar, say(Caption::kObjectSnaps));
  QObject::connect(snaps_, &QToolButton::clicked, snaps_,
                   [this](bool on) { view_.setSnapsToObjects(on); });
  // As the coordinates of drawings are shown, with four places.
  view_.setCursorWatcher([this](const AcGePoint3d& point) {
    coordinates_->setText(QStringLiteral("%1, %2").arg(point.x, 0, 'f', 4).arg(point.y, 0, 'f', 4));
  });
  layers_ = new QComboBox(&bar);
  layers_->setObjectName(QStringLiteral("layers"));
  layers_->setToolTip(say(Caption::kLayer));
  layers_->setAccessibleName(say(Caption::kLayer));
  layers_->setMinimumContentsLength(12);
  layers_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  QObject::connect(layers_, &QComboBox::textActivated, layers_,
                   [](const QString& name) { setLater(L"CLAYER", fromQt(name)); });
  bar.addPermanentWidget(layers_);
  scale_ = new QLabel(&bar);
  scale_->setToolTip(say(Caption::kScale));
  bar.addPermanentWidget(scale_);
}

void StatusFields::toggle(const wchar_t* variable) {
  inputQueue().add([variable] {
    static_cast<void>(editor::setVariable(variable, valueOf(variable) == L"0" ? L"1" : L"0"));
  });
}

void StatusFields::refresh() {
  const bool open = editor::currentDrawing() != 0;
  snaps_->setChecked(view_.snapsToObjects());
  for (const Switch& mode : switches_) {
    mode.button->setEnabled(open);
    mode.button->setChecked(open && valueOf(mode.variable) != L"0");
  }
  layers_->setEnabled(open && !editor::topWait().modalOnTop);
  const QString scale = open ? QStringLiteral("1:%1").arg(toQt(valueOf(L"DIMSCALE"))) : QString();
  if (scale_->text() != scale) scale_->setText(scale);
  // An open list stays as it is while the user looks at it.
  if (layers_->view()->isVisible()) return;
  if (std::wstring state = tableState(); state != shownState_) {
    shownState_ = std::move(state);
    showLayers(editor::namesOf(editor::NameKind::kLayer));
  }
  const int index = layers_->findText(toQt(valueOf(L"CLAYER")), Qt::MatchFixedString);
  if (layers_->currentIndex() != index) layers_->setCurrentIndex(index);
}

void StatusFields::showLayers(const std::vector<std::wstring>& layers) {
  if (layers == shownLayers_) return;
  shownLayers_ = layers;
  layers_->clear();
  for (const std::wstring& layer : layers) layers_->addItem(toQt(layer));
}

}  // namespace kovra::desktop
