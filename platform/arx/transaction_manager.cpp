#include "platform/arx/transaction_manager.h"

#include "platform/arx/database.h"
#include "platform/arx/journal.h"

AcTransaction* AcTransactionManager::startTransaction() {
  database_.journal().startTransaction();
  return &transaction_;
}

Acad::ErrorStatus AcTransactionManager::endTransaction() {
  return database_.journal().endTransaction() ? Acad::eOk : Acad::eNoActiveTransactions;
}

Acad::ErrorStatus AcTransactionManager::abortTransaction() {
  return database_.journal().abortTransaction() ? Acad::eOk : Acad::eNoActiveTransactions;
}

int AcTransactionManager::numActiveTransactions() const {
  return database_.journal().transactions();
}
