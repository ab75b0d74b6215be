#pragma once

#include <QList>
#include <QString>
#include <functional>
#include <optional>

#include "app/base/Pages.h"
#include "app/base/Store.h"

namespace orv {

/// An opened workspace, as an area's makers of stores see it.
class WorkspaceStores {
 public:
  virtual WorkspaceContext& context() const = 0;
  /// The store of that name, made when first asked for.
  virtual Store* store(const QString& name) = 0;
  /// The store of one record, if it is kept.
  virtual Store* keptItem(Page page, const QString& id) const = 0;

 protected:
  ~WorkspaceStores() = default;
};

/// One of the workspace's stores.
struct AreaStore {
  /// As pages, and other areas, ask for it; a page's own has the page's name.
  QString name;
  const QMetaObject* type = nullptr;
  std::function<Store*(WorkspaceStores&)> make;
};

template <class S>
AreaStore areaStore(const QString& name) {
  return {name, &S::staticMetaObject, [](WorkspaceStores& stores) { return new S(stores.context()); }};
}

/// A page. Its title, icon, place in the sidebar, keys and feature stand in Pages.cpp; what can be done on it, its
/// store says: Store::actions().
struct AreaPage {
  Page page;
  /// File of the QML module, "Orvella/Campaigns/CampaignsPage.qml"; it gets `store`, the store of the page's name.
  QString view;
  /// The page of one record, where it is one of its own.
  struct Item {
    QString view;
    std::function<Store*(WorkspaceStores&, const QString& id)> make;
    /// So many stay warm.
    qsizetype keptAtMost = 8;
    /// The sidebar folds to leave it room.
    bool needsRoom = false;
  };
  std::optional<Item> item = {};
  /// The sidebar folds to leave the page itself room.
  bool needsRoom = false;
};

/// All that the shell knows of an area.
struct Area {
  QList<AreaStore> stores;
  QList<AreaPage> pages;
};

}  // namespace orv
