// Every change of a drawing, for undo, redo and transactions.
#pragma once
#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "platform/dxf/part_memory.h"
#include "platform/dxf/record_store.h"

namespace kovra::arx {

/// The old states of the records that changed, oldest first, with boundaries between them. It
/// listens to the store, so that no change can miss it; objects change their record once per open,
/// header variables are a record like any other. Undo stops at the latest boundary behind which
/// something changed; boundaries without a change behind them are skipped, also where changes
/// cancelled each other.
class Journal : private dxf::StoreListener {
 public:
  explicit Journal(dxf::RecordStore& store);
  ~Journal() override;
  Journal(const Journal&) = delete;
  Journal& operator=(const Journal&) = delete;

  /// A command begins at the idle host: what follows is one step. The name is what undo reports.
  void beginStep(std::wstring name);
  /// An undo mark: a boundary that undoBack finds.
  void setMark();
  /// Steps from here to endGroup are one. An open group is ended first.
  void beginGroup();
  void endGroup();
  bool groupOpen() const { return groupOpen_; }
  /// Whether undoBack would stop before the beginning.
  bool hasMark() const;

  /// Takes back up to `count` steps and returns their names, latest first. Within an open group it
  /// stops at the group's beginning. Nothing happens while a transaction runs.
  std::vector<std::wstring> undo(int count);
  /// Takes back everything to the latest mark and removes it; without a mark, everything. False if
  /// nothing changed.
  bool undoBack();
  /// Does again what the latest undo took back, until something else changes. False if there is
  /// nothing.
  bool redo();
  bool canUndo() const { return !entries_.empty(); }
  bool canRedo() const { return !undone_.empty(); }
  /// The name of the step that undo(1) would take back; nothing if there is none.
  std::optional<std::wstring> undoName() const;
  /// The name of the (first) step that redo() would bring back.
  std::optional<std::wstring> redoName() const;

  void startTransaction();
  /// Keeps the changes. False without a transaction.
  bool endTransaction();
  /// Puts every record back as it was at the start. False without a transaction.
  bool abortTransaction();
  int transactions() const { return static_cast<int>(transactions_.size()); }

 private:
  struct Entry {
    dxf::RecordIndex record;
    dxf::RecordState state;
  };
  enum class BoundaryKind : std::uint8_t { kStep, kMark, kGroup };
  struct Boundary {
    std::size_t position;
    BoundaryKind kind;
    std::wstring name;
  };
  /// What one undo took back: the changes with the newer states, and the boundaries that stood
  /// among them.
  struct Undone {
    std::vector<Entry> entries;
    std::vector<Boundary> boundaries;
    std::wstring name;  ///< of its first step
  };

  void beforeChange(dxf::RecordIndex record) override;
  void addBoundary(BoundaryKind kind, std::wstring name);
  bool takeBack(std::size_t position, Undone& undone);
  bool takeBackStep(Undone& undone, std::wstring& name);
  void keepUndone(Undone undone);
  std::size_t groupFloor() const;
  bool differs(const Entry& entry) const;
  bool changedSince(std::size_t position) const;

  dxf::RecordStore& store_;
  /// Grows without moving what is there.
  std::deque<Entry, dxf::PartAllocator<Entry>> entries_;
  std::vector<Boundary> boundaries_;
  std::vector<Undone> undone_;
  std::vector<std::size_t> transactions_;
  bool groupOpen_ = false;
  bool restoring_ = false;
};

}  // namespace kovra::arx
