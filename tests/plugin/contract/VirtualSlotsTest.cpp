// The binary shape of the contract: a module that was built against these headers finds an operation by its place in
// the class's virtual table, so no place may ever change. The numbers are those of the C++ ABI that every compiler of
// this platform follows (Itanium): a pointer to a virtual member function holds one more than the offset of its place,
// and a destructor takes two places.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <type_traits>
#include <vector>

#include "fxext/FXComboBox.h"
#include "fxext/FXDateInput.h"
#include "fxext/FXDatePicker.h"
#include "fxext/FXDatePickerHoliday.h"
#include "fxext/FXDatePickerLabel.h"
#include "fxext/FXDualList.h"
#include "fxext/FXPair.h"
#include "itemdata/ItemDataComboEntry.h"
#include "itemdata/ItemDataDateEntry.h"
#include "itemdata/ItemDataEntry.h"
#include "itemdata/ItemDataList.h"
#include "itemdata/ItemDataListLoader.h"
#include "itemdata/ItemDataPluginList.h"
#include "itemdata/ItemDataStringEntry.h"
#include "plugin/InvoiceCheck.h"
#include "plugin/InvoiceItemMenu.h"
#include "plugin/InvoiceItemPlugin.h"
#include "plugin/ItemDataContainer.h"
#include "plugin/Model.h"
#include "plugin/RepairItemDataMessageEvent.h"
#include "plugin/contract/DBTable.h"
#include "plugin/contract/Database.h"
#include "plugin/contract/Entity.h"
#include "plugin/contract/Forms.h"
#include "plugin/contract/Invoice.h"
#include "plugin/contract/ManagedObjectList.h"
#include "plugin/contract/MemoryGuard.h"
#include "plugin/contract/Message.h"
#include "plugin/contract/PanelProvider.h"
#include "plugin/contract/PluginContainer.h"
#include "plugin/contract/PluginModule.h"
#include "plugin/contract/PluginSettingsDialogBox.h"
#include "plugin/contract/Schema.h"
#include "plugin/contract/Statement.h"
#include "plugin/contract/Tarnwell.h"
#include "plugin/contract/XMLBuilder.h"
#include "ui/ItemDataAssociationPanel.h"
#include "ui/ItemDataAssociationPanelHandler.h"
#include "ui/ItemDataAssociationPanelPlugin.h"
#include "ui/ItemDataDialog.h"
#include "ui/ItemDataSettingsPanel.h"
#include "ui/ItemDataSettingsPersister.h"
#include "ui/ItemDataTable.h"
#include "ui/ItemDataVariable.h"

using namespace FX;

