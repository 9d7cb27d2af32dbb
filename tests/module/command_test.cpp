#include "tests/module/command_test.h"

#include <sstream>

namespace kovra::test {

void CommandTest::runOn(const std::string& drawing, const std::string& lines,
                        std::vector<std::string> arguments) {
  write("in.dxf", drawing);
  std::error_code ignored;
  std::filesystem::remove(path("out.dxf"), ignored);
  arguments.insert(arguments.end(), {"-o", "out.dxf", "in.dxf"});
  result = runScript(lines, arguments);
  EXPECT_EQ(result.status, 0) << lines << result.err;
}

std::string CommandTest::texts(const std::vector<std::size_t>& columns) const {
  std::istringstream rows(run({"list", "--format", "csv", "out.dxf"}).out);
  std::string all;
  std::string row;
  for (std::getline(rows, row); std::getline(rows, row);) {
    std::vector<std::string> fields;
    std::istringstream line(row);
    for (std::string field; std::getline(line, field, ',');) fields.push_back(field);
    if (!all.empty()) all += ' ';
    if (columns.empty()) all += fields[4] + '@' + fields[11] + ',' + fields[12];
    for (const std::size_t column : columns)
      all += (column == columns[0] ? "" : ",") + fields[column];
  }
  return all;
}

std::string CommandTest::control(int id) const {
  const std::string name = "\n  " + std::to_string(id) + ' ';
  const std::size_t start = result.out.rfind(name);
  if (start == std::string::npos) return "none";
  return result.out.substr(start + 1, result.out.find('\n', start + 1) - start - 1);
}

std::string CommandTest::shownTexts(int first, int last) const {
  std::string all;
  for (int id = first; id <= last; ++id) {
    const std::string line = control(id);
    const std::size_t from = line.find('"');
    all += line.substr(from, line.find('"', from + 1) - from + 1);
  }
  return all;
}

}  // namespace kovra::test
