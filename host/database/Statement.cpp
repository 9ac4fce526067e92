// The statement classes that callers bind values to and execute. Which text they run, and how, is the connection's.
//
// Invariants:
//  1. A statement has a body from its constructor to its destructor. The body knows its connection as long as that
//     one is open; afterwards, and when there never was one, executing fails and nothing else happens.
//  2. A body's values stand in the order of binding, each name once: binding again replaces the value in its place.
//  3. Binding never fails. What cannot be bound is remembered as such, and the execution that would use it fails.
//  4. Once executed, a generated text stays known until another name is bound.
#include "plugin/contract/Statement.h"

#include <charconv>
#include <cstring>
#include <string_view>
#include <system_error>

#include "host/database/Connection.h"
#include "plugin/contract/Database.h"

using namespace FX;
using Quillane::Database::BoundValue;
using Quillane::Database::Connection;
using Quillane::Database::StatementBody;

namespace {

std::string_view view(const FXString& text) { return {text.text(), static_cast<size_t>(text.length())}; }

StatementBody* newBody(TarnwellDatabase* database) {
  return database ? database->getConnection().takeBody() : new StatementBody;
}

BoundValue& bind(StatementBody& body, const FXString& name) {
  const size_t before = body.size();
  BoundValue& value = body.place(view(name));
  // The text of a generated statement depends on which names are bound.
  if (body.cached && body.size() > before && body.kind != StatementBody::Kind::Text) body.connection->forgetText(body);
  return value;
}

// Reads the whole of text as an integer.
bool readInteger(std::string_view text, long long& value) {
  if (text.size() > 1 && text[0] == '+' && text[1] != '-') text.remove_prefix(1);
  const char* end = text.data() + text.size();
  const auto [stop, problem] = std::from_chars(text.data(), end, value);
  return problem == std::errc() && stop == end;
}

}  // namespace

Statement::Statement(TarnwellDatabase* database) : body(newBody(database)) {}

Statement::Statement(TarnwellDatabase* database, const FXString& sql) : body(newBody(database)) {
  if (body->connection) body->connection->setText(*body, view(sql));
}

Statement::~Statement() {
  if (body->connection)
    body->connection->giveBack(body);
  else
    delete body;
}

void Statement::setInt(const FXString& name, int value) {
  BoundValue& bound = bind(*body, name);
  bound.kind = BoundValue::Kind::Integer;
  bound.integer = value;
}

void Statement::setInt(const FXString& name, const FXString& value) {
  BoundValue& bound = bind(*body, name);
  if (value.empty()) {
    bound.kind = BoundValue::Kind::Null;
  } else if (readInteger(view(value), bound.integer)) {
    bound.kind = BoundValue::Kind::Integer;
  } else {
    bound.kind = BoundValue::Kind::NotAnInteger;
    bound.text = view(value);
  }
}

void Statement::setString(const FXString& name, FXString value) {
  BoundValue& bound = bind(*body, name);
  const std::string_view text = view(value);
  bound.kind = std::memchr(text.data(), 0, text.size()) ? BoundValue::Kind::CutText : BoundValue::Kind::Text;
  bound.text = text;
}

bool Statement::execute(DataBaseValueLoader* loader, FXuchar countsInTransaction) {
  if (!body->connection) return false;
  return body->connection->execute(*body, loader, Connection::Counts(countsInTransaction != 0));
}

int Statement::queryInt(int column) { return body->connection ? body->connection->queryInt(*body, column) : 0; }

InsertStatement::InsertStatement(TarnwellDatabase* database, const FXString& table) : Statement(database) {
  body->kind = StatementBody::Kind::Insert;
  body->table = view(table);
}

InsertStatement::~InsertStatement() = default;

UpdateStatement::UpdateStatement(TarnwellDatabase* database, const FXString& table, const FXString& where)
    : Statement(database) {
  body->kind = StatementBody::Kind::Update;
  body->table = view(table);
  body->where = view(where);
}

UpdateStatement::~UpdateStatement() = default;

DeleteStatement::DeleteStatement(TarnwellDatabase* database, const FXString& table) : Statement(database) {
  body->kind = StatementBody::Kind::Delete;
  body->table = view(table);
}

DeleteStatement::~DeleteStatement() = default;
