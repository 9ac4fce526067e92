// The connection as programs and modules see it; the work is done behind it.
#include "plugin/contract/Database.h"

#include <utility>

#include "host/database/Connection.h"
#include "host/database/SqliteDatabase.h"

using namespace FX;

bool DataBaseValueLoader::processValue(int column, const char*, const char*) {
  if (column == 0) ++rows;
  return true;
}

int DataBaseValueLoader::getNumRows() const { return rows; }

DataBaseValueLoader::~DataBaseValueLoader() = default;

StatementObserver::~StatementObserver() = default;

TarnwellDatabase::TarnwellDatabase(std::unique_ptr<Quillane::Database::Connection> opened)
    : connection(std::move(opened)) {}

TarnwellDatabase::~TarnwellDatabase() = default;

TarnwellDatabase* TarnwellDatabase::open(FXString where, FXString& error) {
  auto opened = Quillane::Database::SqliteDatabase::open(where, error);
  return opened ? new TarnwellDatabase(std::move(opened)) : nullptr;
}

int TarnwellDatabase::queryScalar(const FXString& sql, int row, int fallback) {
  return connection->queryScalar({sql.text(), static_cast<size_t>(sql.length())}, row, fallback);
}

int TarnwellDatabase::nextKey(const FXString& table) {
  return connection->nextKey({table.text(), static_cast<size_t>(table.length())});
}

bool TarnwellDatabase::begin() { return connection->begin(); }

bool TarnwellDatabase::commit() { return connection->commit(); }

bool TarnwellDatabase::rollback() { return connection->rollback(); }

bool TarnwellDatabase::isInTransaction() const { return connection->isInTransaction(); }

FXString TarnwellDatabase::getLastError() const { return connection->getLastError(); }

void TarnwellDatabase::setObserver(StatementObserver* observer) { connection->setObserver(observer); }
