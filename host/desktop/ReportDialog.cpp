// Sentences for the user, more than a message box can hold.
#include "host/desktop/ReportDialog.h"

#include <libintl.h>

using namespace FX;

namespace Quillane::Desktop {

FXIMPLEMENT(ReportDialog, FXDialogBox, nullptr, 0)

namespace {

constexpr FXint kPadding = 10;
constexpr FXint kSpacing = 8;
constexpr FXint kButtonPadding = 16;
constexpr FXint kTextMargin = 6;
constexpr FXint kWidth = 560;
constexpr FXint kHeight = 300;

}  // namespace

ReportDialog::ReportDialog(FXWindow* ownerWindow, const FXString& windowTitle, const FXString& summary,
                           const std::vector<FXString>& sentences, FXIcon* summaryIcon)
    : FXDialogBox(ownerWindow, windowTitle, DECOR_TITLE | DECOR_BORDER | DECOR_CLOSE | DECOR_RESIZE, 0, 0, kWidth,
                  kHeight, kPadding, kPadding, kPadding, kPadding, kSpacing, kSpacing) {
  createSummary(summary, summaryIcon);
  // Before the text, which takes the room that is left.
  createButtons();
  createText(sentences);
}

void ReportDialog::createSummary(const FXString& summary, FXIcon* summaryIcon) {
  FXHorizontalFrame* line = new FXHorizontalFrame(this, LAYOUT_FILL_X, 0, 0, 0, 0, 0, 0, 0, 0, kSpacing);
  if (summaryIcon)
    new FXLabel(line, FXString::null, summaryIcon, LABEL_NORMAL | LAYOUT_CENTER_Y, 0, 0, 0, 0, 0, 0, 0, 0);
  summaryLabel = new FXLabel(line, summary, nullptr, JUSTIFY_LEFT | LAYOUT_FILL_X | LAYOUT_CENTER_Y, 0, 0, 0, 0, 0, 0);
}

void ReportDialog::createText(const std::vector<FXString>& sentences) {
  FXVerticalFrame* frame =
      new FXVerticalFrame(this, FRAME_SUNKEN | FRAME_THICK | LAYOUT_FILL_X | LAYOUT_FILL_Y, 0, 0, 0, 0, 0, 0, 0, 0);
  text = new FXText(frame, nullptr, 0, TEXT_READONLY | TEXT_WORDWRAP | LAYOUT_FILL_X | LAYOUT_FILL_Y, 0, 0, 0, 0,
                    kTextMargin, kTextMargin, kTextMargin, kTextMargin);
  FXString content;
  for (const FXString& sentence : sentences) content += "• " + sentence + "\n";
  text->setText(content.trimEnd());
}

void ReportDialog::createButtons() {
  FXHorizontalFrame* line = new FXHorizontalFrame(this, LAYOUT_FILL_X | LAYOUT_SIDE_BOTTOM, 0, 0, 0, 0, 0, 0, 0, 0);
  FXButton* button = new FXButton(line, dgettext("quillane", "&Rendben"), nullptr, this, ID_ACCEPT,
                                  BUTTON_NORMAL | BUTTON_INITIAL | BUTTON_DEFAULT | LAYOUT_RIGHT, 0, 0, 0, 0,
                                  kButtonPadding, kButtonPadding);
  button->setFocus();
}

}  // namespace Quillane::Desktop
