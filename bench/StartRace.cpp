// Times the start of the module as the built file that a host loads, against opening the same database and running the
// same statements by bare SQLite calls. A program of its own, because nothing of the module may be linked into the
// program that loads it. Usage: start_race MODULE DATABASE ROUNDS, the database being that of a company that is up to
// date. Prints the least seconds that either took.
#include <dlfcn.h>
#include <fx.h>
#include <sqlite3.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <memory>
#include <string>

#include "plugin/contract/Database.h"
#include "plugin/contract/PluginContainer.h"
#include "plugin/contract/Tarnwell.h"

namespace {

using Quillane::Tarnwell;
using Quillane::Plugin::PluginContainer;
using GetPlugin = PluginContainer*(Tarnwell*);

[[noreturn]] void fail(const char* reason) {
  std::fprintf(stderr, "%s\n", reason);
  std::exit(1);
}

// What opening a database and bringing the module's tables up to date executes when nothing is missing.
constexpr const char* kStatements[] = {
    "pragma schema_version",
    "select m.name, c.name from sqlite_master m join pragma_table_xinfo(m.name) c where m.type = 'table' order by "
    "m.rowid, c.cid",
    "select m.name, f.\"from\" from sqlite_master m join pragma_foreign_key_list(m.name) f where m.type = 'table'",
    "select name, tbl_name from sqlite_master where type = 'index'",
    "select count(1) from t_itemvariable where t_itemvariable_id=-1"};

class Timer {
 public:
  template <class Work>
  void time(const Work& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    least = std::min(least, std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
  }

  double getLeast() const { return least; }

 private:
  double least = std::numeric_limits<double>::max();
};

// Starts the module and ends it again; only the start is timed.
void startModule(Tarnwell& account, const char* file, const char* database, Timer& timer) {
  void* module = nullptr;
  std::unique_ptr<PluginContainer> container;
  timer.time([&] {
    FX::FXString error;
    TarnwellDatabase* opened = TarnwellDatabase::open(database, error);
    if (!opened) fail(error.text());
    account.setDB(opened);
    module = dlopen(file, RTLD_NOW | RTLD_LOCAL);
    if (!module) fail(dlerror());
    auto* getPlugin = reinterpret_cast<GetPlugin*>(dlsym(module, "get_plugin"));
    if (!getPlugin) fail(dlerror());
    container.reset(getPlugin(&account));
    container->init();
  });
  container.reset();
  dlclose(module);
  if (dlopen(file, RTLD_NOW | RTLD_NOLOAD)) fail("the module stays in memory after it was unloaded");
  account.setDB(nullptr);
}

void runStatement(sqlite3* connection, const char* sql) {
  sqlite3_stmt* statement = nullptr;
  if (sqlite3_prepare_v2(connection, sql, -1, &statement, nullptr) != SQLITE_OK) fail(sqlite3_errmsg(connection));
  int result;
  while ((result = sqlite3_step(statement)) == SQLITE_ROW) {
    for (int column = 0; column < sqlite3_column_count(statement); ++column) sqlite3_column_text(statement, column);
  }
  if (result != SQLITE_DONE) fail(sqlite3_errmsg(connection));
  sqlite3_finalize(statement);
}

void runStatements(const char* database, Timer& timer) {
  sqlite3* connection = nullptr;
  timer.time([&] {
    if (sqlite3_open(database, &connection) != SQLITE_OK) fail(sqlite3_errmsg(connection));
    for (const char* sql : kStatements) runStatement(connection, sql);
  });
  sqlite3_close(connection);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 4) fail("usage: start_race MODULE DATABASE ROUNDS");
  Tarnwell account("start_race");
  static char* arguments[] = {argv[0], nullptr};
  int count = 1;
  account.init(count, arguments, FALSE);
  Timer module;
  Timer bare;
  for (int round = std::atoi(argv[3]); round > 0; --round) {
    startModule(account, argv[1], argv[2], module);
    runStatements(argv[2], bare);
  }
  std::printf("%.9f %.9f\n", module.getLeast(), bare.getLeast());
  return 0;
}
