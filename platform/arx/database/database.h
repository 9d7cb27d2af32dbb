// A drawing's database.
#pragma once
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "platform/arx/base/error_status.h"
#include "platform/arx/database/object_id.h"
#include "platform/arx/database/symbol_table.h"
#include "platform/arx/geometry/geometry.h"
#include "platform/dxf/result.h"

class AcDbIdMapping;
class AcTransactionManager;
namespace kovra::dxf {
class RecordStore;
class Structure;
struct SaveOptions;
}  // namespace kovra::dxf
namespace kovra::arx {
class Journal;
class LayerLocks;
class ObjectTable;
class TextStyles;

/// The value of a header variable: a number, an integer, a text (also a name), a point.
using HeaderValue = std::variant<double, std::int64_t, std::wstring, AcGePoint3d>;
}  // namespace kovra::arx

/// Owns a drawing's records, their open objects and the journal of changes.
class AcDbDatabase {
 public:
  /// With buildDefaultDrawing a new empty drawing (model and paper space, layer 0, style Standard),
  /// else nothing until readDwgFile. noDocument is for the caller's information only.
  explicit AcDbDatabase(bool buildDefaultDrawing = true, bool noDocument = false);
  ~AcDbDatabase();
  AcDbDatabase(const AcDbDatabase&) = delete;
  AcDbDatabase& operator=(const AcDbDatabase&) = delete;

  /// Reads a drawing file into a database without one. The mode, the conversion flag and the
  /// password are accepted and don't matter. eFileNotFound, eFileAccessErr, eDwgNeedsRecovery;
  /// lastError() says more, and so does the command line. eInvalidInput when there is a drawing
  /// already.
  Acad::ErrorStatus readDwgFile(const ACHAR* path, int mode = 3, bool allowCPConversion = false,
                                const ACHAR* password = nullptr);
  /// Kept for callers; drawings here carry their thumbnails as records like any other.
  void setRetainOriginalThumbnailBitmap(bool) {}

  Acad::ErrorStatus getSymbolTable(AcDbLayerTable*& table, AcDb::OpenMode mode);
  Acad::ErrorStatus getSymbolTable(AcDbTextStyleTable*& table, AcDb::OpenMode mode);
  Acad::ErrorStatus getSymbolTable(AcDbBlockTable*& table, AcDb::OpenMode mode);
  AcDbObjectId layerTableId() const;
  AcDbObjectId textStyleTableId() const;
  AcDbObjectId blockTableId() const;

  /// The object of this handle; eUnknownHandle. Nothing is created.
  Acad::ErrorStatus getAcDbObjectId(AcDbObjectId& id, bool createIfNotFound,
                                    const AcDbHandle& handle, Adesk::UInt32 xRefId = 0);

  /// Copies entities to the end of a block or space of this database, each with all that it owns:
  /// attributes or vertices, extension dictionaries and what hangs there, extended data. Clones
  /// have handles of their own, and handles inside them that meant one of the copied objects mean
  /// its clone; other references (reactors too) stay as they are. Nothing is copied unless all can
  /// be: eNullObjectId, eWasErased, eInvalidOwnerObject (an owner that is no block, a part of an
  /// entity), eInvalidInput (an object that is no entity). References are translated at once,
  /// whatever `deferXlation` says. The pairs are added to the mapping.
  Acad::ErrorStatus deepCloneObjects(const AcDbObjectIdArray& objectIds, const AcDbObjectId& owner,
                                     AcDbIdMapping& mapping, bool deferXlation = false);

  /// The scale of dimensions, $DIMSCALE; 1 when the drawing doesn't say.
  double dimscale() const;
  /// Current layer and text style; null when the tables lack them.
  AcDbObjectId clayer() const;
  AcDbObjectId textstyle() const;
  double textsize() const;
  /// Axes of the current UCS of the current space, of length 1, in world coordinates.
  AcGeVector3d ucsxdir() const;
  AcGeVector3d ucsydir() const;
  /// The space that new entities go to: model space, or the paper space in use when $TILEMODE is 0.
  AcDbObjectId currentSpaceId() const;
  AcDbObjectId modelSpaceId() const;

  // What the layer itself needs beside the platform's functions.

  /// Reads a drawing file. Only on a database without a drawing.
  kovra::Result<void> open(const std::string& path);
  /// Reads a drawing from bytes, as from a file of that name.
  kovra::Result<void> openBytes(std::string_view bytes);
  /// Writes the drawing, atomically; see dxf::RecordStore::saveTo. An empty path means its own
  /// file.
  kovra::Result<void> save(const std::string& path, const kovra::dxf::SaveOptions& options);
  /// The file that the drawing came from, empty for a new one.
  const std::string& path() const;
  /// Whether a record differs from what was read or last saved.
  bool isModified() const;
  /// The reason behind the last failed readDwgFile, one line.
  const std::string& lastError() const { return lastError_; }

  /// A header variable by its name with "$"; nothing if the drawing doesn't have it.
  std::optional<kovra::arx::HeaderValue> headerValue(std::string_view name) const;
  /// Sets a header variable of the drawing, or adds it; journalled. An equal value changes nothing.
  Acad::ErrorStatus setHeaderValue(std::string_view name, const kovra::arx::HeaderValue& value);

  kovra::dxf::RecordStore& store() { return *store_; }
  const kovra::dxf::RecordStore& store() const { return *store_; }
  kovra::dxf::Structure& structure() { return *structure_; }
  const kovra::dxf::Structure& structure() const { return *structure_; }
  kovra::arx::Journal& journal() { return *journal_; }
  kovra::arx::ObjectTable& objects() const { return *objects_; }
  AcTransactionManager* transactionManager() { return transactions_.get(); }
  const kovra::arx::Journal& journal() const { return *journal_; }
  /// False before readDwgFile; then nothing but reading a drawing works.
  bool hasDrawing() const { return store_ != nullptr; }
  std::uint32_t serial() const { return serial_; }
  AcDbObjectId idOf(std::uint32_t recordIndex) const { return {serial_, recordIndex}; }
  /// Null once the database is deleted.
  static AcDbDatabase* bySerial(std::uint32_t serial);

  const kovra::arx::LayerLocks& layerLocks() const { return *locks_; }
  const kovra::arx::TextStyles& textStyles() const { return *styles_; }

 private:
  class Watch;
  void adoptStore(std::unique_ptr<kovra::dxf::RecordStore> store);
  AcDbObjectId entryId(std::uint32_t entry) const;

  std::uint32_t serial_;
  std::string lastError_;
  std::unique_ptr<kovra::dxf::RecordStore> store_;
  std::unique_ptr<kovra::dxf::Structure> structure_;
  std::unique_ptr<kovra::arx::LayerLocks> locks_;
  std::unique_ptr<kovra::arx::TextStyles> styles_;
  std::unique_ptr<kovra::arx::ObjectTable> objects_;
  std::unique_ptr<kovra::arx::Journal> journal_;
  std::unique_ptr<Watch> watch_;
  std::unique_ptr<AcTransactionManager> transactions_;
};

/// Which database functions without one mean. The editor keeps it at the current document's.
class AcDbHostApplicationServices {
 public:
  AcDbDatabase* workingDatabase() const { return workingDatabase_; }
  void setWorkingDatabase(AcDbDatabase* database) { workingDatabase_ = database; }

 private:
  AcDbDatabase* workingDatabase_ = nullptr;
};
AcDbHostApplicationServices* acdbHostApplicationServices();
