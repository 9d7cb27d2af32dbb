#include "host/batch/batch_report.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <cmath>
#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>

#include "platform/dxf/file_bytes.h"
#include "platform/dxf/values.h"

namespace kovra::host {
namespace {

using json = nlohmann::ordered_json;
using std::filesystem::path;

std::string absolutePath(const path& file) {
  std::error_code failure;
  const path absolute = std::filesystem::weakly_canonical(file, failure);
  return failure ? file.string() : absolute.string();
}

/// Size and time of change; empty for a file that isn't there.
std::string stampText(const path& file) {
  const Result<dxf::FileStamp> stamp = dxf::stampOf(file.string());
  if (!stamp) return {};
  const dxf::FileStamp& is = stamp.value();
  return std::to_string(is.size) + '@' + std::to_string(is.seconds) + '.' +
         std::to_string(is.nanoseconds);
}

path begunFile(path report) {
  return report += ".begun";
}

std::string dump(const json& entry) {
  return entry.dump(-1, ' ', false, json::error_handler_t::replace);
}

/// `file` as the user wrote it, and what finds it again from any folder.
void addNames(const path& file, json& entry) {
  entry["file"] = file.string();
  const std::string absolute = absolutePath(file);
  if (json::parse(dump(absolute)) != absolute) {
    std::string digits;
    for (const char byte : absolute) {
      constexpr std::string_view kDigits = "0123456789abcdef";
      const auto value = static_cast<unsigned char>(byte);
      digits.append({kDigits[value / 16], kDigits[value % 16]});
    }
    entry["path_bytes"] = digits;
  } else if (absolute != file.string()) {
    entry["path"] = absolute;
  }
}

std::string pathOf(const json& entry) {
  const std::string digits = entry.value("path_bytes", "");
  if (digits.empty()) return absolutePath(entry.value("path", entry.value("file", "")));
  std::string bytes;
  for (std::size_t i = 0; i + 1 < digits.size(); i += 2)
    bytes += static_cast<char>(std::strtol(digits.substr(i, 2).c_str(), nullptr, 16));
  return bytes;
}

/// Lines that name no job say of every one that the drawing isn't done.
template <class Take>
void forEachEntry(std::istream& lines, const std::string& signature, Take take) {
  std::string line;
  while (std::getline(lines, line)) {
    const json entry = json::parse(line, nullptr, false);
    if (entry.is_object() && entry.value("job", signature) == signature) take(pathOf(entry), entry);
  }
}

/// FNV-1a, 64 bits (Fowler, Noll, Vo): the same on every machine.
std::uint64_t hashOf(const std::string& text) {
  std::uint64_t hash = 0xcbf29ce484222325U;
  for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001b3U;
  return hash;
}

}  // namespace

std::string jobSignature(const EachOptions& options) {
  std::string job;
  for (const std::string& line : options.run.commands) job += line + '\n';
  if (!options.run.script.empty()) {
    std::ostringstream script;
    script << std::ifstream(options.run.script, std::ios::binary).rdbuf();
    job.append(1, '\0').append(script.str());
  }
  for (const path& place : {options.run.project, options.outputFolder})
    job.append(1, '\0').append(place.empty() ? std::string() : absolutePath(place));
  return dxf::formatHandle(hashOf(job));
}

Result<FinishedDrawings> FinishedDrawings::read(const path& report, const std::string& signature) {
  std::ifstream lines(report);
  if (!lines) return Error{ErrorKind::kNotReadable, report.string() + ": the report can't be read"};
  FinishedDrawings drawings;
  forEachEntry(lines, signature, [&](const std::string& file, const json& entry) {
    const std::string status = entry.value("status", "");
    const bool done = (status == "done" || status == "unchanged") && !entry.value("dry_run", false);
    // The last word counts.
    drawings.finished_[file] = done ? entry.value("stamp", "") : std::string();
  });
  std::ifstream begun(begunFile(report));
  forEachEntry(begun, signature, [&](const std::string& file, const json& entry) {
    if (!drawings.finished_.contains(file)) drawings.begun_[file] = entry.value("stamp", "");
  });
  return drawings;
}

FinishedDrawings::State FinishedDrawings::stateOf(const BatchDrawing& drawing) const {
  const std::string file = absolutePath(drawing.file());
  const std::string stamp = stampText(drawing.file());
  const auto finished = finished_.find(file);
  if (finished != finished_.end()) {
    const bool same = !finished->second.empty() && finished->second == stamp;
    return same ? State::kReported : State::kOpen;
  }
  const auto begun = begun_.find(file);
  return begun != begun_.end() && begun->second != stamp ? State::kSaved : State::kOpen;
}

BatchReport::~BatchReport() {
  if (file_ >= 0) close(file_);
  if (begun_ >= 0) close(begun_);
}

Error BatchReport::failure(const std::string& reason) const {
  return {ErrorKind::kNotWritable, path_ + ": can't be written: " + reason};
}

Result<void> BatchReport::open(const path& file, std::string signature, bool dryRun) {
  path_ = file.string();
  signature_ = std::move(signature);
  dryRun_ = dryRun;
  file_ = ::open(path_.c_str(), O_RDWR | O_CREAT | O_APPEND | O_CLOEXEC, 0666);
  if (file_ < 0) return failure(dxf::systemMessage(errno));
  if (flock(file_, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK)
    return failure("another run has this report");
  if (!dryRun)
    begun_ = ::open(begunFile(file).c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0666);
  // A batch that was killed may have left half a line.
  char last = '\n';
  const off_t end = lseek(file_, 0, SEEK_END);
  if (end > 0 && pread(file_, &last, 1, end - 1) == 1 && last != '\n' && write(file_, "\n", 1) != 1)
    return failure(dxf::systemMessage(errno));
  return {};
}

Result<void> BatchReport::begin(const BatchDrawing& drawing) const {
  if (begun_ < 0) return {};
  json entry = {{"stamp", stampText(drawing.file())}, {"job", signature_}};
  addNames(drawing.file(), entry);
  // Behind half a line, which a full disk may have left, too.
  const std::string line = '\n' + dump(entry) + '\n';
  if (write(begun_, line.data(), line.size()) == static_cast<ssize_t>(line.size())) return {};
  return failure(dxf::systemMessage(errno));
}

void BatchReport::complete() {
  if (begun_ >= 0) unlink(begunFile(path_).c_str());
}

Result<void> BatchReport::add(const BatchDrawing& drawing, const JobOutcome& outcome) {
  if (file_ < 0) return {};
  json entry;
  addNames(drawing.file(), entry);
  entry.update({{"status", outcome.status},
                {"line", outcome.place},
                {"error", outcome.error},
                {"seconds", std::round(outcome.seconds * 1000) / 1000},
                {"stamp", stampText(drawing.file())},
                {"job", signature_},
                {"output", outcome.output}});
  std::error_code none;
  const auto bytes = std::filesystem::file_size(drawing.file(), none);
  if (!none) entry["bytes"] = bytes;
  if (dryRun_) entry["dry_run"] = true;
  entry["changes"] = json::parse(outcome.changes.empty() ? "[]" : outcome.changes, nullptr, false);
  const std::string line = dump(entry) + '\n';
  if (write(file_, line.data(), line.size()) == static_cast<ssize_t>(line.size())) return {};
  return failure(dxf::systemMessage(errno));
}

}  // namespace kovra::host
