#include "tests/support/ModalDriver.h"

#include <utility>

#include "tests/support/ToolkitApplication.h"

using namespace FX;

namespace TestSupport {

namespace {

constexpr FXuint kInterval = 5;  // milliseconds

}  // namespace

ModalDriver::ModalDriver(Answer answerDialog) : answer(std::move(answerDialog)) {
  toolkitApplication().addTimeout(this, 0, kInterval);
}

ModalDriver::~ModalDriver() { toolkitApplication().removeTimeout(this, 0); }

long ModalDriver::handle(FXObject*, FXSelector, void*) {
  if (auto* dialog = dynamic_cast<FXDialogBox*>(toolkitApplication().getModalWindow())) {
    titles.emplace_back(dialog->getTitle().text());
    answer(*dialog);
  }
  toolkitApplication().addTimeout(this, 0, kInterval);
  return 1;
}

void accept(FXDialogBox& dialog) { dialog.handle(nullptr, FXSEL(SEL_COMMAND, FXDialogBox::ID_ACCEPT), nullptr); }

void cancel(FXDialogBox& dialog) { dialog.handle(nullptr, FXSEL(SEL_COMMAND, FXDialogBox::ID_CANCEL), nullptr); }

}  // namespace TestSupport
