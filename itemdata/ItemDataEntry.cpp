// One recorded value of an invoice item: how it is stored, checked, exported and shown in a table cell.
//
// Invariants:
// 1. pk is 0 exactly while the entry is not known to have a row in t_invoiceitemdata. Saving a new entry leaves it 0:
//    whoever saved loads the document anew.
// 2. itemvariable 0 means "no variable": NULL in the database, and looked up with "is NULL".
// 3. row 0 belongs to the item as a whole; 1 and above is the number of a unit row.
// 4. A marked entry (del) has an empty value. Saving it deletes its row, or does nothing when it has none.
// 5. The owner is the invoice item; only prototypes have none, and they are never loaded, saved or checked.
#include "itemdata/ItemDataEntry.h"

#include <libintl.h>

#include <charconv>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <memory_resource>

#include "itemdata/ItemDataList.h"
#include "plugin/contract/Database.h"
#include "plugin/contract/Invoice.h"
#include "plugin/contract/Message.h"
#include "plugin/contract/Statement.h"
#include "plugin/contract/XMLBuilder.h"

using namespace FX;

namespace Quillane::Plugin::ItemData {

namespace {

const FXString kTable = "t_invoiceitemdata";
const FXString kKeyColumn = "t_invoiceitemdata_id";
const FXString kKeyCondition = "t_invoiceitemdata_id=%t_invoiceitemdata_id";
const FXString kVariableColumn = "t_itemvariable_1";
const FXString kItemColumn = "t_invoiceitem_1";
const FXString kValueColumn = "value";
const FXString kRowColumn = "row";

const FXString kXmlElement = "itemdata";
const FXString kXmlRow = "row";
const FXString kXmlName = "name";

// The statuses that count when the remaining quantity of a source row is worked out.
constexpr int kClosedStatus = 151;
constexpr int kCancellingStatus = 152;

// Status in which a document never asks for item data.
constexpr int kProFormaStatus = 102;

const FXString kLoadSql =
    "select value, t_invoiceitemdata_id from t_invoiceitemdata where t_invoiceitem_1=%t_invoiceitem_1 and "
    "t_itemvariable_1=%t_itemvariable_1 and row=%row";

const FXString kLoadWithoutVariableSql =
    "select value, t_invoiceitemdata_id from t_invoiceitemdata where t_invoiceitem_1=%t_invoiceitem_1 and "
    "t_itemvariable_1 is NULL and row=%row";

const FXString kCopySql =
    "select value, 0 from t_invoiceitemdata where t_invoiceitem_1=%t_invoiceitem_1 and "
    "t_itemvariable_1=%t_itemvariable_1 and row=%row";

const FXString kCopyWithoutVariableSql =
    "select value, 0 from t_invoiceitemdata where t_invoiceitem_1=%t_invoiceitem_1 and t_itemvariable_1 is NULL and "
    "row=%row";

// On purpose: what cancelling documents gave back counts only in rows that a closed document took something from.
const FXString kRemainingQuantitySql =
    "select iid.value-ifnull(rst.value,0) as value, 0 from t_invoiceitemdata iid left join ( select "
    "(ifnull(n.value,0)+ifnull(s.value,0)) as value, %t_invoiceitem_1 as item from ( select sum(value) value, row from "
    "t_invoiceitemdata iid where  t_itemvariable_1=%t_itemvariable_1 and iid.row=%row and iid.t_invoiceitem_1 in ( "
    "select t_invoiceitem_id from t_invoiceitem ii join t_invoice i on ii.t_invoice_1=i.t_invoice_id and "
    "i.t_invoicestatus_1=%closed and ii.t_invoiceitem_1=%t_invoiceitem_1) ) n left join ( select sum(-1*value) value, "
    "row  from t_invoiceitemdata iid where t_itemvariable_1=%t_itemvariable_1 and row=%row and iid.t_invoiceitem_1 in "
    "(select t_invoiceitem_id from t_invoiceitem ii join t_invoice i on ii.t_invoice_1=i.t_invoice_id and "
    "i.t_invoicestatus_1=%storno and ii.t_invoiceitem_1=%t_invoiceitem_1) ) s on (s.row=n.row) ) rst on "
    "iid.t_invoiceitem_1=rst.item where t_itemvariable_1=%t_itemvariable_1 and t_invoiceitem_1=%t_invoiceitem_1 and "
    "row=%row";

// As FXStringFormat, which formats everything twice, the first time for the length alone.
[[gnu::format(printf, 1, 2)]] FXString format(const char* pattern, ...) {
  char text[512];
  va_list arguments;
  va_start(arguments, pattern);
  const int length = std::vsnprintf(text, sizeof text, pattern, arguments);
  va_end(arguments);
  if (length < static_cast<int>(sizeof text)) return FXString(text, length);
  va_start(arguments, pattern);
  FXString longText = FXStringVFormat(pattern, arguments);
  va_end(arguments);
  return longText;
}

std::pmr::memory_resource& entryMemory() {
#ifdef __SANITIZE_ADDRESS__
  // It watches every entry by itself, and could not see into the blocks.
  return *std::pmr::new_delete_resource();
#else
  constexpr std::size_t entriesOfBlock = 1024;
  constexpr std::size_t largestEntry = 128;  // bytes; larger ones are allocated alone
  // Never deleted, since entries may live until the program's very end.
  static auto* const blocks = new std::pmr::unsynchronized_pool_resource({entriesOfBlock, largestEntry});
  return *blocks;
#endif
}

// Takes the value and the key of the entry from the row that was found.
class EntryLoader : public DataBaseValueLoader {
 public:
  explicit EntryLoader(ItemDataEntry& loadedEntry) : entry(loadedEntry) {}

