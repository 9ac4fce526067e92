#pragma once

#include <fx.h>

namespace Quillane {

/// The editor of a table's cell that holds one of several choices: a list that opens below the cell. What is chosen by
/// keys stays in the editor until it is taken:
///
///  - letters go to the next choice that begins with them, whatever their case and accents;
///  - the arrows, Home and End go through the choices;
///  - the space key and Alt with the arrow down open the list;
///  - Return takes the choice, as a click in the list does: the target is told, and deletes the editor;
///  - Tab and Escape are the table's.
class ChoiceEditor : public FX::FXComboBox {
  FXDECLARE(ChoiceEditor)
 public:
  /// In the table's font and colours. The table owns the editor.
  explicit ChoiceEditor(FX::FXTable* table);

  /// Shows the list, for the mouse and the keys. The editor has to be created.
  void openList();

  long onKeyPress(FX::FXObject* sender, FX::FXSelector selector, void* ptr);

  ChoiceEditor(const ChoiceEditor&) = delete;
  ChoiceEditor& operator=(const ChoiceEditor&) = delete;

 protected:
  ChoiceEditor() = default;

 private:
  void closeList();
  void goTo(FX::FXint index);
  void goBy(FX::FXint steps);
  void lookUp(const FX::FXEvent& key);
  bool isLookingUp(const FX::FXEvent& key) const;
  FX::FXint find(const FX::FXString& beginning, FX::FXint start) const;
  long take();

  FX::FXString typed;      // what a choice is being looked up by
  FX::FXuint typedAt = 0;  // when the last letter of it came, in milliseconds
};

}  // namespace Quillane
