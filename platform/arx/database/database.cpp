#include "platform/arx/database/database.h"

#include <vector>

#include "platform/arx/database/drawing_defaults.h"
#include "platform/arx/database/journal.h"
#include "platform/arx/database/layer_locks.h"
#include "platform/arx/database/object_table.h"
#include "platform/arx/database/text_styles.h"
#include "platform/arx/database/transaction_manager.h"
#include "platform/dxf/record_store.h"
#include "platform/dxf/structure.h"
#include "platform/win/base/interaction.h"
#include "platform/win/base/wide_text.h"

namespace dxf = kovra::dxf;

namespace {

/// Open databases by serial number, which starts at 1 and is never used again.
std::vector<AcDbDatabase*>& databases() {
  static std::vector<AcDbDatabase*> list(1, nullptr);
  return list;
}

Acad::ErrorStatus statusOf(const kovra::Error& error) {
  switch (error.kind) {
    case kovra::ErrorKind::kNotFound:
      return Acad::eFileNotFound;
    case kovra::ErrorKind::kBadFormat:
    case kovra::ErrorKind::kNotSupported:
      return Acad::eDwgNeedsRecovery;
    default:
      return Acad::eFileAccessErr;
  }
}

template <class Table>
Acad::ErrorStatus openTable(const AcDbDatabase& database, dxf::TableKind kind, Table*& table,
                            AcDb::OpenMode mode) {
  table = nullptr;
  if (!database.hasDrawing()) return Acad::eNoDatabase;
  return acdbOpenObject(table, database.idOf(kovra::arx::tableObject(kind)), mode);
}

}  // namespace

/// Keeps what is derived from records in step with them.
class AcDbDatabase::Watch : private dxf::StoreListener {
 public:
  explicit Watch(AcDbDatabase& database) : database_(database) {
    database_.store_->addListener(this);
  }
  ~Watch() override { database_.store_->removeListener(this); }
  Watch(const Watch&) = delete;
  Watch& operator=(const Watch&) = delete;

 private:
  void afterChange(dxf::RecordIndex record) override {
    const dxf::RecordKind kind = database_.store_->kind(record);
    if (kind == dxf::RecordKind::kLayer) database_.locks_->layersChanged();
    if (kind == dxf::RecordKind::kStyle) database_.styles_->stylesChanged();
    database_.objects_->recordChanged(record);
  }

  AcDbDatabase& database_;
};

AcDbDatabase::AcDbDatabase(bool buildDefaultDrawing, bool /*noDocument*/)
    : serial_(static_cast<std::uint32_t>(databases().size())) {
  databases().push_back(this);
  if (buildDefaultDrawing) adoptStore(dxf::RecordStore::newDrawing());
}

AcDbDatabase::~AcDbDatabase() {
  AcDbHostApplicationServices* services = acdbHostApplicationServices();
  if (services->workingDatabase() == this) services->setWorkingDatabase(nullptr);
  databases()[serial_] = nullptr;
}

AcDbDatabase* AcDbDatabase::bySerial(std::uint32_t serial) {
  const std::vector<AcDbDatabase*>& all = databases();
  return serial < all.size() ? all[serial] : nullptr;
}

void AcDbDatabase::adoptStore(std::unique_ptr<dxf::RecordStore> store) {
  store_ = std::move(store);
  structure_ = std::make_unique<dxf::Structure>(*store_);
  locks_ = std::make_unique<kovra::arx::LayerLocks>(*store_, *structure_);
  styles_ = std::make_unique<kovra::arx::TextStyles>(*store_, *structure_);
  objects_ = std::make_unique<kovra::arx::ObjectTable>(*this);
  journal_ = std::make_unique<kovra::arx::Journal>(*store_);
  watch_ = std::make_unique<Watch>(*this);
  transactions_ = std::make_unique<AcTransactionManager>(*this);
}

kovra::Result<void> AcDbDatabase::open(const std::string& path) {
  auto store = dxf::RecordStore::readFile(path);
  if (!store) return store.error();
  adoptStore(std::move(store).value());
  return {};
}

kovra::Result<void> AcDbDatabase::openBytes(std::string_view bytes) {
  auto store = dxf::RecordStore::fromBytes(bytes);
  if (!store) return store.error();
  adoptStore(std::move(store).value());
  return {};
}

kovra::Result<void> AcDbDatabase::save(const std::string& path, const dxf::SaveOptions& options) {
  if (!hasDrawing())
    return kovra::Error{kovra::ErrorKind::kInvalidInput, "there is no drawing to save"};
  return store_->saveTo(path.empty() ? store_->path() : path, options);
}

