#include "module/frame/exports.h"

#include "module/frame/commands.h"

extern "C" {

void KovraExport1000() {
  kovra::TextCommand();
}
void KovraExport1001() {
  kovra::ResizeTextCommand();
}
void KovraExport1002() {
  kovra::ChangePropertiesCommand();
}
void KovraExport1003() {
  kovra::CountUpCommand();
}
void KovraExport1004() {
  kovra::PropertyCopyCommand(0);
}
void KovraExport1005() {
  kovra::PropertyCopyCommand(1);
}
void KovraExport1006() {
  kovra::PropertyCopyLineCommand();
}
void KovraExport1007() {
  kovra::EditTextPropertyCommand();
}
void KovraExport1008() {
  kovra::TextAlignCommand();
}

void KovraInitApplication() {
  kovra::OptionEntry(1);
}
void KovraUnloadApplication() {
  kovra::OptionEntry(0);
}

const KovraExport kovraExportTable[] = {
    {1000, KovraExport1000}, {1001, KovraExport1001},
    {1002, KovraExport1002}, {1003, KovraExport1003},
    {1004, KovraExport1004}, {1005, KovraExport1005},
    {1006, KovraExport1006}, {1007, KovraExport1007},
    {1008, KovraExport1008}, {0, nullptr},
};
}
