// Runs a program and prints what it took: measure OUT PROGRAM ARGUMENT...
// The clock runs from the start of the program until the file OUT lies on the disk (fsync), so a
// program that flushes and one that doesn't are measured alike. Prints: seconds, seconds of
// processor time, peak memory in bytes, status.
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

#include <cstdio>

namespace {

double now() {
  timespec time = {};
  clock_gettime(CLOCK_MONOTONIC, &time);
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

double seconds(const timeval& time) {
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
}

void flush(const char* path) {
  const int file = open(path, O_RDONLY | O_CLOEXEC);
  if (file < 0) return;
  fsync(file);
  close(file);
}

void runChild(char** command) {
  const int null = open("/dev/null", O_RDWR);
  dup2(null, STDIN_FILENO);
  dup2(null, STDOUT_FILENO);
  execvp(command[0], command);
  _exit(127);
}

}  // namespace

int main(int count, char** arguments) {
  if (count < 3) return 2;
  const double start = now();
  const pid_t child = fork();
  if (child < 0) return 1;
  if (child == 0) runChild(arguments + 2);
  int status = 0;
  rusage usage = {};
  wait4(child, &status, 0, &usage);
  flush(arguments[1]);
  std::printf(
      "%.6f %.6f %lld %d\n", now() - start, seconds(usage.ru_utime) + seconds(usage.ru_stime),
      static_cast<long long>(usage.ru_maxrss) * 1024, WIFEXITED(status) ? WEXITSTATUS(status) : -1);
  return 0;
}
