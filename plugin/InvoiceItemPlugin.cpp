// Decides when the item data of an invoice item are loaded, stored and written; the list does the work.
#include "plugin/InvoiceItemPlugin.h"

#include <memory>

#include "itemdata/ItemDataList.h"
#include "plugin/contract/Invoice.h"
#include "plugin/contract/PluginContainer.h"
#include "plugin/contract/Tarnwell.h"

using namespace FX;

namespace Quillane::Plugin::ItemData {

int InvoiceItemPlugin::load(Entity* entity) const {
  auto* item = static_cast<InvoiceItem*>(entity);
  const int status = item->getInvoice()->getStatus();
  if (ItemDataList* list = ItemDataList::of(*item)) {
    list->setStatus(getDB(), status);
    return 1;
  }
  auto settings = std::make_unique<ItemDataList>();
  settings->loadSettings(getDB(), status, item);
  if (settings->no() == 0) return 0;

  auto* list = new ItemDataList(item, settings.release());
  item->addMiscData(ItemDataList::kMiscDataKey, list);
  list->load(getDB());
  return 0;
}

int InvoiceItemPlugin::save(Entity* entity) const {
  ItemDataList* list = ItemDataList::of(*entity);
  if (!list) return 0;
  // On purpose: this tells whether there are item data. A statement that failed fails the document's transaction.
  list->save(getDB());
  return 1;
}

bool InvoiceItemPlugin::canHandle(const FXMetaClass& metaClassOfEntity) const {
  return metaClassOfEntity.isSubClassOf(&InvoiceItem::metaClass);
}

int InvoiceItemPlugin::toXml(Entity* entity, XMLBuilder::Element* element) const {
  if (const ItemDataList* list = ItemDataList::of(*entity)) list->toXml(element);
  return 1;
}

FXString InvoiceItemPlugin::toString(Entity* entity) const {
  const ItemDataList* list = ItemDataList::of(*entity);
  return list ? list->getPrintableText() : FXString::null;
}

TarnwellDatabase* InvoiceItemPlugin::getDB() const { return container->getAccount()->getDB(); }

}  // namespace Quillane::Plugin::ItemData
