#pragma once

#include <cstdint>
#include <utility>
#include <vector>

#include "platform/mfc/cstring.h"
#include "platform/mfc/object.h"

/// A growing list with the platform's names. An index out of range is a fault of the caller; it is
/// checked and throws std::out_of_range.
template <typename T, typename Argument = const T&>
class CArray : public CObject {
 public:
  INT_PTR GetSize() const { return static_cast<INT_PTR>(items_.size()); }
  INT_PTR GetCount() const { return GetSize(); }
  INT_PTR GetUpperBound() const { return GetSize() - 1; }
  bool IsEmpty() const { return items_.empty(); }
  void SetSize(INT_PTR size, INT_PTR /*growBy*/ = -1) { items_.resize(position(size)); }
  void RemoveAll() { items_.clear(); }
  void FreeExtra() { items_.shrink_to_fit(); }

  const T& GetAt(INT_PTR index) const { return items_.at(position(index)); }
  T& GetAt(INT_PTR index) { return items_.at(position(index)); }
  T& ElementAt(INT_PTR index) { return items_.at(position(index)); }
  const T& operator[](INT_PTR index) const { return items_.at(position(index)); }
  T& operator[](INT_PTR index) { return items_.at(position(index)); }
  void SetAt(INT_PTR index, Argument item) { items_.at(position(index)) = item; }
  void SetAtGrow(INT_PTR index, Argument item) {
    if (index >= GetSize()) SetSize(index + 1);
    SetAt(index, item);
  }
  T* GetData() { return items_.data(); }
  const T* GetData() const { return items_.data(); }

  /// Gives the index of the new item.
  INT_PTR Add(Argument item) {
    items_.push_back(item);
    return GetUpperBound();
  }
  INT_PTR Append(const CArray& other) {
    const INT_PTR first = GetSize();
    items_.insert(items_.end(), other.items_.begin(), other.items_.end());
    return first;
  }
  void Copy(const CArray& other) { items_ = other.items_; }
  void InsertAt(INT_PTR index, Argument item, INT_PTR count = 1) {
    if (index > GetSize()) SetSize(index);
    items_.insert(items_.begin() + index, position(count), item);
  }
  void RemoveAt(INT_PTR index, INT_PTR count = 1) {
    items_.at(position(index));
    if (count > GetSize() - index) count = GetSize() - index;
    items_.erase(items_.begin() + index, items_.begin() + index + count);
  }

 private:
  static std::size_t position(INT_PTR index) { return static_cast<std::size_t>(index); }

  std::vector<T> items_;
};

class CStringArray : public CArray<CString, LPCWSTR> {};
class CUIntArray : public CArray<UINT, UINT> {};
class CDWordArray : public CArray<DWORD, DWORD> {};
class CPtrArray : public CArray<void*, void*> {};
