#pragma once

#include <fx.h>

#include <memory>

#include "host/document/ArticleStore.h"
#include "plugin/contract/Forms.h"
#include "plugin/contract/PluginContainer.h"
#include "tests/itemdata/ItemDataFixture.h"
#include "ui/ItemDataAssociationPanelPlugin.h"
#include "ui/ItemDataVariable.h"

namespace FXExt {
class FXDualList;
}

namespace Quillane::Plugin::ItemData {

/// A window of the host whose record the test chooses.
template <class Window>
class WindowOfRecord : public Window {
 public:
  using Window::setRecordId;
  using Window::Window;
};

/// Assignments of item variables to articles. The variables are 11 "Rendelés" (a text), 12 "Átvéve" (a date), 13 "Szín"
/// (a list), and the same kinds once more, optional and recorded per unit: 14 "Gyári szám", 15 "Lejárat", 16 "Állapot".
/// The company has the product 1, the service 2 and the suite 3.
class AssociationTest : public ItemDataDatabaseTest {
 protected:
  AssociationTest();
  ~AssociationTest() override;

  /// The host's window of an article with this id, 0 for one that is not stored.
  template <class Window>
  std::unique_ptr<WindowOfRecord<Window>> makeWindow(int article) {
    return std::make_unique<WindowOfRecord<Window>>(owner.get(), *db(), Host::Article{0, article, "Cikk", "db", "0"});
  }

  /// All assignments of a kind ("product", "service", "suite") as lines of article, variable, position and direction.
  Lines assignments(const std::string& kind);

  /// The key of an assignment, as text.
  std::string keyOf(const std::string& kind, int direction, int variable);

  std::unique_ptr<FX::FXMainWindow> owner;  // of the windows
  PluginContainer container;
  ItemDataAssociationPanel::Plugin provider;
};

/// What a list of a chooser shows, in its order.
Lines texts(const FX::FXList& list);

/// The variable that an item of a list stands for; null when it stands for none.
UI::ItemDataVariable* variableAt(const FX::FXList& list, FX::FXint index);

/// Moves the items with these texts to the chooser's other list, by its arrow's message.
void choose(FXExt::FXDualList& chooser, const Lines& names);
void giveUp(FXExt::FXDualList& chooser, const Lines& names);

/// Moves the chosen item up by one place.
void moveUp(FXExt::FXDualList& chooser, const std::string& name);

}  // namespace Quillane::Plugin::ItemData
