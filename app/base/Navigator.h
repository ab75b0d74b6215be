#pragma once

#include <QString>

#include "app/base/Pages.h"

namespace orv {

/// How stores lead the person somewhere else, and ask where they are.
class Navigator {
 public:
  /// Opens the page with nothing selected in it, or says that its feature is off.
  virtual void open(Page page) = 0;
  /// Opens the page with one of its records: a campaign, a thread, a list.
  virtual void openItem(Page page, const QString& id) = 0;
  /// Opens the settings at one of their tabs.
  virtual void openSettings(SettingsTab tab) = 0;
  /// The page, while it is open, shows another of its records in itself; that is no place to come back to of its own.
  virtual void showing(Page page, const QString& id) = 0;
  /// The record that the page shows; empty when it shows none or is not open.
  virtual QString openedItem(Page page) const = 0;
  /// Slug of the open workspace.
  virtual QString workspace() const = 0;
  /// Opens another workspace; nothing changes where it is open already, or no longer there.
  virtual void openWorkspace(const QString& slug) = 0;

 protected:
  ~Navigator() = default;
};

}  // namespace orv
