// The table of cells.
#include <QAbstractTableModel>
#include <QHeaderView>
#include <QMouseEvent>
#include <QTableView>
#include <map>

#include "desktop/loop/texts.h"
#include "desktop/mirror/acts.h"
#include "desktop/mirror/control_mirror.h"
#include "desktop/mirror/dialog_mirror.h"
#include "desktop/mirror/field_line.h"
#include "platform/spread/grid_state.h"
#include "platform/win/desktop/table_input.h"

namespace kovra::desktop {
namespace {

using Cell = win::TableState::Cell;
using CellPlace = std::pair<int, int>;  // row, column

/// The texts of a table as they were when it was followed last. Its rows and columns count from 0.
class CellTexts : public QAbstractTableModel {
 public:
  void follow(const spread::GridState& grid);

  int rowCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : size_.row;
  }
  int columnCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : size_.column;
  }
  QVariant data(const QModelIndex& index, int role) const override {
    const auto found = shown_.find({index.row() + 1, index.column() + 1});
    if (role != Qt::DisplayRole || found == shown_.end()) return {};
    return found->second;
  }
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& /*index*/) const override {
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable;
  }

 private:
  Cell size_;
  std::map<CellPlace, QString> shown_;
};

void CellTexts::follow(const spread::GridState& grid) {
  std::map<CellPlace, QString> shown;
  for (const auto& cell : grid.filledCells())
    shown[{cell.place.row, cell.place.column}] = toQt(cell.shown);
  const Cell size = grid.size();
  for (int column = 1; column <= size.column; ++column)
    if (const std::wstring& own = grid.cells.text(column, 0); !own.empty())
      shown[{0, column}] = toQt(own);
  for (int row = 1; row <= size.row; ++row)
    if (const std::wstring& own = grid.cells.text(0, row); !own.empty())
      shown[{row, 0}] = toQt(own);
  if (size.row != size_.row || size.column != size_.column) {
    beginResetModel();
    size_ = size;
    shown_ = std::move(shown);
    endResetModel();
  } else if (shown != shown_) {
    shown_ = std::move(shown);
    dataChanged(index(0, 0), index(size_.row - 1, size_.column - 1));
    headerDataChanged(Qt::Horizontal, 0, size_.column - 1);
    headerDataChanged(Qt::Vertical, 0, size_.row - 1);
  }
}

QVariant CellTexts::headerData(int section, Qt::Orientation orientation, int role) const {
  if (role != Qt::DisplayRole) return {};
  const bool across = orientation == Qt::Horizontal;
  const auto own = shown_.find(across ? CellPlace{0, section + 1} : CellPlace{section + 1, 0});
  if (own != shown_.end()) return own->second;
  if (!across) return section + 1;
  QString name;  // A, B ... Z, AA, AB ...
  constexpr int kLetters = 26;
  for (int column = section + 1; column > 0; column = (column - 1) / kLetters)
    name.prepend(QChar(u'A' + (column - 1) % kLetters));
  return name;
}

class GridView : public QTableView {
 public:
  GridView(HWND window, QWidget* parent) : QTableView(parent), window_(window) {}

 protected:
  void mousePressEvent(QMouseEvent* event) override {
    // The view itself would make the cell active with any button.
    if (event->button() != Qt::LeftButton) return event->accept();
    QTableView::mousePressEvent(event);
    pressed_ = cellAt(event->pos());
    if ((event->modifiers() & Qt::ShiftModifier) != 0 && active_.row > 0) pressed_ = active_;
  }
  void mouseReleaseEvent(QMouseEvent* event) override {
    QTableView::mouseReleaseEvent(event);
    const Cell to = cellAt(event->pos());
    if (event->button() != Qt::LeftButton || pressed_.row == 0) return;
    addAct(window_, [window = window_, from = pressed_, to = to.row == 0 ? pressed_ : to] {
      return win::selectCells(window, from, to);
    });
    pressed_ = {};
  }
  void mouseDoubleClickEvent(QMouseEvent* event) override {
    const Cell cell = cellAt(event->pos());
    if (event->button() != Qt::LeftButton || cell.row == 0) return;
    pressed_ = {};
    addAct(window_, [window = window_, cell] { return win::doubleClickCell(window, cell); });
  }
  void contextMenuEvent(QContextMenuEvent* event) override {
    const Cell cell = cellAt(event->pos());
    addAct(window_, [window = window_, cell] {
      return win::openMenu(window, cell.row > 0 ? std::optional(cell) : std::nullopt);
    });
  }

 public:
  void setActive(Cell cell) { active_ = cell; }

 private:
  /// Zeros where there is no cell.
  Cell cellAt(QPoint place) const {
    const QModelIndex index = indexAt(place);
    return index.isValid() ? Cell{index.column() + 1, index.row() + 1} : Cell{};
  }

  HWND window_;
  Cell pressed_;
  Cell active_;
};

class GridMirror : public ControlMirror {
 public:
  GridMirror(HWND window, GridView* view, Scale scale);
  ~GridMirror() override {
    if (widget() != nullptr) view_->setModel(nullptr);
  }

  QWidget* focusWidget() const override {
    return editor_ != nullptr ? static_cast<QWidget*>(editor_) : view_;
  }
  void update(const win::ControlListing& listing) override;
  win::ControlListing shown() const override;

