#pragma once

#include <fx.h>
#include <gtest/gtest.h>

#include <initializer_list>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "itemdata/ItemDataEntry.h"
#include "itemdata/ItemDataList.h"
#include "plugin/contract/Invoice.h"
#include "plugin/contract/Message.h"
#include "tests/support/StatementLog.h"
#include "tests/support/TestCompany.h"

namespace Quillane::Plugin::ItemData {

using Lines = std::vector<std::string>;

/// An item variable as a test defines it.
struct Variable {
  int id;
  const char* name;
  int type = ItemDataEntry::TYPE_TEXT;
  int process = 0;
  int mandatory = 1;
  const char* parameter = "";
};

/// A whole toolkit text, NUL bytes included, as the texts that GoogleTest compares and prints.
std::string text(const FX::FXString& string);

/// One message of a check, whole.
struct Finding {
  std::string key;
  unsigned severity;
  std::string text;
  std::string location;
};
bool operator==(const Finding& a, const Finding& b);
void PrintTo(const Finding& finding, std::ostream* out);

/// The messages of a check, owned.
class Findings {
 public:
  ~Findings();

  std::vector<Finding> all() const;
  Lines texts() const;

  ListOfMessage list;
};

/// The three field kinds are registered while it exists.
class RegisteredKinds {
 public:
  RegisteredKinds();
  ~RegisteredKinds();
};

/// One executed statement as a line: the text and what was bound to it, in the order of binding
/// ("row='1', t_invoiceitem_1='10'").
std::string call(const std::string& sql, const std::string& bindings);

/// A document in memory and, for those who ask for it, a company database with the module's tables.
///
/// Entries and stored rows are written and read back as lines:
///   "1 -1 '3'"            row 1, variable -1 (the quantity), value 3, no key
///   "0 11 'abc' #7"       the key 7
///   "2 12 '' #8 marked"   marked for deletion
///   "null"                a null place of a list
/// A stored row has its item before it ("10: 1 -1 '3'"), and NULL stands for itself.
class ItemDataTest : public ::testing::Test {
 protected:
  ItemDataTest();
  ~ItemDataTest() override;

  /// Makes the variables known to entries and settings lists made in memory.
  void declare(std::initializer_list<Variable> variables);

  /// A new item at the end of the document, which owns it.
  InvoiceItem* newItem(int id = 0);

  /// A settings list with an entry for each variable as it stands, and the quantity before the first per-unit one.
  /// Owned by the caller.
  ItemDataList* newSettings(std::initializer_list<int> variables, InvoiceItem* owner = nullptr);

  /// A new list attached to item, with these settings (owned by the list, may be null).
  ItemDataList* attach(InvoiceItem* item, ItemDataList* settings = nullptr);

  /// Appends the entries that the lines say.
  void fill(ItemDataList& list, const Lines& lines);

  /// One entry as the line says; owned by the caller.
  ItemDataEntry* newEntry(const std::string& line, Entity* owner);

  RegisteredKinds kinds;
  Invoice invoice;  // status 101, open, "K-1"

 private:
  std::map<int, Variable> declared;
};

/// The list's entries as lines.
Lines lines(const ItemDataList& list);

/// The entries' names, in order.
Lines names(const ItemDataList& list);

/// The same with a fresh company database. Its tables are those of the host and of the module; it holds the product 1,
/// the service 2, the suite 3 and the quantity variable.
class ItemDataDatabaseTest : public ItemDataTest {
 protected:
  ItemDataDatabaseTest();
  ~ItemDataDatabaseTest() override;

  TarnwellDatabase* db() const;

  /// Runs a statement of the test's own, which must succeed and does not show in the log.
  void run(const std::string& sql);

  /// The rows of a query of the test's own, the values of each joined by blanks.
  Lines query(const std::string& sql);

  /// What was executed since the last call, one line each, in the form of call().
  Lines executed();

  /// Stores the variables and declares them.
  void define(std::initializer_list<Variable> variables);

  /// Assigns the variables to an article, at positions 1, 2, ...
  void assign(int articleKind, int article, int direction, std::initializer_list<int> variables);

  void storeInvoice(int id, int status);
  void storeItem(int id, int invoiceId, int sourceItem = 0);

  /// Stores recorded values; what a line's key says is taken, else the database gives one.
  void storeValues(int item, const Lines& lines);

  /// All recorded values of the company, or of one item, in the order of their keys and without keys.
  Lines storedValues();

  /// The same with keys.
  Lines storedValuesWithKeys();

  TestCompany company;
  StatementLog log;

 private:
  Lines readValues(bool withKeys);
};

}  // namespace Quillane::Plugin::ItemData