Acad::ErrorStatus AcDbDatabase::readDwgFile(const ACHAR* path, int /*mode*/,
                                            bool /*allowCPConversion*/, const ACHAR* /*password*/) {
  if (path == nullptr || hasDrawing()) return Acad::eInvalidInput;
  const kovra::Result<void> opened = open(kovra::win::toUtf8(path));
  if (opened) return Acad::eOk;
  lastError_ = opened.error().message;
  // Commands pass over such drawings without a word of their own.
  kovra::win::interaction().freshLine();
  kovra::win::interaction().print(lastError_ + "\n");
  return statusOf(opened.error());
}

const std::string& AcDbDatabase::path() const {
  static const std::string kNone;
  return hasDrawing() ? store_->path() : kNone;
}

bool AcDbDatabase::isModified() const {
  return hasDrawing() && store_->changed();
}

Acad::ErrorStatus AcDbDatabase::getSymbolTable(AcDbLayerTable*& table, AcDb::OpenMode mode) {
  return openTable(*this, dxf::TableKind::kLayer, table, mode);
}
Acad::ErrorStatus AcDbDatabase::getSymbolTable(AcDbTextStyleTable*& table, AcDb::OpenMode mode) {
  return openTable(*this, dxf::TableKind::kStyle, table, mode);
}
Acad::ErrorStatus AcDbDatabase::getSymbolTable(AcDbBlockTable*& table, AcDb::OpenMode mode) {
  return openTable(*this, dxf::TableKind::kBlockRecord, table, mode);
}
AcDbObjectId AcDbDatabase::layerTableId() const {
  return idOf(kovra::arx::tableObject(dxf::TableKind::kLayer));
}
AcDbObjectId AcDbDatabase::textStyleTableId() const {
  return idOf(kovra::arx::tableObject(dxf::TableKind::kStyle));
}
AcDbObjectId AcDbDatabase::blockTableId() const {
  return idOf(kovra::arx::tableObject(dxf::TableKind::kBlockRecord));
}

Acad::ErrorStatus AcDbDatabase::getAcDbObjectId(AcDbObjectId& id, bool /*createIfNotFound*/,
                                                const AcDbHandle& handle,
                                                Adesk::UInt32 /*xRefId*/) {
  id.setNull();
  if (handle.isNull()) return Acad::eNullHandle;
  const dxf::RecordIndex index = hasDrawing() ? store_->find(handle) : dxf::kNoRecord;
  if (index == dxf::kNoRecord || objects_->classOf(index) == nullptr) return Acad::eUnknownHandle;
  id = idOf(index);
  return Acad::eOk;
}

AcDbObjectId AcDbDatabase::entryId(std::uint32_t entry) const {
  return entry == dxf::kNoRecord ? AcDbObjectId::kNull : idOf(entry);
}

double AcDbDatabase::dimscale() const {
  return hasDrawing() ? structure_->realVariable("$DIMSCALE").value_or(1.0) : 1.0;
}

double AcDbDatabase::textsize() const {
  constexpr double kPlatformDefault = 0.2;
  const double size =
      hasDrawing() ? structure_->realVariable("$TEXTSIZE").value_or(kPlatformDefault) : 0;
  return size > 0 ? size : kPlatformDefault;
}

AcDbObjectId AcDbDatabase::clayer() const {
  if (!hasDrawing()) return AcDbObjectId::kNull;
  return entryId(
      structure_->findEntry(dxf::TableKind::kLayer, kovra::arx::currentLayer(*structure_)));
}

AcDbObjectId AcDbDatabase::textstyle() const {
  if (!hasDrawing()) return AcDbObjectId::kNull;
  return entryId(structure_->findEntry(
      dxf::TableKind::kStyle, structure_->textVariable("$TEXTSTYLE").value_or(L"Standard")));
}

AcDbObjectId AcDbDatabase::modelSpaceId() const {
  return hasDrawing() ? idOf(objects_->blockObject(dxf::kModelSpace)) : AcDbObjectId::kNull;
}

AcDbObjectId AcDbDatabase::currentSpaceId() const {
  if (!hasDrawing()) return AcDbObjectId::kNull;
  return idOf(objects_->blockObject(structure_->currentSpace()));
}

AcDbHostApplicationServices* acdbHostApplicationServices() {
  static AcDbHostApplicationServices services;
  return &services;
}
