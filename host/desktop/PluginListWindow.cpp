// The modules at work.
#include "host/desktop/PluginListWindow.h"

#include <libintl.h>

#include "host/windows/LabelText.h"
#include "host/windows/WrappedText.h"

using namespace FX;

namespace Quillane::Desktop {

using Plugin::PluginContainer;

FXDEFMAP(PluginListWindow)
kPluginListWindowMap[] = {
    FXMAPFUNCS(SEL_COMMAND, PluginListWindow::ID_SETTINGS, PluginListWindow::ID_LAST_SETTINGS,
               PluginListWindow::onSettings),
};
static_assert(ARRAYNUMBER(kPluginListWindowMap) == 1);

FXIMPLEMENT(PluginListWindow, FXDialogBox, kPluginListWindowMap, ARRAYNUMBER(kPluginListWindowMap))

namespace {

constexpr FXint kWidth = 720;
constexpr FXint kHeight = 320;
constexpr FXint kMargin = 10;
constexpr FXint kSpacing = 8;
constexpr FXint kButtonPadding = 20;
constexpr FXint kSettingsPadding = 10;
constexpr int kLineLength = 72;

FXString describe(const Host::PluginLoader::Loaded& module) {
  const PluginContainer& container = *module.container;
  FXString description = container.getDescription();
  return FXStringFormat(dgettext("quillane", "%s, %s\n%s\nFájl: %s"), container.getName().text(),
                        container.getVersion().text(), Host::wrapText(description.trim(), kLineLength).text(),
                        module.file.text());
}

}  // namespace

PluginListWindow::PluginListWindow(FXWindow* ownerWindow, const Host::PluginLoader& plugins, const Host::IconSet& icons)
    : FXDialogBox(ownerWindow, dgettext("quillane", "Bővítmények"),
                  DECOR_TITLE | DECOR_BORDER | DECOR_RESIZE | DECOR_CLOSE, 0, 0, kWidth, kHeight, kMargin, kMargin,
                  kMargin, kMargin, kSpacing, kSpacing) {
  setMiniIcon(icons.get(Host::Icon::APPLICATION));
  // Before the list, which takes the room that is left.
  createButtons();
  createList(plugins, icons);
}

void PluginListWindow::createButtons() {
  auto* row = new FXHorizontalFrame(this, LAYOUT_SIDE_BOTTOM | LAYOUT_RIGHT, 0, 0, 0, 0, 0, 0, 0, 0);
  auto* button =
      new FXButton(row, dgettext("quillane", "B&ezárás"), nullptr, this, ID_CANCEL,
                   BUTTON_NORMAL | BUTTON_DEFAULT | BUTTON_INITIAL, 0, 0, 0, 0, kButtonPadding, kButtonPadding);
  button->setFocus();
}

void PluginListWindow::createList(const Host::PluginLoader& plugins, const Host::IconSet& icons) {
  auto* frame =
      new FXHorizontalFrame(this, FRAME_SUNKEN | FRAME_THICK | LAYOUT_FILL_X | LAYOUT_FILL_Y, 0, 0, 0, 0, 0, 0, 0, 0);
  auto* scrolled = new FXScrollWindow(frame, LAYOUT_FILL_X | LAYOUT_FILL_Y);
  auto* list = new FXVerticalFrame(scrolled, LAYOUT_FILL_X | LAYOUT_FILL_Y, 0, 0, 0, 0, kMargin, kMargin, kMargin,
                                   kMargin, kSpacing, kSpacing);
  if (plugins.getLoaded().empty()) new FXLabel(list, dgettext("quillane", "Nincs betöltött bővítmény."));
  for (const Host::PluginLoader::Loaded& module : plugins.getLoaded()) {
    if (!containers.empty()) new FXHorizontalSeparator(list, SEPARATOR_GROOVE | LAYOUT_FILL_X);
    createEntry(list, module, icons);
  }
}

void PluginListWindow::createEntry(FXComposite* list, const Host::PluginLoader::Loaded& module,
                                   const Host::IconSet& icons) {
  const std::size_t index = containers.size();
  containers.push_back(module.container);
  auto* row = new FXHorizontalFrame(list, LAYOUT_FILL_X, 0, 0, 0, 0, 0, 0, 0, 0, kSpacing);
  FXIcon* picture = module.container->getIcon16();
  new FXLabel(row, FXString::null, picture ? picture : icons.get(Host::Icon::APPLICATION), LAYOUT_TOP | LABEL_NORMAL);
  texts.push_back(
      new FXLabel(row, Host::labelText(describe(module)), nullptr, JUSTIFY_LEFT | LAYOUT_FILL_X | LAYOUT_TOP));
  settingsButtons.push_back(nullptr);
  if (!hasSettings(*module.container) || index > ID_LAST_SETTINGS - ID_SETTINGS) return;
  settingsButtons.back() = new FXButton(
      row, dgettext("quillane", "&Beállítások...\tA bővítmény beállításainak módosítása"), icons.get(Host::Icon::EDIT),
      this, ID_SETTINGS + static_cast<FXuint>(index), BUTTON_NORMAL | ICON_BEFORE_TEXT | LAYOUT_RIGHT | LAYOUT_TOP, 0,
      0, 0, 0, kSettingsPadding, kSettingsPadding);
}

bool PluginListWindow::hasSettings(PluginContainer& container) {
  return container.onHasSettings(nullptr, FXSEL(SEL_UPDATE, PluginContainer::ID_SETTINGS), nullptr) == 1;
}

void PluginListWindow::runSettings(FXWindow* owner, PluginContainer& container) {
  if (container.onSettings(owner, FXSEL(SEL_COMMAND, PluginContainer::ID_SETTINGS), nullptr) != 0) return;
  FXMessageBox::error(owner, MBOX_OK, container.getName().text(), "%s",
                      dgettext("quillane", "A bővítmény beállításai nem menthetők."));
}

long PluginListWindow::onSettings(FXObject*, FXSelector selector, void*) {
  const std::size_t index = FXSELID(selector) - ID_SETTINGS;
  if (index < containers.size() && hasSettings(*containers[index])) runSettings(this, *containers[index]);
  if (id() != 0) setFocus();
  return 1;
}

}  // namespace Quillane::Desktop
