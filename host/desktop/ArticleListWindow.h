#pragma once

#include "host/desktop/ArticleSource.h"
#include "host/desktop/RecordWindow.h"

class TarnwellDatabase;

namespace Quillane::Desktop {

/// The company's products, services and suites, one kind at a time: to look at, to add and to change. Can be run modal
/// or left open.
class ArticleListWindow : public RecordWindow {
  FXDECLARE(ArticleListWindow)
 public:
  enum { ID_KIND = RecordWindow::ID_LAST, ID_LAST };

  /// Neither the database nor the icons nor the providers are owned; all have to outlive the window.
  ArticleListWindow(FX::FXWindow* ownerWindow, TarnwellDatabase& database, const Host::IconSet& icons,
                    const PanelProviders& providers = {});

  /// The kind that is shown: 1 products, 2 services, 3 suites.
  int getKind() const;
  void setKind(int kind);

  long onKind(FX::FXObject* sender, FX::FXSelector selector, void* ptr);

  ArticleListWindow(const ArticleListWindow&) = delete;
  ArticleListWindow& operator=(const ArticleListWindow&) = delete;

 protected:
  ArticleListWindow() = default;

 private:
  void createTabs();
  ArticleSource& getArticles() const;

  FX::FXTabBar* tabs = nullptr;  // owned by the window tree
};

}  // namespace Quillane::Desktop
