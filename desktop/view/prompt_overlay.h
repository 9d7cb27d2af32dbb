// What is painted over the drawing: the selection, what is dragged, rubber bands.
#pragma once
#include <QImage>
#include <QPainter>
#include <optional>
#include <vector>

#include "desktop/view/display_list.h"
#include "desktop/view/glyph_masks.h"
#include "desktop/view/overlay_picture.h"
#include "desktop/view/snaps.h"
#include "desktop/view/view_frame.h"
#include "platform/arx/editor/host/prompt_view.h"

namespace kovra::desktop {

/// Keeps what the prompt that waits shows, as it was when everything was at rest last.
class PromptOverlay {
 public:
  explicit PromptOverlay(GlyphMasks& glyphs) : glyphs_(glyphs) {}

  /// Asks the editor what its prompt shows, and looks the entities up. `frame` in pixels of the
  /// screen. True when it has to be painted again. Reads the drawing.
  /// `hovers`: the cursor is in sight and free to pick. Of many entities some are painted until
  /// about `deadline`, the others by the next calls.
  bool refresh(DisplayList* list, const ViewFrame& frame, bool hovers, Clock::time_point deadline);
  /// Whether all of it is painted.
  bool complete() const {
    return selection_.picture.complete() && drag_.picture.complete() && jig_.complete();
  }
  /// What the list has of entities isn't what it was.
  void forget() {
    selection_ = {};
    drag_ = {};
    hovered_.reset();
    hover_ = {};
  }
  const arx::host::PromptView& prompt() const { return prompt_; }

  /// In pixels of the screen, as everything here. The band ends at `cursor`.
  void paint(QPainter& painter, const ViewFrame& frame, std::optional<QPointF> cursor) const;

 private:
  /// Entities of the drawing, and their image.
  struct Entities {
    std::vector<dxf::RecordIndex> records;
    OverlayPicture picture;
  };
  bool refreshSelection(const DisplayList* list, const ViewFrame& frame,
                        Clock::time_point deadline);
  bool refreshDrag(const DisplayList* list, const ViewFrame& frame, Clock::time_point deadline);
  bool refreshHovered(DisplayList* list, const ViewFrame& frame, bool hovers);
  bool refreshJig(const ViewFrame& frame, Clock::time_point deadline);
  bool refreshEntities(Entities& shown, std::vector<dxf::RecordIndex> records,
                       const DisplayList* list, const ViewFrame& frame, const QTransform& place,
                       const ShapePainter::Style& style, Clock::time_point deadline) const;

  GlyphMasks& glyphs_;
  arx::host::PromptView prompt_;
  Entities selection_;
  Entities drag_;
  std::optional<arx::host::Hovered> hovered_;
  ViewFrame hoverFrame_;
  QRect hoverPlace_;  ///< in the picture
  QImage hover_;
  Shapes jigged_;  ///< as the jig showed it when its picture was begun
  OverlayPicture jig_;
};

/// The box that a window or a crossing selects, or the one that a corner is asked of.
void paintBox(QPainter& painter, const QRectF& box, bool crossing);
/// The mark of a snap: a square, an insertion's two squares, a cross; beside it its name, within
/// `room`.
void paintSnap(QPainter& painter, QPointF at, SnapKind kind, double pixel, const QRectF& room);

}  // namespace kovra::desktop
