#pragma once

#include <fx.h>

#include "host/windows/IconSet.h"

namespace Quillane::Desktop {

/// What the program begins with when it has no company to open: asks which one it shall be.
class WelcomeDialog : public FX::FXDialogBox {
  FXDECLARE(WelcomeDialog)
 public:
  enum { ID_SAMPLE = FX::FXDialogBox::ID_LAST, ID_NEW, ID_OPEN, ID_LAST };

  /// What the user can choose; the value of execute, 0 when the user leaves.
  enum Choice { LEAVE = 0, SAMPLE_COMPANY, NEW_COMPANY, OPEN_COMPANY };

  /// The icons are not owned and have to outlive the window.
  WelcomeDialog(FX::FXApp* application, const Host::IconSet& icons);

  /// Asks the user.
  Choice ask() { return static_cast<Choice>(execute(FX::PLACEMENT_SCREEN)); }

  long onChoice(FX::FXObject* sender, FX::FXSelector selector, void* data);

  WelcomeDialog(const WelcomeDialog&) = delete;
  WelcomeDialog& operator=(const WelcomeDialog&) = delete;

 protected:
  WelcomeDialog() = default;

 private:
  void createGreeting(const Host::IconSet& icons);
  void createChoices(const Host::IconSet& icons);
  void createButtons();
};

}  // namespace Quillane::Desktop
