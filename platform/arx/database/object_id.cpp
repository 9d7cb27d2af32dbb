#include "platform/arx/database/object_id.h"

#include <cwchar>

#include "platform/arx/database/database.h"
#include "platform/arx/database/object_table.h"
#include "platform/dxf/record_store.h"

constinit const AcDbObjectId AcDbObjectId::kNull;

AcDbHandle::AcDbHandle(const ACHAR* text) {
  if (text == nullptr) return;
  std::string digits;
  for (; *text != 0 && digits.size() <= 16; ++text)
    digits += *text < 0x80 ? static_cast<char>(*text) : '?';
  if (!kovra::dxf::parseHandle(digits, value_)) value_ = 0;
}

bool AcDbHandle::getIntoAsciiBuffer(ACHAR* buffer) const {
  if (buffer == nullptr) return false;
  for (const char digit : kovra::dxf::formatHandle(value_)) *buffer++ = static_cast<ACHAR>(digit);
  *buffer = 0;
  return true;
}

AcDbDatabase* AcDbObjectId::database() const {
  return AcDbDatabase::bySerial(serial_);
}

bool AcDbObjectId::isValid() const {
  const AcDbDatabase* owner = database();
  return owner != nullptr && owner->objects().exists(index_);
}

bool AcDbObjectId::isErased() const {
  const AcDbDatabase* owner = database();
  return owner != nullptr && owner->objects().erased(index_);
}

AcDbHandle AcDbObjectId::handle() const {
  const AcDbDatabase* owner = database();
  if (owner == nullptr || index_ >= owner->store().count()) return {};
  return AcDbHandle(owner->store().handle(index_));
}

AcDbObjectId AcDbObjectId::ownerId() const {
  const AcDbDatabase* owner = database();
  if (owner == nullptr || !owner->objects().exists(index_)) return kNull;
  const kovra::dxf::RecordIndex index = owner->objects().ownerOf(index_);
  return index == kovra::dxf::kNoRecord ? kNull : owner->idOf(index);
}

AcRxClass* AcDbObjectId::objectClass() const {
  const AcDbDatabase* owner = database();
  return owner != nullptr ? owner->objects().classOf(index_) : nullptr;
}
