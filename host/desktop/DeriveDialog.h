#pragma once

#include <fx.h>

#include <vector>

#include "host/document/StatusCatalogue.h"

namespace Quillane::Desktop {

/// Asks which kind of document is to be made from another.
class DeriveDialog : public FX::FXDialogBox {
  FXDECLARE(DeriveDialog)
 public:
  enum { ID_STATUS = FX::FXDialogBox::ID_LAST, ID_LAST };

  /// sourceName is how the other document is called; choices are the statuses to choose from, one at least.
  DeriveDialog(FX::FXWindow* owner, const FX::FXString& sourceName, const std::vector<Host::Status>& choices);

  /// Gives the list the focus.
  void create() override;

  /// The code of the status that is chosen.
  int getStatus() const;

  FX::FXList* getList() const { return list; }

  long onPicked(FX::FXObject* sender, FX::FXSelector selector, void* data);

  DeriveDialog(const DeriveDialog&) = delete;
  DeriveDialog& operator=(const DeriveDialog&) = delete;

 protected:
  DeriveDialog() = default;

 private:
  void createList(FX::FXComposite* content, const std::vector<Host::Status>& choices);
  void createButtons(FX::FXComposite* content);

  std::vector<int> codes;
  FX::FXList* list = nullptr;  // owned by the window tree
};

}  // namespace Quillane::Desktop
