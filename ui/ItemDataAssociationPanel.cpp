// The association panel: its choosers and what it reads into them.
#include "ui/ItemDataAssociationPanel.h"

#include <libintl.h>

#include "fxext/FXDualList.h"
#include "icons/icons.h"
#include "itemdata/ItemDataEntry.h"
#include "plugin/contract/Database.h"
#include "plugin/contract/Forms.h"
#include "plugin/contract/Statement.h"
#include "ui/ItemDataVariable.h"

using namespace FX;
using FXExt::FXDualList;

// Marks a text for the catalogues where it stands; it is translated where it is shown.
#define N_(text) text

namespace Quillane::Plugin::ItemData::UI {

FXIMPLEMENT(ItemDataAssociationPanel, FXVerticalFrame, nullptr, 0)

namespace {

constexpr const char* kTextDomain = "QuillanePluginItemData";

constexpr FXColor kTransparent = FXRGB(192, 192, 192);

constexpr FXint kSpacing = 4;
constexpr FXint kSpringPadding = 4;

// What the arrows of a chooser do.
struct ArrowTip {
  FXuint command;
  const char* text;
};
constexpr ArrowTip kArrowTips[] = {
    {FXDualList::ID_MAKESELECTED, N_("A kijelölt mezők kiválasztása (Enter)")},
    {FXDualList::ID_MAKEUNSELECTED, N_("A kijelölt mezők elhagyása (Enter)")},
    {FXDualList::ID_MOVEUP, N_("A kijelölt mezők előbbre kerülnek")},
    {FXDualList::ID_MOVEDOWN, N_("A kijelölt mezők hátrébb kerülnek")},
};

// The two choosers share the panel's height; neither asks for a width of its own.
constexpr FXint kRelativeWidth = 1;

std::unique_ptr<FXGIFIcon> makeIcon(FXApp* application, const FXuchar* image) {
  return std::make_unique<FXGIFIcon>(application, image, kTransparent, 0, 1, 1);
}

void explainArrows(const FXWindow* container) {
  for (FXWindow* child = container->getFirst(); child; child = child->getNext()) {
    explainArrows(child);
    auto* arrow = dynamic_cast<FXArrowButton*>(child);
    if (!arrow) continue;
    for (const ArrowTip& tip : kArrowTips)
      if (arrow->getSelector() == tip.command) arrow->setTipText(dgettext(kTextDomain, tip.text));
  }
}

/// Fills a chooser with the variables of a query, each as soon as the next one begins.
class VariableLoader : public DataBaseValueLoader {
 public:
  VariableLoader(const ItemDataAssociationPanel* iconOwner, FXDualList* filledChooser)
      : panel(iconOwner), chooser(filledChooser) {}

  bool processValue(int column, const char*, const char* text) override {
    if (column == 0) {
      flush();
      pending = std::make_unique<ItemDataVariable>();
    }
    if (pending) pending->takeColumn(column, text);
    return true;
  }

  /// Puts the pending variable into the chooser, which has it from then on.
  void flush() {
    if (!pending) return;
    ItemDataVariable* variable = pending.release();
    FXIcon* icon = panel->getIcon(variable);
    if (variable->assigned)
      chooser->appendToListItem(variable->name, icon, variable);
    else
      chooser->appendFromListItem(variable->name, icon, variable);
    ++rows;
  }

