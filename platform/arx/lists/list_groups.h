// Between the groups of records and the elements of lists.
#pragma once
#include <string>

#include "platform/arx/base/ads.h"
#include "platform/arx/database/object_id.h"
#include "platform/arx/database/record_edit.h"

class AcDbDatabase;

namespace kovra::arx {

/// Angles are degrees in a drawing and radians in a list.
bool isAngleCode(int code);

/// Builds a list from the left. The list is the caller's once it is taken.
class ListBuilder {
 public:
  ListBuilder() = default;
  ~ListBuilder() { acutRelRb(head_); }
  ListBuilder(const ListBuilder&) = delete;
  ListBuilder& operator=(const ListBuilder&) = delete;

  void appendName(int code, AcDbObjectId id);
  void appendText(int code, const std::wstring& text);
  void appendAscii(int code, std::string_view text);
  void appendPoint(int code, const AcGePoint3d& point);
  /// The group as its code's kind of element; a point takes its y and z along. Nothing for the y
  /// and z of a point and for what lists don't show.
  void appendGroup(const AcDbDatabase& database, const dxf::RecordDraft& draft, std::size_t group);
  resbuf* take();

 private:
  resbuf* append(int code);

  resbuf* head_ = nullptr;
  resbuf** tail_ = &head_;
};

/// A text element's value; empty for a null text. Valid as long as the element's.
std::wstring_view listText(const resbuf& element);
bool isFiniteElement(const resbuf& element);
/// Whether the group has the element's value, both read as the list has them.
bool equalsElement(const AcDbDatabase& database, const dxf::RecordDraft& draft, std::size_t group,
                   const resbuf& element);
/// Gives the group (of the element's code) the element's value.
void setFromElement(const AcDbDatabase& database, dxf::RecordDraft& draft, std::size_t group,
                    const resbuf& element);
/// Inserts a group of the element's code and value; points as three groups.
void insertFromElement(const AcDbDatabase& database, dxf::RecordDraft& draft, std::size_t at,
                       const resbuf& element);

}  // namespace kovra::arx