 private:
  void followSizes(const spread::GridState& grid);
  void followSelection(const win::TableListing& table);
  void followEditor(const spread::GridState& grid);
  QModelIndex indexOf(Cell cell) const { return texts_.index(cell.row - 1, cell.column - 1); }

  GridView* view_;
  CellTexts texts_;
  Scale scale_;
  std::map<LONG, LONG> widths_;
  QPointer<FieldLine> editor_;
  HWND edited_ = nullptr;
};

GridMirror::GridMirror(HWND window, GridView* view, Scale scale)
    : ControlMirror(window, view), view_(view), scale_(scale) {
  view_->setModel(&texts_);
  view_->setFocusPolicy(Qt::TabFocus);
  view_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  view_->setWordWrap(false);
  view_->verticalHeader()->setDefaultSectionSize(
      scale_.size({0, spread::GridLayout::kRowHeight}).height());
  view_->verticalHeader()->setMinimumSectionSize(1);
  view_->horizontalHeader()->setMinimumSectionSize(1);
  const auto whole = [this, window](Qt::Orientation orientation) {
    QHeaderView* header =
        orientation == Qt::Horizontal ? view_->horizontalHeader() : view_->verticalHeader();
    QObject::connect(header, &QHeaderView::sectionPressed, [window, orientation](int section) {
      const Cell cell = orientation == Qt::Horizontal ? Cell{section + 1, 0} : Cell{0, section + 1};
      addAct(window, [window, cell] { return win::selectCells(window, cell, cell); });
    });
  };
  whole(Qt::Horizontal);
  whole(Qt::Vertical);
}

void GridMirror::update(const win::ControlListing& listing) {
  const auto* grid = win::stateOf<spread::GridState>(window());
  if (grid == nullptr || !listing.table) return;
  texts_.follow(*grid);
  followSizes(*grid);
  followSelection(*listing.table);
  followEditor(*grid);
}

void GridMirror::followSizes(const spread::GridState& grid) {
  view_->horizontalHeader()->setVisible(grid.option(SS_BOOL_COLUMN_HEADERS));
  view_->verticalHeader()->setVisible(grid.option(SS_BOOL_ROW_HEADERS));
  if (widths_ == grid.layout.widths && !widths_.empty()) return;
  widths_ = grid.layout.widths;
  view_->horizontalHeader()->setDefaultSectionSize(
      scale_.size({spread::GridLayout::kColumnWidth, 0}).width());
  for (const auto& [column, width] : widths_)
    view_->setColumnWidth(static_cast<int>(column) - 1, scale_.size({width, 0}).width());
}

void GridMirror::followSelection(const win::TableListing& table) {
  using Flag = QItemSelectionModel::SelectionFlag;
  view_->setActive(table.active);
  QItemSelectionModel* selection = view_->selectionModel();
  const QModelIndex active = indexOf(table.active);
  if (selection->currentIndex() != active) {
    selection->setCurrentIndex(active, Flag::NoUpdate);
    view_->scrollTo(active);
  }
  Cell first = table.active, last = table.active;
  if (table.block) std::tie(first, last) = *table.block;
  const auto part = [](int from, int to, int count) {
    return from < 0 ? std::pair(1, count) : std::pair(from, to);
  };
  const auto [top, bottom] = part(first.row, last.row, table.size.row);
  const auto [left, right] = part(first.column, last.column, table.size.column);
  const QItemSelection wanted(indexOf({left, top}), indexOf({right, bottom}));
  if (selection->selection() != wanted) selection->select(wanted, Flag::ClearAndSelect);
}

/// The field in the active cell, over the cell.
void GridMirror::followEditor(const spread::GridState& grid) {
  const HWND field = grid.openEditor();
  if (field != edited_) {
    delete editor_;
    edited_ = field;
  }
  if (field == nullptr) return;
  if (editor_ == nullptr) {
    editor_ = new FieldLine(window(), view_->viewport());
    editor_->setObjectName(QStringLiteral("cell-editor"));
    editor_->setFrame(false);
    editor_->setAutoFillBackground(true);
    if (auto* dialog = dynamic_cast<DialogWidget*>(view_->window())) dialog->takeKeysOf(editor_);
  }
  editor_->setGeometry(view_->visualRect(indexOf(grid.activeCell())));
  editor_->show();
  editor_->follow(field);
}

win::ControlListing GridMirror::shown() const {
  win::ControlListing listing;
  win::TableListing table;
  table.size = {texts_.columnCount(), texts_.rowCount()};
  const QModelIndex current = view_->currentIndex();
  table.active = {current.column() + 1, current.row() + 1};
  for (int row = 0; row < texts_.rowCount(); ++row)
    for (int column = 0; column < texts_.columnCount(); ++column) {
      const QString text = texts_.data(texts_.index(row, column), Qt::DisplayRole).toString();
      if (!text.isEmpty()) table.cells.push_back({{column + 1, row + 1}, {}, fromQt(text)});
    }
  table.editing = editor_ != nullptr;
  if (editor_ != nullptr) table.editorText = fromQt(editor_->text());
  listing.table = std::move(table);
  return listing;
}

}  // namespace

MadeControl makeGrid(const win::ControlListing& listing, QWidget* parent, Scale scale) {
  return std::make_unique<GridMirror>(listing.window, new GridView(listing.window, parent), scale);
}

}  // namespace kovra::desktop
