#include "tests/support/TestForm.h"

#include <utility>

#include "tests/support/TestCompany.h"
#include "tests/support/ToolkitApplication.h"

using namespace FX;

namespace TestSupport {

namespace {

constexpr const char* kColumns[] = {"Cikk", "Megnevezés", "Mennyiség"};
constexpr int kNameColumn = 1;

// Milliseconds: longer than a form waits before it looks again for modal windows.
constexpr int kIdleTime = 120;

}  // namespace

TestForm::TestForm()
    : InvoiceForm(&testAccount(), "Számla", nullptr, nullptr, DECOR_ALL, 100, 100, 500, 300),
      table(new Quillane::InvoiceItemTable(this, this, nullptr, 0, LAYOUT_FILL)) {
  invoice.setStatus(101, false);
  table->setTableSize(0, ARRAYNUMBER(kColumns));
  for (FXint column = 0; column < table->getNumColumns(); ++column) table->setColumnText(column, kColumns[column]);
}

Quillane::InvoiceItem* TestForm::addItem(const FXString& name) {
  auto* item = new Quillane::InvoiceItem;
  item->setArticle(Quillane::InvoiceItem::ARTICLE_PRODUCT, 1);
  item->setName(name);
  invoice.appendItem(item);
  const FXint row = table->getNumRows();
  table->insertRows(row);
  table->setItemText(row, kNameColumn, name);
  return item;
}

int TestForm::takeChecks() {
  runEvents(kIdleTime);
  return std::exchange(checks, 0);
}

}  // namespace TestSupport