  bool processValue(int column, const char*, const char* text) override {
    if (column == 0) entry.value = text ? text : "";
    if (column == 1) entry.pk = text ? std::atoi(text) : 0;
    return true;
  }

 private:
  ItemDataEntry& entry;
};

const FXString& selectSql(bool copiesSource, int variable) {
  if (!copiesSource) return variable ? kLoadSql : kLoadWithoutVariableSql;
  if (variable == ItemDataEntry::kQuantityVariable) return kRemainingQuantitySql;
  return variable ? kCopySql : kCopyWithoutVariableSql;
}

}  // namespace

ItemDataEntryTableItem::ItemDataEntryTableItem(ItemDataEntry* boundEntry)
    : FXTableItem(FXString::null, nullptr, boundEntry), entry(boundEntry) {
  setJustify(FXTableItem::LEFT);
}

void ItemDataEntryTableItem::setText(const FXString& text) {
  FXTableItem::setText(text);
  entry->value = text;
}

ItemDataEntry::ItemDataEntry(const ItemDataEntry& source, Entity* newOwner)
    : EntityMiscData(newOwner),
      name(source.name),
      itemvariable(source.itemvariable),
      type(source.type),
      mandatory(source.mandatory),
      process(source.process),
      vvalue(source.vvalue),
      value(source.value),
      row(source.row) {}

ItemDataEntry::~ItemDataEntry() { delete attached; }

void* ItemDataEntry::operator new(std::size_t size) { return entryMemory().allocate(size); }

void ItemDataEntry::operator delete(void* memory, std::size_t size) { entryMemory().deallocate(memory, size); }

InvoiceItem* ItemDataEntry::getItem() const { return static_cast<InvoiceItem*>(owner); }

int ItemDataEntry::save(TarnwellDatabase* db) {
  if (pk && del) {
    DeleteStatement statement(db, kTable);
    statement.setInt(kKeyColumn, pk);
    statement.execute(nullptr, 1);
    return 0;
  }
  if (pk) {
    UpdateStatement statement(db, kTable, kKeyCondition);
    statement.setInt(kKeyColumn, pk);
    write(statement);
    return 0;
  }
  if (del) return 0;
  // On purpose: the key of the new row is not read back, so a second save inserts a second row.
  InsertStatement statement(db, kTable);
  write(statement);
  return 0;
}

void ItemDataEntry::write(Statement& statement) const {
  if (itemvariable) statement.setInt(kVariableColumn, itemvariable);
  statement.setInt(kItemColumn, owner->getId());
  statement.setString(kValueColumn, getValue());
  statement.setInt(kRowColumn, row);
  statement.execute(nullptr, 1);
}

int ItemDataEntry::load(TarnwellDatabase* db) {
  const InvoiceItem* item = getItem();
  // On purpose: an item that has an id loads its own values, whatever its origin.
  const bool copiesSource = item->getId() < 1 && item->getOriginMode() == 1 && item->getSourceItemId() > 0;

  Statement statement(db, selectSql(copiesSource, itemvariable));
  if (copiesSource && itemvariable == kQuantityVariable) {
    statement.setInt("closed", kClosedStatus);
    statement.setInt("storno", kCancellingStatus);
  }
  if (itemvariable) statement.setInt(kVariableColumn, itemvariable);
  statement.setInt(kItemColumn, copiesSource ? item->getSourceItemId() : item->getId());
  statement.setInt(kRowColumn, row);

  EntryLoader loader(*this);
  statement.execute(&loader, 1);
  item->getInvoice()->setLoadMark(1);
  return 0;
}

void ItemDataEntry::markForDelete(FXuchar flag) {
  value.clear();
  del = flag;
}

void ItemDataEntry::setStatus(unsigned) {}

void ItemDataEntry::check(int itemNumber, ListOfMessage& messages, FXString prefix) {
  const Invoice* invoice = getItem()->getInvoice();
  if (invoice->getStatus() == kProFormaStatus || !getValue().empty()) return;

  auto* message = new Message(format("%s_ITEMDATAWANTED", prefix.text()), Message::ERROR, FXString::null,
                              format(gettext("Számla: Tételek listája\n[%s]\n"), invoice->getDisplayText().text()),
                              nullptr, nullptr, nullptr);
  const char* text = mandatory ? gettext("A(z) %d. tételhez rögzíteni kell néhány egyéb adatot!\nMező neve:%s")
                               : gettext("A(z) %d. tételhez lehet rögzíteni néhány egyéb adatot!\nMező neve:%s");
  message->setText(format(text, itemNumber, name.text()));
  message->setSeverity(mandatory ? Message::ERROR : Message::NOTICE);
  messages.append(message);
}

FXTableItem* ItemDataEntry::getTableItem() {
  auto* item = new ItemDataEntryTableItem(this);
  value = getValue();
  item->FXTableItem::setText(value);
  return item;
}

FXString ItemDataEntry::getValue() const { return value; }

void ItemDataEntry::toXml(XMLBuilder::Element* parent) const {
  char digits[16];
  const char* end = std::to_chars(digits, digits + sizeof digits, row).ptr;
  XMLBuilder::Element* element = parent->createElement(ItemDataList::kXmlNamespace, kXmlElement);
  element->setAttribute(FXString::null, kXmlRow, FXString(digits, static_cast<FXint>(end - digits)));
  element->setAttribute(FXString::null, kXmlName, name);
  // On purpose: the value as it stands, where getValue may give another.
  element->setText(value);
}

FXString ItemDataEntry::getPrintableText() const { return value; }

FXString ItemDataEntry::toDebugString() const {
  return FXStringFormat(
      "ItemDataEntry@%p: pk: %d, name: %s, itemvariable: %d, type:%d, mandatory:%d, process: %d, vvalue:%s, value: %s, "
      "row: %d, del: %d ",
      static_cast<const void*>(this), pk, name.text(), itemvariable, type, mandatory, process, vvalue.text(),
      value.text(), row, del);
}

FXExt::FXDecimal ItemDataEntry::getQuantity() const {
  if (!owner) return FXExt::FXDecimal();
  const ItemDataList* list = ItemDataList::of(*owner);
  return list ? list->getQuantityForRow(row) : FXExt::FXDecimal();
}

void ItemDataEntry::onQuantityChanged(const FXString&) {}

}  // namespace Quillane::Plugin::ItemData
