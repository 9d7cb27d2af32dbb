#include "platform/arx/database/transaction_manager.h"

#include "platform/arx/database/database.h"
#include "platform/arx/database/journal.h"
#include "platform/arx/database/object_table.h"

AcTransaction* AcTransactionManager::startTransaction() {
  // What writers hold back happened before the start.
  database_.objects().writePending();
  database_.journal().startTransaction();
  return &transaction_;
}

Acad::ErrorStatus AcTransactionManager::endTransaction() {
  return database_.journal().endTransaction() ? Acad::eOk : Acad::eNoActiveTransactions;
}

Acad::ErrorStatus AcTransactionManager::abortTransaction() {
  if (numActiveTransactions() == 0) return Acad::eNoActiveTransactions;
  database_.objects().dropPending();
  database_.journal().abortTransaction();
  return Acad::eOk;
}

int AcTransactionManager::numActiveTransactions() const {
  return database_.journal().transactions();
}
