#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "platform/dxf/record_store.h"

namespace kovra::dxf {

enum class TableKind : std::uint8_t {
  kVport,
  kLtype,
  kLayer,
  kStyle,
  kView,
  kUcs,
  kAppId,
  kDimStyle,
  kBlockRecord,
};
inline constexpr std::size_t kTableKinds = 9;

/// Number of a block within its drawing; model space is always kModelSpace.
using BlockNumber = std::uint32_t;
inline constexpr BlockNumber kModelSpace = 0;
inline constexpr BlockNumber kNoBlock = 0xffffffffU;

/// A block definition or a space (model space, a layout).
struct Block {
  std::wstring name;                    ///< "*Model_Space" also in files that have no such block
  RecordIndex blockRecord = kNoRecord;  ///< BLOCK_RECORD table entry, if the file has one
  RecordIndex begin = kNoRecord;        ///< BLOCK; kNoRecord for spaces of files without it
  RecordIndex end = kNoRecord;          ///< ENDBLK
  bool space = false;                   ///< model space or a layout
  bool inEntities = false;              ///< (also) has its entities in the ENTITIES section
};

/// A point or vector of a header variable.
struct HeaderPoint {
  double x = 0;
  double y = 0;
  double z = 0;
};

/// Header variables, tables, blocks and spaces of a store; follows the store's changes.
///
/// Names are wide and compared without regard to case. Iteration skips erased records and costs no
/// memory per entity.
class Structure : private StoreListener {
 public:
  /// `store` must outlive this.
  explicit Structure(RecordStore& store);
  ~Structure() override;
  Structure(const Structure&) = delete;
  Structure& operator=(const Structure&) = delete;

  // Header variables. Names have their "$". A variable's value is one group, or a point.
  /// The record that holds all header variables; kNoRecord if the file has none.
  RecordIndex headerRecord() const { return header_; }
  /// Its groups; without one none. Valid until the next change of a variable.
  const RecordDraft& header() const;
  /// The first value group of a variable in it; kNoGroup if it isn't there or has no value.
  std::size_t variable(std::string_view name) const;
  bool hasVariable(std::string_view name) const;
  std::optional<double> realVariable(std::string_view name) const;
  std::optional<std::int64_t> integerVariable(std::string_view name) const;
  std::optional<std::wstring> textVariable(std::string_view name) const;
  std::optional<HeaderPoint> pointVariable(std::string_view name) const;
  /// Setting writes the variable's own group; a missing variable is added with `code` (for a point
  /// the code of x), a missing HEADER section made.
  void setRealVariable(std::string_view name, int code, double value);
  void setIntegerVariable(std::string_view name, int code, std::int64_t value);
  void setTextVariable(std::string_view name, int code, std::wstring_view value);
  void setPointVariable(std::string_view name, int code, const HeaderPoint& value);

  // Symbol tables
  /// The TABLE record; kNoRecord if the file has none.
  RecordIndex tableRecord(TableKind table) const;
  struct TableEntry {
    RecordIndex record = kNoRecord;
    std::wstring name;  ///< as the table spells it
  };
  /// The entry of this name that isn't erased; the first of duplicates. Null: none. Valid until the
  /// table changes.
  const TableEntry* lookUp(TableKind table, std::wstring_view name) const;
  /// Its record; kNoRecord: none.
  RecordIndex findEntry(TableKind table, std::wstring_view name) const;
  /// Entries in file order; kNoRecord behind the last.
  RecordIndex firstEntry(TableKind table) const;
  RecordIndex nextEntry(RecordIndex entry) const;
  /// Name of a table entry, a BLOCK or an ATTDEF-like record's group 2, as the table spells it.
  std::wstring entryName(RecordIndex entry) const;
  /// A draft of a new entry with handle and owner by the dialect, making the table and the section
  /// if they are missing; the caller appends the rest and passes it to addEntry.
  void startEntry(TableKind table, RecordDraft& draft);
  /// The same with markers, name and flags.
  void startEntry(TableKind table, std::wstring_view name, int flags, RecordDraft& draft);
  /// Adds a started entry at the end of its table. A layer takes its line weight and plot style
  /// from layer 0, where the release has them.
  RecordIndex addEntry(TableKind table, RecordDraft& draft);
  /// A new layer with a color (1 to 255) and line type Continuous. Returns its record.
  RecordIndex addLayer(std::wstring_view name, int color);
  /// A new text style with a fixed height (0: none), width factor and font file.
  RecordIndex addStyle(std::wstring_view name, double height, double widthFactor,
                       std::wstring_view font);

  // Blocks and spaces
  BlockNumber blockCount() const;
  const Block& block(BlockNumber number) const;
  /// kNoBlock if there is none.
  BlockNumber findBlock(std::wstring_view name) const;
  /// The paper space of the active layout; there is always one, though perhaps an empty one.
  BlockNumber paperSpace() const { return 1; }
  /// Where new entities go: model space, or paper space by the header.
  BlockNumber currentSpace() const;
  /// The handle of the block record, the owner of its entities; 0: none.
  std::uint64_t blockHandle(BlockNumber number) const;
  /// The name of a space for people: "Model", the layout's name; of other blocks the block's name.
  std::wstring spaceName(BlockNumber number) const;
  /// The block or space that an entity lies in; for attributes and vertices that of their main
  /// entity. kNoBlock for what is no entity.
  BlockNumber blockOf(RecordIndex entity) const;

