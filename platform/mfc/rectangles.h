#pragma once

#include "platform/win/base/windows_types.h"

/// The platform's points, sizes and rectangles with their operations.
class CPoint : public POINT {
 public:
  CPoint() : POINT{} {}
  CPoint(LONG left, LONG top) : POINT{left, top} {}
  CPoint(const POINT& other) : POINT(other) {}
  /// Of a message's parameter: low and high word, signed.
  explicit CPoint(LPARAM packed)
      : POINT{static_cast<SHORT>(LOWORD(packed)), static_cast<SHORT>(HIWORD(packed))} {}
  void Offset(LONG dx, LONG dy) {
    x += dx;
    y += dy;
  }
  bool operator==(const POINT& other) const { return x == other.x && y == other.y; }
};

class CSize : public SIZE {
 public:
  CSize() : SIZE{} {}
  CSize(LONG width, LONG height) : SIZE{width, height} {}
  CSize(const SIZE& other) : SIZE(other) {}
};

class CRect : public RECT {
 public:
  CRect() : RECT{} {}
  CRect(LONG l, LONG t, LONG r, LONG b) : RECT{l, t, r, b} {}
  CRect(const RECT& other) : RECT(other) {}

  LONG Width() const { return right - left; }
  LONG Height() const { return bottom - top; }
  CSize Size() const { return {Width(), Height()}; }
  CPoint TopLeft() const { return {left, top}; }
  CPoint BottomRight() const { return {right, bottom}; }
  CPoint CenterPoint() const { return {(left + right) / 2, (top + bottom) / 2}; }
  bool IsRectEmpty() const { return Width() <= 0 || Height() <= 0; }
  bool PtInRect(POINT p) const { return p.x >= left && p.x < right && p.y >= top && p.y < bottom; }
  void SetRect(LONG l, LONG t, LONG r, LONG b) { *this = CRect(l, t, r, b); }
  void SetRectEmpty() { *this = CRect(); }
  void OffsetRect(LONG dx, LONG dy) { SetRect(left + dx, top + dy, right + dx, bottom + dy); }
  void InflateRect(LONG dx, LONG dy) { SetRect(left - dx, top - dy, right + dx, bottom + dy); }
  void DeflateRect(LONG dx, LONG dy) { InflateRect(-dx, -dy); }
  bool operator==(const RECT& o) const {
    return left == o.left && top == o.top && right == o.right && bottom == o.bottom;
  }
  operator LPRECT() { return this; }
  operator LPCRECT() const { return this; }
};
