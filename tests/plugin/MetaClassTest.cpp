// The meta classes that the module registers with the toolkit while it is loaded: names, bases and message maps.
#include <gtest/gtest.h>

#include <cstring>
#include <ostream>
#include <string>
#include <vector>

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

TEST_P(MetaClass, makesObjectsOfItsClass) {
  // The toolkit makes windows in this way to fill them from a stream; one that was not filled cannot be deleted. The
  // list lives as long as the process, so that what it holds is not taken for lost.
  static auto& made = *new std::vector<FXObject*>;
  made.push_back(GetParam().metaClass->makeInstance());
  EXPECT_EQ(made.back()->getMetaClass(), GetParam().metaClass);
}

INSTANTIATE_TEST_SUITE_P(OfTheModule, MetaClass, testing::ValuesIn(kExpected), [](const auto& test) {
  std::string name = test.param.name;
  for (std::size_t colons = name.find("::"); colons != std::string::npos; colons = name.find("::"))
    name.replace(colons, 2, "In");
  return name;
});

// ---- the message maps, entry by entry

template <class Widget>
struct Handled {
  FXuint type;
  FXuint id;
  long (Widget::*handler)(FXObject*, FXSelector, void*);
};

/// Expects that the class's own map has these entries, each for one message only, and no others.
template <class Widget>
void expectMap(const std::vector<Handled<Widget>>& expected) {
  EXPECT_EQ(fieldsOf(Widget::metaClass).entryCount, expected.size());
  for (const Handled<Widget>& handled : expected) {
    const FXSelector sel = FXSEL(handled.type, handled.id);
    const auto* entry = static_cast<const typename Widget::FXMapEntry*>(Widget::metaClass.search(sel));
    ASSERT_NE(entry, nullptr) << handled.type << " " << handled.id;
    EXPECT_EQ(entry->keylo, sel);
    EXPECT_EQ(entry->keyhi, sel);
    EXPECT_TRUE(entry->func == handled.handler) << handled.type << " " << handled.id;
  }
}

TEST(MessageMap, ofTheItemDataTable) {
  using UI::ItemDataTable;
  expectMap<ItemDataTable>({{SEL_RIGHTBUTTONRELEASE, 0, &ItemDataTable::onContextMenu},
                            {SEL_COMMAND, 88, &ItemDataTable::onAddRow},
                            {SEL_COMMAND, 89, &ItemDataTable::onDeleteRow}});
}

TEST(MessageMap, ofTheItemDataDialog) {
  expectMap<ItemDataDialog>({{SEL_COMMAND, 88, &ItemDataDialog::onAddRow},
                             {SEL_COMMAND, 89, &ItemDataDialog::onDeleteRow},
                             {SEL_REPLACED, 63, &ItemDataDialog::onChange}});
}

TEST(MessageMap, ofTheSettings) {
  expectMap<ItemDataSettingsPanel>({{SEL_COMMAND, 90, &ItemDataSettingsPanel::onDelete},
                                    {SEL_UPDATE, 90, &ItemDataSettingsPanel::isDeleteEnabled},
                                    {SEL_COMMAND, 61, &ItemDataSettingsPanel::onOKButton}});
}

TEST(MessageMap, ofTheComboBox) {
  using FXExt::FXComboBox;
  expectMap<FXComboBox>({{SEL_KEYPRESS, 0, &FXComboBox::onKeyPress}, {SEL_TIMEOUT, 57, &FXComboBox::onLookupTimer}});
}

TEST(MessageMap, ofTheDateInput) {
  using FXExt::FXDateInput;
  expectMap<FXDateInput>({{SEL_LEFTBUTTONPRESS, 55, &FXDateInput::onDateSelected},
                          {SEL_CHANGED, 56, &FXDateInput::onDateEntered},
                          {SEL_UPDATE, 56, &FXDateInput::onUpdate},
                          {SEL_KEYPRESS, 56, &FXDateInput::onKeyPress},
                          {SEL_KEYRELEASE, 56, &FXDateInput::onKeyReleased},
                          {SEL_KEYPRESS, 57, &FXDateInput::onPaneKeyPress},
                          {SEL_FOCUS_SELF, 0, &FXDateInput::onFocusSelf},
                          {SEL_FOCUSOUT, 0, &FXDateInput::onFocusOut},
                          {SEL_COMMAND, 21, &FXDateInput::onCmdSetStringValue},
                          {SEL_COMMAND, 27, &FXDateInput::onCmdGetStringValue}});
}

TEST(MessageMap, ofTheDatePicker) {
  using FXExt::FXDatePicker;
  expectMap<FXDatePicker>({{SEL_COMMAND, 55, &FXDatePicker::onCmdPrev},
                           {SEL_COMMAND, 56, &FXDatePicker::onCmdNext},
                           {SEL_COMMAND, 57, &FXDatePicker::onCmdToday},
                           {SEL_LEFTBUTTONPRESS, 58, &FXDatePicker::onLabelSelected},
                           {SEL_COMMAND, 59, &FXDatePicker::onCmdYear},
                           {SEL_COMMAND, 60, &FXDatePicker::onCmdYearNo},
                           {SEL_KEYPRESS, 60, &FXDatePicker::onKpYearNo},
                           {SEL_MOUSEWHEEL, 0, &FXDatePicker::onVMouseWheel},
                           {SEL_KEYPRESS, 0, &FXComposite::onKeyPress}});
}

TEST(MessageMap, ofACellOfTheDatePicker) {
  using FXExt::FXDatePickerLabel;
  expectMap<FXDatePickerLabel>({{SEL_LEFTBUTTONPRESS, 0, &FXDatePickerLabel::onLeftBtnPress},
                                {SEL_CLICKED, 0, &FXDatePickerLabel::onClick},
                                {SEL_PAINT, 0, &FXDatePickerLabel::onPaint}});
}

TEST(MessageMap, ofTheDualList) {
  using FXExt::FXDualList;
  expectMap<FXDualList>({{SEL_DOUBLECLICKED, 55, &FXDualList::onCmdMakeSelected},
                         {SEL_DOUBLECLICKED, 56, &FXDualList::onCmdMakeUnSelected},
                         {SEL_COMMAND, 57, &FXDualList::onCmdMakeSelected},
                         {SEL_COMMAND, 58, &FXDualList::onCmdMakeUnSelected},
                         {SEL_COMMAND, 59, &FXDualList::onCmdMoveUp},
                         {SEL_COMMAND, 60, &FXDualList::onCmdMoveDown}});
}

}  // namespace
}  // namespace Quillane::Plugin::ItemData