 private:
  const ItemDataAssociationPanel* panel;      // not owned
  FXDualList* chooser;                        // not owned
  std::unique_ptr<ItemDataVariable> pending;  // the variable that is being read; null between rows
};

void deleteVariables(const FXList* list) {
  for (FXint i = 0; i < list->getNumItems(); ++i) delete static_cast<ItemDataVariable*>(list->getItemData(i));
}

void deleteVariables(const FXDualList* chooser) {
  if (!chooser) return;
  deleteVariables(chooser->getFromList());
  deleteVariables(chooser->getToList());
}

}  // namespace

ItemDataAssociationPanel::ItemDataAssociationPanel()
    : window(nullptr),
      db(nullptr),
      incomingFrame(nullptr),
      incomingBox(nullptr),
      incoming(nullptr),
      outgoingFrame(nullptr),
      outgoingBox(nullptr),
      outgoing(nullptr),
      loaded(false) {}

ItemDataAssociationPanel::ItemDataAssociationPanel(FXComposite* container, PanelisedWindow* dataWindow,
                                                   TarnwellDatabase* database, FXString articleKeyColumn)
    : FXVerticalFrame(container, LAYOUT_FILL, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0),
      window(dataWindow),
      db(database),
      keyColumn(articleKeyColumn),
      loaded(false) {
  createIcons();
  createChoosers();
}

ItemDataAssociationPanel::~ItemDataAssociationPanel() {
  deleteVariables(incoming);
  deleteVariables(outgoing);
}

void ItemDataAssociationPanel::createIcons() {
  mandatoryListIcon = makeIcon(getApp(), icon_mdt_list);
  optionalListIcon = makeIcon(getApp(), icon_opt_list);
  mandatoryTextIcon = makeIcon(getApp(), icon_mdt_text);
  optionalTextIcon = makeIcon(getApp(), icon_opt_text);
  mandatoryDateIcon = makeIcon(getApp(), icon_mdt_date);
  optionalDateIcon = makeIcon(getApp(), icon_opt_date);
}

void ItemDataAssociationPanel::createChoosers() {
  auto* scroller = new FXScrollWindow(this, LAYOUT_FILL);
  auto* column = new FXVerticalFrame(scroller, LAYOUT_FILL, 0, 0, 0, 0, 0, 0, 0, 0, kSpacing, kSpacing);
  incoming = createChooser(column, dgettext(kTextDomain, "Bejövő"), incomingFrame, incomingBox);
  outgoing = createChooser(column, dgettext(kTextDomain, "Kimenő"), outgoingFrame, outgoingBox);
}

FXDualList* ItemDataAssociationPanel::createChooser(FXComposite* container, const FXString& title,
                                                    FXVerticalFrame*& frame, FXGroupBox*& box) {
  auto* spring = new FXSpring(container, LAYOUT_FILL, kRelativeWidth, 0, 0, 0, 0, 0, kSpringPadding, kSpringPadding,
                              kSpringPadding, kSpringPadding);
  frame = new FXVerticalFrame(spring, LAYOUT_FILL | PACK_UNIFORM_HEIGHT);
  box = new FXGroupBox(frame, title, LAYOUT_FILL, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0);
  new FXHorizontalSeparator(box, SEPARATOR_GROOVE | LAYOUT_FILL_X);
  auto* chooser = new FXDualList(box, dgettext(kTextDomain, "Választható mezők"),
                                 dgettext(kTextDomain, "Kiválasztott mezők"), LAYOUT_FILL);
  explainArrows(chooser);
  return chooser;
}

// The toolkit creates a window again when it runs it modally; the icons have to be there before the items that show
// them.
void ItemDataAssociationPanel::create() {
  for (FXGIFIcon* icon : {mandatoryListIcon.get(), optionalListIcon.get(), mandatoryTextIcon.get(),
                          optionalTextIcon.get(), mandatoryDateIcon.get(), optionalDateIcon.get()}) {
    if (icon) icon->create();
  }
  FXVerticalFrame::create();
  if (loaded || !window) return;
  loaded = true;
  load();
}

void ItemDataAssociationPanel::load() {
  tableName = getAssignmentTable(keyColumn);
  getApp()->beginWaitCursor();
  load(ItemDataVariable::getIncomingSql(tableName, keyColumn), ItemDataVariable::DIRECTION_INCOMING, incoming);
  load(ItemDataVariable::getOutgoingSql(tableName, keyColumn), ItemDataVariable::DIRECTION_OUTGOING, outgoing);
  getApp()->endWaitCursor();
}

void ItemDataAssociationPanel::load(const FXString& sql, int direction, FXDualList* chooser) {
  Statement statement(db, sql);
  statement.setInt("productid", window->getRecordId());
  statement.setInt("direction", direction);
  VariableLoader loader(this, chooser);
  statement.execute(&loader, 1);
  loader.flush();
}

FXIcon* ItemDataAssociationPanel::getIcon(const ItemDataVariable* variable) const {
  const bool mandatory = variable->mandatory == 1;
  switch (variable->type) {
    case ItemDataEntry::TYPE_TEXT:
      return (mandatory ? mandatoryTextIcon : optionalTextIcon).get();
    case ItemDataEntry::TYPE_DATE:
      return (mandatory ? mandatoryDateIcon : optionalDateIcon).get();
    case ItemDataEntry::TYPE_LIST:
      return (mandatory ? mandatoryListIcon : optionalListIcon).get();
    default:
      return nullptr;
  }
}

FXString ItemDataAssociationPanel::getAssignmentTable(const FXString& keyColumn) {
  if (keyColumn == "t_product_1") return "t_productitemdata";
  if (keyColumn == "t_service_1") return "t_serviceitemdata";
  if (keyColumn == "t_suite_1") return "t_suiteitemdata";
  return FXString::null;
}

}  // namespace Quillane::Plugin::ItemData::UI
