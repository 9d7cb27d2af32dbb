// What attributes and their definitions have beside a text's groups.
#include "platform/arx/base/ads.h"
#include "platform/arx/entities/text.h"
#include "platform/arx/entities/text_groups.h"
#include "platform/dxf/text_codec.h"

namespace dxf = kovra::dxf;
using namespace kovra::arx;

ACRX_DEFINE_MEMBERS(AcDbAttribute, AcDbText, L"ATTRIB")
ACRX_DEFINE_MEMBERS(AcDbAttributeDefinition, AcDbText, L"ATTDEF")

namespace {

constexpr Property kAttributeTag{kAttributePart, 2};
constexpr Property kDefinitionTag{kDefinitionPart, 2};
constexpr Property kDefinitionPrompt{kDefinitionPart, 3};

// Bits of group 70.
constexpr std::int64_t kInvisible = 1;
constexpr std::int64_t kConstant = 2;
constexpr std::int64_t kVerify = 4;
constexpr std::int64_t kPreset = 8;

ACHAR* copyOrNull(const wchar_t* text) {
  ACHAR* copy = nullptr;
  if (*text != 0) acutNewString(text, copy);
  return copy;
}

bool hasFlag(const dxf::RecordDraft& draft, std::int64_t flag) {
  return (readInteger(draft, {attributePart(draft.kind()), 70}, 0) & flag) != 0;
}

bool setFlagOf(RecordEdit& edit, std::int64_t flag, bool on) {
  const Property flags{attributePart(edit.draft().kind()), 70};
  const std::int64_t present = readInteger(edit.draft(), flags, 0);
  return edit.setInteger(flags, on ? present | flag : present & ~flag, 0);
}

/// The attribute's own groups behind those of its text.
void appendOwn(dxf::RecordDraft& draft) {
  draft.appendMarker(attributePart(draft.kind()));
  if (draft.kind() == dxf::RecordKind::kAttDef) draft.appendText(3, std::string_view());
  draft.appendText(2, std::string_view());
  draft.appendInteger(70, 0);
}

bool isValidTag(const ACHAR* tag) {
  return tag != nullptr && *tag != 0 && std::wstring_view(tag).find(L' ') == std::wstring::npos;
}

}  // namespace

AcDbAttribute::AcDbAttribute(Stored stored) : AcDbText(stored) {}
AcDbAttribute::AcDbAttribute() : AcDbText(Stored{}) {
  appendOwn(startText("ATTRIB"));
}
AcDbAttribute::AcDbAttribute(const AcGePoint3d& position, const ACHAR* text, const ACHAR* tag,
                             AcDbObjectId style)
    : AcDbAttribute() {
  setPosition(position);
  setTextString(text);
  setTag(tag);
  if (!style.isNull()) setTextStyle(style);
}

const ACHAR* AcDbAttribute::tagConst() const {
  return cachedText(TextSlot::kName, kAttributeTag).c_str();
}
ACHAR* AcDbAttribute::tag() const {
  return copyOrNull(tagConst());
}
Acad::ErrorStatus AcDbAttribute::setTag(const ACHAR* tag) {
  if (!isValidTag(tag)) return Acad::eInvalidInput;
  return apply([&](RecordEdit& edit) { return edit.setText(kAttributeTag, tag, codec()); });
}
Adesk::Boolean AcDbAttribute::isInvisible() const {
  return hasFlag(groups(), kInvisible);
}
Acad::ErrorStatus AcDbAttribute::setInvisible(Adesk::Boolean invisible) {
  return apply([&](RecordEdit& edit) { return setFlagOf(edit, kInvisible, invisible); });
}
Adesk::Boolean AcDbAttribute::isConstant() const {
  return hasFlag(groups(), kConstant);
}
Adesk::Boolean AcDbAttribute::isVerifiable() const {
  return hasFlag(groups(), kVerify);
}
Adesk::Boolean AcDbAttribute::isPreset() const {
  return hasFlag(groups(), kPreset);
}
bool AcDbAttribute::isMTextAttribute() const {
  return !groups().embedded().empty();
}

AcDbAttributeDefinition::AcDbAttributeDefinition(Stored stored) : AcDbText(stored) {}
AcDbAttributeDefinition::AcDbAttributeDefinition() : AcDbText(Stored{}) {
  appendOwn(startText("ATTDEF"));
}
AcDbAttributeDefinition::AcDbAttributeDefinition(const AcGePoint3d& position, const ACHAR* text,
                                                 const ACHAR* tag, const ACHAR* prompt,
                                                 AcDbObjectId style)
    : AcDbAttributeDefinition() {
  setPosition(position);
  setTextString(text);
  setTag(tag);
  setPrompt(prompt);
  if (!style.isNull()) setTextStyle(style);
}

const ACHAR* AcDbAttributeDefinition::tagConst() const {
  return cachedText(TextSlot::kName, kDefinitionTag).c_str();
}
ACHAR* AcDbAttributeDefinition::tag() const {
  return copyOrNull(tagConst());
}
Acad::ErrorStatus AcDbAttributeDefinition::setTag(const ACHAR* tag) {
  if (!isValidTag(tag)) return Acad::eInvalidInput;
  return apply([&](RecordEdit& edit) { return edit.setText(kDefinitionTag, tag, codec()); });
}
ACHAR* AcDbAttributeDefinition::prompt() const {
  ACHAR* copy = nullptr;
  acutNewString(cachedText(TextSlot::kPrompt, kDefinitionPrompt).c_str(), copy);
  return copy;
}
Acad::ErrorStatus AcDbAttributeDefinition::setPrompt(const ACHAR* prompt) {
  if (prompt == nullptr) return Acad::eInvalidInput;
  return apply([&](RecordEdit& edit) {
    return edit.setText(kDefinitionPrompt, dxf::encodeCarets(prompt), codec());
  });
}
Adesk::Boolean AcDbAttributeDefinition::isInvisible() const {
  return hasFlag(groups(), kInvisible);
}
Acad::ErrorStatus AcDbAttributeDefinition::setInvisible(Adesk::Boolean invisible) {
  return apply([&](RecordEdit& edit) { return setFlagOf(edit, kInvisible, invisible); });
}
Adesk::Boolean AcDbAttributeDefinition::isConstant() const {
  return hasFlag(groups(), kConstant);
}
Adesk::Boolean AcDbAttributeDefinition::isVerifiable() const {
  return hasFlag(groups(), kVerify);
}
Adesk::Boolean AcDbAttributeDefinition::isPreset() const {
  return hasFlag(groups(), kPreset);
}
bool AcDbAttributeDefinition::isMTextAttributeDefinition() const {
  return !groups().embedded().empty();
}
