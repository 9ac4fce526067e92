#pragma once

#include <fx.h>

#include <set>
#include <vector>

#include "host/desktop/FilterField.h"
#include "host/desktop/RecordList.h"
#include "host/document/DocumentList.h"
#include "host/windows/IconSet.h"
#include "plugin/contract/Tarnwell.h"

namespace Quillane::Desktop {

/// The documents of the open company, with a field to search them: by number, partner, article and recorded value. What
/// is typed is searched for after a short pause.
///
/// The target gets SEL_COMMAND when the user picks documents to open (getSelectedRows), and SEL_CHANGED after every
/// search.
class DocumentListPanel : public FX::FXVerticalFrame {
  FXDECLARE(DocumentListPanel)
 public:
  enum { ID_SEARCH = FX::FXVerticalFrame::ID_LAST, ID_SEARCH_NOW, ID_CLEAR_SEARCH, ID_LIST, ID_LAST };

  /// Nothing is owned; account and icons have to outlive the panel.
  DocumentListPanel(FX::FXComposite* parentWindow, Tarnwell& programAccount, const Host::IconSet& icons,
                    FX::FXObject* panelTarget, FX::FXSelector selector);
  ~DocumentListPanel() override;

  /// Reads the documents of the open company anew; selection, place and order are kept. Without a company there are
  /// none. False with a sentence in error when they cannot be read: the earlier ones stay then.
  bool reload(FX::FXString& error);

  /// The documents that the user selected, in the order of the list.
  std::vector<Host::DocumentRow> getSelectedRows() const;

  /// How many documents the company has.
  int countDocuments() const { return static_cast<int>(documents.size()); }
  int countShown() const { return list->getNumShown(); }

  /// Whether only those are shown that were found.
  bool isSearching() const { return searching; }

  /// Empties the search field and shows all documents.
  void clearSearch();

  RecordList* getList() const { return list; }
  FilterField* getSearchField() const { return searchField; }

  long onSearchChanged(FX::FXObject* sender, FX::FXSelector selector, void* data);
  long onSearchNow(FX::FXObject* sender, FX::FXSelector selector, void* data);
  long onClearSearch(FX::FXObject* sender, FX::FXSelector selector, void* data);
  long onUpdClearSearch(FX::FXObject* sender, FX::FXSelector selector, void* data);
  long onPicked(FX::FXObject* sender, FX::FXSelector selector, void* data);

  DocumentListPanel(const DocumentListPanel&) = delete;
  DocumentListPanel& operator=(const DocumentListPanel&) = delete;

 protected:
  DocumentListPanel() = default;

 private:
  void createSearch(const Host::IconSet& icons);
  void createList();
  bool search(FX::FXString& error);
  void searchAndTell();
  bool dropPendingSearch();

  Tarnwell* account = nullptr;         // not owned
  FilterField* searchField = nullptr;  // owned by the window tree
  RecordList* list = nullptr;          // owned by the window tree
  std::vector<Host::DocumentRow> documents;
  bool searching = false;
};

}  // namespace Quillane::Desktop
