// Item data for tests: written and read back as lines, in memory and in a fresh company database.
#include "tests/itemdata/ItemDataFixture.h"

#include <ostream>
#include <sstream>
#include <stdexcept>

#include "itemdata/ItemDataComboEntry.h"
#include "itemdata/ItemDataDateEntry.h"
#include "itemdata/ItemDataPluginList.h"
#include "itemdata/ItemDataStringEntry.h"
#include "plugin/Model.h"
#include "plugin/contract/Database.h"

using namespace FX;

namespace Quillane::Plugin::ItemData {

namespace {

// What a line of the fixture says.
struct Line {
  int row;
  int variable;
  std::string value;
  int key;
  bool marked;
};

[[noreturn]] void refuse(const std::string& line) { throw std::invalid_argument("not a line of the fixture: " + line); }

// The value may hold anything, quotes and line ends too: it reaches to the last quote.
Line parse(const std::string& line) {
  const size_t open = line.find('\'');
  const size_t close = line.rfind('\'');
  if (open == std::string::npos || close == open) refuse(line);
  Line parts{0, 0, line.substr(open + 1, close - open - 1), 0, false};
  std::istringstream numbers(line.substr(0, open));
  if (!(numbers >> parts.row >> parts.variable)) refuse(line);
  std::istringstream rest(line.substr(close + 1));
  for (std::string word; rest >> word;) {
    if (word == "marked")
      parts.marked = true;
    else if (word[0] == '#')
      parts.key = std::stoi(word.substr(1));
    else
      refuse(line);
  }
  return parts;
}

FXString toFox(const std::string& string) { return FXString(string.data(), static_cast<FXint>(string.size())); }

// What the test does by itself stays out of the log.
class Unobserved {
 public:
  Unobserved(TarnwellDatabase& observed, StatementLog& observer) : database(observed), log(observer) {
    database.setObserver(nullptr);
  }
  ~Unobserved() { database.setObserver(&log); }

