// The check of a document.
#include "host/document/DocumentCheck.h"

using namespace FX;

namespace Quillane::Host {

DocumentCheck::~DocumentCheck() { clear(); }

void DocumentCheck::add(Plugin::InvoiceCheckPlugin* hook) { hooks.push_back(hook); }

void DocumentCheck::run(Invoice& document, const FXString& prefix, FXWindow* window) {
  clear();
  for (Plugin::InvoiceCheckPlugin* hook : hooks) hook->checkInvoice(window, &document, *messages, prefix);
}

int DocumentCheck::countErrors() const {
  int errors = 0;
  for (FXint i = 0; i < messages->no(); ++i)
    if ((*messages)[i]->getSeverity() == Message::ERROR) ++errors;
  return errors;
}

void DocumentCheck::clear() {
  for (FXint i = 0; i < messages->no(); ++i) delete (*messages)[i];
  messages = std::make_unique<ListOfMessage>();  // the list's own clear would keep its counters
}

}  // namespace Quillane::Host
