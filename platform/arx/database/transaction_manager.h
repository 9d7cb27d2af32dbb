// Transactions of a database.
#pragma once
#include "platform/arx/base/error_status.h"

class AcDbDatabase;

/// A transaction that startTransaction gave; it belongs to its manager.
class AcTransaction {
 public:
  virtual ~AcTransaction() = default;
};

/// Nested transactions over the database's journal. Objects are opened and closed as without one.
class AcTransactionManager {
 public:
  explicit AcTransactionManager(AcDbDatabase& database) : database_(database) {}
  /// Never null. Every start is answered by one end or abort.
  AcTransaction* startTransaction();
  /// Keeps the changes since the start of the innermost transaction. eNoActiveTransactions.
  Acad::ErrorStatus endTransaction();
  /// Takes back every change since the start of the innermost transaction, also of objects opened
  /// and closed outside it; objects that are still open see the old values, also those whose writer
  /// hasn't closed them yet. eNoActiveTransactions.
  Acad::ErrorStatus abortTransaction();
  int numActiveTransactions() const;

 private:
  AcDbDatabase& database_;
  AcTransaction transaction_;
};
using AcDbTransactionManager = AcTransactionManager;
