#pragma once

#include <fx.h>

#include <memory>
#include <vector>

#include "plugin/contract/DBTable.h"

namespace Quillane {

/// What a cell has besides its text when the text is not what is stored.
class DBTableValue {
 public:
  virtual ~DBTableValue() = default;

  /// What is stored.
  virtual FX::FXString getKey() const = 0;

  /// Takes whatever was stored, also what the user could not have chosen.
  virtual void setKey(const FX::FXString& stored) = 0;
};

/// A cell that holds one of several choices, or none. Its editor is a list of their texts; an arrow in the cell says
/// so.
class DBTableChoiceItem : public FX::FXTableItem, public DBTableValue {
 public:
  using Choices = std::shared_ptr<const std::vector<DBTableChoice>>;

  /// Nothing is chosen.
  explicit DBTableChoiceItem(Choices offered);

  FX::FXString getKey() const override { return key; }

  /// A key that is none of the choices is shown as it is.
  void setKey(const FX::FXString& stored) override;

  /// Chooses by the text, blanks around it aside; an empty text chooses nothing, one that is no choice changes nothing.
  void setText(const FX::FXString& text) override;

  FX::FXWindow* getControlFor(FX::FXTable* table) override;
  void setFromControl(FX::FXWindow* control) override;

 protected:
  void drawContent(const FX::FXTable* table, FX::FXDC& dc, FX::FXint x, FX::FXint y, FX::FXint w,
                   FX::FXint h) const override;

 private:
  FX::FXint findKey(const FX::FXString& wanted) const;
  FX::FXint findText(FX::FXString wanted) const;
  void choose(FX::FXint index);

  Choices choices;
  FX::FXString key;
};

/// A cell that holds a check box; its text is what is stored, "1" or "0" once the user has touched it. There is no
/// editor.
class DBTableCheckItem : public FX::FXTableItem, public DBTableValue {
 public:
  /// Not checked.
  DBTableCheckItem();

  FX::FXString getKey() const override { return label; }
  void setKey(const FX::FXString& stored) override { label = stored; }

  /// "1" checks the box, "0" and an empty text do the contrary, anything else changes nothing.
  void setText(const FX::FXString& text) override;

  /// Whether what is stored is a number other than 0.
  bool isChecked() const;
  void toggle();

  FX::FXWindow* getControlFor(FX::FXTable* table) override;

 protected:
  void drawContent(const FX::FXTable* table, FX::FXDC& dc, FX::FXint x, FX::FXint y, FX::FXint w,
                   FX::FXint h) const override;
};

}  // namespace Quillane
