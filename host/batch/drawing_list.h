#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "platform/dxf/result.h"

namespace kovra::host {

/// A drawing of a batch. There may be a million, and every process begins with a copy of all.
struct BatchDrawing {
  std::string name;         ///< its path, as the user would write it
  std::uint32_t above = 0;  ///< what of it stands before its place below the folder that was named

  std::filesystem::path file() const { return name; }
  /// Its place below the folder that was named; else its name.
  std::filesystem::path relative() const { return name.substr(above); }
};

/// The drawings that arguments name: files, folders (all that ends in .dxf, in any case and at any
/// depth, sorted; links to folders aren't followed), and patterns of the shell. A file that is
/// named twice, by whatever path, is taken once. A name that leads nowhere stays in the list, so
/// that it fails where it is opened.
/// @param listFile further names, one a line; "-" is standard input; empty: none
/// Errors: kNotReadable for a list or a folder that can't be read; kNotFound for a folder or
/// pattern without a drawing.
Result<std::vector<BatchDrawing>> findDrawings(const std::vector<std::string>& names,
                                               const std::string& listFile);

/// kInvalidInput when two drawings, below different folders, would go to the same place of another.
Result<void> checkPlaces(const std::vector<BatchDrawing>& drawings);

}  // namespace kovra::host
