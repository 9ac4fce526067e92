#pragma once

#include <fx.h>

#include "host/document/PartnerStore.h"
#include "host/windows/IconSet.h"

class TarnwellDatabase;

namespace Quillane::Desktop {

/// Asks for the data of a new or stored partner and stores them. OK closes it only when they were stored; what cannot
/// be stored is told, and everything typed stays.
class PartnerDialog : public FX::FXDialogBox {
  FXDECLARE(PartnerDialog)
 public:
  /// Begins with the partner's data. The database and the icons are not owned and have to outlive the dialog.
  PartnerDialog(FX::FXWindow* ownerWindow, TarnwellDatabase& companyDatabase, const Host::IconSet& icons,
                const Host::Partner& begun);

  /// The cursor begins in the name.
  void show(FX::FXuint placement) override;
  using FX::FXDialogBox::show;

  /// Stands over its owner unless it is told otherwise.
  FX::FXuint execute(FX::FXuint placement = FX::PLACEMENT_OWNER) override;

  /// The partner as it was stored; of use when the dialog was accepted.
  const Host::Partner& getPartner() const { return partner; }

  FX::FXTextField* getNameField() const { return nameField; }
  FX::FXTextField* getAddressField() const { return addressField; }
  FX::FXTextField* getTaxNumberField() const { return taxNumberField; }

  long onCmdAccept(FX::FXObject* sender, FX::FXSelector selector, void* ptr);

  PartnerDialog(const PartnerDialog&) = delete;
  PartnerDialog& operator=(const PartnerDialog&) = delete;

 protected:
  PartnerDialog() = default;

 private:
  void createFields();

  TarnwellDatabase* database = nullptr;  // not owned
  Host::Partner partner;
  FX::FXTextField* nameField = nullptr;  // owned by the window tree, as the following
  FX::FXTextField* addressField = nullptr;
  FX::FXTextField* taxNumberField = nullptr;
};

}  // namespace Quillane::Desktop