namespace Quillane {
namespace {

using Slots = std::vector<int>;

/// The place of a virtual operation, 0 for the first; -1 for one that is not virtual.
template <class Operation>
int slotOf(Operation operation) {
  struct {
    std::ptrdiff_t place;
    std::ptrdiff_t adjustment;
  } parts;
  static_assert(sizeof(parts) == sizeof(operation));
  std::memcpy(&parts, &operation, sizeof(parts));
  if (parts.place % 2 == 0) return -1;
  return static_cast<int>((parts.place - 1) / static_cast<std::ptrdiff_t>(sizeof(void*)));
}

template <class Base>
struct Extended : Base {
  virtual void next() {}
};

/// How many places the class's table has: the first one that is free for a derived class.
template <class Base>
int slotCount() {
  return slotOf(&Extended<Base>::next);
}

// The toolkit's six operations and two places for the destructor stand before everything of an FXObject's own.
constexpr int kObjectSlots = 8;

TEST(VirtualSlots, tellAVirtualOperationFromAnother) {
  EXPECT_EQ(slotOf(&Entity::getId), -1);
  EXPECT_EQ(slotOf(&Entity::addMiscData), -1);
}

TEST(VirtualSlots, ofAToolkitObject) {
  EXPECT_EQ((Slots{slotOf(&FXObject::handle), slotOf(&FXObject::getMetaClass), slotOf(&FXObject::onDefault),
                   slotOf(&FXObject::tryHandle), slotOf(&FXObject::save), slotOf(&FXObject::load)}),
            (Slots{0, 1, 2, 3, 4, 5}));
  EXPECT_EQ(slotCount<FXObject>(), kObjectSlots);
  EXPECT_EQ(slotCount<FXObjectList>(), 2);
}

TEST(VirtualSlots, ofPluginContainer) {
  using Plugin::PluginContainer;
  EXPECT_EQ((Slots{slotOf(&PluginContainer::getIcon16), slotOf(&PluginContainer::getIcon32),
                   slotOf(&PluginContainer::getIcon64), slotOf(&PluginContainer::init), slotOf(&PluginContainer::start),
                   slotOf(&PluginContainer::onSettings), slotOf(&PluginContainer::onHasSettings)}),
            (Slots{8, 9, 10, 11, 12, 13, 14}));
  EXPECT_EQ(slotCount<PluginContainer>(), 15);
}

TEST(VirtualSlots, ofPluginModule) {
  EXPECT_EQ(slotOf(&Plugin::PluginModule::init), 8);
  EXPECT_EQ(slotCount<Plugin::PluginModule>(), 9);
}

TEST(VirtualSlots, ofEntityPlugin) {
  using Plugin::EntityPlugin;
  EXPECT_EQ((Slots{slotOf(&EntityPlugin::init), slotOf<int (EntityPlugin::*)(Entity*) const>(&EntityPlugin::load),
                   slotOf<int (EntityPlugin::*)(Entity*) const>(&EntityPlugin::save), slotOf(&EntityPlugin::del),
                   slotOf(&EntityPlugin::canHandle), slotOf(&EntityPlugin::toXml), slotOf(&EntityPlugin::getParser),
                   slotOf(&EntityPlugin::getXmlWeight), slotOf(&EntityPlugin::toString),
                   slotOf(&EntityPlugin::getStringWeight)}),
            (Slots{8, 9, 10, 11, 12, 13, 14, 15, 16, 17}));
  EXPECT_EQ(slotCount<EntityPlugin>(), 18);
}

TEST(VirtualSlots, ofInvoiceCheckPlugin) {
  EXPECT_EQ(slotOf(&Plugin::InvoiceCheckPlugin::checkInvoice), 9);
  EXPECT_EQ(slotCount<Plugin::InvoiceCheckPlugin>(), 10);
}

TEST(VirtualSlots, ofInvoiceItemMenuPlugin) {
  EXPECT_EQ(slotOf(&Plugin::InvoiceItemMenuPlugin::onCmdMenuItem), 9);
  EXPECT_EQ(slotOf(&Plugin::InvoiceItemMenuPlugin::onUpdMenuItem), 10);
  EXPECT_EQ(slotCount<Plugin::InvoiceItemMenuPlugin>(), 11);
}

TEST(VirtualSlots, ofPanelProviders) {
  using Plugin::PanelProvider::Handler;
  EXPECT_EQ(slotOf(&Plugin::PanelProvider::Plugin::acceptWindow), 9);
  EXPECT_EQ(slotOf(&Plugin::PanelProvider::Plugin::getHandler), 10);
  EXPECT_EQ(slotCount<Plugin::PanelProvider::Plugin>(), 11);
  EXPECT_EQ(slotOf(&Handler::getIcon16), 8);
  EXPECT_EQ(slotOf(&Handler::getPanel), 9);
  EXPECT_EQ(slotOf(&Handler::createGUI), 10);
  EXPECT_EQ(slotOf(&Handler::getPanelName), 11);
  EXPECT_EQ(slotOf(&Handler::onOKButton), 12);
  EXPECT_EQ(slotOf(&Handler::onCancelButton), 13);
  EXPECT_EQ(slotOf(&Handler::getCodeName), 14);
  EXPECT_EQ(slotOf(&Handler::onFocus), 15);
  EXPECT_EQ(slotCount<Handler>(), 16);
}

TEST(VirtualSlots, ofEntitiesAndTheirAttachedData) {
  EXPECT_EQ(slotCount<Entity>(), kObjectSlots);
  EXPECT_EQ(slotCount<Invoice>(), kObjectSlots);
  EXPECT_EQ(slotCount<InvoiceItem>(), kObjectSlots);
  EXPECT_EQ(slotOf(&EntityMiscData::clone), 8);
  EXPECT_EQ(slotCount<EntityMiscData>(), 9);
  EXPECT_EQ(slotOf(&ListOfEntityMiscData<Entity>::clone), 8);
  EXPECT_EQ(slotCount<ListOfEntityMiscData<Entity>>(), 9);
}

TEST(VirtualSlots, ofMessages) {
  EXPECT_EQ(slotCount<Message>(), kObjectSlots);

  EXPECT_EQ(slotOf(&MessageEvent::execute), 0);
  EXPECT_EQ(slotCount<MessageEvent>(), 3) << "the destructor follows";

  EXPECT_EQ((Slots{slotOf<void (ListOfMessage::*)(ListOfMessage&)>(&ListOfMessage::append),
                   slotOf<void (ListOfMessage::*)(Message*)>(&ListOfMessage::append), slotOf(&ListOfMessage::clear)}),
            (Slots{2, 3, 4}));
  EXPECT_EQ(slotCount<ListOfMessage>(), 5);
}

TEST(VirtualSlots, ofTheWindows) {
  // What a form adds stands behind everything of the toolkit's window.
  const int windowSlots = slotCount<FXMainWindow>();
  EXPECT_GT(windowSlots, kObjectSlots);
  EXPECT_EQ(slotOf(&DBForm::proposeCheckAll), windowSlots);
  EXPECT_EQ(slotCount<DBForm>(), windowSlots + 2) << "the check follows";
  EXPECT_EQ(slotOf(&InvoiceForm::getInvoice), windowSlots + 2);
  EXPECT_EQ(slotCount<InvoiceForm>(), windowSlots + 3);
  EXPECT_EQ(slotCount<InvoiceItemTable>(), slotCount<FXTable>());
  EXPECT_EQ(slotOf(&InvoiceItemTable::getForm), -1);
}

TEST(VirtualSlots, ofTheWindowsWithPanels) {
  const int boxSlots = slotCount<FXDialogBox>();
  EXPECT_GT(boxSlots, kObjectSlots);
  EXPECT_EQ(slotCount<PanelisedWindow>(), boxSlots + 2) << "writing the record, and its refusal";
  EXPECT_EQ(slotOf(&PanelisedWindow::getRecordId), -1);
  EXPECT_EQ(slotCount<ProductDataWindow>(), slotCount<PanelisedWindow>());
  EXPECT_EQ(slotCount<SuiteDataWindow>(), slotCount<PanelisedWindow>());
  EXPECT_EQ(slotCount<ServiceDataWindow>(), slotCount<PanelisedWindow>());
}

TEST(VirtualSlots, ofTheSettingsBoxAreThoseOfTheToolkitsDialogBox) {
  EXPECT_EQ(slotCount<Plugin::UI::PluginSettingsDialogBox>(), slotCount<FXDialogBox>());
  EXPECT_EQ(slotOf(&Plugin::UI::PluginSettingsDialogBox::getContentFrame), -1);
}

TEST(VirtualSlots, ofAnEditableTable) {
  EXPECT_EQ(slotOf(&DBTable::getRowLoader), slotCount<FXTable>());
  EXPECT_EQ(slotCount<DBTable>(), slotCount<FXTable>() + 1);
  EXPECT_EQ(slotOf(&DBTable::setColumnType), -1);
  EXPECT_EQ(slotOf(&DBTable::setColumnValues), -1);
  EXPECT_EQ(slotOf(&DBTable::saveToDB), -1);
}

TEST(VirtualSlots, ofATablesPersister) {
  EXPECT_EQ((Slots{slotOf(&DBTablePersister::updateItem), slotOf(&DBTablePersister::deleteItem),
                   slotOf(&DBTablePersister::insertItem), slotOf(&DBTablePersister::getColName)}),
            (Slots{2, 3, 4, 5}))
      << "behind the destructor";
  EXPECT_EQ(slotCount<DBTablePersister>(), 6);
}

TEST(VirtualSlots, ofTheDatabase) {
  EXPECT_EQ((Slots{slotOf(&TarnwellDatabase::queryScalar), slotOf(&TarnwellDatabase::nextKey),
                   slotOf(&TarnwellDatabase::begin), slotOf(&TarnwellDatabase::commit),
                   slotOf(&TarnwellDatabase::rollback), slotOf(&TarnwellDatabase::isInTransaction),
                   slotOf(&TarnwellDatabase::getLastError), slotOf(&TarnwellDatabase::setObserver)}),
            (Slots{2, 3, 4, 5, 6, 7, 8, 9}));
  EXPECT_EQ(slotCount<TarnwellDatabase>(), 10);

  EXPECT_EQ((Slots{slotOf(&DataBaseValueLoader::processValue), slotOf(&DataBaseValueLoader::getNumRows)}),
            (Slots{0, 1}));
  EXPECT_EQ(slotCount<DataBaseValueLoader>(), 4) << "the destructor follows";

  EXPECT_EQ(slotOf(&StatementObserver::statementExecuted), 0);
  EXPECT_EQ(slotCount<StatementObserver>(), 3);
}

TEST(VirtualSlots, ofStatements) {
  EXPECT_EQ(slotOf(&Statement::execute), 2);
  EXPECT_EQ(slotCount<Statement>(), 3);
  EXPECT_EQ(slotCount<InsertStatement>(), 3);
  EXPECT_EQ(slotCount<UpdateStatement>(), 3);
  EXPECT_EQ(slotCount<DeleteStatement>(), 3);
}

TEST(VirtualSlots, ofTheSchema) {
  EXPECT_EQ(slotCount<Quillane::Model::Schema>(), kObjectSlots);
  EXPECT_EQ(slotCount<Quillane::Model::Column>(), kObjectSlots);
  EXPECT_EQ(slotCount<Quillane::Model::Index>(), kObjectSlots);
  EXPECT_EQ(slotOf(&Quillane::Model::Table::init), 8);
  EXPECT_EQ(slotCount<Quillane::Model::Table>(), 9);
}

TEST(VirtualSlots, ofTheAccountAreThoseOfTheToolkitsApplication) {
  EXPECT_EQ(slotCount<Tarnwell>(), slotCount<FXApp>());
  EXPECT_GT(slotCount<FXApp>(), kObjectSlots);
}

TEST(VirtualSlots, areNotNeededByTheRest) {
  EXPECT_FALSE(std::is_polymorphic_v<XMLBuilder::Node>);
  EXPECT_FALSE(std::is_polymorphic_v<XMLBuilder::Element>);
  EXPECT_FALSE(std::is_polymorphic_v<XMLBuilder::Document>);
  EXPECT_FALSE(std::is_polymorphic_v<MemoryGuard<FXDataTarget>>);
  EXPECT_EQ(slotCount<FXManagedObjectListOf<Entity>>(), slotCount<FXObjectList>());
}

TEST(VirtualSlots, ofItemDataEntry) {
  using Plugin::ItemData::ItemDataEntry;
  EXPECT_EQ(
      (Slots{slotOf(&ItemDataEntry::clone), slotOf<int (ItemDataEntry::*)(TarnwellDatabase*)>(&ItemDataEntry::save),
             slotOf<int (ItemDataEntry::*)(TarnwellDatabase*)>(&ItemDataEntry::load),
             slotOf(&ItemDataEntry::markForDelete), slotOf(&ItemDataEntry::setStatus), slotOf(&ItemDataEntry::check),
             slotOf(&ItemDataEntry::canHandleType), slotOf(&ItemDataEntry::addWidget),
             slotOf(&ItemDataEntry::getTableItem), slotOf(&ItemDataEntry::getValue), slotOf(&ItemDataEntry::toXml),
             slotOf(&ItemDataEntry::getPrintableText), slotOf(&ItemDataEntry::toDebugString),
             slotOf(&ItemDataEntry::getQuantity), slotOf(&ItemDataEntry::onQuantityChanged)}),
      (Slots{8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21, 22}));
  EXPECT_EQ(slotCount<ItemDataEntry>(), 23);
}

TEST(VirtualSlots, ofTheFieldKindsAreThoseOfAnEntry) {
  using namespace Plugin::ItemData;
  EXPECT_EQ(slotCount<ItemDataStringEntry>(), slotCount<ItemDataEntry>());
  EXPECT_EQ(slotCount<ItemDataDateEntry>(), slotCount<ItemDataEntry>());
  EXPECT_EQ(slotCount<ItemDataComboEntry>(), slotCount<ItemDataEntry>());
  EXPECT_EQ(slotOf(&ItemDataPluginList::getByType), -1);
  EXPECT_EQ(slotCount<ItemDataPluginList>(), slotCount<FXObjectList>());
}

TEST(VirtualSlots, ofItemDataListAreThoseOfItsBase) {
  using Plugin::ItemData::ItemDataList;
  EXPECT_EQ(slotOf(&ItemDataList::clone), 8);
  EXPECT_EQ(slotCount<ItemDataList>(), 9);
  EXPECT_EQ(slotOf<int (ItemDataList::*)(TarnwellDatabase*)>(&ItemDataList::save), -1);
  EXPECT_EQ(slotOf(&ItemDataList::toXml), -1);
}

TEST(VirtualSlots, ofTheModulesHooksAreThoseOfTheirBases) {
  using Plugin::ItemData::InvoiceCheck;
  using Plugin::ItemData::InvoiceItemMenu;
  using Plugin::ItemData::InvoiceItemPlugin;
  using Plugin::ItemData::ItemDataContainer;
  using Plugin::ItemData::RepairItemDataMessageEvent;
  EXPECT_EQ((Slots{slotOf(&ItemDataContainer::getIcon16), slotOf(&ItemDataContainer::init),
                   slotOf(&ItemDataContainer::onSettings), slotOf(&ItemDataContainer::onHasSettings)}),
            (Slots{8, 11, 13, 14}));
  EXPECT_EQ(slotCount<ItemDataContainer>(), slotCount<Plugin::PluginContainer>());
  EXPECT_EQ((Slots{slotOf<int (InvoiceItemPlugin::*)(Entity*) const>(&InvoiceItemPlugin::load),
                   slotOf<int (InvoiceItemPlugin::*)(Entity*) const>(&InvoiceItemPlugin::save),
                   slotOf(&InvoiceItemPlugin::canHandle), slotOf(&InvoiceItemPlugin::toXml),
                   slotOf(&InvoiceItemPlugin::toString)}),
            (Slots{9, 10, 12, 13, 16}));
  EXPECT_EQ(slotCount<InvoiceItemPlugin>(), slotCount<Plugin::EntityPlugin>());
  EXPECT_EQ(slotOf(&InvoiceCheck::checkInvoice), 9);
  EXPECT_EQ(slotCount<InvoiceCheck>(), slotCount<Plugin::InvoiceCheckPlugin>());
  EXPECT_EQ(slotOf(&InvoiceItemMenu::onCmdMenuItem), 9);
  EXPECT_EQ(slotOf(&InvoiceItemMenu::onUpdMenuItem), 10);
  EXPECT_EQ(slotCount<InvoiceItemMenu>(), slotCount<Plugin::InvoiceItemMenuPlugin>());
  EXPECT_EQ(slotOf(&RepairItemDataMessageEvent::execute), 0);
  EXPECT_EQ(slotCount<RepairItemDataMessageEvent>(), slotCount<MessageEvent>());
}

TEST(VirtualSlots, ofTheModulesTablesAreThoseOfTheirBase) {
  using namespace Plugin::ItemData::Model;
  EXPECT_EQ(slotOf(&BaseItemData::init), 8);
  for (const int count : {slotCount<InvoiceItemData>(), slotCount<ItemVariable>(), slotCount<BaseItemData>(),
                          slotCount<ProductItemData>(), slotCount<SuiteItemData>(), slotCount<ServiceItemData>()})
    EXPECT_EQ(count, slotCount<Quillane::Model::Table>());
}

TEST(VirtualSlots, ofTheModulesCellsAndLoadersAreThoseOfTheirBases) {
  using namespace Plugin::ItemData;
  EXPECT_EQ(slotCount<ItemDataEntryTableItem>(), slotCount<FXTableItem>());
  EXPECT_EQ(slotCount<ItemDataComboEntry::ItemDataTableComboItem>(), slotCount<FXComboTableItem>());
  EXPECT_EQ(slotOf(&ItemDataListLoader::processValue), 0);
  EXPECT_EQ(slotCount<ItemDataListLoader>(), slotCount<DataBaseValueLoader>());
}

TEST(VirtualSlots, ofTheModulesWindowsAreThoseOfTheirBases) {
  using namespace Plugin::ItemData;
  EXPECT_EQ(slotCount<ItemDataDialog>(), slotCount<FXDialogBox>());
  EXPECT_EQ(slotCount<Plugin::ItemData::UI::ItemDataTable>(), slotCount<FXTable>());
  EXPECT_EQ(slotCount<ItemDataSettingsPanel>(), slotCount<Plugin::UI::PluginSettingsDialogBox>());
  EXPECT_EQ(slotCount<Plugin::ItemData::UI::ItemDataAssociationPanel>(), slotCount<FXVerticalFrame>());
  EXPECT_EQ(slotCount<Plugin::ItemData::UI::ItemDataVariable>(), kObjectSlots);
}

TEST(VirtualSlots, ofTheSettingsPersisterAreThoseOfItsBase) {
  using Plugin::ItemData::ItemDataSettingsPersister;
  EXPECT_EQ((Slots{slotOf(&ItemDataSettingsPersister::updateItem), slotOf(&ItemDataSettingsPersister::deleteItem),
                   slotOf(&ItemDataSettingsPersister::insertItem), slotOf(&ItemDataSettingsPersister::getColName)}),
            (Slots{2, 3, 4, 5}));
  EXPECT_EQ(slotCount<ItemDataSettingsPersister>(), slotCount<DBTablePersister>());
}

TEST(VirtualSlots, ofThePanelsProviderAndHandlersAreThoseOfTheirBases) {
  namespace Association = Plugin::ItemData::ItemDataAssociationPanel;
  using ProductHandler = Association::Handler<ProductDataWindow>;
  EXPECT_EQ((Slots{slotOf(&Association::Plugin::acceptWindow), slotOf(&Association::Plugin::getHandler)}),
            (Slots{9, 10}));
  EXPECT_EQ(slotCount<Association::Plugin>(), slotCount<Plugin::PanelProvider::Plugin>());
  EXPECT_EQ((Slots{slotOf(&ProductHandler::createGUI), slotOf(&ProductHandler::getPanelName),
                   slotOf(&ProductHandler::onOKButton)}),
            (Slots{10, 11, 12}));
  for (const int count : {slotCount<ProductHandler>(), slotCount<Association::Handler<SuiteDataWindow>>(),
                          slotCount<Association::Handler<ServiceDataWindow>>()})
    EXPECT_EQ(count, slotCount<Plugin::PanelProvider::Handler>());
}

TEST(VirtualSlots, ofTheToolkitsExtensionsAreThoseOfTheirBases) {
  EXPECT_EQ(slotCount<FXExt::FXComboBox>(), slotCount<FX::FXComboBox>());
  EXPECT_EQ(slotCount<FXExt::FXDateInput>(), slotCount<FXPacker>());
  EXPECT_EQ(slotCount<FXExt::FXDatePicker>(), slotCount<FXVerticalFrame>());
  EXPECT_EQ(slotCount<FXExt::FXDatePickerLabel>(), slotCount<FXLabel>());
  EXPECT_EQ(slotCount<FXExt::FXDualList>(), slotCount<FXHorizontalFrame>());
  EXPECT_EQ((slotCount<FXExt::FXPair<FXString, int>>()), kObjectSlots);

  EXPECT_EQ(slotOf(&FXExt::FXDatePickerHoliday::isHoliday), 0);
  EXPECT_EQ(slotCount<FXExt::FXDatePickerHoliday>(), 3) << "the destructor follows";
}

}  // namespace
}  // namespace Quillane
