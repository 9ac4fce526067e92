#pragma once

#include <fx.h>

#include <memory>

#include "host/desktop/ArticleSource.h"
#include "host/desktop/FilterField.h"
#include "host/desktop/ItemInput.h"
#include "host/desktop/RecordList.h"
#include "host/windows/IconSet.h"

class TarnwellDatabase;

namespace Quillane::Desktop {

/// Asks for an item: its article, found by typing a part of the name, and what stands on the document. The article
/// fills name, unit and price. OK closes the dialog only when what was entered can be understood.
class ItemDialog : public FX::FXDialogBox {
  FXDECLARE(ItemDialog)
 public:
  enum {
    ID_OTHER = FX::FXDialogBox::ID_LAST,  // the kinds: no article, and those of articles in their order
    ID_PRODUCT,
    ID_SERVICE,
    ID_SUITE,
    ID_FILTER,
    ID_ARTICLES,
    ID_NEW_ARTICLE,
    ID_FIELD,
    ID_LAST
  };

  enum Purpose { NEW_ITEM, CHANGED_ITEM };

  /// Begins with what startInput says. Neither the database nor the icons nor the providers, whose panels
  /// are in the window of a new article, are owned.
  ItemDialog(FX::FXWindow* owner, TarnwellDatabase& companyDatabase, const Host::IconSet& icons, Purpose dialogPurpose,
             const ItemInput& startInput, const PanelProviders& providers = {});

  /// Gives the focus to where the work begins.
  void create() override;

  /// What was entered; of use when the dialog was accepted.
  const ItemInput& getInput() const { return input; }

  FilterField* getFilterField() const { return filter; }
  RecordList* getArticleList() const { return articles; }
  FX::FXTextField* getNameField() const { return name; }
  FX::FXTextField* getQuantityField() const { return quantity; }
  FX::FXTextField* getUnitField() const { return unit; }
  FX::FXTextField* getPriceField() const { return price; }

  long onKind(FX::FXObject* sender, FX::FXSelector selector, void* data);
  long onUpdKind(FX::FXObject* sender, FX::FXSelector selector, void* data);
  long onFilter(FX::FXObject* sender, FX::FXSelector selector, void* data);
  long onFilterKey(FX::FXObject* sender, FX::FXSelector selector, void* data);
  long onArticle(FX::FXObject* sender, FX::FXSelector selector, void* data);
  long onArticlePicked(FX::FXObject* sender, FX::FXSelector selector, void* data);
  long onNewArticle(FX::FXObject* sender, FX::FXSelector selector, void* data);
  long onUpdNeedsKind(FX::FXObject* sender, FX::FXSelector selector, void* data);
  long onAccept(FX::FXObject* sender, FX::FXSelector selector, void* data);

  ItemDialog(const ItemDialog&) = delete;
  ItemDialog& operator=(const ItemDialog&) = delete;

 protected:
  ItemDialog() = default;

 private:
  void createKinds(FX::FXComposite* content);
  void createArticles(FX::FXComposite* content, const Host::IconSet& icons, const PanelProviders& providers);
  void createFields(FX::FXComposite* content);
  void createButtons(FX::FXComposite* content);
  FX::FXTextField* createField(FX::FXComposite* parent, const char* label, int characters, FX::FXuint opts);

  void setKind(int kind);
  void readArticles();
  void takeArticle(int id);
  void goTo(FX::FXTextField& field);
  bool refuse(FX::FXTextField& field, const FX::FXString& reason);
  bool readFields();
  bool readNumber(FX::FXTextField& field, FX::FXString& number);

  TarnwellDatabase* database = nullptr;  // not owned
  Purpose purpose = NEW_ITEM;
  ItemInput input;
  bool reading = false;  // the list is being filled: what becomes current was not chosen
  std::unique_ptr<ArticleSource> source;
  FilterField* filter = nullptr;        // the widgets are owned by the window tree
  RecordList* articles = nullptr;       // owned by the window tree
  FX::FXTextField* name = nullptr;      // owned by the window tree
  FX::FXTextField* quantity = nullptr;  // owned by the window tree
  FX::FXTextField* unit = nullptr;      // owned by the window tree
  FX::FXTextField* price = nullptr;     // owned by the window tree
};

}  // namespace Quillane::Desktop
