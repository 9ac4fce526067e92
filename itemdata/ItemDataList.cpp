// The item data of one invoice item: a flat list of entries that is read as a table.
//
// Invariants:
// 1. The leading entries (row 0) are those of the item as a whole; from firstUnitIndex on come the unit rows. Without
//    per-unit variables firstUnitIndex is -1 and there are no unit rows.
// 2. A unit row is a run of entries with one row number. Numbers ascend; deleting a row leaves a gap.
// 3. An entry that was never stored (pk 0) leaves the list when its row is deleted. A stored one stays, marked and
//    empty, until the document is loaded anew, and counts as no row and no quantity.
// 4. After a save the list is as it was before: new entries keep key 0 and marked ones their mark.
// 5. Places of the list may be null; they are passed over.
// 6. The list falls into runs of ascending rows, and a row is found by bisection in each. Mostly there is one run; rows
//    that were deleted at the end and are there still, marked, begin another when their numbers are given again. The
//    runs are found anew when the list's length or a row that is not there says that they are not those of the list.
#include "itemdata/ItemDataList.h"

#include <libintl.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "itemdata/CountingList.h"
#include "itemdata/ItemDataListLoader.h"
#include "plugin/contract/Database.h"
#include "plugin/contract/Invoice.h"
#include "plugin/contract/Message.h"
#include "plugin/contract/Statement.h"
#include "plugin/contract/XMLBuilder.h"

using namespace FX;

namespace Quillane::Plugin::ItemData {

namespace {

const FXString kXmlPrefix = "itemdata";

// Quantities are read and summed with this many decimals.
constexpr char kQuantityPrecision = 4;

// The variable that is not written into a row with a "0" before it.
constexpr int kVariableSkippedAfterZero = 2;

constexpr int kOutgoing = 100;
constexpr int kIncoming = 200;

const FXString kServiceSettingsSql =
    "select type,null,t_itemvariable_1,name,mandatory,process,vvalue from t_serviceitemdata join t_itemvariable on  "
    "t_itemvariable_1= t_itemvariable_id where direction=%direction and t_service_1=%id order by process, position";

const FXString kSuiteSettingsSql =
    "select type,null,t_itemvariable_1,name,mandatory,process,vvalue from t_suiteitemdata join t_itemvariable on  "
    "t_itemvariable_1= t_itemvariable_id where direction=%direction and t_suite_1=%id order by process, position";

const FXString kProductSettingsSql =
    "select type,null,t_itemvariable_1,name,mandatory,process,vvalue from t_productitemdata join t_itemvariable on  "
    "t_itemvariable_1= t_itemvariable_id where direction=%direction and t_product_1=%id order by process, position";

const FXString kSourceDataSql =
    "select type,0,t_itemvariable_1,name,mandatory,row,value from t_invoiceitemdata left join t_itemvariable on "
    "t_itemvariable_1=t_itemvariable_id where t_invoiceitem_1=%id order by row, t_invoiceitemdata_id";

const FXString kStoredDataSql =
    "select type,t_invoiceitemdata_id,t_itemvariable_1,name,mandatory,row,value from t_invoiceitemdata left join "
    "t_itemvariable on t_itemvariable_1=t_itemvariable_id where t_invoiceitem_1=%id order by row, t_invoiceitemdata_id";

const FXString* settingsSql(int articleKind) {
  switch (articleKind) {
    case InvoiceItem::ARTICLE_PRODUCT:
      return &kProductSettingsSql;
    case InvoiceItem::ARTICLE_SERVICE:
      return &kServiceSettingsSql;
    case InvoiceItem::ARTICLE_SUITE:
      return &kSuiteSettingsSql;
    default:
      return nullptr;
  }
}

// On purpose: status 452 gives direction 400, for which nothing can be assigned.
int directionOfStatus(int status) {
  switch (status) {
    case 801:
    case 401:
    case 451:
      return kOutgoing;
    case 252:
    case 202:
      return kIncoming;
    default:
      return status / 100 * 100;
  }
}

FXExt::FXDecimal quantityOf(const ItemDataEntry& entry) {
  return FXExt::FXDecimal(entry.getValue(), kQuantityPrecision);
}

// Whether the entry goes on with the run that the one before it belongs to.
bool follows(const ItemDataEntry* before, const ItemDataEntry* entry) {
  return before && entry && before->row <= entry->row;
}

void appendText(std::string& line, const FXString& text) { line.append(text.text(), text.length()); }

std::string_view view(const FXString& text) { return {text.text(), static_cast<std::size_t>(text.length())}; }

using CountingPair = FXExt::FXPair<FXString, int>;

// Finds pairs by their text: a hash table with open addressing, since what a map allocates for every text is most of
// the work.
class PairFinder {
 public:
  explicit PairFinder(int mostTexts) {
    std::size_t places = 1;  // always a power of two
    while (places < 2 * static_cast<std::size_t>(mostTexts)) places *= 2;
    pairs.resize(places);
  }

