#pragma once

#include <vector>

#include "host/desktop/RecordSource.h"
#include "host/document/ArticleStore.h"
#include "host/windows/IconSet.h"

class TarnwellDatabase;

namespace Quillane::Plugin::PanelProvider {
class Plugin;
}

namespace Quillane::Desktop {

/// Modules' offers of panels for the windows of articles; not owned.
using PanelProviders = std::vector<Plugin::PanelProvider::Plugin*>;

/// The company's articles of one kind for list windows.
class ArticleSource : public RecordSource {
 public:
  /// Neither the database nor the icons are owned; both have to outlive the source, as have the providers. kind is 1
  /// for products, 2 for services, 3 for suites.
  ArticleSource(TarnwellDatabase& companyDatabase, const Host::IconSet& iconSet, int articleKind,
                const PanelProviders& panelProviders)
      : database(companyDatabase), icons(iconSet), kind(articleKind), providers(panelProviders) {}

  /// The kind that is read from now on.
  int getKind() const { return kind; }
  void setKind(int articleKind) { kind = articleKind; }

  void addColumns(RecordList& list) const override;
  bool read(std::vector<RecordList::Row>& rows, FX::FXString& error) override;
  FX::FXString describeCount(int shown, int all) const override;
  int add(FX::FXWindow* owner, const FX::FXString& name) override;
  bool change(FX::FXWindow* owner, int id) override;

  /// The article with this id as it was read; null when there is none.
  const Host::Article* find(int id) const;

 private:
  TarnwellDatabase& database;
  const Host::IconSet& icons;
  int kind;
  PanelProviders providers;
  std::vector<Host::Article> articles;
};

}  // namespace Quillane::Desktop
