// The window of long work.
#include "host/desktop/ProgressDialog.h"

#include <libintl.h>

#include <chrono>

using namespace FX;

namespace Quillane::Desktop {

FXDEFMAP(ProgressDialog)
ProgressDialogMap[] = {
    // Escape and the window's close button send the same message.
    FXMAPFUNC(SEL_COMMAND, ProgressDialog::ID_CANCEL, ProgressDialog::onCmdStop),
    FXMAPFUNC(SEL_CLOSE, 0, ProgressDialog::onCmdStop),
};
static_assert(ARRAYNUMBER(ProgressDialogMap) == 2);

FXIMPLEMENT(ProgressDialog, FXDialogBox, ProgressDialogMap, ARRAYNUMBER(ProgressDialogMap))

namespace {

constexpr FXint kPadding = 10;
constexpr FXint kSpacing = 8;
constexpr FXint kBarWidth = 360;  // pixels
constexpr FXint kBarHeight = 18;

}  // namespace

ProgressDialog::ProgressDialog(FXWindow* ownerWindow, const FXString& activity, int stepCount)
    : FXDialogBox(ownerWindow, activity, DECOR_TITLE | DECOR_BORDER | DECOR_CLOSE, 0, 0, 0, 0, kPadding, kPadding,
                  kPadding, kPadding, kSpacing, kSpacing),
      steps(stepCount) {
  createContent(activity);
  showProgress(0);
}

void ProgressDialog::createContent(const FXString& activity) {
  new FXLabel(this, activity + "...", nullptr, JUSTIFY_LEFT | LAYOUT_FILL_X, 0, 0, 0, 0, 0, 0, 0, 0);
  bar = new FXProgressBar(
      this, nullptr, 0,
      PROGRESSBAR_HORIZONTAL | FRAME_SUNKEN | FRAME_THICK | LAYOUT_FILL_X | LAYOUT_FIX_WIDTH | LAYOUT_FIX_HEIGHT, 0, 0,
      kBarWidth, kBarHeight);
  bar->setTotal(static_cast<FXuint>(FXMAX(steps, 1)));
  FXHorizontalFrame* line = new FXHorizontalFrame(this, LAYOUT_FILL_X, 0, 0, 0, 0, 0, 0, 0, 0, kSpacing, 0);
  countLabel = new FXLabel(line, FXString::null, nullptr, JUSTIFY_LEFT | LAYOUT_FILL_X | LAYOUT_CENTER_Y, 0, 0, 0, 0, 0,
                           0, 0, 0);
  stopButton =
      new FXButton(line, dgettext("quillane", "&Megszakítás"), nullptr, this, ID_CANCEL,
                   BUTTON_INITIAL | BUTTON_DEFAULT | FRAME_RAISED | FRAME_THICK | LAYOUT_RIGHT | LAYOUT_CENTER_Y, 0, 0,
                   0, 0, 12, 12, 3, 3);
}

void ProgressDialog::showProgress(int done) {
  bar->setProgress(static_cast<FXuint>(done));
  countLabel->setText(FXStringFormat(dgettext("quillane", "%d / %d bizonylat"), done, steps));
}

int ProgressDialog::run(const Step& step) {
  using Clock = std::chrono::steady_clock;
  const Clock::time_point shownFrom = Clock::now() + std::chrono::milliseconds(delay);
  if (getApp()->isInitialized()) create();
  getApp()->beginWaitCursor();
  int done = 0;
  while (done < steps && !stopped) {
    step(done);
    showProgress(++done);
    if (done == steps) break;
    if (!shown() && Clock::now() >= shownFrom) {
      show(PLACEMENT_OWNER);
      stopButton->setFocus();
    }
    // Paints, and hears the stop button; what is done to other windows meanwhile is not taken.
    if (shown()) getApp()->runModalWhileEvents(this);
  }
  getApp()->endWaitCursor();
  hide();
  return done;
}

long ProgressDialog::onCmdStop(FXObject*, FXSelector, void*) {
  stopped = true;
  return 1;
}

}  // namespace Quillane::Desktop
