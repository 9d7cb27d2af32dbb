// The display lists of the open drawings, and which one is current.
#pragma once
#include <functional>
#include <map>
#include <memory>
#include <optional>

#include "desktop/view/display_list.h"
#include "platform/arx/editor/documents/documents.h"
#include "platform/arx/editor/picks/hit_test.h"

namespace kovra::desktop {

/// Keeps a display list for each open drawing that was shown, and lets picks find entities in it.
class ShownDrawings : private AcApDocManagerReactor, private arx::EntityIndex {
 public:
  /// `dropped` is told when a drawing is closed, before its list goes.
  explicit ShownDrawings(std::function<void(const DisplayList&)> dropped);
  ~ShownDrawings() override;
  ShownDrawings(const ShownDrawings&) = delete;
  ShownDrawings& operator=(const ShownDrawings&) = delete;

  /// Null with no drawing open.
  AcApDocument* current() const;
  /// The list of the current drawing, made at the first call; null with none.
  DisplayList* currentList();

 private:
  void documentToBeDestroyed(AcApDocument* document) override;
  std::optional<std::vector<dxf::RecordIndex>> entitiesIn(const AcApDocument& document,
                                                          const AcDbExtents& box) override;

  std::function<void(const DisplayList&)> dropped_;
  std::map<std::uint32_t, std::unique_ptr<DisplayList>> lists_;  ///< by serial number
};

}  // namespace kovra::desktop