 private:
  TarnwellDatabase& database;
  StatementLog& log;
};

}  // namespace

std::string text(const FXString& string) { return std::string(string.text(), static_cast<size_t>(string.length())); }

bool operator==(const Finding& a, const Finding& b) {
  return a.key == b.key && a.severity == b.severity && a.text == b.text && a.location == b.location;
}

void PrintTo(const Finding& finding, std::ostream* out) {
  *out << finding.key << " severity " << finding.severity << "\n" << finding.text << "\n" << finding.location;
}

Findings::~Findings() {
  for (FXint i = 0; i < list.no(); ++i) delete list[i];
}

std::vector<Finding> Findings::all() const {
  std::vector<Finding> findings;
  for (FXint i = 0; i < list.no(); ++i) {
    const Message* message = list[i];
    findings.push_back(
        {text(message->getKey()), message->getSeverity(), text(message->getText()), text(message->getLocation())});
  }
  return findings;
}

Lines Findings::texts() const {
  Lines texts;
  for (const Finding& finding : all()) texts.push_back(finding.text);
  return texts;
}

std::string call(const std::string& sql, const std::string& bindings) { return sql + "\n    " + bindings; }

RegisteredKinds::RegisteredKinds() {
  plugins.append(new ItemDataStringEntry);
  plugins.append(new ItemDataDateEntry);
  plugins.append(new ItemDataComboEntry);
}

RegisteredKinds::~RegisteredKinds() {
  for (FXint i = plugins.no() - 1; i >= 0; --i) delete plugins[i];
  plugins.clear();
}

ItemDataTest::ItemDataTest() {
  invoice.setStatus(101, false);
  invoice.setStatusGate(1);
  invoice.setDisplayText("K-1");
}

ItemDataTest::~ItemDataTest() = default;

void ItemDataTest::declare(std::initializer_list<Variable> variables) {
  for (const Variable& variable : variables) declared[variable.id] = variable;
}

InvoiceItem* ItemDataTest::newItem(int id) {
  auto* item = new InvoiceItem;
  item->setId(id);
  item->setArticle(InvoiceItem::ARTICLE_PRODUCT, 1);
  item->setUnit("db");
  invoice.appendItem(item);
  return item;
}

ItemDataList* ItemDataTest::newSettings(std::initializer_list<int> variables, InvoiceItem* owner) {
  auto* settings = new ItemDataList;
  for (const int id : variables) {
    const bool perUnit = declared.at(id).process != 0;
    if (perUnit && settings->firstUnitIndex < 0) {
      settings->firstUnitIndex = settings->no();
      settings->append(newEntry("1 -1 ''", owner));
    }
    settings->append(newEntry((perUnit ? "1 " : "0 ") + std::to_string(id) + " ''", owner));
  }
  if (settings->firstUnitIndex >= 0) settings->unitColumnCount = settings->no() - settings->firstUnitIndex;
  return settings;
}

ItemDataList* ItemDataTest::attach(InvoiceItem* item, ItemDataList* settings) {
  auto* list = new ItemDataList(item, settings);
  item->addMiscData("ItemData", list);
  return list;
}

void ItemDataTest::fill(ItemDataList& list, const Lines& entries) {
  for (const std::string& entry : entries) {
    if (entry == "null")
      list.FXObjectList::append(static_cast<FXObject*>(nullptr));
    else
      list.append(newEntry(entry, list.getOwner()));
  }
}

ItemDataEntry* ItemDataTest::newEntry(const std::string& line, Entity* owner) {
  const Line parts = parse(line);
  Variable variable{parts.variable, "", ItemDataEntry::TYPE_TEXT, parts.row != 0};
  const std::string nameOfUndeclared = "V" + std::to_string(parts.variable);
  if (parts.variable == -1)
    variable = {-1, "Mennyiség", ItemDataEntry::TYPE_QUANTITY, 1};
  else if (declared.count(parts.variable))
    variable = declared[parts.variable];
  else
    variable.name = nameOfUndeclared.c_str();

  ItemDataEntry* entry = plugins.getByType(variable.type, owner);
  entry->name = variable.name;
  entry->itemvariable = variable.id;
  entry->mandatory = static_cast<FXuchar>(variable.mandatory);
  entry->process = static_cast<FXuchar>(variable.process);
  entry->vvalue = variable.parameter;
  entry->row = parts.row;
  entry->value = toFox(parts.value);
  entry->pk = parts.key;
  entry->del = parts.marked;
  return entry;
}

Lines lines(const ItemDataList& list) {
  Lines result;
  for (FXint i = 0; i < list.no(); ++i) {
    const ItemDataEntry* entry = list[i];
    if (!entry) {
      result.emplace_back("null");
      continue;
    }
    std::string line =
        std::to_string(entry->row) + " " + std::to_string(entry->itemvariable) + " '" + text(entry->value) + "'";
    if (entry->pk) line += " #" + std::to_string(entry->pk);
    if (entry->del) line += " marked";
    result.push_back(line);
  }
  return result;
}

Lines names(const ItemDataList& list) {
  Lines result;
  for (FXint i = 0; i < list.no(); ++i) result.push_back(text(list[i]->name));
  return result;
}

ItemDataDatabaseTest::ItemDataDatabaseTest() {
  Model::initDB(db());
  run("insert into t_product (t_product_id, name) values (1, 'Termék')");
  run("insert into t_service (t_service_id, name) values (2, 'Szolgáltatás')");
  run("insert into t_suite (t_suite_id, name) values (3, 'Csomag')");
  db()->setObserver(&log);
}

ItemDataDatabaseTest::~ItemDataDatabaseTest() { db()->setObserver(nullptr); }

TarnwellDatabase* ItemDataDatabaseTest::db() const { return company.getDB(); }

void ItemDataDatabaseTest::run(const std::string& sql) {
  const Unobserved unobserved(*db(), log);
  company.run(sql);
}

Lines ItemDataDatabaseTest::query(const std::string& sql) {
  const Unobserved unobserved(*db(), log);
  Lines result;
  for (const std::vector<std::string>& row : company.query(sql)) {
    result.emplace_back();
    for (const std::string& value : row) result.back() += (result.back().empty() ? "" : " ") + value;
  }
  return result;
}

Lines ItemDataDatabaseTest::executed() { return log.take(); }

void ItemDataDatabaseTest::define(std::initializer_list<Variable> variables) {
  declare(variables);
  const Unobserved unobserved(*db(), log);
  for (const Variable& variable : variables) {
    company.fill("t_itemvariable",
                 {{"t_itemvariable_id", "name", "type", "process", "mandatory", "vvalue"},
                  {std::to_string(variable.id), variable.name, std::to_string(variable.type),
                   std::to_string(variable.process), std::to_string(variable.mandatory), variable.parameter}});
  }
}

void ItemDataDatabaseTest::assign(int articleKind, int article, int direction, std::initializer_list<int> variables) {
  static const std::map<int, std::string> tables = {{InvoiceItem::ARTICLE_PRODUCT, "product"},
                                                    {InvoiceItem::ARTICLE_SERVICE, "service"},
                                                    {InvoiceItem::ARTICLE_SUITE, "suite"}};
  const std::string& table = tables.at(articleKind);
  int position = 0;
  for (const int variable : variables) {
    run("insert into t_" + table + "itemdata (t_" + table + "_1, t_itemvariable_1, position, direction) values (" +
        std::to_string(article) + ", " + std::to_string(variable) + ", " + std::to_string(++position) + ", " +
        std::to_string(direction) + ")");
  }
}

void ItemDataDatabaseTest::storeInvoice(int id, int status) {
  run("insert into t_invoice (t_invoice_id, t_invoicestatus_1) values (" + std::to_string(id) + ", " +
      std::to_string(status) + ")");
}

void ItemDataDatabaseTest::storeItem(int id, int invoiceId, int sourceItem) {
  run("insert into t_invoiceitem (t_invoiceitem_id, t_invoice_1, t_invoiceitem_1) values (" + std::to_string(id) +
      ", " + std::to_string(invoiceId) + ", " + (sourceItem ? std::to_string(sourceItem) : "NULL") + ")");
}

void ItemDataDatabaseTest::storeValues(int item, const Lines& values) {
  const Unobserved unobserved(*db(), log);
  for (const std::string& value : values) {
    const Line parts = parse(value);
    Grid grid = {{"t_itemvariable_1", "t_invoiceitem_1", "row", "value"},
                 {parts.variable ? std::to_string(parts.variable) : "NULL", std::to_string(item),
                  std::to_string(parts.row), parts.value}};
    if (parts.key) {
      grid[0].push_back("t_invoiceitemdata_id");
      grid[1].push_back(std::to_string(parts.key));
    }
    company.fill("t_invoiceitemdata", grid);
  }
}

Lines ItemDataDatabaseTest::storedValues() { return readValues(false); }

Lines ItemDataDatabaseTest::storedValuesWithKeys() { return readValues(true); }

Lines ItemDataDatabaseTest::readValues(bool withKeys) {
  const std::string key = withKeys ? " || ' #' || t_invoiceitemdata_id" : "";
  return query(
      "select t_invoiceitem_1 || ': ' || ifnull(row, 'NULL') || ' ' || ifnull(t_itemvariable_1, 'NULL') || ' ' || "
      "ifnull('''' || value || '''', 'NULL')" +
      key + " from t_invoiceitemdata order by t_invoiceitemdata_id");
}

}  // namespace Quillane::Plugin::ItemData
