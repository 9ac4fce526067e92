// Runs the statements of one open database.
//
// Invariants:
//  1. A value is bound, never written into a text; a text reaches the database as its caller gave it, but for the form
//     of its parameters.
//  2. A cached statement with users stays where it is. A statement object is a user from the moment it knows its text,
//     a run is one for as long as it lasts: so a loader may run the same text again, bind anew, or destroy the object.
//  3. A prepared statement is either idle in its cached statement or in the hands of exactly one run. A run that is
//     over has reset it: no read lock outlives a call, but from beginReading to endReading.
//  4. The observer hears of a statement before it runs, once, whether it fails or not.
//  5. While inTransaction is set, firstFailure is the first failure that counts; when the database has given up the
//     transaction by itself, firstFailure is set and nothing is written any more before commit or rollback.
//  6. lastError changes with failures only.
#include "host/database/Connection.h"

#include <libintl.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <limits>
#include <utility>

#include "host/database/GeneratedText.h"
#include "host/database/SqlName.h"
#include "plugin/contract/Database.h"

using namespace FX;

namespace Quillane::Database {

namespace {

constexpr size_t kCachedStatements = 256;
constexpr size_t kSpareBodies = 16;
constexpr size_t kIdleStatements = 2;  // of one text; more only while it runs inside itself
constexpr size_t kUsualParameters = 16;
constexpr size_t kShownSql = 400;  // bytes of a statement in a message
constexpr long long kLargestKey = std::numeric_limits<int>::max();

// Takes one value out of a result.
class ScalarLoader : public DataBaseValueLoader {
 public:
  ScalarLoader(int wantedColumn, int wantedRow) : column(wantedColumn), row(wantedRow) {}

  bool processValue(int at, const char*, const char* text) override {
    if (at == 0) ++rows;
    if (rows > row) return false;
    if (rows < row || at != column) return true;
    found = true;
    value = text ? std::strtoll(text, nullptr, 10) : 0;
    return false;
  }

  int asInt(int fallback) const {
    if (!found) return fallback;
    return static_cast<int>(std::clamp<long long>(value, std::numeric_limits<int>::min(), kLargestKey));
  }

  bool found = false;
  long long value = 0;

 private:
  int column;
  int row;
};

FXString toFox(const std::string& text) { return FXString(text.data(), static_cast<FXint>(text.size())); }

// sql without what would not fit into a message, cut between two characters.
FXString shown(const std::string& sql) {
  if (sql.size() <= kShownSql) return toFox(sql);
  size_t end = kShownSql;
  while (end > 0 && (sql[end] & 0xC0) == 0x80) --end;
  return toFox(sql.substr(0, end)) + "…";
}

const char* sentenceOf(Failure::Cause cause) {
  switch (cause) {
    case Failure::Cause::Locked:
      return dgettext("quillane", "Az adatbázist egy másik program zárolja.");
    case Failure::Cause::Full:
      return dgettext("quillane", "Az adatbázis megtelt: nincs több hely az adatoknak.");
    case Failure::Cause::ReadOnly:
      return dgettext("quillane", "Az adatbázis csak olvasható.");
    case Failure::Cause::Unreadable:
      return dgettext("quillane", "Az adatbázis fájlja nem olvasható vagy nem írható.");
    case Failure::Cause::Damaged:
      return dgettext("quillane", "Az adatbázis fájlja sérült, vagy nem adatbázis.");
    case Failure::Cause::Constraint:
      return dgettext("quillane", "Az adat megsértené az adatbázis egyik szabályát.");
    case Failure::Cause::Empty:
      return dgettext("quillane", "Az adatbázis-utasítás üres.");
    case Failure::Cause::Several:
      return dgettext("quillane", "Egyszerre csak egy adatbázis-utasítás futtatható.");
    case Failure::Cause::Parameters:
      return dgettext("quillane", "Az adatbázis-utasításban a paraméterek neve előtt százalékjelnek kell állnia.");
    case Failure::Cause::Other:
      break;
  }
  return dgettext("quillane", "Az adatbázis-utasítás nem hajtható végre.");
}

FXString sentenceOf(const Failure& failure) {
  FXString sentence = sentenceOf(failure.cause);
  if (failure.reason.empty()) return sentence;
  return sentence + " " + FXStringFormat(dgettext("quillane", "Az adatbázis üzenete: %s."), failure.reason.c_str());
}

FXString sentenceOf(const GeneratedText& text, const StatementBody& body) {
  switch (text.problem) {
    case GeneratedText::Problem::None:
      return FXString();
    case GeneratedText::Problem::NoTable:
      return dgettext("quillane", "Az adatbázis-utasításnak nincs táblája.");
    case GeneratedText::Problem::NoColumn:
      return FXStringFormat(dgettext("quillane", "A(z) %s táblába nincs mit írni: egy oszlop sem kapott értéket."),
                            body.table.c_str());
    case GeneratedText::Problem::NoCondition:
      return FXStringFormat(dgettext("quillane", "Nincs megadva, hogy a(z) %s tábla mely soraira vonatkozik."),
                            body.table.c_str());
    case GeneratedText::Problem::BadName:
      break;
  }
  return FXStringFormat(dgettext("quillane", "Ilyen nevű oszlop nem lehet: \"%s\"."), text.name.c_str());
}

// One use of a cached statement, which ends here.
class Use {
 public:
  Use(StatementCache& owner, CachedStatement* used) : cache(owner), statement(used) {}
  ~Use() { cache.release(statement); }
  Use(const Use&) = delete;
  Use& operator=(const Use&) = delete;

