// The limit to compare with: the module's statements as bare SQLite calls.
#include "bench/BareItemData.h"

#include <cstdio>
#include <cstdlib>

#include "bench/BenchCompany.h"

namespace Bench {

namespace {

constexpr int kOutgoing = 100;

// Of the product that the item is about.
constexpr int kArticleId = 1;

std::string textOf(sqlite3_stmt* statement, int column) {
  const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
  return text ? std::string(text, sqlite3_column_bytes(statement, column)) : std::string();
}

}  // namespace

BareItemData::BareItemData(const std::string& file) {
  constexpr int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX;
  if (sqlite3_open_v2(file.c_str(), &connection, flags, nullptr) != SQLITE_OK) std::abort();
  sqlite3_exec(connection, "pragma foreign_keys=on; pragma cache_size=-65536; pragma synchronous=off", nullptr, nullptr,
               nullptr);
  selectSettings = prepare(
      "select type,null,t_itemvariable_1,name,mandatory,process,vvalue from t_productitemdata join t_itemvariable on  "
      "t_itemvariable_1= t_itemvariable_id where direction=?1 and t_product_1=?2 order by process, position");
  selectEntries = prepare(
      "select type,t_invoiceitemdata_id,t_itemvariable_1,name,mandatory,row,value from t_invoiceitemdata left join "
      "t_itemvariable on t_itemvariable_1=t_itemvariable_id where t_invoiceitem_1=?1 order by row, "
      "t_invoiceitemdata_id");
  selectEntry = prepare(
      "select value, t_invoiceitemdata_id from t_invoiceitemdata where t_invoiceitem_1=?1 and t_itemvariable_1=?2 and "
      "row=?3");
  insertEntry =
      prepare("insert into t_invoiceitemdata (t_itemvariable_1, t_invoiceitem_1, value, row) values (?1, ?2, ?3, ?4)");
  updateEntry = prepare(
      "update t_invoiceitemdata set t_itemvariable_1=?1, t_invoiceitem_1=?2, value=?3, row=?4 where "
      "t_invoiceitemdata_id=?5");
  beginReading = prepare("begin");
  begin = prepare("begin immediate");
  commit = prepare("commit");
}

BareItemData::~BareItemData() {
  for (sqlite3_stmt* statement :
       {selectSettings, selectEntries, selectEntry, insertEntry, updateEntry, beginReading, begin, commit}) {
    sqlite3_finalize(statement);
  }
  sqlite3_close(connection);
}

void BareItemData::load(int itemId) {
  step(beginReading, SQLITE_DONE);
  sqlite3_bind_int(selectSettings, 1, kOutgoing);
  sqlite3_bind_int(selectSettings, 2, kArticleId);
  read(selectSettings, settings);

  sqlite3_bind_int(selectEntries, 1, itemId);
  read(selectEntries, entries);

  for (Entry& entry : entries) {
    sqlite3_bind_int(selectEntry, 1, itemId);
    sqlite3_bind_int(selectEntry, 2, entry.variable);
    sqlite3_bind_int(selectEntry, 3, entry.row);
    while (sqlite3_step(selectEntry) == SQLITE_ROW) {
      entry.value = textOf(selectEntry, 0);
      entry.key = sqlite3_column_int(selectEntry, 1);
    }
    sqlite3_reset(selectEntry);
  }
  step(commit, SQLITE_DONE);
}

void BareItemData::make(int rows, const std::vector<int>& variables) {
  entries.clear();
  for (int row = 1; row <= rows; ++row) {
    for (const int variable : variables) {
      Entry entry;
      entry.variable = variable;
      entry.row = row;
      entry.value = BenchCompany::textOf(row, variable);
      entries.push_back(entry);
    }
  }
}

void BareItemData::change(int turn) {
  for (Entry& entry : entries)
    if (entry.variable > 0) entry.value = BenchCompany::textOf(entry.row + turn, entry.variable);
}

void BareItemData::insert(int itemId) {
  step(begin, SQLITE_DONE);
  for (const Entry& entry : entries) {
    sqlite3_bind_int(insertEntry, 1, entry.variable);
    sqlite3_bind_int(insertEntry, 2, itemId);
    sqlite3_bind_text(insertEntry, 3, entry.value.data(), static_cast<int>(entry.value.size()), SQLITE_STATIC);
    sqlite3_bind_int(insertEntry, 4, entry.row);
    step(insertEntry, SQLITE_DONE);
  }
  step(commit, SQLITE_DONE);
}

void BareItemData::update(int itemId) {
  step(begin, SQLITE_DONE);
  for (const Entry& entry : entries) {
    sqlite3_bind_int(updateEntry, 1, entry.variable);
    sqlite3_bind_int(updateEntry, 2, itemId);
    sqlite3_bind_text(updateEntry, 3, entry.value.data(), static_cast<int>(entry.value.size()), SQLITE_STATIC);
    sqlite3_bind_int(updateEntry, 4, entry.row);
    sqlite3_bind_int(updateEntry, 5, entry.key);
    step(updateEntry, SQLITE_DONE);
  }
  step(commit, SQLITE_DONE);
}

sqlite3_stmt* BareItemData::prepare(const char* sql) {
  sqlite3_stmt* statement = nullptr;
  if (sqlite3_prepare_v3(connection, sql, -1, SQLITE_PREPARE_PERSISTENT, &statement, nullptr) != SQLITE_OK) {
    std::fprintf(stderr, "%s\n%s\n", sqlite3_errmsg(connection), sql);
    std::abort();
  }
  return statement;
}

// Both statements that read a list give the same columns.
void BareItemData::read(sqlite3_stmt* statement, std::vector<Entry>& list) {
  // A document that is loaded has nothing to begin with.
  std::vector<Entry>().swap(list);
  while (sqlite3_step(statement) == SQLITE_ROW) {
    list.push_back({sqlite3_column_int(statement, 0), sqlite3_column_int(statement, 1),
                    sqlite3_column_int(statement, 2), textOf(statement, 3), sqlite3_column_int(statement, 4) == 1,
                    sqlite3_column_int(statement, 5), textOf(statement, 6)});
  }
  sqlite3_reset(statement);
}

void BareItemData::step(sqlite3_stmt* statement, int expected) {
  const int result = sqlite3_step(statement);
  sqlite3_reset(statement);
  if (result != expected) {
    std::fprintf(stderr, "%s\n", sqlite3_errmsg(connection));
    std::abort();
  }
}

}  // namespace Bench
