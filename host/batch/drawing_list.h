#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "platform/dxf/result.h"

namespace kovra::host {

/// A drawing of a batch.
struct BatchDrawing {
  std::filesystem::path file;      ///< as the user would write it
  std::filesystem::path relative;  ///< its place below the folder that was named; else its name
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
