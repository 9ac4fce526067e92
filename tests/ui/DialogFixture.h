#pragma once

#include <fx.h>

#include <memory>
#include <string>
#include <vector>

#include "tests/itemdata/ItemDataFixture.h"
#include "ui/ItemDataDialog.h"
#include "ui/ItemDataTable.h"

namespace Quillane::Plugin::ItemData {

/// The widgets of a kind below a window, in their order.
template <class Widget>
std::vector<Widget*> widgetsIn(const FX::FXWindow& window) {
  std::vector<Widget*> found;
  for (FX::FXWindow* child = window.getFirst(); child; child = child->getNext()) {
    if (auto* widget = dynamic_cast<Widget*>(child)) found.push_back(widget);
    for (Widget* widget : widgetsIn<Widget>(*child)) found.push_back(widget);
  }
  return found;
}

/// Item data dialogs over a window that owns them. The variables are 11 "Rendelés", 12 "Átvéve" (a date) and 15 "Szín"
/// (a list), recorded for the item, and 13 "Gyári szám", 14 "Állapot" (a list) and 16 "Jegyzet", recorded per unit;
/// 14 and 16 are optional.
class DialogTest : public ItemDataTest {
 protected:
  DialogTest();
  ~DialogTest() override;

  /// A stored item of five pieces, with these settings and entries.
  ItemDataList* store(std::initializer_list<int> settings, const Lines& entries);

  /// Makes the dialog of the list's item.
  ItemDataDialog& open(ItemDataList* list);

  /// The same for an item without item data.
  ItemDataDialog& open(InvoiceItem* item);

  /// The table's cells as lines, their texts joined by "|"; what has no entry is "-".
  Lines cells() const;
  Lines headers() const;

  /// The texts of the labels of the fields, and of the label beside the OK button.
  Lines fieldLabels() const;
  std::string cellLabel() const;

  UI::ItemDataTable* table() const { return dialog->getTable(); }

  /// Sends the table one of its commands.
  void command(FX::FXuint id) const;

  std::unique_ptr<FX::FXMainWindow> window;
  std::unique_ptr<ItemDataDialog> dialog;
};

}  // namespace Quillane::Plugin::ItemData
