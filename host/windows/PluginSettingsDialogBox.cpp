// The frame of the dialogs in which modules are set up.
#include "plugin/contract/PluginSettingsDialogBox.h"

#include <libintl.h>

#include "host/windows/FieldMatrix.h"
#include "plugin/contract/PluginContainer.h"

using namespace FX;

namespace Quillane::Plugin::UI {

FXIMPLEMENT(PluginSettingsDialogBox, FXDialogBox, nullptr, 0)

// Modules know the message of the OK button by its number.
static_assert(FXDialogBox::ID_ACCEPT == 61);

namespace {

constexpr FXint kMargin = 10;
constexpr FXint kSpacing = 8;

}  // namespace

PluginSettingsDialogBox::PluginSettingsDialogBox(PluginContainer* container, FXApp* application)
    : FXDialogBox(application, FXStringFormat(dgettext("quillane", "%s – beállítások"), container->getName().text()),
                  DECOR_TITLE | DECOR_BORDER | DECOR_RESIZE | DECOR_CLOSE, 0, 0, 0, 0, kMargin, kMargin, kMargin,
                  kMargin, kSpacing, kSpacing) {
  setMiniIcon(container->getIcon16());
  // Before the content, which takes the room that is left.
  Host::addDialogButtons(this, this);
  contentFrame = new FXVerticalFrame(this, LAYOUT_FILL_X | LAYOUT_FILL_Y, 0, 0, 0, 0, 0, 0, 0, 0, kSpacing, kSpacing);
}

}  // namespace Quillane::Plugin::UI
