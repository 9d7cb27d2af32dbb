#include "host/batch/batch_progress.h"

#include <unistd.h>

#include <array>
#include <cstdio>
#include <iostream>

namespace kovra::host {
namespace {

constexpr std::size_t kReasons = 10;

std::string clockText(double seconds) {
  const auto whole = static_cast<long>(seconds + 0.5);
  std::array<char, 40> text{};
  const long hours = whole / 3600;
  if (hours > 0) {
    std::snprintf(text.data(), text.size(), "%ld:%02ld:%02ld", hours, whole / 60 % 60, whole % 60);
  } else {
    std::snprintf(text.data(), text.size(), "%ld:%02ld", whole / 60, whole % 60);
  }
  return text.data();
}

}  // namespace

BatchProgress::BatchProgress(std::size_t total, std::size_t leftOut)
    : total_(total),
      leftOut_(leftOut),
      terminal_(isatty(STDERR_FILENO) != 0),
      begin_(std::chrono::steady_clock::now()) {}

void BatchProgress::add(const BatchDrawing& drawing, const JobOutcome& outcome) {
  if (outcome.status == "done") {
    ++done_;
  } else if (outcome.status == "unchanged") {
    ++unchanged_;
  } else {
    ++failed_;
    if (reasons_.size() < kReasons) {
      const std::string place = outcome.place.empty() ? "" : outcome.place + ": ";
      // Most reasons name the file already.
      const std::string name = drawing.name;
      const bool named = outcome.error.find(name) != std::string::npos;
      reasons_.push_back((named ? "" : name + ": ") + place + outcome.error);
    }
  }
  if (terminal_) showBar();
}

void BatchProgress::showBar() const {
  const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - begin_;
  const double left =
      taken.count() / static_cast<double>(finished()) * static_cast<double>(total_ - finished());
  std::cerr << "\r\x1b[K" << finished() << " of " << total_;
  if (failed_ > 0) std::cerr << ", " << failed_ << " failed";
  std::cerr << ", " << clockText(left) << " left" << std::flush;
}

void BatchProgress::printSummary() const {
  if (terminal_) std::cerr << "\r\x1b[K" << std::flush;
  const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - begin_;
  std::cout << done_ << " done, " << unchanged_ << " unchanged, " << failed_ << " failed";
  if (leftOut_ > 0) std::cout << ", " << leftOut_ << " done before";
  if (finished() < total_) std::cout << ", " << total_ - finished() << " not done";
  std::cout << " in " << clockText(taken.count()) << '\n';
  for (const std::string& reason : reasons_) std::cout << "  " << reason << '\n';
  if (failed_ > reasons_.size()) std::cout << "  and " << failed_ - reasons_.size() << " more\n";
}

}  // namespace kovra::host
