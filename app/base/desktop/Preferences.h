#pragma once

#include <QRect>
#include <QString>
#include <QStringList>

namespace orv {

/// What the interface remembers between starts. Nothing secret: the file is readable by others.
class Preferences {
 public:
  virtual ~Preferences() = default;

  /// The sidebar is folded to its rail.
  virtual bool sidebarRail() const = 0;
  virtual void setSidebarRail(bool rail) = 0;
  /// Ids of the palette's recent commands, newest first.
  virtual QStringList recentCommands() const = 0;
  virtual void setRecentCommands(const QStringList& ids) = 0;
  /// "system", "light" or "dark".
  virtual QString theme() const = 0;
  virtual void setTheme(const QString& theme) = 0;
  /// Who is signed in, to be greeted at the next start; empty when nobody is.
  virtual QString signedInName() const = 0;
  virtual void setSignedInName(const QString& name) = 0;
  /// The window when not maximised; null before the first start.
  virtual QRect windowGeometry() const = 0;
  virtual void setWindowGeometry(const QRect& geometry) = 0;
  virtual bool windowMaximized() const = 0;
  virtual void setWindowMaximized(bool maximized) = 0;
};

}  // namespace orv
