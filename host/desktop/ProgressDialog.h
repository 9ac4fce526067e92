#pragma once

#include <fx.h>

#include <functional>

namespace Quillane::Desktop {

/// Shows how far long work on many documents has come, and lets the user stop it between two of them. Work that is over
/// at once never shows the window.
class ProgressDialog : public FX::FXDialogBox {
  FXDECLARE(ProgressDialog)
 public:
  /// Does the step with this index.
  using Step = std::function<void(int index)>;

  /// Work of so many steps. activity says what is done to the documents ("Bizonylatok exportálása").
  ProgressDialog(FX::FXWindow* ownerWindow, const FX::FXString& activity, int stepCount);

  /// Does the steps in order, until all are done or the user stops. While it runs, all other windows of the program
  /// wait. Returns how many steps were done.
  int run(const Step& step);

  /// Whether the user stopped the work before all of it was done.
  bool wasStopped() const { return stopped; }

  /// The window is shown when the work is not over after so many milliseconds; half a second unless it is set.
  void setDelay(int milliseconds) { delay = milliseconds; }

  long onCmdStop(FX::FXObject* sender, FX::FXSelector selector, void* data);

  ProgressDialog(const ProgressDialog&) = delete;
  ProgressDialog& operator=(const ProgressDialog&) = delete;

 protected:
  ProgressDialog() = default;

 private:
  void createContent(const FX::FXString& activity);
  void showProgress(int done);

  int steps = 0;
  int delay = 500;
  bool stopped = false;
  FX::FXLabel* countLabel = nullptr;   // owned by the window
  FX::FXProgressBar* bar = nullptr;    // owned by the window
  FX::FXButton* stopButton = nullptr;  // owned by the window
};

}  // namespace Quillane::Desktop
