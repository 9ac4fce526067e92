// The meta classes that the module registers with the toolkit while it is loaded: names, bases and message maps.
#include <gtest/gtest.h>

#include <cstring>
#include <ostream>
#include <string>

#include "fxext/FXComboBox.h"
#include "fxext/FXDateInput.h"
#include "fxext/FXDatePicker.h"
#include "fxext/FXDatePickerLabel.h"
#include "fxext/FXDualList.h"
#include "itemdata/ItemDataComboEntry.h"
#include "itemdata/ItemDataDateEntry.h"
#include "itemdata/ItemDataStringEntry.h"
#include "ui/ItemDataAssociationPanel.h"
#include "ui/ItemDataDialog.h"
#include "ui/ItemDataSettingsPanel.h"
#include "ui/ItemDataTable.h"

using namespace FX;

namespace Quillane::Plugin::ItemData {
namespace {

/// What a meta class holds, for the number of message map entries, which it tells nobody. That the layout is the
/// toolkit's is seen from the two fields that it does tell.
struct MetaClassFields {
  const FXchar* className;
  FXObject* (*manufacture)();
  const FXMetaClass* baseClass;
  const void* entries;
  FXuint entryCount;
  FXuint entrySize;
};
static_assert(sizeof(MetaClassFields) == sizeof(FXMetaClass));

MetaClassFields fieldsOf(const FXMetaClass& metaClass) {
  MetaClassFields fields;
  std::memcpy(&fields, static_cast<const void*>(&metaClass), sizeof(fields));
  return fields;
}

struct Expected {
  const FXMetaClass* metaClass;
  const char* name;
  const FXMetaClass* base;
  unsigned entryCount;
};

void PrintTo(const Expected& expected, std::ostream* out) { *out << expected.name; }

// The type-ahead combo box carries its namespace in its name, the others do not.
const Expected kExpected[] = {
    {&ItemDataStringEntry::metaClass, "ItemDataStringEntry", &FXObject::metaClass, 0},
    {&ItemDataDateEntry::metaClass, "ItemDataDateEntry", &FXObject::metaClass, 0},
    {&ItemDataComboEntry::metaClass, "ItemDataComboEntry", &FXObject::metaClass, 0},
    {&UI::ItemDataTable::metaClass, "ItemDataTable", &FXTable::metaClass, 3},
    {&ItemDataDialog::metaClass, "ItemDataDialog", &FXDialogBox::metaClass, 3},
    {&ItemDataSettingsPanel::metaClass, "ItemDataSettingsPanel", &FXDialogBox::metaClass, 3},
    {&UI::ItemDataAssociationPanel::metaClass, "ItemDataAssociationPanel", &FXVerticalFrame::metaClass, 0},
    {&FXExt::FXComboBox::metaClass, "FXExt::FXComboBox", &FX::FXComboBox::metaClass, 2},
    {&FXExt::FXDatePickerLabel::metaClass, "FXDatePickerLabel", &FXLabel::metaClass, 3},
    {&FXExt::FXDatePicker::metaClass, "FXDatePicker", &FXVerticalFrame::metaClass, 9},
    {&FXExt::FXDateInput::metaClass, "FXDateInput", &FXPacker::metaClass, 10},
    {&FXExt::FXDualList::metaClass, "FXDualList", &FXHorizontalFrame::metaClass, 6},
};

class MetaClass : public testing::TestWithParam<Expected> {};

TEST_P(MetaClass, hasItsNameBaseAndMessageMap) {
  const Expected& expected = GetParam();
  const MetaClassFields fields = fieldsOf(*expected.metaClass);
  ASSERT_EQ(fields.className, expected.metaClass->getClassName()) << "not the toolkit's layout";
  ASSERT_EQ(fields.baseClass, expected.metaClass->getBaseClass()) << "not the toolkit's layout";

  EXPECT_STREQ(expected.metaClass->getClassName(), expected.name);
  EXPECT_EQ(expected.metaClass->getBaseClass(), expected.base) << expected.metaClass->getBaseClass()->getClassName();
  EXPECT_EQ(fields.entryCount, expected.entryCount);
}

TEST_P(MetaClass, isFoundByItsName) {
  EXPECT_EQ(FXMetaClass::getMetaClassFromName(GetParam().name), GetParam().metaClass);
}

INSTANTIATE_TEST_SUITE_P(OfTheModule, MetaClass, testing::ValuesIn(kExpected), [](const auto& test) {
  std::string name = test.param.name;
  for (std::size_t colons = name.find("::"); colons != std::string::npos; colons = name.find("::"))
    name.replace(colons, 2, "In");
  return name;
});

TEST(MetaClass, ofAFieldKindMakesAnEntryOfThatKind) {
  for (const FXMetaClass* kind :
       {&ItemDataStringEntry::metaClass, &ItemDataDateEntry::metaClass, &ItemDataComboEntry::metaClass}) {
    FXObject* made = kind->makeInstance();
    EXPECT_EQ(made->getMetaClass(), kind);
    delete made;
  }
}

}  // namespace
}  // namespace Quillane::Plugin::ItemData
