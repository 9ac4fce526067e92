// What a check found, to be picked one after the other.
#include "host/desktop/MessageListPanel.h"

#include <libintl.h>

#include <algorithm>
#include <cstdlib>

using namespace FX;

namespace Quillane::Desktop {

FXDEFMAP(MessageListPanel)
messageListPanelMap[] = {
    FXMAPFUNC(SEL_CHANGED, MessageListPanel::ID_MESSAGES, MessageListPanel::onChanged),
    FXMAPFUNC(SEL_DOUBLECLICKED, MessageListPanel::ID_MESSAGES, MessageListPanel::onPicked),
};
static_assert(ARRAYNUMBER(messageListPanelMap) == 2, "as many handlers as above");

FXIMPLEMENT(MessageListPanel, FXVerticalFrame, messageListPanelMap, ARRAYNUMBER(messageListPanelMap))

namespace {

constexpr FXint kFirstWidth = 320;  // of a column, until there is a layout
constexpr FXint kLeastLocationWidth = 200;
constexpr FXint kIconRoom = 32;  // with what stands around it
constexpr FXint kScrollBarWidth = 20;

/// text on one line, in one column.
FXString onOneLine(FXString text) {
  text.substitute('\n', ' ');
  text.substitute('\t', ' ');
  return text.trim();
}

FXString describe(const Message& message) {
  return onOneLine(message.getText()) + "\t" + onOneLine(message.getLocation());
}

FXString summarize(int errors, int notices) {
  if (errors == 0 && notices == 0) return dgettext("quillane", "Nincs hiba");
  if (errors == 0) return FXStringFormat(dgettext("quillane", "Nincs hiba, %d figyelmeztetés"), notices);
  if (notices == 0) return FXStringFormat(dgettext("quillane", "%d hiba"), errors);
  return FXStringFormat(dgettext("quillane", "%d hiba, %d figyelmeztetés"), errors, notices);
}

}  // namespace

MessageListPanel::MessageListPanel(FXComposite* container, const Host::IconSet& iconSet, FXObject* receiver,
                                   FXSelector selector, FXuint opts)
    : FXVerticalFrame(container, opts, 0, 0, 0, 0, 0, 0, 0, 0, 0, 4), icons(&iconSet) {
  setTarget(receiver);
  setSelector(selector);
  head = new FXHorizontalFrame(this, LAYOUT_FILL_X, 0, 0, 0, 0, 0, 0, 0, 0);
  summary = new FXLabel(head, FXString::null, nullptr, ICON_BEFORE_TEXT | JUSTIFY_LEFT | LAYOUT_CENTER_Y);
  auto* frame =
      new FXVerticalFrame(this, FRAME_SUNKEN | FRAME_THICK | LAYOUT_FILL_X | LAYOUT_FILL_Y, 0, 0, 0, 0, 0, 0, 0, 0);
  list = new FXIconList(frame, this, ID_MESSAGES,
                        ICONLIST_DETAILED | ICONLIST_BROWSESELECT | LAYOUT_FILL_X | LAYOUT_FILL_Y);
  list->appendHeader(dgettext("quillane", "Probléma"), nullptr, kFirstWidth);
  list->appendHeader(dgettext("quillane", "Helye"), nullptr, kFirstWidth);
}

void MessageListPanel::showMessages(const ListOfMessage& messages) {
  const FXString text = current >= 0 && !currentGone ? list->getItemText(current) : FXString::null;
  fillList(messages);
  findAgain(text);
  const int notices = messages.no() - errors;
  summary->setText(summarize(errors, notices));
  summary->setIcon(icons->get(errors ? Host::Icon::ERROR : notices ? Host::Icon::NOTICE : Host::Icon::CHECK));
  recalc();  // the columns are as wide as the texts need
}

void MessageListPanel::clearMessages() {
  list->clearItems();
  summary->setText(FXString::null);
  summary->setIcon(nullptr);
  errors = 0;
  current = -1;
  currentGone = false;
}

void MessageListPanel::fillList(const ListOfMessage& messages) {
  list->clearItems();
  errors = 0;
  for (FXint i = 0; i < messages.no(); ++i) {
    const bool error = messages[i]->getSeverity() == Message::ERROR;
    if (error) ++errors;
    FXIcon* icon = icons->get(error ? Host::Icon::ERROR : Host::Icon::NOTICE);
    if (id()) icon->create();
    list->appendItem(describe(*messages[i]), icon, icon);
  }
}

/// Findings of one kind have the same words: of several, the one that is nearest to where the user was.
void MessageListPanel::findAgain(const FXString& text) {
  int nearest = -1;
  for (FXint i = 0; i < list->getNumItems() && !text.empty(); ++i) {
    if (list->getItemText(i) != text) continue;
    if (nearest < 0 || std::abs(i - current) < std::abs(nearest - current)) nearest = i;
  }
  if (nearest >= 0) {
    current = nearest;
    selectCurrent();
    return;
  }
  currentGone = current >= 0;
}

int MessageListPanel::stepToNext() {
  const FXint count = list->getNumItems();
  if (count == 0) return -1;
  current = currentGone ? current : current + 1;
  if (current >= count) current = 0;
  currentGone = false;
  selectCurrent();
  return current;
}

void MessageListPanel::selectCurrent() {
  list->killSelection();
  list->setCurrentItem(current);
  list->selectItem(current);
  list->makeItemVisible(current);
}

void MessageListPanel::layout() {
  FXVerticalFrame::layout();
  const FXint room = std::max(0, list->getWidth() - kScrollBarWidth);
  const FXint most = std::max(room / 2, room - kLeastLocationWidth);
  const FXint text = std::clamp(measureTexts(), room / 2, most);
  list->setHeaderSize(0, text);
  list->setHeaderSize(1, room - text);
}

/// The room that the longest problem needs. It comes before the place, which is mostly that of the window's title.
FXint MessageListPanel::measureTexts() const {
  FXint widest = 0;
  for (FXint i = 0; i < list->getNumItems(); ++i)
    widest = std::max(widest, list->getFont()->getTextWidth(list->getItemText(i).section('\t', 0)));
  return widest + kIconRoom;
}

long MessageListPanel::onChanged(FXObject*, FXSelector, void* event) {
  current = static_cast<int>(reinterpret_cast<FXival>(event));
  currentGone = false;
  return 1;
}

long MessageListPanel::onPicked(FXObject*, FXSelector, void* event) {
  const auto index = reinterpret_cast<FXival>(event);
  if (index < 0 || index >= list->getNumItems()) return 1;
  if (target) target->tryHandle(this, FXSEL(SEL_COMMAND, message), event);
  return 1;
}

}  // namespace Quillane::Desktop
