// Small drawings, written as text, for the tests of the database.
#pragma once
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/arx/database/database.h"

namespace kovra::arx::test {

using Group = std::pair<int, std::string>;

/// One line for the code and one for the value of each group.
std::string groupLines(const std::vector<Group>& groups);

enum class TextKind { kText, kAttribute, kDefinition };

/// Layers 0, WIRES, FRAME (locked, 20), HIDDEN (frozen) and OFF (off); styles Standard, TATE
/// (vertical) and FIXED (height 3, width factor 0.8); a block SYM with an ATTDEF.
struct TestDrawing {
  int release = 1015;  ///< 1009 is written without markers and owners
  std::string entities;

  std::string bytes() const;
};

/// A text of that kind with the handle; `extra` follows the groups that every text has (8, 10, 40,
/// 1). An attribute comes inside a block reference, whose handle is one less, with its SEQEND one
/// more.
std::string textEntity(TextKind kind, int release, int handle, const std::vector<Group>& extra);

/// A database with a drawing, which is the working one as long as it lives.
class OpenDrawing {
 public:
  explicit OpenDrawing(const std::string& bytes);
  ~OpenDrawing();
  AcDbDatabase* operator->() const { return database_.get(); }
  AcDbDatabase& operator*() const { return *database_; }
  AcDbObjectId find(int handle) const;
  std::string bytes() const;

 private:
  std::unique_ptr<AcDbDatabase> database_;
};

/// What a change did: "-40=2.5" and "+40=5.0" for each group that only one side has, in file order.
std::vector<std::string> groupDiff(const std::string& before, const std::string& after);

}  // namespace kovra::arx::test
