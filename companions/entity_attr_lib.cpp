#include "module/frame/companions/entity_attr_lib.h"

#include "platform/arx/entities/text.h"

void NotifyEntityEdited(AcDbText* text, AcDbDatabase* database) {
  if (text) text->adjustAlignment(database);
}
