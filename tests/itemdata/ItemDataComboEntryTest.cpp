#include "itemdata/ItemDataComboEntry.h"

#include <gtest/gtest.h>

#include <memory>

#include "fxext/FXComboBox.h"
#include "tests/itemdata/EditorFixture.h"
#include "tests/itemdata/ItemDataFixture.h"

using namespace FX;

namespace Quillane::Plugin::ItemData {
namespace {

class ItemDataComboEntryMemory : public ItemDataTest {
 protected:
  std::unique_ptr<ItemDataEntry> listEntry(const char* choices, const char* value) {
    declare({{12, "Szín", ItemDataEntry::TYPE_LIST, 1, 0, choices}});
    std::unique_ptr<ItemDataEntry> entry(newEntry("3 12 ''", newItem(10)));
    entry->value = value;
    return entry;
  }
};

TEST_F(ItemDataComboEntryMemory, handlesListsOnly) {
  const ItemDataComboEntry kind;
  for (int type = -3; type <= 101; ++type) EXPECT_EQ(kind.canHandleType(type), type == 3) << "type " << type;
}

TEST_F(ItemDataComboEntryMemory, metaClassIsRegisteredOnTheObject) {
  EXPECT_STREQ(ItemDataComboEntry::metaClass.getClassName(), "ItemDataComboEntry");
  EXPECT_EQ(ItemDataComboEntry::metaClass.getBaseClass(), &FXObject::metaClass);
  EXPECT_EQ(ItemDataComboEntry().getMetaClass(), &ItemDataComboEntry::metaClass);
  std::unique_ptr<FXObject> made(ItemDataComboEntry::metaClass.makeInstance());
  EXPECT_NE(dynamic_cast<ItemDataComboEntry*>(made.get()), nullptr);
}

TEST_F(ItemDataComboEntryMemory, cloneCopiesAllButKeyMarkAndAttachment) {
  auto entry = listEntry("a,b", "a");
  entry->pk = 7;
  entry->del = 1;
  entry->attached = new FXObject;
  InvoiceItem* owner = newItem(20);
  std::unique_ptr<ItemDataEntry> copy(entry->clone(owner));
  EXPECT_NE(dynamic_cast<ItemDataComboEntry*>(copy.get()), nullptr);
  EXPECT_EQ(copy->getOwner(), owner);
  EXPECT_EQ(copy->pk, 0);
  EXPECT_EQ(text(copy->name), "Szín");
  EXPECT_EQ(copy->itemvariable, 12);
  EXPECT_EQ(copy->type, 3);
  EXPECT_EQ(copy->mandatory, 0);
  EXPECT_EQ(copy->process, 1);
  EXPECT_EQ(text(copy->vvalue), "a,b");
  EXPECT_EQ(text(copy->value), "a");
  EXPECT_EQ(copy->attached, nullptr);
  EXPECT_EQ(copy->row, 3);
  EXPECT_EQ(copy->del, 0);
}

TEST_F(ItemDataComboEntryMemory, onlyTheBlankChoiceIsNoValue) {
  struct Case {
    const char* value;
    const char* given;
  };
  for (const Case& c : {Case{" ", ""}, Case{"", ""}, Case{"  ", "  "}, Case{" a", " a"}, Case{"a ", "a "},
                        Case{"0", "0"}, Case{"\t", "\t"}, Case{"not a choice", "not a choice"}}) {
    EXPECT_EQ(text(listEntry("a,b", c.value)->getValue()), c.given) << "'" << c.value << "'";
    EXPECT_EQ(text(listEntry("a,b", c.value)->value), c.value);
  }
}

TEST_F(ItemDataComboEntryMemory, printsItsValueAsItIsAndSoTheBlankChoice) {
  EXPECT_EQ(text(listEntry("a,b", " ")->getPrintableText()), " ");
  EXPECT_EQ(text(listEntry("a,b", "b")->getPrintableText()), "b");
}

// ---- the table cell

ItemDataComboEntry::ItemDataTableComboItem* comboCell(FXTableItem* cell) {
  return dynamic_cast<ItemDataComboEntry::ItemDataTableComboItem*>(cell);
}

TEST_F(ItemDataComboEntryMemory, tableCellIsBoundToTheEntry) {
  auto entry = listEntry("a,b", "b");
  std::unique_ptr<FXTableItem> cell(entry->getTableItem());
  ASSERT_NE(comboCell(cell.get()), nullptr);
  EXPECT_EQ(comboCell(cell.get())->entry, entry.get());
  EXPECT_EQ(cell->getData(), entry.get());
  EXPECT_EQ(text(cell->getText()), "b");
  EXPECT_EQ(cell->getJustify() & (FXTableItem::LEFT | FXTableItem::RIGHT), static_cast<FXuint>(FXTableItem::LEFT));
}

TEST_F(ItemDataComboEntryMemory, tableCellOffersTheBlankChoiceAndTheUntrimmedOnes) {
  struct Case {
    const char* parameter;
    const char* choices;
  };
  for (const Case& c : {Case{"a,b", " \na\nb"}, Case{" a , b", " \n a \n b"}, Case{"", " \n"}, Case{",", " \n\n"},
                        Case{"a", " \na"}, Case{"one\ntwo,b", " \none two\nb"}, Case{"a;b", " \na;b"}}) {
    auto entry = listEntry(c.parameter, "");
    std::unique_ptr<FXTableItem> cell(entry->getTableItem());
    EXPECT_EQ(text(comboCell(cell.get())->getSelections()), c.choices);
    EXPECT_EQ(text(entry->vvalue), c.parameter);
  }
}

TEST_F(ItemDataComboEntryMemory, makingTheTableCellWritesNothingBack) {
  for (const char* value : {"", " ", "b", "not a choice"}) {
    auto entry = listEntry("a,b", value);
    std::unique_ptr<FXTableItem> cell(entry->getTableItem());
    EXPECT_EQ(text(entry->value), value);
    EXPECT_EQ(text(cell->getText()), value);
  }
}

TEST_F(ItemDataComboEntryMemory, textOfTheTableCellBecomesTheValue) {
  for (const char* chosen : {"a", " ", "", "not a choice"}) {
    auto entry = listEntry("a,b", "b");
    std::unique_ptr<FXTableItem> cell(entry->getTableItem());
    cell->setText(chosen);
    EXPECT_EQ(text(cell->getText()), chosen);
    EXPECT_EQ(text(entry->value), chosen);
  }
}

TEST_F(ItemDataComboEntryMemory, tableCellWithoutEntryKeepsItsTextToItself) {
  auto entry = listEntry("a,b", "b");
  std::unique_ptr<FXTableItem> cell(entry->getTableItem());
  comboCell(cell.get())->entry = nullptr;
  cell->setText("a");
  EXPECT_EQ(text(cell->getText()), "a");
  EXPECT_EQ(text(entry->value), "b");
}

// ---- the editor

class ItemDataComboEntryEditor : public EditorTest {
 protected:
  // The editor of a new entry with this parameter.
  FXExt::FXComboBox* edit(const char* choices, const char* value) {
    declare({{12, "Szín", ItemDataEntry::TYPE_LIST, 0, 0, choices}});
    entry.reset(newEntry("0 12 ''", newItem(10)));
    entry->value = value;
    entry->addWidget(matrix, targets);
    return dynamic_cast<FXExt::FXComboBox*>(matrix->getLast()->getFirst());
  }

