// A user at the command line: types, clicks, and reads what the editor shows.
#pragma once
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "platform/arx/database/database.h"
#include "platform/arx/editor/documents/documents.h"
#include "platform/arx/editor/host_api.h"
#include "platform/win/base/pump.h"

namespace kovra::arx::test {

/// One thing the user does; a text is typed with Enter behind it. Host calls that fail are recorded
/// in the transcript as "! message".
struct Step {
  Step(const char* line);
  Step(std::function<void()> action) : act(std::move(action)) {}

  std::function<void()> act;
};

Step keys(std::wstring characters);
Step enter();
Step escape();
Step click(double x, double y);
Step moveTo(double x, double y);
Step pick(std::uint64_t handle);
Step select(std::vector<std::uint64_t> handles);
Step selectBox(double x1, double y1, double x2, double y2);
Step preselect(std::vector<std::uint64_t> handles);

/// Opens a drawing with these entities (see TestDrawing), and others in its block SYM, and closes
/// every drawing at the end.
class EditorUser : public win::PumpSource {
 public:
  explicit EditorUser(const std::string& entities = {}, const std::string& blockEntities = {});
  ~EditorUser() override;

  /// Does all steps, one whenever everything before has come to rest, and returns what was shown.
  /// What still waits then is cancelled.
  std::string run(std::vector<Step> steps);

  /// Another drawing like the first, opened and activated.
  host::DrawingId open(const std::string& entities = {}, const std::string& blockEntities = {});
  host::DrawingId first() const { return first_; }

  AcDbDatabase& database() const { return *acDocManagerPtr()->curDocument()->database(); }
  AcDbObjectId find(std::uint64_t handle) const;
  /// The drawing as a file.
  std::string bytes() const;
  /// The failure that the steps of the last run left, empty without one.
  const std::string& failure() const { return failure_; }

  bool dispatchOne() override;

 private:
  std::filesystem::path folder_;
  std::vector<Step> steps_;
  size_t at_ = 0;
  std::string transcript_;
  std::string failure_;
  host::DrawingId first_ = 0;
  int files_ = 0;
};

/// A record's line as test_drawing.h writes it: LINE from (x1, y1) to (x2, y2).
std::string lineEntity(int handle, double x1, double y1, double x2, double y2,
                       const std::string& layer = "0");

}  // namespace kovra::arx::test
