// Item data dialogs for tests, and what can be read off them.
#include "tests/ui/DialogFixture.h"

#include "tests/support/TestCompany.h"

using namespace FX;

namespace Quillane::Plugin::ItemData {

DialogTest::DialogTest() : window(new FXMainWindow(&testAccount(), "Bizonylat")) {
  declare({{11, "Rendelés"},
           {12, "Átvéve", ItemDataEntry::TYPE_DATE, 0, 0},
           {15, "Szín", ItemDataEntry::TYPE_LIST, 0, 1, "kék,zöld,piros"},
           {13, "Gyári szám", ItemDataEntry::TYPE_TEXT, 1},
           {14, "Állapot", ItemDataEntry::TYPE_LIST, 1, 0, "új, használt,hibás"},
           {16, "Jegyzet", ItemDataEntry::TYPE_TEXT, 1, 0}});
}

DialogTest::~DialogTest() { dialog.reset(); }

ItemDataList* DialogTest::store(std::initializer_list<int> settings, const Lines& entries) {
  InvoiceItem* item = newItem(10);
  item->setName("Fúrógép");
  item->setQuantity(FXExt::FXDecimal("5", 4));
  ItemDataList* list = attach(item, newSettings(settings, item));
  fill(*list, entries);
  return list;
}

ItemDataDialog& DialogTest::open(ItemDataList* list) { return open(static_cast<InvoiceItem*>(list->getOwner())); }

ItemDataDialog& DialogTest::open(InvoiceItem* item) {
  dialog.reset();
  dialog = std::make_unique<ItemDataDialog>(window.get(), item);
  return *dialog;
}

Lines DialogTest::cells() const {
  Lines result;
  for (FXint row = 0; row < table()->getNumRows(); ++row) {
    std::string line;
    for (FXint column = 0; column < table()->getNumColumns(); ++column) {
      if (column) line += "|";
      line += table()->getEntry(row, column) ? text(table()->getItemText(row, column)) : "-";
    }
    result.push_back(line);
  }
  return result;
}

Lines DialogTest::headers() const {
  Lines result;
  for (FXint column = 0; column < table()->getNumColumns(); ++column)
    result.push_back(text(table()->getColumnText(column)));
  return result;
}

Lines DialogTest::fieldLabels() const {
  Lines result;
  for (const FXMatrix* matrix : widgetsIn<FXMatrix>(*dialog)) {
    for (FXWindow* child = matrix->getFirst(); child; child = child->getNext()) {
      if (child->getMetaClass() == &FXLabel::metaClass) result.push_back(text(static_cast<FXLabel*>(child)->getText()));
    }
    break;
  }
  return result;
}

std::string DialogTest::cellLabel() const {
  const FXWindow* buttons = dialog->getFirst()->getLast();
  return text(dynamic_cast<const FXLabel&>(*buttons->getFirst()).getText());
}

void DialogTest::command(FXuint id) const { table()->handle(nullptr, FXSEL(SEL_COMMAND, id), nullptr); }

}  // namespace Quillane::Plugin::ItemData
