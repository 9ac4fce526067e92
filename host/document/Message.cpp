// Findings of the invoice check.
#include "plugin/contract/Message.h"

using namespace FX;

namespace Quillane {

FXIMPLEMENT(Message, FXObject, nullptr, 0)

MessageEvent::~MessageEvent() = default;

Message::Message(const FXString& messageKey, unsigned messageSeverity, const FXString& messageText,
                 const FXString& messageLocation, MessageEvent* first, MessageEvent* second, MessageCheckAction* action)
    : key(messageKey),
      severity(messageSeverity),
      text(messageText),
      location(messageLocation),
      firstEvent(first),
      secondEvent(second),
      checkAction(action) {}

Message::~Message() {
  delete firstEvent;
  delete secondEvent;
}

void Message::setSecondEvent(MessageEvent* event) {
  if (event == secondEvent) return;
  delete secondEvent;
  secondEvent = event;
}

}  // namespace Quillane
