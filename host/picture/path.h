#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace kovra::host {

/// A place in a picture, in pixels from its top left corner unless something else is said.
struct Spot {
  double x = 0;
  double y = 0;
};

/// x' = a x + c y + e, y' = b x + d y + f.
struct Affine {
  double a = 1, b = 0, c = 0, d = 1, e = 0, f = 0;

  Spot operator()(Spot p) const { return {a * p.x + c * p.y + e, b * p.x + d * p.y + f}; }
  /// Full of infinities when there is none.
  Affine inverse() const;
};

struct Rgb {
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;
  bool operator==(const Rgb&) const = default;
};

/// The smallest box along the axes around what was added.
struct Bounds {
  double left = 1e300, top = 1e300, right = -1e300, bottom = -1e300;

  bool isEmpty() const { return left > right; }
  void add(Spot p);
  bool touches(const Bounds& other) const {
    return left <= other.right && right >= other.left && top <= other.bottom && bottom >= other.top;
  }
};

/// Chains of lines and curves (cubic ones).
class Path {
 public:
  enum class Step : std::uint8_t { kMove, kLine, kCurve, kClose };

  void moveTo(Spot to) { add(Step::kMove, {&to, 1}); }
  void lineTo(Spot to) { add(Step::kLine, {&to, 1}); }
  /// Two control points and the end.
  void curveTo(Spot first, Spot second, Spot to);
  void close() { steps_.push_back(Step::kClose); }
  void box(double left, double top, double right, double bottom);
  void append(const Path& other, const Affine& matrix);

  bool isEmpty() const { return steps_.empty(); }
  void clear();
  /// Calls take(step, spots) for each step, with its one, three or no spots.
  template <class Take>
  void forEach(Take take) const;
  /// Control points count as well.
  Bounds bounds() const;
  const std::vector<Spot>& spots() const { return spots_; }

 private:
  void add(Step step, std::span<const Spot> spots);

  std::vector<Step> steps_;
  std::vector<Spot> spots_;
};

template <class Take>
void Path::forEach(Take take) const {
  const Spot* at = spots_.data();
  for (const Step step : steps_) {
    const std::size_t count = step == Step::kClose ? 0 : step == Step::kCurve ? 3 : 1;
    take(step, std::span<const Spot>(at, count));
    at += count;
  }
}

}  // namespace kovra::host
