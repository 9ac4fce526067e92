#include "itemdata/ItemDataStringEntry.h"

#include <gtest/gtest.h>

#include <memory>

#include "tests/itemdata/EditorFixture.h"
#include "tests/itemdata/ItemDataFixture.h"

using namespace FX;

namespace Quillane::Plugin::ItemData {
namespace {

class ItemDataStringEntryMemory : public ItemDataTest {};

TEST_F(ItemDataStringEntryMemory, handlesTextAndQuantityOnly) {
  const ItemDataStringEntry kind;
  for (int type = -3; type <= 101; ++type)
    EXPECT_EQ(kind.canHandleType(type), type == 1 || type == -1) << "type " << type;
}

TEST_F(ItemDataStringEntryMemory, metaClassIsRegisteredOnTheObject) {
  EXPECT_STREQ(ItemDataStringEntry::metaClass.getClassName(), "ItemDataStringEntry");
  EXPECT_EQ(ItemDataStringEntry::metaClass.getBaseClass(), &FXObject::metaClass);
  EXPECT_EQ(ItemDataStringEntry().getMetaClass(), &ItemDataStringEntry::metaClass);
  std::unique_ptr<FXObject> made(ItemDataStringEntry::metaClass.makeInstance());
  EXPECT_NE(dynamic_cast<ItemDataStringEntry*>(made.get()), nullptr);
}

TEST_F(ItemDataStringEntryMemory, cloneCopiesAllButKeyMarkAndAttachment) {
  declare({{11, "Gyári szám", ItemDataEntry::TYPE_TEXT, 1, 0, "parameter"}});
  std::unique_ptr<ItemDataEntry> entry(newEntry("3 11 'abc' #7 marked", newItem(10)));
  entry->attached = new FXObject;
  InvoiceItem* owner = newItem(20);
  std::unique_ptr<ItemDataEntry> copy(entry->clone(owner));
  EXPECT_NE(dynamic_cast<ItemDataStringEntry*>(copy.get()), nullptr);
  EXPECT_EQ(copy->getOwner(), owner);
  EXPECT_EQ(copy->pk, 0);
  EXPECT_EQ(text(copy->name), "Gyári szám");
  EXPECT_EQ(copy->itemvariable, 11);
  EXPECT_EQ(copy->type, 1);
  EXPECT_EQ(copy->mandatory, 0);
  EXPECT_EQ(copy->process, 1);
  EXPECT_EQ(text(copy->vvalue), "parameter");
  EXPECT_EQ(text(copy->value), "abc");
  EXPECT_EQ(copy->attached, nullptr);
  EXPECT_EQ(copy->row, 3);
  EXPECT_EQ(copy->del, 0);
}

TEST_F(ItemDataStringEntryMemory, copyIsIndependentOfTheOriginal) {
  std::unique_ptr<ItemDataEntry> entry(newEntry("3 11 'abc' #7", newItem(10)));
  std::unique_ptr<ItemDataEntry> copy(entry->clone(nullptr));
  copy->value += "def";
  EXPECT_EQ(text(entry->value), "abc");
  EXPECT_EQ(entry->pk, 7);
  EXPECT_EQ(copy->getOwner(), nullptr);
}

TEST_F(ItemDataStringEntryMemory, textPrintsItsValue) {
  for (const char* value : {"", "0", "1", "3", "abc"}) {
    std::unique_ptr<ItemDataEntry> entry(newEntry("1 11 ''", newItem(10)));
    entry->value = value;
    EXPECT_EQ(text(entry->getPrintableText()), value);
  }
}

TEST_F(ItemDataStringEntryMemory, quantityPrintsWithTheUnitUnlessItIsNothingOrOne) {
  struct Case {
    const char* value;
    const char* printed;
  };
  for (const Case& c : {Case{"", ""}, Case{"0", ""}, Case{"1", ""}, Case{"3", "3 db"}, Case{"1.5", "1.5 db"},
                        Case{"-1", "-1 db"}, Case{" 1", " 1 db"}, Case{"1.0", "1.0 db"}, Case{"00", "00 db"}}) {
    std::unique_ptr<ItemDataEntry> entry(newEntry("1 -1 ''", newItem(10)));
    entry->value = c.value;
    EXPECT_EQ(text(entry->getPrintableText()), c.printed) << "'" << c.value << "'";
  }
}

TEST_F(ItemDataStringEntryMemory, quantityWithoutUnitPrintsWithABlank) {
  InvoiceItem* item = newItem(10);
  item->setUnit("");
  std::unique_ptr<ItemDataEntry> entry(newEntry("1 -1 '3'", item));
  EXPECT_EQ(text(entry->getPrintableText()), "3 ");
}

TEST_F(ItemDataStringEntryMemory, typeDecidesHowItPrintsNotTheVariable) {
  std::unique_ptr<ItemDataEntry> entry(newEntry("1 -1 '1'", newItem(10)));
  entry->type = ItemDataEntry::TYPE_TEXT;
  EXPECT_EQ(text(entry->getPrintableText()), "1");
}

class ItemDataStringEntryEditor : public EditorTest {};

TEST_F(ItemDataStringEntryEditor, isATextFieldOfTwoColumns) {
  std::unique_ptr<ItemDataEntry> entry(newEntry("0 11 'abc'", newItem(10)));
  entry->addWidget(matrix, targets);
  ASSERT_EQ(matrix->numChildren(), 1);
  auto* field = dynamic_cast<FXTextField*>(matrix->getFirst());
  ASSERT_NE(field, nullptr);
  EXPECT_STREQ(field->getClassName(), "FXTextField");
  EXPECT_EQ(field->getNumColumns(), 2);
  // A text field that is told nothing else justifies left by itself.
  EXPECT_EQ(optionsOf(*field), 0x3401u | JUSTIFY_LEFT);
  EXPECT_EQ(paddingsOf(*field), Paddings({2, 2, 2, 2}));
  EXPECT_EQ(placeOf(*field), Place({0, 0, 1, 1}));
}

TEST_F(ItemDataStringEntryEditor, hasADataTargetOnTheValueInTheGuard) {
  std::unique_ptr<ItemDataEntry> entry(newEntry("0 11 'abc'", newItem(10)));
  entry->addWidget(matrix, targets);
  ASSERT_EQ(targets.getCount(), 1);
  auto* field = static_cast<FXTextField*>(matrix->getFirst());
  EXPECT_EQ(field->getTarget(), targets[0]);
  EXPECT_EQ(field->getSelector(), 1u);
  EXPECT_EQ(targets[0]->getType(), 11u);
  EXPECT_EQ(targets[0]->getData(), &entry->value);
  EXPECT_EQ(targets[0]->getTarget(), nullptr);
}

TEST_F(ItemDataStringEntryEditor, guardGrowsByOneWithEachEditor) {
  std::unique_ptr<ItemDataEntry> entry(newEntry("0 11 'abc'", newItem(10)));
  std::unique_ptr<ItemDataEntry> other(newEntry("0 12 'def'", newItem(10)));
  entry->addWidget(matrix, targets);
  other->addWidget(matrix, targets);
  ASSERT_EQ(targets.getCount(), 2);
  EXPECT_EQ(targets[0]->getData(), &entry->value);
  EXPECT_EQ(targets[1]->getData(), &other->value);
}

TEST_F(ItemDataStringEntryEditor, showsTheValueAndGivesTypedTextToIt) {
  std::unique_ptr<ItemDataEntry> entry(newEntry("0 11 'abc'", newItem(10)));
  entry->addWidget(matrix, targets);
  auto* field = static_cast<FXTextField*>(matrix->getFirst());
  EXPECT_EQ(text(entry->value), "abc");
  refresh(*field);
  EXPECT_EQ(text(field->getText()), "abc");
  field->setText("új", TRUE);
  EXPECT_EQ(text(entry->value), "új");
}

}  // namespace
}  // namespace Quillane::Plugin::ItemData
