#include "itemdata/ItemDataDateEntry.h"

#include <gtest/gtest.h>

#include <memory>

#include "fxext/FXDateInput.h"
#include "fxext/FXDatePicker.h"
#include "tests/itemdata/EditorFixture.h"
#include "tests/itemdata/ItemDataFixture.h"

using namespace FX;

namespace Quillane::Plugin::ItemData {
namespace {

class ItemDataDateEntryMemory : public ItemDataTest {
 protected:
  ItemDataDateEntryMemory() { declare({{12, "Lejárat", ItemDataEntry::TYPE_DATE, 1, 0, "parameter"}}); }
};

TEST_F(ItemDataDateEntryMemory, handlesDatesOnly) {
  const ItemDataDateEntry kind;
  for (int type = -3; type <= 101; ++type) EXPECT_EQ(kind.canHandleType(type), type == 2) << "type " << type;
}

TEST_F(ItemDataDateEntryMemory, metaClassIsRegisteredOnTheObject) {
  EXPECT_STREQ(ItemDataDateEntry::metaClass.getClassName(), "ItemDataDateEntry");
  EXPECT_EQ(ItemDataDateEntry::metaClass.getBaseClass(), &FXObject::metaClass);
  EXPECT_EQ(ItemDataDateEntry().getMetaClass(), &ItemDataDateEntry::metaClass);
  std::unique_ptr<FXObject> made(ItemDataDateEntry::metaClass.makeInstance());
  EXPECT_NE(dynamic_cast<ItemDataDateEntry*>(made.get()), nullptr);
}

TEST_F(ItemDataDateEntryMemory, cloneCopiesAllButKeyMarkAndAttachment) {
  std::unique_ptr<ItemDataEntry> entry(newEntry("3 12 '2024.05.06' #7 marked", newItem(10)));
  entry->attached = new FXObject;
  InvoiceItem* owner = newItem(20);
  std::unique_ptr<ItemDataEntry> copy(entry->clone(owner));
  EXPECT_NE(dynamic_cast<ItemDataDateEntry*>(copy.get()), nullptr);
  EXPECT_EQ(copy->getOwner(), owner);
  EXPECT_EQ(copy->pk, 0);
  EXPECT_EQ(text(copy->name), "Lejárat");
  EXPECT_EQ(copy->itemvariable, 12);
  EXPECT_EQ(copy->type, 2);
  EXPECT_EQ(copy->mandatory, 0);
  EXPECT_EQ(copy->process, 1);
  EXPECT_EQ(text(copy->vvalue), "parameter");
  EXPECT_EQ(text(copy->value), "2024.05.06");
  EXPECT_EQ(copy->attached, nullptr);
  EXPECT_EQ(copy->row, 3);
  EXPECT_EQ(copy->del, 0);
}

TEST_F(ItemDataDateEntryMemory, anyTextIsKeptAsItIs) {
  for (const char* value : {"2024.05.06", "2024-05-06", "yesterday", "0", " "}) {
    std::unique_ptr<ItemDataEntry> entry(newEntry("1 12 ''", newItem(10)));
    entry->value = value;
    EXPECT_EQ(text(entry->getValue()), value);
    EXPECT_EQ(text(entry->getPrintableText()), value);
  }
}

TEST_F(ItemDataDateEntryMemory, tableCellIsAPlainOne) {
  std::unique_ptr<ItemDataEntry> entry(newEntry("1 12 '2024.05.06'", newItem(10)));
  std::unique_ptr<FXTableItem> cell(entry->getTableItem());
  auto* bound = dynamic_cast<ItemDataEntryTableItem*>(cell.get());
  ASSERT_NE(bound, nullptr);
  EXPECT_EQ(bound->entry, entry.get());
  cell->setText("2024.12.24");
  EXPECT_EQ(text(entry->value), "2024.12.24");
}

class ItemDataDateEntryEditor : public EditorTest {
 protected:
  ItemDataDateEntryEditor() {
    declare({{12, "Lejárat", ItemDataEntry::TYPE_DATE}});
    entry.reset(newEntry("0 12 '2024.05.06'", newItem(10)));
    entry->addWidget(matrix, targets);
    input = dynamic_cast<FXExt::FXDateInput*>(matrix->getFirst());
  }

  std::unique_ptr<ItemDataEntry> entry;
  FXExt::FXDateInput* input;  // owned by the form
};

TEST_F(ItemDataDateEntryEditor, isADateInput) {
  ASSERT_EQ(matrix->numChildren(), 1);
  ASSERT_NE(input, nullptr);
  EXPECT_EQ(optionsOf(*input), 0x3401u);
  EXPECT_EQ(paddingsOf(*input->getTextField()), Paddings({2, 2, 2, 2}));
  EXPECT_EQ(placeOf(*input), Place({0, 0, 1, 1}));
}

TEST_F(ItemDataDateEntryEditor, keepsItsDataTargetOutsideTheGuard) {
  EXPECT_EQ(targets.getCount(), 0);
  auto* target = dynamic_cast<FXDataTarget*>(input->getTarget());
  ASSERT_NE(target, nullptr);
  EXPECT_EQ(target->getType(), 11u);
  EXPECT_EQ(target->getData(), &entry->value);
  EXPECT_EQ(input->getSelector(), 1u);
}

TEST_F(ItemDataDateEntryEditor, showsTheValueAndGivesEnteredTextToIt) {
  refresh(*input);
  EXPECT_EQ(text(input->getValue()), "2024.05.06");
  input->setValue("2024.12.24", 1);
  EXPECT_EQ(text(entry->value), "2024.12.24");
}

}  // namespace
}  // namespace Quillane::Plugin::ItemData
