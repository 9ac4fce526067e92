// The module's front door: the exported entry point, the texts, and what is registered with the host.
#include "plugin/ItemDataContainer.h"

#include <libintl.h>

#include "icons/icons.h"
#include "itemdata/ItemDataComboEntry.h"
#include "itemdata/ItemDataDateEntry.h"
#include "itemdata/ItemDataPluginList.h"
#include "itemdata/ItemDataStringEntry.h"
#include "plugin/InvoiceCheck.h"
#include "plugin/InvoiceItemMenu.h"
#include "plugin/InvoiceItemPlugin.h"
#include "plugin/Model.h"
#include "plugin/contract/Tarnwell.h"
#include "ui/ItemDataAssociationPanelPlugin.h"
#include "ui/ItemDataSettingsPanel.h"
#include "ui/ItemDataSettingsPersister.h"

using namespace FX;

// Marks a text for the catalogues where it stands; it is translated where it is shown.
#define N_(text) text

namespace Quillane::Plugin::ItemData {

namespace {

// The code name is also the module's text domain.
constexpr const char* kCodeName = "QuillanePluginItemData";
constexpr const char* kName = N_("Egyéb tételadatok");
constexpr const char* kVersion = "2013.01.02";
constexpr const char* kDescription =
    N_("Lehetőséget biztosít arra, hogy bizonyos áruk számlázásakor egyéb (saját) adatot is nyomtassunk a számlára.\n");

// Where item data come among the hooks of all modules; deleting needs none of them.
constexpr int kWeight = 103;
constexpr int kNoWeight = 0;

// The entry in the context menu of an item table; no accelerator and no help behind the tabs.
constexpr const char* kMenuText = N_("Egyéb tételadatok...\t\t");
constexpr int kMenuPosition = 0;

// The settings dialog, in pixels.
constexpr int kSettingsWidth = 600;
constexpr int kSettingsHeight = 400;
static_assert(PLACEMENT_CURSOR == 2, "where the settings dialog comes up");

}  // namespace

ItemDataContainer::ItemDataContainer(Tarnwell* application)
    : PluginContainer(application, kCodeName, kName, kVersion, kDescription) {
  name = dgettext(kCodeName, kName);
  description = dgettext(kCodeName, kDescription);
  icon16 = std::make_unique<FXGIFIcon>(application, icon_itemdata, FXRGB(192, 192, 192), 0, 1, 1);
}

// On purpose: the registry keeps the pointers, for it ends with the module, which is unloaded next.
ItemDataContainer::~ItemDataContainer() {
  for (FXint i = plugins.no() - 1; i >= 0; --i) delete plugins[i];
}

FXIcon* ItemDataContainer::getIcon16() { return icon16.get(); }

// On purpose: a second call would register everything again, and what the database refuses changes nothing here.
int ItemDataContainer::init() {
  modules.append(new ItemDataAssociationPanel::Plugin(this));
  modules.append(new InvoiceCheck(this));
  modules.append(new InvoiceItemMenu(this, kMenuPosition, dgettext(kCodeName, kMenuText)));
  modules.append(new InvoiceItemPlugin(this, kWeight, kWeight, kNoWeight, kWeight, kWeight));

  plugins.append(new ItemDataStringEntry);
  plugins.append(new ItemDataDateEntry);
  plugins.append(new ItemDataComboEntry);

  Model::initDB(account->getDB());
  return 1;
}

long ItemDataContainer::onSettings(FXObject*, FXSelector, void*) {
  ItemDataSettingsPanel panel(this, account);
  panel.setWidth(kSettingsWidth);
  panel.setHeight(kSettingsHeight);
  if (!panel.execute(PLACEMENT_CURSOR)) return 1;
  ItemDataSettingsPersister persister(account->getDB());
  return panel.save(&persister);
}

long ItemDataContainer::onHasSettings(FXObject*, FXSelector, void*) { return 1; }

}  // namespace Quillane::Plugin::ItemData

Quillane::Plugin::PluginContainer* get_plugin(Quillane::Tarnwell* account) {
  return new Quillane::Plugin::ItemData::ItemDataContainer(account);
}
