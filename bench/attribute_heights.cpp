// Tells whether a program made the right edit: attribute_heights FILE [HEIGHT] prints how many
// attributes there are, how many of them have the tag NAME, the sum of those heights, and a sum
// over handle, tag and height of all in their order. With HEIGHT as if every attribute NAME had
// that height: what an edit of FILE should give.
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>

#include "bench/line_pairs.h"
#include "bench/mapped_file.h"

namespace {

std::string_view trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t\r\n") + 1 - first);
}

struct Attribute {
  std::string_view handle;
  std::string_view tag;
  double height = 0;
};

struct Totals {
  std::uint64_t attributes = 0;
  std::uint64_t names = 0;
  double nameHeights = 0;
  std::uint64_t sum = 0;
  double height = 0;  // of every attribute NAME; 0: as it stands

  void add(Attribute attribute) {
    ++attributes;
    if (attribute.tag == "NAME") {
      ++names;
      if (height > 0) attribute.height = height;
      nameHeights += attribute.height;
    }
    for (const std::uint64_t part :
         {std::hash<std::string_view>()(attribute.handle),
          std::hash<std::string_view>()(attribute.tag), std::hash<double>()(attribute.height)}) {
      sum = (sum ^ part) * 0x100000001B3U;
    }
  }
};

void take(Attribute& attribute, std::string_view code, std::string_view value) {
  if (code == "5") attribute.handle = value;
  if (code == "2") attribute.tag = value;
  if (code == "40") std::from_chars(value.data(), value.data() + value.size(), attribute.height);
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 2 && count != 3) return 2;
  const MappedFile input(arguments[1]);
  std::string_view rest = input.bytes();
  Totals totals;
  totals.height = count == 3 ? std::atof(arguments[2]) : 0;
  Attribute attribute;
  bool inside = false;
  while (!rest.empty()) {
    const LinePair pair = takePair(rest);
    const std::string_view code = trimmed(pair.code);
    const std::string_view value = trimmed(pair.value);
    if (code == "0") {
      if (inside) totals.add(attribute);
      inside = value == "ATTRIB";
      attribute = {};
    } else if (inside) {
      take(attribute, code, value);
    }
  }
  std::printf("%llu attributes, %llu NAME, heights %.6f, sum %016llx\n",
              static_cast<unsigned long long>(totals.attributes),
              static_cast<unsigned long long>(totals.names), totals.nameHeights,
              static_cast<unsigned long long>(totals.sum));
  return 0;
}
