#pragma once

#include <fx.h>

#include "host/document/ArticleStore.h"
#include "host/windows/IconSet.h"

class TarnwellDatabase;

namespace Quillane::Desktop {

/// Asks for the data of a new or stored article and stores them. OK closes it only when they were stored; what cannot
/// be stored is told, and everything typed stays.
class ArticleDialog : public FX::FXDialogBox {
  FXDECLARE(ArticleDialog)
 public:
  /// Begins with the article's data. The database and the icons are not owned and have to outlive the dialog.
  ArticleDialog(FX::FXWindow* ownerWindow, TarnwellDatabase& companyDatabase, const Host::IconSet& icons,
                const Host::Article& begun);

  /// The cursor begins in the name.
  void show(FX::FXuint placement) override;
  using FX::FXDialogBox::show;

  /// Stands over its owner unless it is told otherwise.
  FX::FXuint execute(FX::FXuint placement = FX::PLACEMENT_OWNER) override;

  /// The article as it was stored; of use when the dialog was accepted.
  const Host::Article& getArticle() const { return article; }

  FX::FXTextField* getNameField() const { return nameField; }
  FX::FXTextField* getUnitField() const { return unitField; }
  FX::FXTextField* getPriceField() const { return priceField; }

  long onCmdAccept(FX::FXObject* sender, FX::FXSelector selector, void* ptr);

  ArticleDialog(const ArticleDialog&) = delete;
  ArticleDialog& operator=(const ArticleDialog&) = delete;

 protected:
  ArticleDialog() = default;

 private:
  void createFields();

  TarnwellDatabase* database = nullptr;  // not owned
  Host::Article article;
  FX::FXTextField* nameField = nullptr;  // owned by the window tree, as the following
  FX::FXTextField* unitField = nullptr;
  FX::FXTextField* priceField = nullptr;
};

}  // namespace Quillane::Desktop
