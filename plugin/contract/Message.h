#pragma once

#include <fx.h>

#include "plugin/contract/HostApi.h"

namespace Quillane {

class Message;
class MessageCheckAction;

/// What can be done about a message: run when the user picks it.
class QUILLANE_HOST_API MessageEvent {
 public:
  explicit MessageEvent(int eventKind) : kind(eventKind) {}

  virtual void execute(Message* message, int option) = 0;
  virtual ~MessageEvent();

  int getKind() const { return kind; }

  MessageEvent(const MessageEvent&) = delete;
  MessageEvent& operator=(const MessageEvent&) = delete;

 private:
  int kind;
};

/// One finding of the invoice check.
class QUILLANE_HOST_API Message : public FX::FXObject {
  FXDECLARE(Message)
 public:
  enum Severity : unsigned { NOTICE = 0, ERROR = 1 };

  /// The message owns its two events (null for none). The check action is not owned.
  Message(const FX::FXString& messageKey, unsigned messageSeverity, const FX::FXString& messageText,
          const FX::FXString& messageLocation, MessageEvent* first, MessageEvent* second, MessageCheckAction* action);
  /// Deletes the events.
  ~Message() override;

  const FX::FXString& getKey() const { return key; }
  unsigned getSeverity() const { return severity; }
  const FX::FXString& getText() const { return text; }
  /// Where the finding is, in words.
  const FX::FXString& getLocation() const { return location; }

  void setSeverity(unsigned messageSeverity) { severity = messageSeverity; }
  void setText(const FX::FXString& messageText) { text = messageText; }

  MessageEvent* getFirstEvent() const { return firstEvent; }
  MessageEvent* getSecondEvent() const { return secondEvent; }
  /// Takes ownership of event; an earlier second event is deleted.
  void setSecondEvent(MessageEvent* event);

  MessageCheckAction* getCheckAction() const { return checkAction; }

  Message(const Message&) = delete;
  Message& operator=(const Message&) = delete;

 protected:
  Message() = default;

 private:
  FX::FXString key;
  unsigned severity = ERROR;
  FX::FXString text;
  FX::FXString location;
  MessageEvent* firstEvent = nullptr;         // owned
  MessageEvent* secondEvent = nullptr;        // owned
  MessageCheckAction* checkAction = nullptr;  // not owned
};

/// The findings of a check, in order. It does not own the messages: whoever shows the list deletes them.
class QUILLANE_HOST_API ListOfMessage : public FX::FXObjectListOf<Message> {
 public:
  ListOfMessage() = default;
  ~ListOfMessage() override = default;

  /// Appends the messages of other, which keeps them too; errors count in the first counter, notices in the second.
  virtual void append(ListOfMessage& other) {
    FXObjectList::append(other);
    for (FX::FXint i = 0; i < other.no(); ++i) {
      const unsigned severity = other[i]->getSeverity();
      if (severity == Message::ERROR) ++errorCount;
      if (severity == Message::NOTICE) ++warningCount;
    }
  }

  /// Appends message unless it is null. On purpose: errors and notices both count in the first counter here.
  virtual void append(Message* message) {
    if (!message) return;
    if (message->getSeverity() <= Message::ERROR) ++errorCount;
    FXObjectList::append(message);
  }

  /// Empties the list. On purpose: the counters keep what they counted.
  virtual void clear() { FXObjectList::clear(); }

  int getErrorCount() const { return errorCount; }
  int getWarningCount() const { return warningCount; }

 private:
  int errorCount = 0;
  int warningCount = 0;
};

}  // namespace Quillane
