#include "tests/arx/editor_user.h"

#include <unistd.h>

#include <fstream>

#include "platform/dxf/record_store.h"
#include "platform/win/base/interaction.h"
#include "platform/win/base/wide_text.h"
#include "tests/arx/test_drawing.h"

namespace kovra::arx::test {
namespace {

template <class T>
void show(const Result<T>& result) {
  if (!result) win::interaction().print("! " + result.error().message + "\n");
}

host::SelectionInput handleInput(std::vector<std::uint64_t> handles) {
  host::SelectionInput input;
  input.handles = std::move(handles);
  return input;
}

}  // namespace

Step::Step(const char* line)
    : act([text = win::fromUtf8(line) + L"\n"] { show(host::typeText(text)); }) {}

Step keys(std::wstring characters) {
  return Step([=] { show(host::typeText(characters)); });
}

Step enter() {
  return keys(L"\n");
}

Step escape() {
  return keys(L"\x03");
}

Step click(double x, double y) {
  return Step([=] { show(host::clickPoint({x, y, 0})); });
}

Step moveTo(double x, double y) {
  return Step([=] { show(host::moveCursor({x, y, 0})); });
}

Step pick(std::uint64_t handle) {
  return Step([=] { show(host::pickEntity(handle)); });
}

Step select(std::vector<std::uint64_t> handles) {
  return Step([=] { show(host::select(handleInput(handles))); });
}

Step selectBox(double x1, double y1, double x2, double y2) {
  return Step([=] {
    host::SelectionInput input;
    input.box = host::SelectionArea{{x1, y1, 0}, {x2, y2, 0}};
    show(host::select(input));
  });
}

Step preselect(std::vector<std::uint64_t> handles) {
  return Step([=] { show(host::preselect(handleInput(handles))); });
}

EditorUser::EditorUser(const std::string& entities, const std::string& blockEntities)
    : folder_(std::filesystem::temp_directory_path() /
              ("kovra-editor-" + std::to_string(getpid()))) {
  std::filesystem::create_directories(folder_);
  win::Pump::instance().addSource(win::kOutsideInput, this);
  win::interaction().setTranscript([this](std::string_view text) { transcript_ += text; });
  win::interaction().takeFailure();
  first_ = open(entities, blockEntities);
}

EditorUser::~EditorUser() {
  for (const host::DrawingInfo& drawing : host::drawings()) show(host::closeDrawing(drawing.id));
  win::Pump::instance().removeSource(this);
  win::interaction().setTranscript({});
  std::error_code ignored;
  std::filesystem::remove_all(folder_, ignored);
}

host::DrawingId EditorUser::open(const std::string& entities, const std::string& blockEntities) {
  const std::filesystem::path file = folder_ / ("sheet" + std::to_string(++files_) + ".dxf");
  TestDrawing drawing;
  drawing.entities = entities;
  std::string bytes = drawing.bytes();
  // SYM is the last block.
  bytes.insert(bytes.rfind("0\nENDBLK"), blockEntities);
  std::ofstream(file, std::ios::binary) << bytes;
  const Result<host::DrawingId> id = host::openDrawing(file);
  show(id);
  return id ? id.value() : 0;
}

bool EditorUser::dispatchOne() {
  if (at_ == steps_.size()) return false;
  const Step step = steps_[at_++];
  step.act();
  return true;
}

std::string EditorUser::run(std::vector<Step> steps) {
  transcript_.clear();
  steps_ = std::move(steps);
  at_ = 0;
  host::runIdle();
  failure_ = win::interaction().takeFailure().value_or("");
  return std::exchange(transcript_, {});
}

AcDbObjectId EditorUser::find(std::uint64_t handle) const {
  AcDbObjectId id;
  database().getAcDbObjectId(id, false, AcDbHandle(handle));
  return id;
}

std::string EditorUser::bytes() const {
  return database().store().toBytes();
}

std::string lineEntity(int handle, double x1, double y1, double x2, double y2,
                       const std::string& layer) {
  char hex[20];
  std::snprintf(hex, sizeof hex, "%X", static_cast<unsigned>(handle));
  return groupLines({{0, "LINE"},
                     {5, hex},
                     {100, "AcDbEntity"},
                     {8, layer},
                     {100, "AcDbLine"},
                     {10, std::to_string(x1)},
                     {20, std::to_string(y1)},
                     {30, "0.0"},
                     {11, std::to_string(x2)},
                     {21, std::to_string(y2)},
                     {31, "0.0"}});
}

}  // namespace kovra::arx::test
