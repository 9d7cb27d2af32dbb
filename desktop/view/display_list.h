// What a drawing shows, ready to be painted and searched.
#pragma once
#include <array>
#include <chrono>
#include <map>
#include <memory>
#include <optional>
#include <vector>

#include "desktop/view/box_index.h"
#include "desktop/view/shapes.h"
#include "platform/arx/drawing/drawing_walk.h"
#include "platform/dxf/record_store.h"

class AcDbDatabase;

namespace kovra::desktop {

using Clock = std::chrono::steady_clock;

/// An entity of the space, with all that it draws.
struct Shown {
  dxf::RecordIndex record = dxf::kNoRecord;
  ShapeRange range;
  Box box;    ///< empty: it shows nothing
  Box reach;  ///< the same, widened to where a pick may hit it
};

/// Some hundreds of entities that follow each other in drawing order.
struct Chunk {
  std::vector<dxf::RecordIndex> records;
  std::vector<Shown> entities;  ///< of the records, once they were read
  Shapes shapes;
  Box box;                 ///< around them all
  BoxIndex index;          ///< by their reach; holds places in `entities`
  std::size_t unused = 0;  ///< curves and texts of what changed since
  bool stale = true;       ///< to be built anew
};

/// The current space of a drawing as shapes. It follows the drawing's changes: an entity that
/// changed is read again, what depends on a changed layer or block is built anew in parts. Nothing
/// is read but in work() and shapesOf(), when nobody changes the drawing.
class DisplayList : private dxf::StoreListener {
 public:
  /// The database must outlive this.
  explicit DisplayList(AcDbDatabase& database);
  ~DisplayList() override;
  DisplayList(const DisplayList&) = delete;
  DisplayList& operator=(const DisplayList&) = delete;

  /// What has to be painted again.
  struct Damage {
    bool all = false;
    std::vector<Box> boxes;           ///< what lies in there
    std::vector<std::size_t> chunks;  ///< built for the first time: to be painted over the rest
    bool any() const { return all || !boxes.empty() || !chunks.empty(); }
  };
  /// Takes over changes and goes on building until about `deadline`.
  Damage work(Clock::time_point deadline);
  /// Whether there is nothing left to build.
  bool complete() const {
    return listed() && nextToBuild_ == buildOrder_.size() && changed_.empty();
  }
  /// Whether it is known what there is; before that nothing shows.
  bool listed() const { return nextToList_ == dxf::kNoRecord; }

  const std::vector<Chunk>& chunks() const { return chunks_; }
  /// A thin selection of a large drawing, to be shown until it is complete.
  const Chunk& sample() const { return sample_; }
  /// Null for what isn't shown or not built yet.
  const Shown* find(dxf::RecordIndex record, const Chunk*& chunk) const;
  /// What a record of an entity draws, read anew: of the entity itself, everything.
  Shapes shapesOf(dxf::RecordIndex entity, dxf::RecordIndex part);
  /// Calls visit(chunk, shown) for entities with their reach in the box, in no special order.
  template <class Visit>
  void visit(const Box& box, Visit visit) const;
  /// Records whose reach touches the box, in drawing order; nothing while it isn't complete.
  std::optional<std::vector<dxf::RecordIndex>> recordsIn(const Box& box) const;
  /// Around all that shows.
  Box extents() const;

 private:
  struct PlaceOf {
    std::uint32_t chunk = kNowhere;
    std::uint32_t at = 0;
  };
  static constexpr std::uint32_t kNowhere = 0xffffffffU;
  /// What of a layer decides how its entities show: flags, color index, true color.
  using LayerKey = std::array<std::int64_t, 3>;

  void afterChange(dxf::RecordIndex record) override;

  void start();
  void listEntities(Clock::time_point deadline);
  void makeSample(Clock::time_point deadline);
  void build(std::size_t chunk);
  void buildAllAgain();
  /// The writer's shapes are those given.
  Shown read(dxf::RecordIndex record, Shapes& shapes, ShapeWriter& writer);
  void draw(dxf::RecordIndex record, dxf::RecordIndex part, ShapeWriter& writer);
  void buildNext(Damage& damage, Clock::time_point deadline);
  void takeChanges(Damage& damage, Clock::time_point deadline);
  bool takeChange(dxf::RecordIndex record, Damage& damage);
  void readAgain(PlaceOf place, Damage& damage);
  dxf::RecordIndex entityOf(dxf::RecordIndex record) const;
  std::optional<PlaceOf> insert(dxf::RecordIndex record);
  PlaceOf placeOf(dxf::RecordIndex record) const;
  void setPlace(dxf::RecordIndex record, PlaceOf place);
  bool layersLookDifferent();

  AcDbDatabase& database_;
  dxf::BlockNumber space_ = dxf::kNoBlock;
  std::unique_ptr<arx::DrawingWalk> walk_;
  std::vector<Chunk> chunks_;
  Chunk sample_;
  Shapes scratch_;               ///< of the chunk that is being built: has the room that they need
  std::vector<PlaceOf> places_;  ///< by record
  dxf::RecordIndex nextToList_ = dxf::kNoRecord;
  std::vector<std::size_t> buildOrder_;
  std::size_t nextToBuild_ = 0;
  bool buildingAgain_ = false;  ///< the chunks show already, though not as they should
  std::vector<dxf::RecordIndex> changed_;
  std::map<std::wstring, LayerKey> layers_;
};

template <class Visit>
void DisplayList::visit(const Box& box, Visit visit) const {
  std::vector<std::uint32_t> found;
  for (const Chunk& chunk : chunks_) {
    if (!chunk.box.touches(box)) continue;
    found.clear();
    chunk.index.find(box, found);
    for (const std::uint32_t at : found) visit(chunk, chunk.entities[at]);
  }
}

}  // namespace kovra::desktop
