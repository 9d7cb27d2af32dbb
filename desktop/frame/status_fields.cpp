#include "desktop/frame/status_fields.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QLabel>
#include <QStatusBar>
#include <QToolButton>

#include "desktop/frame/captions.h"
#include "desktop/loop/input_queue.h"
#include "desktop/loop/texts.h"
#include "platform/arx/editor/documents/document_list.h"
#include "platform/arx/editor/documents/document_session.h"
#include "platform/arx/editor/documents/ucs.h"
#include "platform/arx/editor/host_api.h"
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

/// The cursor in the current UCS with four places, as the coordinates of drawings are shown.
QString cursorText() {
  const AcApDocument* document = arx::DocumentList::instance().current();
  if (document == nullptr || !document->session().cursor.known) return {};
  const AcGePoint3d point = arx::toUcs(*document, document->session().cursor.point);
  return QStringLiteral("%1, %2").arg(point.x, 0, 'f', 4).arg(point.y, 0, 'f', 4);
}

std::wstring valueOf(const wchar_t* variable) {
  const Result<std::wstring> value = editor::variable(variable);
  return value ? value.value() : std::wstring();
}

}  // namespace

StatusFields::StatusFields(QStatusBar& bar) {
  coordinates_ = new QLabel(&bar);
  coordinates_->setObjectName(QStringLiteral("coordinates"));
  coordinates_->setMinimumWidth(
      coordinates_->fontMetrics().horizontalAdvance(QStringLiteral("-000000.0000, -000000.0000")));
  bar.addWidget(coordinates_);
  constexpr std::pair<Caption, const wchar_t*> kModes[] = {{Caption::kOrtho, L"ORTHOMODE"},
                                                           {Caption::kSnap, L"SNAPMODE"}};
  for (const auto& [caption, variable] : kModes) {
    auto* button = new QToolButton(&bar);
    button->setText(say(caption));
    button->setCheckable(true);
    button->setAutoRaise(true);
    QObject::connect(button, &QToolButton::clicked, button,
                     [this, name = variable] { toggle(name); });
    bar.addPermanentWidget(button);
    switches_.push_back({button, variable});
  }
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
  if (const QString text = cursorText(); coordinates_->text() != text) coordinates_->setText(text);
  for (const Switch& mode : switches_) {
    mode.button->setEnabled(open);
    mode.button->setChecked(open && valueOf(mode.variable) != L"0");
  }
  layers_->setEnabled(open && !editor::topWait().modalOnTop);
  const QString scale = open ? QStringLiteral("1:%1").arg(toQt(valueOf(L"DIMSCALE"))) : QString();
  if (scale_->text() != scale) scale_->setText(scale);
  // An open list stays as it is while the user looks at it.
  if (!layers_->view()->isVisible())
    showLayers(editor::namesOf(editor::NameKind::kLayer), valueOf(L"CLAYER"));
}

void StatusFields::showLayers(const std::vector<std::wstring>& layers,
                              const std::wstring& current) {
  if (layers != shownLayers_) {
    shownLayers_ = layers;
    layers_->clear();
    for (const std::wstring& layer : layers) layers_->addItem(toQt(layer));
  }
  const int index = layers_->findText(toQt(current), Qt::MatchFixedString);
  if (layers_->currentIndex() != index) layers_->setCurrentIndex(index);
}

}  // namespace kovra::desktop
