// From the host's window of an article to the panel and back into the database.
#include "ui/ItemDataAssociationPanelHandler.h"

#include <libintl.h>

#include "fxext/FXDualList.h"
#include "plugin/contract/Forms.h"
#include "plugin/contract/PluginContainer.h"
#include "plugin/contract/Tarnwell.h"
#include "ui/ItemDataAssociationPanel.h"
#include "ui/ItemDataAssociationPanelPlugin.h"
#include "ui/ItemDataVariable.h"

using namespace FX;

namespace Quillane::Plugin::ItemData::ItemDataAssociationPanel {

namespace {

constexpr const char* kTextDomain = "QuillanePluginItemData";

// The column of the article's id in its assignment table.
template <class Window>
constexpr const char* kKeyColumn = nullptr;
template <>
constexpr const char* kKeyColumn<ProductDataWindow> = "t_product_1";
template <>
constexpr const char* kKeyColumn<SuiteDataWindow> = "t_suite_1";
template <>
constexpr const char* kKeyColumn<ServiceDataWindow> = "t_service_1";

// The variable that an item of a chooser shows; may be null.
UI::ItemDataVariable* variableOf(const FXList* list, FXint index) {
  return static_cast<UI::ItemDataVariable*>(list->getItemData(index));
}

// Stores what a chooser of the panel holds, for the article of this id.
void saveAssignments(const UI::ItemDataAssociationPanel& panel, const FXExt::FXDualList& chooser, int article) {
  const FXString table = UI::ItemDataAssociationPanel::getAssignmentTable(panel.getKeyColumn());
  const FXList* notChosen = chooser.getFromList();
  for (FXint i = 0; i < notChosen->getNumItems(); ++i) {
    UI::ItemDataVariable* variable = variableOf(notChosen, i);
    if (!variable) continue;
    variable->productid = article;
    variable->saveNotAssigned(panel.getDB(), table);
  }
  const FXList* chosen = chooser.getToList();
  for (FXint i = 0; i < chosen->getNumItems(); ++i) {
    UI::ItemDataVariable* variable = variableOf(chosen, i);
    if (!variable) continue;
    variable->productid = article;
    variable->saveAssigned(panel.getDB(), table, panel.getKeyColumn(), static_cast<unsigned>(i + 1));
  }
}

}  // namespace

template <class Window>
Handler<Window>::Handler(Plugin* provider, Window* dataWindow) : PanelProvider::Handler(provider), window(dataWindow) {}

template <class Window>
void Handler<Window>::createGUI(FXComposite* parent) {
  TarnwellDatabase* db = plugin->getContainer()->getAccount()->getDB();
  panel = new UI::ItemDataAssociationPanel(parent, window, db, kKeyColumn<Window>);
}

template <class Window>
FXString Handler<Window>::getPanelName() const {
  return dgettext(kTextDomain, "Tételadatok");
}

template <class Window>
long Handler<Window>::onOKButton(FXObject*, FXSelector, void*) {
  if (!panel) return 1;
  panel->getApp()->beginWaitCursor();
  saveAssignments(*panel, *panel->getIncoming(), window->getRecordId());
  saveAssignments(*panel, *panel->getOutgoing(), window->getRecordId());
  panel->getApp()->endWaitCursor();
  return 1;
}

template class Handler<ProductDataWindow>;
template class Handler<SuiteDataWindow>;
template class Handler<ServiceDataWindow>;

}  // namespace Quillane::Plugin::ItemData::ItemDataAssociationPanel
