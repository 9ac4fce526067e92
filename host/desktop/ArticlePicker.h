#pragma once

#include "host/desktop/ArticleSource.h"
#include "host/desktop/RecordWindow.h"
#include "host/document/ArticleStore.h"

class TarnwellDatabase;

namespace Quillane::Desktop {

/// Lets the user pick an article of one kind by typing a part of the name, or add one on the spot.
class ArticlePicker : public RecordWindow {
  FXDECLARE(ArticlePicker)
 public:
  /// Neither the database nor the icons nor the providers are owned; all have to outlive the window. kind is 1 for
  /// products, 2 for services, 3 for suites.
  ArticlePicker(FX::FXWindow* ownerWindow, TarnwellDatabase& database, const Host::IconSet& icons, int kind,
                const PanelProviders& providers = {});

  /// Makes the article the current one when the window is shown.
  void setCurrentId(int id) { selectWhenShown(id); }

  /// The article that was picked; of use when execute returned true.
  const Host::Article& getArticle() const { return picked; }

  ArticlePicker(const ArticlePicker&) = delete;
  ArticlePicker& operator=(const ArticlePicker&) = delete;

 protected:
  ArticlePicker() = default;

  void recordPicked(int id) override;

 private:
  Host::Article picked;
};

}  // namespace Quillane::Desktop
