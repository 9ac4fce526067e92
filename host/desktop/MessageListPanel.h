#pragma once

#include <fx.h>

#include "host/windows/IconSet.h"
#include "plugin/contract/Message.h"

namespace Quillane::Desktop {

/// The findings of a check: a list with a picture, text and place for each, and a line that counts them. The target
/// gets SEL_COMMAND with a finding's index as data when the user picks it, by a double click or Return.
///
/// The panel copies what it shows: the messages may go at any time.
class MessageListPanel : public FX::FXVerticalFrame {
  FXDECLARE(MessageListPanel)
 public:
  enum { ID_MESSAGES = FX::FXVerticalFrame::ID_LAST, ID_LAST };

  /// The icons and the target are not owned.
  MessageListPanel(FX::FXComposite* parent, const Host::IconSet& iconSet, FX::FXObject* target, FX::FXSelector selector,
                   FX::FXuint opts = FX::LAYOUT_FILL_X | FX::LAYOUT_FILL_Y);

  /// Shows messages in place of the earlier ones. The finding that was current stays so when it is still there.
  void showMessages(const ListOfMessage& messages);

  /// Shows none, as long as the document was not checked.
  void clearMessages();

  /// Makes the finding behind the current one the current one, the first behind the last; when the current one was
  /// repaired, the one that took its place. Returns its index, -1 when there is none.
  int stepToNext();

  int getNumMessages() const { return list->getNumItems(); }
  int getNumErrors() const { return errors; }

  /// The line that counts: "2 hiba, 1 figyelmeztetés".
  FX::FXString getSummary() const { return summary->getText(); }

  FX::FXIconList* getList() const { return list; }

  /// The row with the line that counts, for buttons beside it.
  FX::FXHorizontalFrame* getHead() const { return head; }

  /// Gives the columns their widths.
  void layout() override;

  long onChanged(FX::FXObject* sender, FX::FXSelector selector, void* data);
  long onPicked(FX::FXObject* sender, FX::FXSelector selector, void* data);

  MessageListPanel(const MessageListPanel&) = delete;
  MessageListPanel& operator=(const MessageListPanel&) = delete;

 protected:
  MessageListPanel() = default;

 private:
  void fillList(const ListOfMessage& messages);
  void findAgain(const FX::FXString& text);
  void selectCurrent();
  FX::FXint measureTexts() const;

  const Host::IconSet* icons = nullptr;   // not owned
  FX::FXHorizontalFrame* head = nullptr;  // owned by the window tree
  FX::FXLabel* summary = nullptr;         // owned by the window tree
  FX::FXIconList* list = nullptr;         // owned by the window tree
  int errors = 0;
  int current = -1;          // where the user is; -1 before the first
  bool currentGone = false;  // what stands there now took the place of a finding that was repaired
};

}  // namespace Quillane::Desktop