 private:
  StatementCache& cache;
  CachedStatement* statement;
};

}  // namespace

Connection::Connection() : cache(kCachedStatements) {}

Connection::~Connection() = default;

void Connection::close() {
  endReading();
  rollback();
  for (StatementBody* body = liveBodies; body; body = body->next) {
    body->connection = nullptr;
    body->cached = nullptr;
  }
  liveBodies = nullptr;
  cache.clear();
}

StatementBody* Connection::takeBody() {
  StatementBody* body;
  if (spareBodies.empty()) {
    body = new StatementBody;  // given to the caller, who gives it back
  } else {
    body = spareBodies.back().release();
    spareBodies.pop_back();
  }
  body->connection = this;
  body->next = liveBodies;
  if (liveBodies) liveBodies->previous = body;
  liveBodies = body;
  return body;
}

void Connection::giveBack(StatementBody* body) {
  forgetText(*body);
  (body->previous ? body->previous->next : liveBodies) = body->next;
  if (body->next) body->next->previous = body->previous;
  std::unique_ptr<StatementBody> owned(body);
  if (spareBodies.size() >= kSpareBodies) return;
  owned->clear();
  spareBodies.push_back(std::move(owned));
}

CachedStatement* Connection::find(std::string_view sql) {
  if (CachedStatement* known = cache.find(sql)) return known;
  return cache.add(sql, parseStatement(sql));
}

void Connection::setText(StatementBody& body, std::string_view sql) {
  forgetText(body);
  body.kind = StatementBody::Kind::Text;
  body.cached = find(sql);
}

void Connection::forgetText(StatementBody& body) {
  if (!body.cached) return;
  cache.release(body.cached);
  body.cached = nullptr;
}

void Connection::observe(const std::string& sql, const StatementBody& body) {
  std::vector<StatementObserver::Binding> bindings;
  for (const BoundValue& value : body) {
    const bool null = value.kind == BoundValue::Kind::Null;
    const bool integer = value.kind == BoundValue::Kind::Integer;
    bindings.push_back(
        {toFox(value.name), null, null ? FXString() : toFox(integer ? std::to_string(value.integer) : value.text)});
  }
  observer->statementExecuted(toFox(sql), bindings);
}

// Finds the statement that body stands for and tells the observer; null, with the failure noted, when there is none.
CachedStatement* Connection::resolve(StatementBody& body, Counts counts) {
  if (!body.cached && body.kind != StatementBody::Kind::None) {
    describeText(body, scratch);
    body.cached = cache.find(scratch);
  }
  if (body.cached) {
    CachedStatement* known = body.cached;
    if (observer) observe(known->text.sql, body);
    return known;
  }

  const GeneratedText built = generateText(body);
  if (observer) observe(built.sql, body);
  if (body.kind == StatementBody::Kind::None) {
    fail(Failure{Failure::Cause::Empty, {}}, {}, counts);
    return nullptr;
  }
  if (built.problem != GeneratedText::Problem::None) {
    fail(sentenceOf(built, body), built.sql, counts);
    return nullptr;
  }
  StatementText text = parseStatement(built.sql);
  if (body.kind == StatementBody::Kind::Update && comparesWithParameter(body.where, body.table + "_id"))
    text.keyedTable = body.table;
  return body.cached = cache.add(scratch, std::move(text));
}

// Puts the value of every parameter into its place in values.
bool Connection::collect(const CachedStatement& statement, const StatementBody& body, const BoundValue** values,
                         Counts counts) {
  const StatementText& text = statement.text;
  for (size_t i = 0; i < text.parameters.size(); ++i) {
    const std::string& name = text.parameters[i];
    values[i] = body.find(name);
    if (!values[i])
      return fail(FXStringFormat(dgettext("quillane", "A(z) \"%s\" paraméter nem kapott értéket."), name.c_str()),
                  text.sql, counts);
    if (values[i]->kind == BoundValue::Kind::NotAnInteger)
      return fail(FXStringFormat(dgettext("quillane", "A(z) \"%s\" értéke nem egész szám: \"%s\"."), name.c_str(),
                                 shown(values[i]->text).text()),
                  text.sql, counts);
    if (values[i]->kind == BoundValue::Kind::CutText)
      return fail(
          FXStringFormat(dgettext("quillane", "A(z) \"%s\" szövegében nulla kódú karakter van, így nem tárolható."),
                         name.c_str()),
          text.sql, counts);
  }
  return true;
}

bool Connection::execute(StatementBody& body, DataBaseValueLoader* loader, Counts counts) {
  CachedStatement* statement = resolve(body, counts);
  if (!statement) return false;
  StatementCache::retain(statement);
  const Use use(cache, statement);
  return runWith(*statement, body, loader, counts);
}

bool Connection::runWith(CachedStatement& statement, const StatementBody& body, DataBaseValueLoader* loader,
                         Counts counts) {
  const size_t parameters = statement.text.parameters.size();
  std::array<const BoundValue*, kUsualParameters> few;
  std::vector<const BoundValue*> many;
  if (parameters > few.size()) many.resize(parameters);
  const BoundValue** values = many.empty() ? few.data() : many.data();
  return collect(statement, body, values, counts) && run(statement, values, loader, counts);
}

bool Connection::run(CachedStatement& statement, const BoundValue* const* values, DataBaseValueLoader* loader,
                     Counts counts) {
  const StatementText& text = statement.text;
  Failure failure;
  std::unique_ptr<PreparedStatement> prepared;
  if (statement.idle.empty()) {
    prepared = prepare(text, failure);
    if (!prepared) return fail(failure, text.sql, counts);
  } else {
    prepared = std::move(statement.idle.back());
    statement.idle.pop_back();
  }

  if (inTransaction && !prepared->isReadOnly() && !hasTransaction())
    return fail(dgettext("quillane", "Az adatbázis egy korábbi hiba miatt már visszavonta az egész műveletet."),
                text.sql, Counts::Yes);

  if (!prepared->isReadOnly()) endReading();
  long long changes = 0;
  const bool done = prepared->run(values, loader, changes, failure);
  if (statement.idle.size() < kIdleStatements) statement.idle.push_back(std::move(prepared));
  if (!done) return fail(failure, text.sql, counts);
  if (!text.keyedTable.empty() && changes == 0)
    return fail(FXStringFormat(dgettext("quillane", "A módosítandó sor már nincs meg a(z) %s táblában."),
                               text.keyedTable.c_str()),
                text.sql, counts);
  return true;
}

bool Connection::runQuietly(std::string_view sql, DataBaseValueLoader* loader, Counts counts) {
  return runQuietly(sql, StatementBody(), loader, counts);
}

bool Connection::runQuietly(std::string_view sql, const StatementBody& body, DataBaseValueLoader* loader,
                            Counts counts) {
  CachedStatement* statement = find(sql);
  const Use use(cache, statement);
  return runWith(*statement, body, loader, counts);
}

int Connection::queryInt(StatementBody& body, int column) {
  ScalarLoader scalar(column, 1);
  return execute(body, &scalar, Counts::Yes) ? scalar.asInt(0) : 0;
}

int Connection::queryScalar(std::string_view sql, int row, int fallback) {
  StatementBody* body = takeBody();
  setText(*body, sql);
  ScalarLoader scalar(0, row);
  const bool done = execute(*body, &scalar, Counts::No);
  giveBack(body);
  return done ? scalar.asInt(fallback) : fallback;
}

int Connection::nextKey(std::string_view table) {
  auto found = keys.find(table);
  if (found == keys.end()) {
    const std::string query = "select max(" + quotedName(std::string(table) + "_id") + ") from " + quotedName(table);
    found = keys.emplace(table, Keys{query, 0, 0}).first;
  }
  Keys& given = found->second;
  ScalarLoader highest(0, 1);
  if (!runQuietly(given.query, &highest, Counts::Yes)) return 0;
  const long long last = std::max({highest.value, given.last, 0LL});
  if (last < kLargestKey) return static_cast<int>(given.last = last + 1);

  const long long gap = lowestGap(table, given.gap);
  if (gap == 0) return 0;
  return static_cast<int>(given.gap = gap);
}

// The lowest key above after that no row of table has; 0, with the failure noted, when it cannot be told.
long long Connection::lowestGap(std::string_view table, long long after) {
  const std::string key = quotedName(std::string(table) + "_id");
  const std::string rows = quotedName(table);
  const std::string sql = "select min(k) + 1 from (select %after as k union all select " + key + " from " + rows +
                          " where " + key + " > %after) where not exists (select 1 from " + rows + " where " + key +
                          " = k + 1)";
  StatementBody body;
  BoundValue& start = body.place("after");
  start.kind = BoundValue::Kind::Integer;
  start.integer = after;
  ScalarLoader gap(0, 1);
  if (!runQuietly(sql, body, &gap, Counts::Yes)) return 0;
  if (gap.value <= kLargestKey) return gap.value;
  fail(FXStringFormat(dgettext("quillane", "A(z) %s tábla kulcsai elfogytak."), std::string(table).c_str()), {},
       Counts::Yes);
  return 0;
}

bool Connection::begin() {
  if (inTransaction) {
    lastError = dgettext("quillane", "Már fut egy művelet az adatbázisban, előbb azt kell befejezni.");
    return false;
  }
  endReading();
  Failure failure;
  if (!perform(Step::Begin, failure)) return fail(failure, {}, Counts::No);
  inTransaction = true;
  return true;
}

bool Connection::commit() {
  if (!inTransaction) {
    lastError = dgettext("quillane", "Nincs mit véglegesíteni: nem fut művelet az adatbázisban.");
    return false;
  }
  if (firstFailure.empty() && !hasTransaction())
    firstFailure = dgettext("quillane", "Az adatbázis a műveletet már lezárta vagy visszavonta.");
  Failure failure;
  if (firstFailure.empty() && perform(Step::Commit, failure)) {
    inTransaction = false;
    return true;
  }
  const FXString reason = firstFailure.empty() ? sentenceOf(failure) : firstFailure;
  rollback();
  lastError = reason;
  return false;
}

bool Connection::rollback() {
  if (!inTransaction) {
    lastError = dgettext("quillane", "Nincs mit visszavonni: nem fut művelet az adatbázisban.");
    return false;
  }
  inTransaction = false;
  firstFailure.clear();
  Failure failure;
  return !hasTransaction() || perform(Step::Rollback, failure) || fail(failure, {}, Counts::No);
}

// Where it cannot begin, every statement reads for itself and says what is wrong.
bool Connection::beginReading() {
  if (inTransaction || isReading) return false;
  Failure failure;
  isReading = perform(Step::BeginReading, failure);
  return isReading;
}

void Connection::endReading() {
  if (!isReading) return;
  isReading = false;
  // Nothing was written, so it does not matter how it ends; after some failures the database has ended it by itself. To
  // commit disturbs no statement that is still running.
  Failure failure;
  if (hasTransaction() && !perform(Step::Commit, failure)) perform(Step::Rollback, failure);
}

bool Connection::describe(DatabaseDescription& description) {
  Failure failure;
  return readDescription(description, failure) || fail(failure, {}, Counts::Yes);
}

bool Connection::addReference(const std::string& table, const std::string& column, const std::string& reference) {
  Failure failure;
  return declareReference(table, column, reference, failure) || fail(failure, {}, Counts::Yes);
}

bool Connection::fail(FXString sentence, const std::string& sql, Counts counts) {
  if (!sql.empty()) sentence += " " + FXStringFormat(dgettext("quillane", "Az utasítás: %s"), shown(sql).text());
  lastError = sentence;
  lastCause = Failure::Cause::Other;
  ++failureCount;
  if (inTransaction && firstFailure.empty() && (counts == Counts::Yes || !hasTransaction())) firstFailure = lastError;
  return false;
}

bool Connection::fail(const Failure& failure, const std::string& sql, Counts counts) {
  fail(sentenceOf(failure), sql, counts);
  lastCause = failure.cause;
  return false;
}

}  // namespace Quillane::Database
