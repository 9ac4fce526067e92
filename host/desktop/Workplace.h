#pragma once

#include <fx.h>

#include "host/company/Company.h"
#include "host/windows/IconSet.h"
#include "plugin/contract/Tarnwell.h"

namespace Quillane::Desktop {

class DocumentWindow;

/// What a document's window needs of the program around it.
class Workplace {
 public:
  virtual ~Workplace() = default;

  virtual Tarnwell& getAccount() = 0;
  virtual Host::Company& getCompany() = 0;
  virtual const Host::IconSet& getIcons() const = 0;

  /// Shows the document with this id in a window of its own; the one that shows it already comes to the front.
  /// False when it could not be loaded; the user was told then.
  virtual bool openDocument(int id) = 0;

  /// A document was stored, moved to another status, made or deleted: lists of documents are read anew.
  virtual void documentsChanged() = 0;

  /// The window is closing and deletes itself when the event is over: it is to be forgotten.
  virtual void windowClosed(DocumentWindow& window) = 0;
};

}  // namespace Quillane::Desktop
