#pragma once

#include <fx.h>

#include <memory>

class TarnwellDatabase;

namespace FXExt {
class FXDualList;
}

namespace Quillane {

class PanelisedWindow;

namespace Plugin::ItemData::UI {

class ItemDataVariable;

/// The panel on an article's window in which the user chooses which item variables the article asks for and in which
/// order: a chooser for incoming documents above one for outgoing documents. What is chosen stays in memory; the
/// panel's handler stores it.
///
/// The data of the choosers' items are ItemDataVariable objects, owned by the panel.
class ItemDataAssociationPanel : public FX::FXVerticalFrame {
  FXDECLARE(ItemDataAssociationPanel)
 public:
  /// Window and database stay the caller's and outlive the panel. articleKeyColumn names the column of the article's id
  /// in the assignment table: "t_product_1", "t_suite_1" or "t_service_1".
  ItemDataAssociationPanel(FX::FXComposite* container, PanelisedWindow* dataWindow, TarnwellDatabase* database,
                           FX::FXString articleKeyColumn);

  /// Deletes the variables.
  ~ItemDataAssociationPanel() override;

  /// Reads the variables into the choosers, the first time that it is called.
  void create() override;

  /// The picture of the variable's kind; null for a kind without one. Owned by the panel.
  FX::FXIcon* getIcon(const ItemDataVariable* variable) const;

  /// The choosers, children of the panel.
  FXExt::FXDualList* getIncoming() const { return incoming; }
  FXExt::FXDualList* getOutgoing() const { return outgoing; }

  TarnwellDatabase* getDB() const { return db; }
  const FX::FXString& getKeyColumn() const { return keyColumn; }

  /// The assignment table of the articles with this key column; empty when there is none.
  static FX::FXString getAssignmentTable(const FX::FXString& keyColumn);

 protected:
  ItemDataAssociationPanel();

 private:
  void createIcons();
  void createChoosers();
  FXExt::FXDualList* createChooser(FX::FXComposite* container, const FX::FXString& title, FX::FXVerticalFrame*& frame,
                                   FX::FXGroupBox*& box);
  void load();
  void load(const FX::FXString& sql, int direction, FXExt::FXDualList* chooser);

  PanelisedWindow* window;                           // not owned
  TarnwellDatabase* db;                              // not owned
  FX::FXVerticalFrame* incomingFrame;                // children of the panel, from here ...
  FX::FXGroupBox* incomingBox;                       //
  FXExt::FXDualList* incoming;                       //
  FX::FXVerticalFrame* outgoingFrame;                //
  FX::FXGroupBox* outgoingBox;                       //
  FXExt::FXDualList* outgoing;                       // ... to here
  std::unique_ptr<FX::FXGIFIcon> mandatoryListIcon;  // one for each kind, mandatory and optional
  std::unique_ptr<FX::FXGIFIcon> optionalListIcon;   //
  std::unique_ptr<FX::FXGIFIcon> mandatoryTextIcon;  //
  std::unique_ptr<FX::FXGIFIcon> optionalTextIcon;   //
  std::unique_ptr<FX::FXGIFIcon> mandatoryDateIcon;  //
  std::unique_ptr<FX::FXGIFIcon> optionalDateIcon;   //
  FX::FXString keyColumn;                            // of the article's id in the assignment table
  FX::FXString tableName;                            // the assignment table; empty until the variables are read
  bool loaded;                                       // whether the variables were read

  ItemDataAssociationPanel(const ItemDataAssociationPanel&) = delete;
  ItemDataAssociationPanel& operator=(const ItemDataAssociationPanel&) = delete;
};

}  // namespace Plugin::ItemData::UI
}  // namespace Quillane
