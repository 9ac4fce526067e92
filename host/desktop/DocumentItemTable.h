#pragma once

#include <fx.h>

#include "host/desktop/DocumentSession.h"
#include "host/windows/CutOffTip.h"
#include "plugin/contract/Forms.h"

namespace Quillane::Desktop {

/// The items of the document of a window: what stands on each, its value, and what modules attached to it. The target
/// gets SEL_DOUBLECLICKED when an item is picked, by Return too.
class DocumentItemTable : public InvoiceItemTable {
  FXDECLARE(DocumentItemTable)
 public:
  enum Column { NUMBER, ARTICLE_KIND, NAME, QUANTITY, UNIT, PRICE, VALUE, ATTACHED_DATA, COLUMN_COUNT };

  DocumentItemTable(FX::FXComposite* parent, InvoiceForm* invoiceForm, FX::FXObject* target, FX::FXSelector selector,
                    FX::FXuint opts);

  /// Gives the columns their widths.
  void create() override;

  /// Shows the items anew; row, if there is one, becomes the current one.
  void showItems(const DocumentSession& session, int row);

  /// The index of the current item, -1 when there is none.
  int getCurrentItemIndex() const;

  /// Gives the last column what room the others leave.
  void layout() override;

  /// These show what is cut off of the cell below the pointer.
  long onMotion(FX::FXObject* sender, FX::FXSelector selector, void* data);
  long onQueryTip(FX::FXObject* sender, FX::FXSelector selector, void* data);

  DocumentItemTable(const DocumentItemTable&) = delete;
  DocumentItemTable& operator=(const DocumentItemTable&) = delete;

 protected:
  DocumentItemTable() = default;

 private:
  void showItem(const DocumentSession& session, int row);

  Host::CutOffTip tip;
};

}  // namespace Quillane::Desktop
