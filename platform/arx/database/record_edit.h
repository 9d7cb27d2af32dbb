// Reading and changing single properties of a record's groups.
#pragma once
#include <optional>
#include <string>
#include <string_view>

#include "platform/arx/geometry/geometry.h"
#include "platform/dxf/record_draft.h"

namespace kovra::dxf {
class RecordStore;
class TextCodec;
}  // namespace kovra::dxf

namespace kovra::arx {

/// Where a property stands in a record: its group code below a subclass marker. Records without
/// markers (R12) are searched as a whole.
struct Property {
  std::string_view subclass;
  int code;
};

inline constexpr std::string_view kEntityPart = "AcDbEntity";
inline constexpr std::string_view kTextPart = "AcDbText";
inline constexpr std::string_view kAttributePart = "AcDbAttribute";
inline constexpr std::string_view kDefinitionPart = "AcDbAttributeDefinition";
inline constexpr std::string_view kMTextPart = "AcDbMText";
inline constexpr std::string_view kReferencePart = "AcDbBlockReference";
inline constexpr std::string_view kLayerPart = "AcDbLayerTableRecord";
inline constexpr std::string_view kStylePart = "AcDbTextStyleTableRecord";

/// The property's group, or dxf::kNoGroup. Common properties of entities are found before the first
/// marker of another subclass; text properties of attributes also below the attribute's marker,
/// where some writers put them.
std::size_t findProperty(const dxf::RecordDraft& draft, Property property);
/// Where a missing property's group belongs: behind the groups that stand before it in its
/// subclass.
std::size_t placeOf(const dxf::RecordDraft& draft, Property property);

double readReal(const dxf::RecordDraft& draft, Property property, double absent);
std::int64_t readInteger(const dxf::RecordDraft& draft, Property property, std::int64_t absent);
/// The bytes of a text; empty if the group is missing.
std::string_view readBytes(const dxf::RecordDraft& draft, Property property);
/// A point whose x has the property's code; z may be missing. Nothing if x is missing.
std::optional<AcGePoint3d> readPoint(const dxf::RecordDraft& draft, Property property);
/// The point whose x is this group.
AcGePoint3d pointAt(const dxf::RecordDraft& draft, std::size_t x);
/// The bytes of a text property of a record that isn't decoded, where one look over it suffices:
/// outside of 102 groups, extended data and embedded objects. Nothing if the property is missing or
/// needs a closer look.
std::optional<std::string_view> scanText(std::string_view record, const dxf::Dialect& dialect,
                                         Property property);

/// Changes properties of one record. Each function says whether something changed: an equal value
/// leaves the bytes alone, and so does the value that a missing group stands for. A group that the
/// file doesn't have is removed when it gets that value again.
class RecordEdit {
 public:
  /// `store` may be null for a record that isn't stored yet.
  RecordEdit(dxf::RecordDraft& draft, const dxf::RecordStore* store, dxf::RecordIndex record)
      : draft_(draft), store_(store), record_(record) {}

  bool setReal(Property property, double value, std::optional<double> absent = std::nullopt);
  bool setInteger(Property property, std::int64_t value,
                  std::optional<std::int64_t> absent = std::nullopt);
  bool setText(Property property, std::wstring_view text, const dxf::TextCodec& codec,
               std::optional<std::wstring_view> absent = std::nullopt);
  /// A z that is missing is added only if it isn't 0.
  bool setPoint(Property property, const AcGePoint3d& point);

  dxf::RecordDraft& draft() { return draft_; }
  /// The record's bytes in the file; empty for one that the file hasn't.
  std::string_view originalBytes() const;
  /// The same decoded; false for one that the file hasn't.
  bool loadOriginal(dxf::RecordDraft& draft) const;

 private:
  bool fileHas(Property property) const;

  dxf::RecordDraft& draft_;
  const dxf::RecordStore* store_;
  dxf::RecordIndex record_;
};

/// Degrees of an angle in radians, from 0 up to 360; the last bits that the conversion spoils are
/// rounded, so that a whole number of degrees stays one.
double degreesOf(double radians);
/// The same without a turn being taken off or added.
double exactDegrees(double radians);
/// From 0 up to a full turn.
double normalizedAngle(double radians);

}  // namespace kovra::arx
