// The drawing as an image that follows the view.
#pragma once
#include <QImage>
#include <QPainter>
#include <deque>
#include <optional>

#include "desktop/view/display_list.h"
#include "desktop/view/glyph_masks.h"
#include "desktop/view/view_frame.h"

namespace kovra::desktop {

/// Painted in slices of time, so that large drawings don't hold up the user: a view that moves
/// shows what there is, moved or stretched, until the rest is painted. A change of the drawing
/// paints only where it was.
class DrawingPicture {
 public:
  explicit DrawingPicture(GlyphMasks& glyphs) : glyphs_(glyphs) {}

  /// Another drawing (null: none): everything is painted anew.
  void show(const DisplayList* list);
  /// In pixels of the screen.
  void setFrame(const ViewFrame& frame);
  const ViewFrame& frame() const { return frame_; }
  void damage(const DisplayList::Damage& damage);
  /// Goes on painting until about `deadline`; whether anything was painted.
  bool work(Clock::time_point deadline);
  bool complete() const { return !next_ && front_.tasks.empty(); }
  /// Paints it to the whole of the painter's device of frame().width by height pixels.
  void paint(QPainter& painter) const;

  const QImage& image() const { return front_.image; }
  /// Pixels that were painted anew, all in all.
  std::size_t paintedPixels() const { return paintedPixels_; }

 private:
  /// A part of an image that is to be painted, as far as it is.
  struct Task {
    QRect clip;
    std::size_t chunk = 0;
    std::size_t endChunk = 0;
    std::size_t entity = 0;
    bool clear = true;  ///< what was there goes first
    bool begun = false;
  };
  struct Layer {
    QImage image;
    ViewFrame frame;
    std::deque<Task> tasks;
    bool smooth = true;
  };
  /// `image` is taken if it has the size.
  Layer newLayer(QImage image = {}) const;
  Task wholeTask(const QRect& clip) const;
  void restart();
  bool paintTasks(Layer& layer, Clock::time_point deadline);
  bool paintTask(Layer& layer, Task& task, Clock::time_point deadline);
  void addDamage(Layer& layer, const DisplayList::Damage& damage) const;
  void shift(Layer& layer, const ViewFrame& to) const;

  GlyphMasks& glyphs_;
  const DisplayList* list_ = nullptr;
  ViewFrame frame_;
  Layer front_;                ///< what is seen
  std::optional<Layer> next_;  ///< takes its place when it is done
  std::size_t paintedPixels_ = 0;
};

}  // namespace kovra::desktop
