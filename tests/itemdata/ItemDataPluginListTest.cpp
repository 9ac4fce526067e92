#include "itemdata/ItemDataPluginList.h"

#include <gtest/gtest.h>

#include <memory>

#include "itemdata/ItemDataComboEntry.h"
#include "itemdata/ItemDataDateEntry.h"
#include "itemdata/ItemDataStringEntry.h"
#include "tests/itemdata/ItemDataFixture.h"
#include "tests/itemdata/RecordingEntry.h"

using namespace FX;

namespace Quillane::Plugin::ItemData {
namespace {

TEST(ItemDataPluginListAlone, isEmptyUntilTheKindsAreRegistered) {
  EXPECT_EQ(plugins.no(), 0);
  EXPECT_EQ(plugins.getByType(1, nullptr), nullptr);
}

TEST(ItemDataPluginListAlone, doesNotOwnThePrototypes) {
  ItemDataStringEntry prototype;
  {
    ItemDataPluginList list;
    list.append(&prototype);
  }
  EXPECT_EQ(prototype.mandatory, 1);
}

TEST(ItemDataPluginListAlone, firstKindThatHandlesTheTypeIsTaken) {
  ItemDataStringEntry text, later;
  text.name = "first";
  later.name = "later";
  ItemDataPluginList list;
  list.append(&text);
  list.append(&later);
  std::unique_ptr<ItemDataEntry> made(list.getByType(1, nullptr));
  EXPECT_STREQ(made->name.text(), "first");
}

TEST(ItemDataPluginListAlone, takesKindsThatOthersAdd) {
  std::vector<std::string> events;
  ItemDataStringEntry text;
  RecordingEntry other(events, "other");
  ItemDataPluginList list;
  list.append(&text);
  list.append(&other);
  std::unique_ptr<ItemDataEntry> made(list.getByType(RecordingEntry::kType, nullptr));
  EXPECT_NE(dynamic_cast<RecordingEntry*>(made.get()), nullptr);
}

class ItemDataPluginListFilled : public ItemDataTest {};

TEST_F(ItemDataPluginListFilled, typeDecidesTheKind) {
  struct Case {
    int type;
    const FXMetaClass* kind;
  };
  for (const Case& c : {Case{-1, &ItemDataStringEntry::metaClass}, Case{1, &ItemDataStringEntry::metaClass},
                        Case{2, &ItemDataDateEntry::metaClass}, Case{3, &ItemDataComboEntry::metaClass}}) {
    std::unique_ptr<ItemDataEntry> entry(plugins.getByType(c.type, nullptr));
    ASSERT_NE(entry, nullptr) << c.type;
    EXPECT_EQ(entry->getMetaClass(), c.kind) << c.type;
    EXPECT_EQ(entry->type, c.type);
  }
}

TEST_F(ItemDataPluginListFilled, otherTypesHaveNoKind) {
  for (const int type : {-2, 0, 4, 5, 99, 100, 101, 2147483647, -2147483647 - 1})
    EXPECT_EQ(plugins.getByType(type, nullptr), nullptr) << type;
}

TEST_F(ItemDataPluginListFilled, everyEntryIsNewAndBelongsToItsOwner) {
  InvoiceItem* item = newItem(10);
  std::unique_ptr<ItemDataEntry> first(plugins.getByType(1, item));
  std::unique_ptr<ItemDataEntry> second(plugins.getByType(1, item));
  EXPECT_NE(first.get(), second.get());
  EXPECT_EQ(plugins.find(first.get()), -1);
  EXPECT_EQ(first->getOwner(), item);
  EXPECT_EQ(plugins[0]->getOwner(), nullptr);
  EXPECT_EQ(plugins[0]->type, 0);
}

TEST_F(ItemDataPluginListFilled, entryIsAsItsPrototypeButForTheType) {
  std::unique_ptr<ItemDataEntry> entry(plugins.getByType(2, nullptr));
  EXPECT_EQ(entry->pk, 0);
  EXPECT_EQ(text(entry->name), "");
  EXPECT_EQ(entry->itemvariable, 0);
  EXPECT_EQ(entry->mandatory, 1);
  EXPECT_EQ(entry->process, 0);
  EXPECT_EQ(text(entry->value), "");
  EXPECT_EQ(entry->row, 0);
  EXPECT_EQ(entry->del, 0);
}

}  // namespace
}  // namespace Quillane::Plugin::ItemData
