#include "host/texts/row_writer.h"

#include <wchar.h>

#include <algorithm>
#include <array>
#include <clocale>
#include <span>
#include <vector>

#include "host/texts/json_text.h"
#include "host/texts/number_text.h"
#include "platform/dxf/values.h"
#include "platform/win/base/wide_text.h"

namespace kovra::host {
namespace {

// A column: its name, and its text in tables and comma separated values.
struct Column {
  const char* name;
  bool number;
  std::string (*text)(const TextRow&);
};

std::string handleText(const TextRow& row) {
  return row.handle == 0 ? std::string() : dxf::formatHandle(row.handle);
}

template <std::size_t kEnd>
std::string extentText(const TextRow& row) {
  return row.extents ? shortestNumber((*row.extents)[kEnd]) : std::string();
}

constexpr std::size_t kExtentColumns = 4;  // the last ones
constexpr std::array<Column, 18> kColumns = {{
    {"handle", false, handleText},
    {"kind", false, [](const TextRow& row) { return std::string(row.kind); }},
    {"space", false, [](const TextRow& row) { return row.space; }},
    {"tag", false, [](const TextRow& row) { return row.tag; }},
    {"value", false, [](const TextRow& row) { return row.value; }},
    {"layer", false, [](const TextRow& row) { return row.layer; }},
    {"style", false, [](const TextRow& row) { return row.style; }},
    {"height", true, [](const TextRow& row) { return shortestNumber(row.height); }},
    {"width_factor", true,
     [](const TextRow& row) {
       return row.widthFactor ? shortestNumber(*row.widthFactor) : std::string();
     }},
    {"rotation", true, [](const TextRow& row) { return shortestNumber(row.rotation); }},
    {"alignment", false, [](const TextRow& row) { return std::string(row.alignment); }},
    {"x", true, [](const TextRow& row) { return shortestNumber(row.x); }},
    {"y", true, [](const TextRow& row) { return shortestNumber(row.y); }},
    {"z", true, [](const TextRow& row) { return shortestNumber(row.z); }},
    {"x_min", true, extentText<0>},
    {"y_min", true, extentText<1>},
    {"x_max", true, extentText<2>},
    {"y_max", true, extentText<3>},
}};

using Columns = std::span<const Column>;

Columns columnsOf(const RowForm& form) {
  return Columns(kColumns).first(kColumns.size() - (form.extents ? 0 : kExtentColumns));
}

// Character classes of UTF-8 for a scope, whatever the locale of the process.
class Utf8Locale {
 public:
  Utf8Locale() : locale_(newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr)) {
    if (locale_ != nullptr) previous_ = uselocale(locale_);
  }
  ~Utf8Locale() {
    if (locale_ == nullptr) return;
    uselocale(previous_);
    freelocale(locale_);
  }
  Utf8Locale(const Utf8Locale&) = delete;
  Utf8Locale& operator=(const Utf8Locale&) = delete;

 private:
  locale_t locale_;
  locale_t previous_ = nullptr;
};

size_t widthOf(const std::string& text) {
  size_t width = 0;
  bool ascii = true;
  for (const char c : text) ascii = ascii && static_cast<signed char>(c) >= 0;
  if (ascii) return text.size();
  for (const wchar_t c : win::fromUtf8(text)) width += static_cast<size_t>(std::max(wcwidth(c), 0));
  return width;
}

// A control character would break the table's lines.
std::string tableCell(std::string text) {
  for (char& c : text) {
    if (static_cast<unsigned char>(c) < ' ' || c == '\x7f') c = ' ';
  }
  return text;
}

using Widths = std::array<size_t, kColumns.size()>;

void writeTableLine(std::ostream& out, Columns columns, const Widths& widths,
                    const std::function<std::string(const Column&)>& text) {
  std::string line;
  line.reserve(256);
  for (size_t i = 0; i < columns.size(); ++i) {
    const std::string cell = tableCell(text(columns[i]));
    const size_t padding = widths[i] - std::min(widths[i], widthOf(cell));
    if (i > 0) line += "  ";
    if (columns[i].number) line.append(padding, ' ');
    line += cell;
    if (!columns[i].number) line.append(padding, ' ');
  }
  out << line << '\n';
}

void writeTable(std::ostream& out, Columns columns, const std::string& drawing,
                const RowSource& rows) {
  const Utf8Locale locale;
  Widths widths{};
  for (size_t i = 0; i < columns.size(); ++i) widths[i] = std::string(columns[i].name).size();
  rows([&](const TextRow& row) {
    for (size_t i = 0; i < columns.size(); ++i) {
      widths[i] = std::max(widths[i], widthOf(tableCell(columns[i].text(row))));
    }
  });
  if (!drawing.empty()) out << drawing << ":\n";
  writeTableLine(out, columns, widths,
                 [](const Column& column) { return std::string(column.name); });
  rows([&](const TextRow& row) {
    writeTableLine(out, columns, widths, [&](const Column& column) { return column.text(row); });
  });
}

std::string csvField(const std::string& text) {
  if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
  std::string quoted = "\"";
  for (const char c : text) {
    if (c == '"') quoted += '"';
    quoted += c;
  }
  return quoted + '"';
}

/// A text that begins like a formula would be run by a spreadsheet; an apostrophe in front makes it
/// a text there.
std::string csvText(const std::string& text, bool raw) {
  const bool formula =
      !text.empty() && std::string_view("=+-@\t\r").find(text[0]) != std::string::npos;
  return csvField(formula && !raw ? '\'' + text : text);
}

void writeCsv(std::ostream& out, const RowForm& form, const std::string& drawing,
              const RowSource& rows) {
  const Columns columns = columnsOf(form);
  const std::string first = form.many ? csvText(drawing, form.raw) + ',' : std::string();
  rows([&](const TextRow& row) {
    std::string line = first;
    for (const Column& column : columns) {
      line += column.number ? column.text(row) : csvText(column.text(row), form.raw);
      line += &column == &columns.back() ? "\r\n" : ",";
    }
    out << line;
  });
}

void writeJson(std::ostream& out, Columns columns, const std::string& drawing,
               const RowSource& rows) {
  std::string head = "{";
  if (!drawing.empty()) {
    head += "\"drawing\":";
    appendJson(head, drawing);
    head += ',';
  }
  rows([&](const TextRow& row) {
    std::string line = head;
    for (const Column& column : columns) {
      line.append(1, '"').append(column.name).append("\":");
      const std::string text = column.text(row);
      if (column.number) {
        line += text.empty() ? "null" : text;
      } else {
        appendJson(line, text);
      }
      line += &column == &columns.back() ? "}\n" : ",";
    }
    out << line;
  });
}

}  // namespace

void writeListHead(std::ostream& out, const RowForm& form) {
  if (form.format != ListFormat::kCsv) return;
  const Columns columns = columnsOf(form);
  if (form.many) out << "drawing,";
  for (const Column& column : columns)
    out << column.name << (&column == &columns.back() ? "\r\n" : ",");
}

void writeRows(std::ostream& out, const RowForm& form, const std::string& drawing,
               const RowSource& rows) {
  const std::string name = form.many ? drawing : std::string();
  switch (form.format) {
    case ListFormat::kTable:
      return writeTable(out, columnsOf(form), name, rows);
    case ListFormat::kCsv:
      return writeCsv(out, form, drawing, rows);
    case ListFormat::kJson:
      return writeJson(out, columnsOf(form), name, rows);
  }
}

}  // namespace kovra::host
