#include "host/subcommands/each_in_order.h"

#include <iostream>
#include <map>

#include "host/batch/process_pool.h"
#include "host/program/options.h"

namespace kovra::host {
namespace {

/// Holds results back until those before them have come.
class OrderedOutput {
 public:
  void add(std::size_t piece, const ProcessResult& result) {
    waiting_.emplace(piece, result);
    for (auto next = waiting_.find(next_); next != waiting_.end(); next = waiting_.find(++next_)) {
      print(next->second);
      waiting_.erase(next);
    }
  }
  int status() const { return status_; }

 private:
  void print(const ProcessResult& result) {
    std::cout << result.output;
    if (!result.errors.empty()) {
      std::cout.flush();
      std::cerr << result.errors;
    }
    if (status_ == kExitDone) status_ = result.exitStatus();
  }

  std::map<std::size_t, ProcessResult> waiting_;
  std::size_t next_ = 0;
  int status_ = kExitDone;
};

}  // namespace

int forEachInOrder(const std::vector<BatchDrawing>& drawings, unsigned jobs,
                   const std::function<int(const BatchDrawing&)>& work) {
  if (drawings.size() == 1) return work(drawings.front());
  OrderedOutput output;
  PooledWork pooled;
  pooled.count = drawings.size();
  pooled.jobs = jobs;
  pooled.carryOut = [&](std::size_t piece, int) { return work(drawings[piece]); };
  pooled.ended = [&](std::size_t piece, const ProcessResult& result) {
    output.add(piece, result);
    return true;
  };
  const bool all = runInProcesses(pooled).ended == drawings.size();
  return output.status() == kExitDone && !all ? kExitRefused : output.status();
}

}  // namespace kovra::host
