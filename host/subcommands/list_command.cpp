#include "host/subcommands/list_command.h"

#include <array>
#include <cmath>
#include <iostream>

#include "host/batch/drawing_list.h"
#include "host/program/program_errors.h"
#include "host/program/script_text.h"
#include "host/subcommands/each_in_order.h"
#include "host/texts/row_writer.h"
#include "platform/arx/database/database.h"
#include "platform/arx/database/entity.h"
#include "platform/win/base/wide_text.h"

namespace kovra::host {
namespace {

// Reads an argument of the command line; bytes that aren't UTF-8 match nothing in a drawing.
std::optional<std::wstring> wideOption(const std::optional<std::string>& text) {
  if (!text) return std::nullopt;
  return win::fromUtf8(*text);
}

/// In world coordinates, in a block in those of the block; to a millionth, since what lies behind
/// it is only what the arithmetic left.
std::optional<std::array<double, 4>> extentsOf(AcDbObjectId id) {
  AcDbEntity* entity = nullptr;
  if (acdbOpenObject(entity, id) != Acad::eOk) return std::nullopt;
  AcDbExtents box;
  const Acad::ErrorStatus status = entity->getGeomExtents(box);
  entity->close();
  if (status != Acad::eOk) return std::nullopt;
  const auto rounded = [](double value) { return std::round(value * 1e6) / 1e6; };
  return std::array<double, 4>{rounded(box.minPoint().x), rounded(box.minPoint().y),
                               rounded(box.maxPoint().x), rounded(box.maxPoint().y)};
}

/// The rows of a drawing whose texts are measured, for which it is opened as for an edit.
Result<void> writeMeasuredRows(const RowForm& form, const std::string& drawing,
                               const TextFilter& filter) {
  AcDbDatabase database(false, true);
  if (const Result<void> opened = database.open(drawing); !opened) return opened;
  writeRows(std::cout, form, drawing, [&](const auto& take) {
    forEachText(database.store(), database.structure(), filter, [&](const TextRow& row) {
      TextRow measured = row;
      measured.extents = extentsOf(database.idOf(row.record));
      take(measured);
    });
  });
  return {};
}

Result<void> writePlainRows(const RowForm& form, const std::string& drawing,
                            const TextFilter& filter) {
  const auto store = dxf::RecordStore::readFile(drawing);
  if (!store) return store.error();
  const dxf::Structure structure(*store.value());
  writeRows(std::cout, form, drawing,
            [&](const auto& take) { forEachText(*store.value(), structure, filter, take); });
  return {};
}

}  // namespace

int listDrawings(const ListOptions& options) {
  const Result<std::vector<BatchDrawing>> found = findDrawings(options.drawings, {});
  if (!found) return fail(kExitFile, found.error());
  const TextFilter filter{wideOption(options.layer), wideOption(options.tagPattern)};
  const RowForm form{options.format, options.raw, options.extents, found.value().size() > 1};
  writeListHead(std::cout, form);
  return forEachInOrder(found.value(), options.jobs, [&](const BatchDrawing& drawing) {
    const auto write = options.extents ? writeMeasuredRows : writePlainRows;
    if (const Result<void> written = write(form, drawing.name, filter); !written)
      return fail(kExitFile, written.error());
    return static_cast<int>(kExitDone);
  });
}

int checkDrawings(const CheckOptions& options) {
  const Result<std::vector<BatchDrawing>> found = findDrawings(options.drawings, {});
  if (!found) return fail(kExitFile, found.error());
  return forEachInOrder(found.value(), options.jobs, [](const BatchDrawing& drawing) {
    const Result<void> same = dxf::checkRoundTrip(drawing.name);
    if (same) {
      std::cout << drawing.name << ": every byte comes back\n";
      return static_cast<int>(kExitDone);
    }
    const bool differs = same.error().kind == ErrorKind::kNotSupported;
    return fail(differs ? kExitRefused : kExitFile, same.error());
  });
}

}  // namespace kovra::host
