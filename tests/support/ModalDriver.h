// A hand on the modal dialogs that code under test opens and waits for.
#pragma once

#include <fx.h>

#include <functional>
#include <string>
#include <vector>

namespace TestSupport {

/// Answers every modal dialog box that comes up while the driver lives, one after the other. Messages of the toolkit's
/// timeouts reach it also while another loop runs.
class ModalDriver : public FX::FXObject {
 public:
  using Answer = std::function<void(FX::FXDialogBox& dialog)>;

  /// answer is called once for each dialog, when its loop runs, and has to end it.
  explicit ModalDriver(Answer answerDialog);
  ~ModalDriver() override;

  /// The titles of the dialogs that were answered, in order.
  std::vector<std::string> titles;

  long handle(FX::FXObject* sender, FX::FXSelector selector, void* data) override;

 private:
  Answer answer;
};

/// Ends the dialog as its OK button and its cancel button do.
void accept(FX::FXDialogBox& dialog);
void cancel(FX::FXDialogBox& dialog);

}  // namespace TestSupport
