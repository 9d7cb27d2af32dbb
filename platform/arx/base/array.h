// Growing lists.
#pragma once
#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <vector>

/// A growing list under the platform's names. An index outside the list is a fault of the caller.
/// New entries of setLogicalLength are what a default-made entry is: null ids, the origin.
template <class T>
class AcArray {
 public:
  AcArray() = default;
  AcArray(std::initializer_list<T> items) : items_(items) {}
  int length() const { return static_cast<int>(items_.size()); }
  int logicalLength() const { return length(); }
  bool isEmpty() const { return items_.empty(); }
  const T& at(int i) const { return items_[static_cast<std::size_t>(i)]; }
  T& at(int i) { return items_[static_cast<std::size_t>(i)]; }
  const T& operator[](int i) const { return at(i); }
  T& operator[](int i) { return at(i); }
  const T& first() const { return items_.front(); }
  const T& last() const { return items_.back(); }
  /// The index of the new entry.
  int append(const T& item) {
    items_.push_back(item);
    return length() - 1;
  }
  AcArray& append(const AcArray& other) {
    const std::vector<T> added = other.items_;
    items_.insert(items_.end(), added.begin(), added.end());
    return *this;
  }
  AcArray& insertAt(int i, const T& item) {
    items_.insert(items_.begin() + i, item);
    return *this;
  }
  AcArray& removeAt(int i) {
    items_.erase(items_.begin() + i);
    return *this;
  }
  AcArray& removeLast() {
    items_.pop_back();
    return *this;
  }
  AcArray& removeAll() {
    items_.clear();
    return *this;
  }
  AcArray& setLogicalLength(int length) {
    items_.resize(static_cast<std::size_t>(std::max(0, length)));
    return *this;
  }
  AcArray& setPhysicalLength(int length) {
    items_.reserve(static_cast<std::size_t>(std::max(0, length)));
    return *this;
  }
  AcArray& setAt(int i, const T& item) {
    at(i) = item;
    return *this;
  }
  AcArray& reverse() {
    std::reverse(items_.begin(), items_.end());
    return *this;
  }
  /// Index of the first equal entry from `start` on, or -1.
  int find(const T& item, int start = 0) const {
    for (int i = std::max(0, start); i < length(); ++i)
      if (at(i) == item) return i;
    return -1;
  }
  bool find(const T& item, int& index, int start) const {
    index = find(item, start);
    return index >= 0;
  }
  bool contains(const T& item) const { return find(item) >= 0; }
  auto begin() const { return items_.begin(); }
  auto end() const { return items_.end(); }

 private:
  std::vector<T> items_;
};
