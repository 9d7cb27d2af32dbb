#include "host/compare/change_writer.h"

#include "host/texts/json_text.h"
#include "platform/dxf/values.h"

namespace kovra::host {
namespace {

constexpr const char* kChangeNames[] = {"added", "erased", "changed", "moved"};

std::string printable(std::string text) {
  for (char& c : text) {
    if (static_cast<unsigned char>(c) < ' ' || c == '\x7f') c = ' ';
  }
  return text;
}

void appendJsonMember(std::string& line, const char* name, const std::string& text) {
  line.append(",\"").append(name).append("\":");
  if (text.empty()) {
    line += "null";
  } else {
    appendJson(line, text);
  }
}

/// A number as one, unless the file has something else there.
void appendJsonValue(std::string& line, const std::optional<std::string>& value, bool number) {
  double parsed = 0;
  if (!value) {
    line += "null";
  } else if (number && dxf::parseReal(*value, parsed)) {
    line += *value;
  } else {
    appendJson(line, *value);
  }
}

}  // namespace

const char* changeName(ChangeKind kind) {
  return kChangeNames[static_cast<std::size_t>(kind)];
}

void writeChangeText(std::ostream& out, const RecordChange& change) {
  std::string line = changeName(change.kind);
  line.append(1, ' ').append(printable(change.type));
  if (change.handle != 0) line.append(1, ' ').append(dxf::formatHandle(change.handle));
  if (!change.name.empty()) line.append(1, ' ').append(printable(change.name));
  if (!change.place.empty()) line.append(" in ").append(printable(change.place));
  out << line << '\n';
  for (const GroupChange& group : change.groups) {
    line = group.before && group.after ? "    " : group.after ? "  + " : "  - ";
    line.append(std::to_string(group.code)).append(": ");
    if (group.before) line += printable(*group.before);
    if (group.before && group.after) line += " -> ";
    if (group.after) line += printable(*group.after);
    out << line << '\n';
  }
}

void writeChangeJson(std::ostream& out, const RecordChange& change) {
  std::string line = std::string("{\"change\":\"") + changeName(change.kind) + "\",\"type\":";
  appendJson(line, change.type);
  appendJsonMember(line, "handle",
                   change.handle == 0 ? std::string() : dxf::formatHandle(change.handle));
  appendJsonMember(line, "name", change.name);
  appendJsonMember(line, "place", change.place);
  line += ",\"groups\":[";
  const char* separator = "";
  for (const GroupChange& group : change.groups) {
    line.append(separator).append("{\"code\":").append(std::to_string(group.code));
    line += ",\"before\":";
    appendJsonValue(line, group.before, group.number);
    line += ",\"after\":";
    appendJsonValue(line, group.after, group.number);
    line += '}';
    separator = ",";
  }
  out << line << "]}\n";
}

}  // namespace kovra::host
