#include "platform/arx/database/object.h"

#include "platform/arx/database/database.h"
#include "platform/arx/database/object_table.h"
#include "platform/arx/database/record_edit.h"
#include "platform/dxf/record_store.h"

using kovra::arx::TextSlot;

ACRX_DEFINE_MEMBERS(AcDbObject, AcRxObject, nullptr)

AcDbObject::AcDbObject(kovra::arx::Stored) {}
AcDbObject::~AcDbObject() = default;

AcDbObjectId AcDbObject::objectId() const {
  return database_ != nullptr ? database_->idOf(record_) : AcDbObjectId::kNull;
}

AcDbObjectId AcDbObject::ownerId() const {
  return objectId().ownerId();
}

void AcDbObject::getAcDbHandle(AcDbHandle& handle) const {
  handle = objectId().handle();
}

Acad::ErrorStatus AcDbObject::close() {
  if (database_ == nullptr) return Acad::eInvalidOpenState;
  return database_->objects().close(*this, true);
}

Acad::ErrorStatus AcDbObject::cancel() {
  if (database_ == nullptr) return Acad::eInvalidOpenState;
  return database_->objects().close(*this, false);
}

Acad::ErrorStatus AcDbObject::upgradeOpen() {
  if (database_ == nullptr) return Acad::eInvalidOpenState;
  return database_->objects().upgrade(*this);
}

Acad::ErrorStatus AcDbObject::downgradeOpen() {
  if (database_ == nullptr) return Acad::eInvalidOpenState;
  return database_->objects().downgrade(*this);
}

Acad::ErrorStatus AcDbObject::erase(Adesk::Boolean erasing) {
  if (database_ == nullptr) return Acad::eNotInDatabase;
  return database_->objects().erase(*this, erasing);
}

Adesk::Boolean AcDbObject::isErased() const {
  return database_ != nullptr && database_->objects().erased(record_);
}

Adesk::Boolean AcDbObject::isReadEnabled() const {
  return canWrite() || readers_ > 0;
}
Adesk::Boolean AcDbObject::isWriteEnabled() const {
  return canWrite();
}

kovra::dxf::RecordDraft& AcDbObject::startGroups(std::string_view typeName) {
  body_ = std::make_unique<kovra::arx::ObjectBody>();
  body_->decoded = true;
  body_->draft.start(kovra::arx::freeDialect(), typeName, 0, 0);
  return body_->draft;
}

kovra::arx::ObjectBody& AcDbObject::ensureBody() const {
  return database_ != nullptr ? database_->objects().body(*this) : *body_;
}

const kovra::dxf::RecordDraft& AcDbObject::groups() const {
  kovra::arx::ObjectBody& body = ensureBody();
  if (!body.decoded) database_->objects().decode(record_, body);
  if (body.heldBack != 0) {
    writeHeldBack(body);
    body.heldBack = 0;
  }
  return body.draft;
}

const kovra::dxf::TextCodec& AcDbObject::codec() const {
  return database_ != nullptr ? database_->store().codec() : kovra::arx::freeCodec();
}

const std::wstring& AcDbObject::cachedText(TextSlot slot, kovra::arx::Property property) const {
  const kovra::arx::ObjectBody& body = ensureBody();
  const auto index = static_cast<std::size_t>(slot);
  std::wstring& text = body_->texts[index];
  const auto bit = static_cast<std::uint8_t>(1U << index);
  if ((body.validTexts & bit) == 0) {
    decodeText(property, text);
    const bool isValue = slot == TextSlot::kText || slot == TextSlot::kPrompt;
    if (isValue && text.find(L'^') != std::wstring::npos) text = kovra::dxf::decodeCarets(text);
    body_->validTexts = static_cast<std::uint8_t>(body_->validTexts | bit);
  }
  return text;
}

const kovra::arx::LineSize& AcDbObject::textSize() const {
  constexpr std::uint8_t kBit = 1U << 6U;
  kovra::arx::ObjectBody& body = *body_;
  if ((body.validTexts & kBit) == 0) {
    body.textSize = kovra::arx::measureLine(body.texts[static_cast<std::size_t>(TextSlot::kText)]);
    body.validTexts = static_cast<std::uint8_t>(body.validTexts | kBit);
  }
  return body.textSize;
}

// Most objects of a drawing are opened for one look at a name or a tag, which costs no decoding.
void AcDbObject::decodeText(kovra::arx::Property property, std::wstring& text) const {
  if (!body_->decoded && record_ < database_->store().count()) {
    std::string scratch;
    const std::optional<std::string_view> found = kovra::arx::scanText(
        database_->store().bytes(record_, scratch), database_->store().dialect(), property);
    if (found) return codec().decode(*found, text);
  }
  codec().decode(kovra::arx::readBytes(groups(), property), text);
}

Acad::ErrorStatus AcDbObject::apply(const std::function<bool(kovra::arx::RecordEdit&)>& change,
                                    bool* changed, kovra::arx::Touched touched) {
  if (!canWrite()) return Acad::eNotOpenForWrite;
  static_cast<void>(groups());
  kovra::arx::RecordEdit edit(body_->draft, database_ != nullptr ? &database_->store() : nullptr,
                              record_);
  const bool did = change(edit);
  if (did) {
    modified_ = true;
    body_->numbersKnown = false;
    body_->invisible = -1;
    if (touched != kovra::arx::Touched::kNumbers) body_->validTexts = 0;
  }
  if (changed != nullptr) *changed = did;
  return Acad::eOk;
}

void AcDbObject::holdBack(std::uint8_t bit) {
  body_->heldBack = static_cast<std::uint8_t>(body_->heldBack | bit);
  modified_ = true;
}

Acad::ErrorStatus AcDbObject::applyGroups(
    const std::function<bool(kovra::arx::RecordEdit&)>& change) {
  return apply(change);
}

Acad::ErrorStatus acdbOpenObject(AcDbObject*& object, AcDbObjectId id, AcRxClass* wanted,
                                 AcDb::OpenMode mode, bool openErased) {
  object = nullptr;
  AcDbDatabase* database = id.database();
  if (database == nullptr) return Acad::eNullObjectId;
  return database->objects().open(object, id.index(), wanted, mode, openErased);
}

Acad::ErrorStatus acdbOpenAcDbObject(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode,
                                     bool openErased) {
  return acdbOpenObject(object, id, AcDbObject::desc(), mode, openErased);
}