  static Lines items(const FXExt::FXComboBox& combo) {
    Lines result;
    for (FXint i = 0; i < combo.getNumItems(); ++i) result.push_back(text(combo.getItemText(i)));
    return result;
  }

  std::unique_ptr<ItemDataEntry> entry;
};

TEST_F(ItemDataComboEntryEditor, isAStaticComboBoxInAFrame) {
  const FXExt::FXComboBox* combo = edit("a,b", "b");
  ASSERT_EQ(matrix->numChildren(), 1);
  auto* frame = dynamic_cast<FXHorizontalFrame*>(matrix->getFirst());
  ASSERT_NE(frame, nullptr);
  EXPECT_STREQ(frame->getClassName(), "FXHorizontalFrame");
  EXPECT_EQ(optionsOf(*frame), 0x3401u);
  EXPECT_EQ(paddingsOf(*frame), Paddings({0, 0, 0, 0}));
  EXPECT_EQ(frame->getHSpacing(), 0);
  EXPECT_EQ(frame->getVSpacing(), 0);
  EXPECT_EQ(placeOf(*frame), Place({0, 0, 1, 1}));
  ASSERT_EQ(frame->numChildren(), 1);
  ASSERT_NE(combo, nullptr);
  EXPECT_EQ(combo->getNumColumns(), 2);
  EXPECT_EQ(optionsOf(*combo), 0x100401u);
  EXPECT_EQ(paddingsOf(static_cast<const FXTextField&>(*combo->getFirst())), Paddings({2, 2, 2, 2}));
  EXPECT_EQ(placeOf(*combo), Place({0, 0, 1, 1}));
  EXPECT_FALSE(combo->isEditable());
}

TEST_F(ItemDataComboEntryEditor, hasADataTargetOnTheValueInTheGuard) {
  const FXExt::FXComboBox* combo = edit("a,b", "b");
  ASSERT_EQ(targets.getCount(), 1);
  EXPECT_EQ(combo->getTarget(), targets[0]);
  EXPECT_EQ(combo->getSelector(), 1u);
  EXPECT_EQ(targets[0]->getType(), 11u);
  EXPECT_EQ(targets[0]->getData(), &entry->value);
}

TEST_F(ItemDataComboEntryEditor, offersTheBlankChoiceAndTheTrimmedOnes) {
  struct Case {
    const char* parameter;
    Lines choices;
  };
  for (const Case& c : {Case{"a,b", {" ", "a", "b"}}, Case{" a , b\t,\nc\n", {" ", "a", "b", "c"}},
                        Case{"két szó, három is van", {" ", "két szó", "három is van"}}, Case{"", {" ", ""}},
                        Case{"a,", {" ", "a", ""}}, Case{",a", {" ", "", "a"}}, Case{"a,,b", {" ", "a", "", "b"}},
                        Case{"b,a,b", {" ", "b", "a", "b"}}}) {
    EXPECT_EQ(items(*edit(c.parameter, "")), c.choices) << "'" << c.parameter << "'";
    EXPECT_EQ(text(entry->vvalue), c.parameter);
  }
}

TEST_F(ItemDataComboEntryEditor, showsAsManyLinesAsThereAreChoicesUpToTen) {
  std::string parameter;
  for (int choices = 1; choices <= 12; ++choices) {
    parameter += (choices > 1 ? "," : "") + std::to_string(choices);
    EXPECT_EQ(edit(parameter.c_str(), "")->getNumVisible(), choices <= 8 ? choices + 1 : 10) << choices;
  }
  EXPECT_EQ(edit("", "")->getNumVisible(), 2);
}

TEST_F(ItemDataComboEntryEditor, makingItWritesNothingBack) {
  for (const char* value : {"", " ", "b", "not a choice"}) {
    edit("a,b", value);
    EXPECT_EQ(text(entry->value), value);
  }
}

TEST_F(ItemDataComboEntryEditor, showsTheValueAndGivesTheChosenOneToIt) {
  FXExt::FXComboBox* combo = edit(" a , b ", "b");
  refresh(*combo);
  EXPECT_EQ(text(combo->getText()), "b");
  combo->setCurrentItem(1, TRUE);
  EXPECT_EQ(text(entry->value), "a");
  combo->setCurrentItem(0, TRUE);
  EXPECT_EQ(text(entry->value), " ");
  EXPECT_EQ(text(entry->getValue()), "");
}

}  // namespace
}  // namespace Quillane::Plugin::ItemData
