#pragma once

#include <fx.h>

#include <utility>
#include <vector>

#include "fxext/FXDecimal.h"
#include "itemdata/ItemDataEntry.h"
#include "plugin/contract/Entity.h"

class TarnwellDatabase;

namespace Quillane {

class Invoice;
class InvoiceItem;
class ListOfMessage;

namespace Plugin::ItemData {

/// All item data of one invoice item, attached to it under kMiscDataKey: first the entries that are recorded once for
/// the item (row 0), then the unit rows (row 1, 2, ...), each a quantity entry followed by one entry for every per-unit
/// variable. Row numbers ascend and may have gaps.
///
/// It owns its entries and its settings list, a list of the same class with one entry for every variable assigned to
/// the item's article (the quantity entry before the first per-unit one), from which new entries and rows are cloned.
class ItemDataList : public ListOfEntityMiscData<ItemDataEntry> {
 public:
  /// The key under which the list is attached to its item.
  static constexpr const char* kMiscDataKey = "ItemData";

  /// The namespace of the item data in a document's XML.
  static const FX::FXString kXmlNamespace;

  /// The item data attached to entity, or null; owned by the entity.
  static ItemDataList* of(const Entity& entity);

  /// An empty list without owner: a settings list.
  ItemDataList();

  /// The item data of item, which takes ownership of settingsList (may be null). For an item that is not stored yet the
  /// list starts with clones of the leading entries of the settings.
  ItemDataList(Entity* item, ItemDataList* settingsList);

  /// Deletes the entries and the settings list.
  ~ItemDataList() override;

  /// A copy for newOwner with all entries new (without keys); owned by the caller.
  ItemDataList* clone(Entity* newOwner) const override;

  /// Takes ownership of entry.
  void append(ItemDataEntry* entry);

  /// Appends clones, without keys, of the source's leading entries, or of all when the flag is set.
  void cloneItemsFrom(const ItemDataList* source, FX::FXuchar all);

  /// The number of unit rows that are not marked for deletion.
  int getRowNum() const;

  /// 1 when there is a unit row with a quantity that is not marked for deletion.
  FX::FXuchar hasQuantityColumn() const;

  /// The quantity recorded in a unit row; an unset zero when there is none.
  FXExt::FXDecimal getQuantityForRow(int row) const;

  /// Appends count new unit rows as the settings have them.
  void addRows(int count);

  /// Whether every field of the settings is there, in their order: see completeFromSettings. True without settings.
  bool isComplete() const;

  /// Brings the list into the shape of the settings, for whoever edits it: the leading entries and those of each unit
  /// row in the order of the settings, clones for the missing ones ("0" for a quantity, which is never stored), and
  /// firstUnitIndex the number of the leading entries. Entries of variables that the settings do not have there are
  /// kept behind the others of their row. A list that is complete stays as it is.
  void completeFromSettings();

  /// Fills a settings list with the variables assigned to the item's article for the direction of a document with this
  /// status.
  void loadSettings(TarnwellDatabase* db, int status, InvoiceItem* item);

  /// Fills the list from the values stored for its item, or for the item that it is being derived from.
  void loadSavedItemData(TarnwellDatabase* db);

  /// Loads what is recorded: the entries' rows when the list is empty, then every entry's own value.
  void load(TarnwellDatabase* db);

  /// Inserts, updates and deletes the entries' rows. The keys of inserted rows are not read back. Entries whose value
  /// is "0" are not written. Always returns 0: a failed statement fails the transaction by itself.
  int save(TarnwellDatabase* db);

  /// The document goes to another status: tells the entries when the status is one that concerns them.
  void setStatus(TarnwellDatabase* db, unsigned status);

  /// Removes the entries of a row that were never stored and marks the stored ones for deletion.
  void markRowForDelete(int row);

  /// The sum of the quantities of all unit rows that are not marked for deletion.
  FXExt::FXDecimal getSumQuantity() const;

  /// Appends what is wrong with the item data: quantities that do not add up to the item's, and missing values.
  /// itemNumber is the item's place on the document, 1 for the first. Always returns 0.
  int check(int itemNumber, ListOfMessage& messages, const FX::FXString& prefix);

  /// Adds the item data's element to the item's element.
  void toXml(XMLBuilder::Element* parent) const;

  /// The item data as one line for print.
  FX::FXString getPrintableText() const;

  int unitColumnCount = 0;           // the columns of a unit row, the quantity included
  int firstUnitIndex = -1;           // the index of the first unit entry, -1 without per-unit variables
  int lastRow = 0;                   // the row of the entry appended last
  ItemDataList* settings = nullptr;  // owned, may be null

 private:
  InvoiceItem* getItem() const;
  bool isBeingDerived() const;
  bool isStored() const;
  void appendUnitRowsOfSource(TarnwellDatabase* db);
  void takeParametersFromSettings();
  void checkQuantities(ListOfMessage& messages, const FX::FXString& prefix) const;
  void dropMarkedRows();

  /// Of the places from first to before end, removes the new entries whose row isDeleted says, and marks the stored
  /// ones. True when there was any such entry.
  template <class RowPredicate>
  bool removeOrMark(int first, int end, RowPredicate isDeleted);
  bool removeOrMarkRow(int row);  // in the runs as they are known

  /// What stands at one place of the complete list: an entry, or a clone of a setting that is missing in a row.
  struct Place {
    ItemDataEntry* entry;
    const ItemDataEntry* setting;
    int row;
  };

  using EntryIterator = std::vector<ItemDataEntry*>::iterator;

  std::vector<Place> arrange() const;
  void arrangeRow(int row, EntryIterator first, EntryIterator end, std::vector<Place>& places) const;
  static EntryIterator findForSetting(const ItemDataEntry& setting, EntryIterator first, EntryIterator end);
  bool isArranged(const std::vector<Place>& places) const;
  ItemDataEntry* cloneForRow(const ItemDataEntry& setting, int row) const;

  FX::FXString getPrintableRows() const;
  FX::FXString getPrintableCounts() const;
  std::pair<int, int> findRow(int row, int runStart, int runEnd) const;
  void findRuns();

  std::vector<int> runs;  // where the places begin from which on the rows ascend
  int runsEnd = 0;        // no() while the runs are those of the list
};

}  // namespace Plugin::ItemData
}  // namespace Quillane
