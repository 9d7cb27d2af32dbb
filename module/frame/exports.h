#pragma once

/// One row of the table by which a loader that knows no ordinals finds an export. exports.def
/// gives the same numbers to the linker of systems that know them.
struct KovraExport {
  int ordinal;         ///< number of the export; 0 ends the table
  void (*function)();  ///< never null but in the last row
};

extern "C" {
extern const KovraExport kovraExportTable[];

void KovraExport1000();
void KovraExport1001();
void KovraExport1002();
void KovraExport1003();
void KovraExport1004();
void KovraExport1005();
void KovraExport1006();
void KovraExport1007();
void KovraExport1008();

/// Called by the main module after the library is attached; registers the option page.
void KovraInitApplication();

/// Called by the main module before the library is detached; removes the option page.
void KovraUnloadApplication();
}
