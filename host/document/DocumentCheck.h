#pragma once

#include <fx.h>

#include <memory>
#include <vector>

#include "plugin/contract/Message.h"
#include "plugin/contract/PluginModule.h"

namespace Quillane::Host {

/// The check of a document: asks the check hooks of all modules and keeps what they found.
class DocumentCheck {
 public:
  /// What the keys of messages about a document begin with.
  static constexpr const char* kKeyPrefix = "INVOICE";

  DocumentCheck() = default;
  /// Deletes the messages.
  ~DocumentCheck();

  /// hook stays its container's and has to live as long as it is asked.
  void add(Plugin::InvoiceCheckPlugin* hook);

  /// Replaces the earlier findings by those about document. Keys begin with prefix. window is what the messages' events
  /// open their dialogs over; null when nobody is there to act on them.
  void run(Invoice& document, const FX::FXString& prefix, FX::FXWindow* window = nullptr);

  /// The findings in the order in which they were found; owned here. Their events hold items of the document that was
  /// checked: call clear before it is loaded anew or loses an item.
  const ListOfMessage& getMessages() const { return *messages; }

  /// How many findings are errors. (The list's own counters count otherwise.)
  int countErrors() const;

  /// Deletes the findings.
  void clear();

  DocumentCheck(const DocumentCheck&) = delete;
  DocumentCheck& operator=(const DocumentCheck&) = delete;

 private:
  std::vector<Plugin::InvoiceCheckPlugin*> hooks;
  std::unique_ptr<ListOfMessage> messages = std::make_unique<ListOfMessage>();
};

}  // namespace Quillane::Host