  // The place for the text's pair, null while there is none.
  CountingPair*& find(const FXString& text) {
    // Equal texts often follow each other.
    if (isPairOf(text)) return pairs[found];
    const std::size_t last = pairs.size() - 1;
    found = std::hash<std::string_view>()(view(text)) & last;
    while (pairs[found] && !isPairOf(text)) found = (found + 1) & last;
    return pairs[found];
  }

 private:
  bool isPairOf(const FXString& text) const { return pairs[found] && view(pairs[found]->first) == view(text); }

  std::vector<CountingPair*> pairs;  // not owned
  std::size_t found = 0;             // the place that find gave last
};

FXString toText(const std::string& line) { return FXString(line.data(), static_cast<FXint>(line.size())); }

}  // namespace

const FXString ItemDataList::kXmlNamespace = "urn:quillane:plugin:itemdata";

ItemDataList* ItemDataList::of(const Entity& entity) {
  return dynamic_cast<ItemDataList*>(entity.getMiscData(kMiscDataKey));
}

ItemDataList::ItemDataList() = default;

ItemDataList::ItemDataList(Entity* item, ItemDataList* settingsList)
    : ListOfEntityMiscData(item), settings(settingsList) {
  if (!settings) return;
  firstUnitIndex = settings->firstUnitIndex;
  unitColumnCount = settings->unitColumnCount;
  if (owner && owner->getId() <= 0) cloneItemsFrom(settings, 0);
}

ItemDataList::~ItemDataList() {
  for (FXint i = 0; i < no(); ++i) delete at(i);
  delete settings;
}

ItemDataList* ItemDataList::clone(Entity* newOwner) const {
  // On purpose: for an owner that is not stored the constructor puts the leading entries before the copies of all.
  auto* copy = new ItemDataList(newOwner, settings ? settings->clone(newOwner) : nullptr);
  copy->cloneItemsFrom(this, 1);
  copy->lastRow = lastRow;
  copy->unitColumnCount = unitColumnCount;
  copy->firstUnitIndex = firstUnitIndex;
  return copy;
}

void ItemDataList::append(ItemDataEntry* entry) {
  lastRow = entry->row;
  const FXint count = no();
  if (count == 0 || runsEnd != count) findRuns();
  if (count == 0 || !follows(at(count - 1), entry)) runs.push_back(count);
  ++runsEnd;
  FXObjectList::append(entry);
}

void ItemDataList::cloneItemsFrom(const ItemDataList* source, FXuchar all) {
  const FXint count = all || source->firstUnitIndex < 0 ? source->no() : source->firstUnitIndex;
  for (FXint i = 0; i < count; ++i) {
    if (!source->at(i)) continue;
    ItemDataEntry* entry = source->at(i)->clone(owner);
    entry->pk = 0;
    append(entry);
  }
}

int ItemDataList::getRowNum() const {
  if (firstUnitIndex < 0) return 0;
  int rows = 0;
  const ItemDataEntry* counted = nullptr;
  for (FXint i = no() - 1; i >= firstUnitIndex; --i) {
    const ItemDataEntry* entry = at(i);
    if (!entry || entry->del) continue;
    if (!counted || counted->row != entry->row) ++rows;
    counted = entry;
  }
  return rows;
}

FXuchar ItemDataList::hasQuantityColumn() const {
  for (FXint i = 0; i < no(); ++i) {
    const ItemDataEntry* entry = at(i);
    if (entry && !entry->del && entry->type == ItemDataEntry::TYPE_QUANTITY && entry->row > 0) return 1;
  }
  return 0;
}

FXExt::FXDecimal ItemDataList::getQuantityForRow(int row) const {
  for (FXint i = no() - 1; i >= 0; --i) {
    const ItemDataEntry* entry = at(i);
    if (!entry || entry->del || entry->type != ItemDataEntry::TYPE_QUANTITY || entry->row != row) continue;
    return quantityOf(*entry);
  }
  return FXExt::FXDecimal();
}

void ItemDataList::addRows(int count) {
  if (!settings || firstUnitIndex < 0) return;
  // The settings' own, because the list may have leading entries that the settings do not know.
  const int first = settings->firstUnitIndex < 0 ? firstUnitIndex : settings->firstUnitIndex;
  for (int added = 0; added < count; ++added) {
    const int row = lastRow + 1;
    for (FXint i = first; i < settings->no(); ++i) {
      if (!settings->at(i)) continue;
      ItemDataEntry* entry = settings->at(i)->clone(owner);
      entry->row = row;
      append(entry);
    }
  }
}

bool ItemDataList::isComplete() const { return !settings || isArranged(arrange()); }

void ItemDataList::completeFromSettings() {
  if (!settings) return;
  const std::vector<Place> places = arrange();
  if (isArranged(places)) return;

  // The numbers of rows that were deleted at the end are free again, those of the others are not.
  int last = lastRow;
  clear();
  for (const Place& place : places) {
    append(place.entry ? place.entry : cloneForRow(*place.setting, place.row));
    if (!at(no() - 1)->del) last = std::max(last, at(no() - 1)->row);
  }
  lastRow = last;
  unitColumnCount = settings->unitColumnCount;
  firstUnitIndex = -1;
  if (settings->firstUnitIndex < 0) return;
  firstUnitIndex = 0;
  while (firstUnitIndex < no() && at(firstUnitIndex)->row < 1) ++firstUnitIndex;
}

void ItemDataList::loadSettings(TarnwellDatabase* db, int status, InvoiceItem* item) {
  const FXString* sql = settingsSql(item->getArticleKind());
  if (!sql) return;
  Statement statement(db, *sql);
  statement.setInt("id", item->getArticleId());
  statement.setInt("direction", directionOfStatus(status));
  unitColumnCount = 0;
  ItemDataListLoader loader(this, item);
  statement.execute(&loader, 1);
}

void ItemDataList::loadSavedItemData(TarnwellDatabase* db) {
  if (!owner) return;
  const bool fromSource = isBeingDerived();
  if (!fromSource && !isStored()) return;
  Statement statement(db, fromSource ? kSourceDataSql : kStoredDataSql);
  statement.setInt("id", fromSource ? getItem()->getSourceItemId() : owner->getId());
  unitColumnCount = 0;
  ItemDataListLoader loader(this, owner);
  statement.execute(&loader, 1);
}

void ItemDataList::load(TarnwellDatabase* db) {
  if (no() == 0)
    loadSavedItemData(db);
  else
    appendUnitRowsOfSource(db);

  for (FXint i = 0; i < no(); ++i) {
    if (at(i)) at(i)->load(db);
  }
  if (!settings) return;
  unitColumnCount = settings->unitColumnCount;
  takeParametersFromSettings();
}

int ItemDataList::save(TarnwellDatabase* db) {
  int zeroRow = -1;
  int zeroOwner = -1;
  for (FXint i = 0; i < no(); ++i) {
    ItemDataEntry* entry = at(i);
    if (!entry) continue;
    const int ownerId = entry->getOwner()->getId();
    // On purpose: "0" is never written, so a row that is stored keeps the value that it has.
    if (entry->getValue() == "0") {
      zeroRow = entry->row;
      zeroOwner = ownerId;
      continue;
    }
    // On purpose: this one variable goes with the "0" before it in its row.
    const bool followsZero = entry->row == zeroRow && ownerId == zeroOwner;
    if (followsZero && entry->itemvariable == kVariableSkippedAfterZero) continue;
    entry->save(db);
  }
  return 0;
}

void ItemDataList::setStatus(TarnwellDatabase*, unsigned status) {
  switch (status) {
    case 101:
    case 201:
    case 401:
      if (getItem()->getInvoice()->getStatusGate() <= 0) return;
      break;
    case 102:
    case 452:
      break;
    default:
      return;
  }
  for (FXint i = 0; i < no(); ++i) {
    if (at(i)) at(i)->setStatus(status);
  }
}

template <class RowPredicate>
bool ItemDataList::removeOrMark(int first, int end, RowPredicate isDeleted) {
  bool found = false;
  FXint kept = first;
  for (FXint i = first; i < end; ++i) {
    ItemDataEntry* entry = at(i);
    if (entry && isDeleted(entry->row)) {
      found = true;
      if (!entry->pk) {
        delete entry;
        continue;
      }
      if (!entry->del) entry->markForDelete(1);
    }
    at(kept++) = entry;
  }
  if (kept == end) return found;
  erase(kept, end - kept);
  for (int& start : runs) {
    if (start >= end) start -= end - kept;
  }
  runsEnd = no();
  return found;
}

void ItemDataList::markRowForDelete(int row) {
  bool found = runsEnd == no() && removeOrMarkRow(row);
  if (!found) {
    // Entries and their places are open to everybody, so the runs may have changed unnoticed.
    findRuns();
    found = removeOrMarkRow(row);
  }
  if (found && lastRow == row) lastRow = row - 1;
}

bool ItemDataList::removeOrMarkRow(int row) {
  bool found = false;
  // From the last run to the first: what is removed moves the runs behind it.
  for (std::size_t i = runs.size(); i-- > 0;) {
    const auto [first, end] = findRow(row, runs[i], i + 1 < runs.size() ? runs[i + 1] : no());
    if (removeOrMark(first, end, [row](int rowOfEntry) { return rowOfEntry == row; })) found = true;
  }
  return found;
}

FXExt::FXDecimal ItemDataList::getSumQuantity() const {
  FXExt::FXDecimal sum(0, 0, kQuantityPrecision);
  for (FXint i = no() - 1; i >= 0; --i) {
    const ItemDataEntry* entry = at(i);
    if (entry && !entry->del && entry->type == ItemDataEntry::TYPE_QUANTITY) sum += quantityOf(*entry);
  }
  return sum;
}

int ItemDataList::check(int itemNumber, ListOfMessage& messages, const FXString& prefix) {
  checkQuantities(messages, prefix);
  dropMarkedRows();
  for (FXint i = 0; i < no(); ++i) {
    if (at(i) && !at(i)->del) at(i)->check(itemNumber, messages, prefix);
  }
  return 0;
}

void ItemDataList::toXml(XMLBuilder::Element* parent) const {
  parent->getDocument()->addNamespace(kXmlPrefix, kXmlNamespace);
  XMLBuilder::Element* element = parent->createElement(kXmlNamespace, "itemdata");
  for (FXint i = 0; i < no(); ++i) {
    if (at(i)) at(i)->toXml(element);
  }
}

FXString ItemDataList::getPrintableText() const {
  return hasQuantityColumn() ? getPrintableRows() : getPrintableCounts();
}

InvoiceItem* ItemDataList::getItem() const { return static_cast<InvoiceItem*>(owner); }

// On purpose: the id does not matter here, although the entries of an item with an id load their own values.
bool ItemDataList::isBeingDerived() const {
  return getItem()->getOriginMode() == InvoiceItem::ORIGIN_DERIVING && getItem()->getSourceItemId() >= 1;
}

bool ItemDataList::isStored() const { return owner->getId() >= 1; }

// An item that is being derived starts with the leading entries when there are any, so its list is not empty and the
// source's unit rows come in here.
void ItemDataList::appendUnitRowsOfSource(TarnwellDatabase* db) {
  if (!owner || isStored() || !isBeingDerived() || firstUnitIndex < 1 || no() > firstUnitIndex) return;
  ItemDataList source(owner, nullptr);
  source.firstUnitIndex = firstUnitIndex;
  source.loadSavedItemData(db);
  for (FXint i = 0; i < source.no(); ++i) {
    if (source[i]->row < 1) continue;
    append(source[i]);
    source[i] = nullptr;
  }
}

// A stored value has no parameter of its own; without it a list would offer no choices.
void ItemDataList::takeParametersFromSettings() {
  std::unordered_map<int, const ItemDataEntry*> settingOfVariable;
  for (FXint i = 0; i < settings->no(); ++i) {
    if (settings->at(i)) settingOfVariable.emplace(settings->at(i)->itemvariable, settings->at(i));
  }
  for (FXint i = 0; i < no(); ++i) {
    if (!at(i)) continue;
    const auto setting = settingOfVariable.find(at(i)->itemvariable);
    if (setting != settingOfVariable.end()) at(i)->vvalue = setting->second->vvalue;
  }
}

void ItemDataList::checkQuantities(ListOfMessage& messages, const FXString& prefix) const {
  if (firstUnitIndex < 0) return;
  const Invoice* invoice = getItem()->getInvoice();
  if (invoice->isStatusClosed() || invoice->getStatus() == 102) return;

  const FXExt::FXDecimal sum = getSumQuantity();
  const FXExt::FXDecimal quantity = getItem()->getQuantity();
  const char* key = nullptr;
  const char* text = nullptr;
  if (sum > quantity) {
    key = "%s_ITEMDATAQUANTITYMORETHAN";
    text = gettext("Egyéb tételadatok: Az összmennyiség (%s) több, mint a tétellistában megadott (%s).");
  } else if (sum < quantity) {
    key = "%s_ITEMDATAQUANTITYLESSTHAN";
    text = gettext("Egyéb tételadatok: Az összmennyiség (%s) kevesebb, mint a tétellistában megadott (%s).");
  } else {
    return;
  }
  messages.append(
      new Message(FXStringFormat(key, prefix.text()), Message::ERROR,
                  FXStringFormat(text, sum.toString().text(), quantity.toString().text()),
                  FXStringFormat(gettext("Számla: Tételek listája\n[%s]\n"), invoice->getDisplayText().text()), nullptr,
                  nullptr, nullptr));
}

// The same as markRowForDelete for the row of every marked entry, one after the other in list order, but in two walks
// however many there are.
void ItemDataList::dropMarkedRows() {
  std::unordered_set<int> rows;
  for (FXint i = 0; i < no(); ++i) {
    const ItemDataEntry* entry = at(i);
    if (!entry) continue;
    const bool inDroppedRow = rows.count(entry->row) > 0;
    const bool gone = inDroppedRow && !entry->pk;
    if (gone || !(entry->del || inDroppedRow)) continue;
    rows.insert(entry->row);
    if (lastRow == entry->row) lastRow = entry->row - 1;
  }
  if (rows.empty()) return;
  removeOrMark(0, no(), [&rows](int row) { return rows.count(row) > 0; });
  findRuns();
}

// The entries as completeFromSettings leaves them. Rows ascend; a row number below 1 is the item as a whole.
std::vector<ItemDataList::Place> ItemDataList::arrange() const {
  const auto rowOf = [](const ItemDataEntry* entry) { return std::max(entry->row, 0); };
  std::vector<ItemDataEntry*> entries;
  entries.reserve(no());
  for (FXint i = 0; i < no(); ++i) {
    if (at(i)) entries.push_back(at(i));
  }
  const auto isBefore = [&](const auto* one, const auto* other) { return rowOf(one) < rowOf(other); };
  if (!std::is_sorted(entries.begin(), entries.end(), isBefore))
    std::stable_sort(entries.begin(), entries.end(), isBefore);

  std::vector<Place> places;
  places.reserve(no());
  const auto arrangeFrom = [&](EntryIterator first, int row) {
    const auto isOfRow = [&](const ItemDataEntry* entry) { return rowOf(entry) == row; };
    const auto end = std::find_if_not(first, entries.end(), isOfRow);
    arrangeRow(row, first, end, places);
    return end;
  };
  auto next = arrangeFrom(entries.begin(), 0);
  while (next != entries.end()) next = arrangeFrom(next, (*next)->row);
  return places;
}

// A row number can be that of a deleted row too, whose marked entries were there first. A row that is only marked gets
// no fields. What stands between first and end is used up.
void ItemDataList::arrangeRow(int row, EntryIterator first, EntryIterator end, std::vector<Place>& places) const {
  const auto marked = std::stable_partition(first, end, [](const ItemDataEntry* entry) { return !entry->del; });
  const auto keep = [&](EntryIterator from, EntryIterator to) {
    for (; from != to; ++from) {
      if (*from) places.push_back({*from, nullptr, row});
    }
  };

  if (row > 0) keep(marked, end);
  if (row == 0 || first != marked) {
    const int firstUnitSetting = settings->firstUnitIndex < 0 ? settings->no() : settings->firstUnitIndex;
    const int endOfSettings = row == 0 ? firstUnitSetting : settings->no();
    for (FXint i = row == 0 ? 0 : firstUnitSetting; i < endOfSettings; ++i) {
      const ItemDataEntry* setting = settings->at(i);
      if (!setting) continue;
      const auto found = findForSetting(*setting, first, marked);
      places.push_back({found == marked ? nullptr : std::exchange(*found, nullptr), setting, row});
    }
  }
  keep(first, marked);
  if (row == 0) keep(marked, end);
}

// Where a value is there twice, one that says something goes first.
ItemDataList::EntryIterator ItemDataList::findForSetting(const ItemDataEntry& setting, EntryIterator first,
                                                         EntryIterator end) {
  const auto isOfSetting = [&](const ItemDataEntry* entry) {
    return entry && entry->itemvariable == setting.itemvariable;
  };
  const auto found = std::find_if(first, end, isOfSetting);
  if (found == end || std::none_of(found + 1, end, isOfSetting) || !(*found)->getValue().empty()) return found;
  const auto other = std::find_if(
      found + 1, end, [&](const ItemDataEntry* entry) { return isOfSetting(entry) && !entry->getValue().empty(); });
  return other == end ? found : other;
}

bool ItemDataList::isArranged(const std::vector<Place>& places) const {
  if (static_cast<FXint>(places.size()) != no()) return false;
  int leading = 0;
  for (FXint i = 0; i < no(); ++i) {
    if (!at(i) || places[i].entry != at(i)) return false;
    if (places[i].row == 0) ++leading;
  }
  return firstUnitIndex == (settings->firstUnitIndex < 0 ? -1 : leading);
}

// What is missing in a stored row was never written, and of a quantity that is "0" alone.
ItemDataEntry* ItemDataList::cloneForRow(const ItemDataEntry& setting, int row) const {
  ItemDataEntry* entry = setting.clone(owner);
  entry->pk = 0;
  entry->row = row;
  if (entry->type == ItemDataEntry::TYPE_QUANTITY) entry->value = "0";
  return entry;
}

FXString ItemDataList::getPrintableRows() const {
  std::string line;
  int row = 0;
  bool afterQuantity = false;
  for (FXint i = 0; i < no(); ++i) {
    const ItemDataEntry* entry = at(i);
    if (!entry) continue;
    const FXString text = entry->getPrintableText();
    if (text.empty()) continue;
    if (!line.empty()) {
      const bool startsRow = entry->row == 0 || entry->row != row;
      line += startsRow ? "; " : afterQuantity ? " " : ", ";
    }
    appendText(line, text);
    row = entry->row;
    afterQuantity = entry->type == ItemDataEntry::TYPE_QUANTITY;
  }
  return toText(line);
}

FXString ItemDataList::getPrintableCounts() const {
  CountingList counts;
  PairFinder finder(no());
  int total = 0;
  for (FXint i = 0; i < no(); ++i) {
    if (!at(i)) continue;
    FXString text = at(i)->getPrintableText();
    if (text.empty()) continue;
    ++total;
    CountingPair*& pair = finder.find(text);
    if (!pair) {
      pair = new CountingPair;
      swap(pair->first, text);
      counts.append(pair);
    }
    ++pair->second;
  }

  std::string line;
  const bool allDistinct = total == counts.no();
  for (FXint i = 0; i < counts.no(); ++i) {
    if (!line.empty()) line += ", ";
    appendText(line, counts[i]->first);
    if (!allDistinct) appendText(line, FXStringFormat(" (%d %s)", counts[i]->second, getItem()->getUnit().text()));
  }
  return toText(line);
}

// Of the run between these places: the first place of the row and the one behind its last.
std::pair<int, int> ItemDataList::findRow(int row, int runStart, int runEnd) const {
  // A null place may be on either side; it stays inside what is found, which only widens it.
  const auto bisect = [this, runEnd](int from, const auto& liesBefore) {
    int to = runEnd;
    while (from < to) {
      const int middle = from + (to - from) / 2;
      if (liesBefore(at(middle)))
        from = middle + 1;
      else
        to = middle;
    }
    return from;
  };
  const int first = bisect(runStart, [row](const ItemDataEntry* entry) { return entry && entry->row < row; });
  const int end = bisect(first, [row](const ItemDataEntry* entry) { return !entry || entry->row <= row; });
  return {first, end};
}

void ItemDataList::findRuns() {
  runs.clear();
  for (FXint i = 0; i < no(); ++i) {
    if (i == 0 || !follows(at(i - 1), at(i))) runs.push_back(i);
  }
  runsEnd = no();
}

}  // namespace Quillane::Plugin::ItemData
