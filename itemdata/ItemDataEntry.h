#pragma once

#include <fx.h>

#include <cstddef>

#include "fxext/FXDecimal.h"
#include "plugin/contract/Entity.h"
#include "plugin/contract/MemoryGuard.h"

class Statement;
class TarnwellDatabase;

namespace XMLBuilder {
class Element;
}

namespace Quillane {

class InvoiceItem;
class ListOfMessage;

namespace Plugin::ItemData {

class ItemDataEntry;

/// A table cell that edits an entry: every text that the cell gets also becomes the entry's value.
/// The table owns the cell. The cell's item data is the entry too, for code that knows the table only.
class ItemDataEntryTableItem : public FX::FXTableItem {
 public:
  explicit ItemDataEntryTableItem(ItemDataEntry* boundEntry);

  void setText(const FX::FXString& text) override;

  ItemDataEntry* entry;  // not owned
};

/// One recorded value: the value of one item variable in one row of one invoice item, stored as one row of
/// t_invoiceitemdata. Abstract; the field kinds (text, date, list) derive from it.
///
/// An entry belongs to the ItemDataList that it was appended to; its row is set before that and does not change there.
class ItemDataEntry : public EntityMiscData {
 public:
  /// The item variable's type for the field kinds, and for the quantity of a unit row.
  enum Type { TYPE_QUANTITY = -1, TYPE_TEXT = 1, TYPE_DATE = 2, TYPE_LIST = 3 };

  /// The id of the built-in item variable that holds the quantity of a unit row.
  static constexpr int kQuantityVariable = -1;

  /// Deletes what is attached.
  ~ItemDataEntry() override;

  /// Entries come by the thousand, so they lie in blocks: the allocator would add a fifth to every one of them.
  static void* operator new(std::size_t size);
  static void operator delete(void* memory, std::size_t size);

  /// A copy for newOwner without the stored row's key; owned by the caller.
  ItemDataEntry* clone(Entity* newOwner) const override = 0;

  /// Inserts, updates or deletes the entry's row; a new entry's key is not read back. Always returns 0: a failed
  /// statement fails the transaction by itself.
  virtual int save(TarnwellDatabase* db);

  /// Reads the value and the key; both stay as they are when there is no such row. Always returns 0.
  virtual int load(TarnwellDatabase* db);

  /// Empties the value and sets the mark; the next save deletes the row of a marked entry.
  virtual void markForDelete(FX::FXuchar flag);

  /// The document goes to another status. Does nothing.
  virtual void setStatus(unsigned status);

  /// Appends a message when the value is missing: an error when it is mandatory, else a notice. itemNumber is the
  /// item's place on the document, 1 for the first.
  virtual void check(int itemNumber, ListOfMessage& messages, FX::FXString prefix);

  /// Whether the field kind edits variables of this type.
  virtual bool canHandleType(int variableType) const = 0;

  /// Makes the editor inside parent, which owns it; the data target goes to targets.
  virtual void addWidget(FX::FXComposite* parent, MemoryGuard<FX::FXDataTarget>& targets) = 0;

  /// A new table cell that edits the entry; owned by the caller.
  virtual FX::FXTableItem* getTableItem();

  virtual FX::FXString getValue() const;

  /// Adds the entry's element to the list's element.
  virtual void toXml(XMLBuilder::Element* parent) const;

  virtual FX::FXString getPrintableText() const;

  /// All fields as text, for a debugger's eyes.
  virtual FX::FXString toDebugString() const;

  /// The quantity recorded for the entry's row; an unset zero when the owner carries no item data.
  virtual FXExt::FXDecimal getQuantity() const;

  /// The quantity of the entry's row was changed to text in the dialog. Does nothing.
  virtual void onQuantityChanged(const FX::FXString& text);

  int pk = 0;                        // the key of the stored row, 0 while there is none
  FX::FXString name;                 // the variable's name
  int itemvariable = 0;              // the variable's id, 0 for none (stored as NULL)
  int type = 0;                      // the variable's type
  FX::FXuchar mandatory = 1;         // 1 when a value is required. On purpose: also in a prototype
  FX::FXuchar process = 0;           // 1 when recorded once for each unit row
  FX::FXString vvalue;               // the kind's parameter, for a list its choices parted by ","
  FX::FXString value;                // the recorded value
  FX::FXObject* attached = nullptr;  // owned
  int row = 0;                       // 0 for a per-item value, else the unit row's number
  FX::FXuchar del = 0;               // 1 when marked for deletion

 protected:
  explicit ItemDataEntry(Entity* entity = nullptr) : EntityMiscData(entity) {}

  /// Copies for newOwner what every kind's clone copies: all but the key, the mark and what is attached.
  ItemDataEntry(const ItemDataEntry& source, Entity* newOwner);

  /// The owner as the invoice item that it is; null for a prototype.
  InvoiceItem* getItem() const;

 private:
  /// Binds the columns that an insert and an update have in common, and executes.
  void write(Statement& statement) const;
};

}  // namespace Plugin::ItemData
}  // namespace Quillane
