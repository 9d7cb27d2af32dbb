/// A library for the loader's test. Its state begins anew with every load.
#include <string>

#include "platform/win/base/windows_types.h"
#include "platform/win/resources/loader.h"

namespace {

/// Template statics are what compilers like to keep for the whole process.
template <typename T>
struct Counter {
  static inline int value = 0;
};

int attached = 0;

int& memo() {
  static int count = 0;
  return count;
}

class Reactor {
 public:
  virtual ~Reactor() = default;
};

Reactor reactor;

void count() {
  ++memo();
}

}  // namespace

extern "C" {

struct Export {
  int ordinal;
  void (*function)();
};
extern const Export kovraExportTable[];
const Export kovraExportTable[] = {{1000, count}, {1003, count}, {0, nullptr}};

int state() {
  return attached * 1000 + memo() * 10 + Counter<int>::value;
}
void touch() {
  Counter<int>::value = 5;
}
void hold(kovra::win::ModuleUse* use) {
  *use = kovra::win::ModuleUse(&reactor, "reactor");
}

BOOL DllMain(HINSTANCE instance, DWORD reason, LPVOID) {
  if (instance == nullptr) return FALSE;
  if (reason == DLL_PROCESS_ATTACH) ++attached;
  return TRUE;
}
}
