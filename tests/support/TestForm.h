// The form of a document in memory, with its item table.
#pragma once

#include <fx.h>

#include "plugin/contract/Forms.h"
#include "plugin/contract/Invoice.h"

namespace TestSupport {

/// Shows its document's items, counts its checks and does nothing else. The application is the test account.
class TestForm : public Quillane::InvoiceForm {
 public:
  TestForm();

  Quillane::Invoice* getInvoice() const override { return document; }

  /// Appends an item of product 1 and its row.
  Quillane::InvoiceItem* addItem(const FX::FXString& name);

  /// Runs the application's events until nothing is left to do, and tells how many checks there were since the last
  /// call.
  int takeChecks();

  Quillane::InvoiceItemTable* table;  // owned by the window

 protected:
  void checkAll() override { ++checks; }

 private:
  Quillane::Invoice invoice;
  Quillane::Invoice* document = &invoice;  // a form gives out its document also where it is not changed itself
  int checks = 0;
};

}  // namespace TestSupport
