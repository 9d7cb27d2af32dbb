#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/dxf/record_store.h"

// Drawings that the tests make for themselves.
namespace kovra::dxf::test {

/// The written form of a drawing.
struct Form {
  std::string name;
  int release = kR2000;
  bool binary = false;
  bool crlf = false;
  bool padded = true;
  std::string codePage = "ANSI_1252";
};

/// One form of each kind: releases from R12 to R2018, line ends, padding, binary.
std::vector<Form> allForms();

/// A drawing with layers, styles, a block, block references with attributes, texts, extended data,
/// embedded objects and comments, as the form has it.
std::string sampleDrawing(const Form& form);

/// Writes groups, each a line of "code value" (leading blanks don't count), in a form.
std::string write(std::string_view groups, const Form& form = {});

/// Opens bytes; fails the test and ends the program if they are refused.
std::unique_ptr<RecordStore> open(const std::string& bytes);

/// The first record with this handle.
RecordIndex at(const RecordStore& store, std::uint64_t handle);

/// The first record of a type.
RecordIndex firstOf(const RecordStore& store, std::string_view typeName);

/// The lines that differ between two texts of the same number of lines, as "line: old -> new".
std::vector<std::string> changedLines(const std::string& before, const std::string& after);

}  // namespace kovra::dxf::test
