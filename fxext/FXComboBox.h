// A combo box that jumps to the item whose beginning is typed.
#pragma once

#include <fx.h>

namespace FXExt {

/// The toolkit's combo box with look-up: printable characters typed while it has the focus jump to the first item that
/// begins with what was typed so far, counted from the current item and compared byte by byte. The typed prefix ends
/// when the application's typing speed passes without a key, and at once when no item begins with it.
///
/// The target receives SEL_COMMAND when look-up moves to another item; a data target's text, which never reaches the
/// list by itself, is found in the list before a search or a step with the arrow keys or the wheel.
class FXComboBox : public FX::FXComboBox {
  FXDECLARE(FXComboBox)
 public:
  enum {
    ID_LOOKUPTIMER = FX::FXComboBox::ID_LAST + 1,
    ID_LAST,
  };

  /// A combo box with room for `columns` columns of text. The target is not owned.
  FXComboBox(FX::FXComposite* container, FX::FXint columns, FX::FXObject* receiver = nullptr,
             FX::FXSelector selector = 0, FX::FXuint opts = FX::COMBOBOX_NORMAL, FX::FXint x = 0, FX::FXint y = 0,
             FX::FXint w = 0, FX::FXint h = 0, FX::FXint pl = FX::DEFAULT_PAD, FX::FXint pr = FX::DEFAULT_PAD,
             FX::FXint pt = FX::DEFAULT_PAD, FX::FXint pb = FX::DEFAULT_PAD);

  ~FXComboBox() override;

  void detach() override;
  void destroy() override;

  /// The prefix typed since the last reset.
  const FX::FXString& getLookup() const { return lookup; }

  long onKeyPress(FX::FXObject* sender, FX::FXSelector sel, void* ptr);
  long onLookupTimer(FX::FXObject* sender, FX::FXSelector sel, void* ptr);

 protected:
  FXComboBox();

 private:
  FX::FXString lookup;  // the characters typed since the last reset

  void removeLookupTimer();
  void followShownText();
  void makeCurrent(FX::FXint index);

  FXComboBox(const FXComboBox&) = delete;
  FXComboBox& operator=(const FXComboBox&) = delete;
};

static_assert(FXComboBox::ID_LOOKUPTIMER == 57, "the first id after those of the toolkit's combo box");

}  // namespace FXExt
