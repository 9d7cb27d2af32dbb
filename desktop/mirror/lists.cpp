// List views in report form.
#include <QAbstractTableModel>
#include <QHeaderView>
#include <QScrollBar>
#include <QTreeView>

#include "desktop/loop/texts.h"
#include "desktop/mirror/acts.h"
#include "desktop/mirror/control_mirror.h"
#include "platform/win/base/list_messages.h"
#include "platform/win/controls/list_control.h"

namespace kovra::desktop {
namespace {

/// The rows of a list view as they were when it was followed last.
class ListRows : public QAbstractTableModel {
 public:
  explicit ListRows(HWND window) : window_(window) {}

  void follow(const win::ListState& state);
  const std::vector<int>& checks() const { return checks_; }
  /// Whether a click since the last question was one on a check box.
  bool takeCheckClick() { return std::exchange(checkClicked_, false); }

  int rowCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
  }
  int columnCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : static_cast<int>(columns_.size());
  }
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override {
    const bool box = index.column() == 0 && !checks_.empty();
    const Qt::ItemFlags usual = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    return box ? usual | Qt::ItemIsUserCheckable : usual;
  }
  /// A click on a check box: the window in memory decides.
  bool setData(const QModelIndex& index, const QVariant& /*value*/, int role) override {
    if (role != Qt::CheckStateRole) return false;
    checkClicked_ = true;
    addAct(window_,
           [window = window_, row = index.row()] { return win::clickItemCheck(window, row); });
    return false;
  }

 private:
  HWND window_;
  std::vector<std::wstring> columns_;
  std::vector<std::vector<std::wstring>> rows_;
  std::vector<int> checks_;
  bool checkClicked_ = false;
};

void ListRows::follow(const win::ListState& state) {
  std::vector<std::wstring> columns;
  for (const auto& column : state.columns) columns.push_back(column.heading);
  std::vector<std::vector<std::wstring>> rows;
  for (const auto& row : state.rows) rows.push_back(row.texts);
  std::vector<int> checks = state.itemChecks();
  if (columns == columns_ && rows == rows_ && checks.size() == checks_.size()) {
    if (std::exchange(checks_, std::move(checks)) != checks_ && !rows_.empty())
      dataChanged(index(0, 0), index(rowCount() - 1, 0), {Qt::CheckStateRole});
    return;
  }
  beginResetModel();
  columns_ = std::move(columns);
  rows_ = std::move(rows);
  checks_ = std::move(checks);
  endResetModel();
}

QVariant ListRows::data(const QModelIndex& index, int role) const {
  const auto row = static_cast<std::size_t>(index.row());
  const auto column = static_cast<std::size_t>(index.column());
  if (role == Qt::CheckStateRole && column == 0 && row < checks_.size())
    return checks_[row] != 0 ? Qt::Checked : Qt::Unchecked;
  if (role != Qt::DisplayRole || row >= rows_.size() || column >= rows_[row].size()) return {};
  return toQt(rows_[row][column]);
}

QVariant ListRows::headerData(int section, Qt::Orientation orientation, int role) const {
  const auto column = static_cast<std::size_t>(section);
  const bool heading = orientation == Qt::Horizontal && role == Qt::DisplayRole;
  return heading && column < columns_.size() ? QVariant(toQt(columns_[column])) : QVariant();
}

class ListMirror : public ControlMirror {
 public:
  ListMirror(HWND window, QTreeView* view, Scale scale)
      : ControlMirror(window, view), view_(view), rows_(window), scale_(scale) {
    view_->setModel(&rows_);
    view_->setFocusPolicy(Qt::TabFocus);
    view_->setRootIsDecorated(false);
    view_->setUniformRowHeights(true);
    view_->setSelectionMode(QAbstractItemView::SingleSelection);
    view_->setHeaderHidden(win::hasStyle(window, LVS_NOCOLUMNHEADER));
    view_->header()->setSectionsMovable(false);
    view_->setItemsExpandable(false);
    QObject::connect(view_, &QTreeView::pressed, [window](const QModelIndex&) {
      addAct(window, [window] { return win::focusControl(window); });
    });
    // The window in memory decides what is selected.
    QObject::connect(view_->selectionModel(), &QItemSelectionModel::selectionChanged,
                     [this, window] {
                       if (!following_) addAct(window, [] { return win::InputResult{}; });
                     });
    QObject::connect(view_, &QTreeView::clicked, [this, window](const QModelIndex& index) {
      if (rows_.takeCheckClick()) return;
      addAct(window, [window, row = index.row()] { return win::chooseIndex(window, row); });
    });
  }
  ~ListMirror() override {
    if (widget() != nullptr) view_->setModel(nullptr);
  }

  void update(const win::ControlListing& /*listing*/) override {
    const auto* state = win::stateOf<win::ListState>(window());
    if (state == nullptr) return;
    following_ = true;
    const int scrolled = view_->verticalScrollBar()->value();
    rows_.follow(*state);
    view_->verticalScrollBar()->setValue(scrolled);
    setWidths(*state);
    select(*state);
    following_ = false;
  }

  win::ControlListing shown() const override {
    win::ControlListing listing;
    for (int row = 0; row < rows_.rowCount(); ++row) {
      QStringList texts;
      for (int column = 0; column < rows_.columnCount(); ++column)
        texts += rows_.data(rows_.index(row, column), Qt::DisplayRole).toString();
      listing.items.push_back(fromQt(texts.join(QLatin1Char('\t'))));
    }
    listing.checks = rows_.checks();
    const QModelIndexList selected = view_->selectionModel()->selectedRows();
    listing.selected = selected.isEmpty() ? -1 : selected.front().row();
    return listing;
  }

 private:
  void setWidths(const win::ListState& state) {
    std::vector<int> widths;
    for (const auto& column : state.columns) widths.push_back(column.width);
    if (widths == widths_) return;
    widths_ = widths;
    for (std::size_t i = 0; i < widths.size(); ++i)
      view_->setColumnWidth(static_cast<int>(i), scale_.size({widths[i], 0}).width());
  }

  void select(const win::ListState& state) {
    using Flag = QItemSelectionModel::SelectionFlag;
    QItemSelectionModel* selection = view_->selectionModel();
    const QModelIndex focused = rows_.index(state.findState(LVIS_FOCUSED), 0);
    if (focused != selection->currentIndex()) {
      selection->setCurrentIndex(focused, Flag::NoUpdate);
      if (focused.isValid()) view_->scrollTo(focused);
    }
    const int selected = state.selectedItem();
    if (selected < 0) {
      selection->clearSelection();
    } else if (!selection->isRowSelected(selected, {})) {
      selection->select(rows_.index(selected, 0), Flag::ClearAndSelect | Flag::Rows);
    }
  }

  QTreeView* view_;
  ListRows rows_;
  Scale scale_;
  std::vector<int> widths_;
  bool following_ = false;  ///< what changes now isn't the user's doing
};

}  // namespace

MadeControl makeList(const win::ControlListing& listing, QWidget* parent, Scale scale) {
  return std::make_unique<ListMirror>(listing.window, new QTreeView(parent), scale);
}

}  // namespace kovra::desktop