  // Entities in drawing order, oldest first. Attributes and vertices of another entity aren't
  // listed; a standalone ATTRIB is.
  RecordIndex firstEntity(BlockNumber number) const;
  RecordIndex nextEntity(BlockNumber number, RecordIndex entity) const;
  /// The record behind an entity and what follows it as a part of it, erased or not: attributes of
  /// a block reference (with the texts of multi-line ones), vertices of a polyline, their SEQEND
  /// (which some writers leave out).
  RecordIndex pastSubordinates(RecordIndex entity) const;
  /// The record before which a new entity of this block is inserted, so that it is the newest.
  /// Makes the ENTITIES section if a space needs it and the file has none.
  RecordIndex entityAnchor(BlockNumber number);

  // Attributes of a block reference
  /// First attribute of an INSERT that isn't erased; kNoRecord if it has none.
  RecordIndex firstAttribute(RecordIndex insert) const;
  RecordIndex nextAttribute(RecordIndex attribute) const;
  /// The INSERT that an attribute belongs to; kNoRecord for a standalone one.
  RecordIndex insertOf(RecordIndex attribute) const;

 private:
  struct NameHash : std::hash<std::wstring_view> {
    using is_transparent = void;
  };
  struct Table {
    RecordIndex table = kNoRecord;
    RecordIndex end = kNoRecord;  ///< the structural record behind the entries
    /// By folded name. Entries that were renamed or erased stay; lookups look again.
    std::unordered_map<std::wstring, std::vector<RecordIndex>> byName;
    bool renamed = false;  ///< some entry may not have the name that it stands under
    /// What lookUp found since the table changed, by the name as it was asked for.
    mutable std::unordered_map<std::wstring, TableEntry, NameHash, std::equal_to<>> found;
  };
  using RecordsByHandle = std::unordered_map<std::uint64_t, RecordIndex>;
  struct EntitySection {
    RecordIndex begin = kNoRecord;
    RecordIndex end = kNoRecord;
  };

  void afterChange(RecordIndex record) override;

  // Sections
  void findSections();
  RecordIndex endOfSection(RecordIndex section) const;
  RecordIndex addSection(std::string_view name, SectionKind before);

  // Header
  void ensureHeader();
  template <class Set>
  void setVariable(std::string_view name, Set set);

  // Tables
  void findTables();
  void noteTable(RecordIndex table);
  void ensureTable(TableKind table);
  void indexEntry(TableKind table, RecordIndex entry);
  void copyPlotSettings(RecordDraft& layer) const;

  // Blocks
  void refreshBlocks() const;
  RecordsByHandle blockRecords() const;
  void noteBlock(RecordIndex begin, const RecordsByHandle& blockRecords) const;
  RecordIndex renamedModelSpace(const RecordsByHandle& blockRecords) const;
  void noteOwner(BlockNumber number) const;
  std::wstring blockName(RecordIndex begin, RecordIndex blockRecord) const;
  void findLayouts() const;
  BlockNumber enclosingBlock(RecordIndex entity) const;
  BlockNumber spaceOf(RecordIndex entity) const;

  // Entities
  bool isEntityPlace(RecordIndex record) const;
  bool continuesAttributes(RecordIndex record) const;
  RecordIndex settle(BlockNumber number, RecordIndex candidate) const;
  RecordIndex firstInEntities(RecordIndex from) const;
  RecordIndex pastMark(const Block& block, RecordIndex mark) const;

  RecordStore& store_;
  RecordIndex header_ = kNoRecord;
  mutable RecordDraft headerDraft_;
  mutable bool headerLoaded_ = false;
  mutable bool paperIsCurrent_ = false;                                ///< by the loaded header
  mutable std::map<std::string, std::size_t, std::less<>> variables_;  ///< the first of each name
  std::vector<EntitySection> entitySections_;
  std::array<Table, kTableKinds> tables_;
  mutable bool blocksKnown_ = false;
  mutable std::vector<Block> blocks_;
  mutable std::unordered_map<std::wstring, BlockNumber> blocksByName_;
  mutable std::unordered_map<std::uint64_t, BlockNumber> blocksByOwner_;  ///< handle of its record
  mutable std::vector<std::pair<RecordIndex, BlockNumber>> blocksByBegin_;  ///< the file's own
  mutable std::unordered_map<RecordIndex, BlockNumber> insertedBlocks_;
  mutable bool layoutsKnown_ = false;
  mutable std::unordered_map<std::uint64_t, std::wstring> layoutNames_;  ///< by block record handle
  mutable RecordDraft scratch_;
  // insertOf goes back over the attributes; asked in their order, it needs one step.
  mutable RecordIndex lastAttribute_ = kNoRecord;
  mutable RecordIndex lastInsert_ = kNoRecord;
};

}  // namespace kovra::dxf
