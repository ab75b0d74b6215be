#pragma once

#include <QMap>
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
  /// The filters of the leads' search are folded.
  virtual bool leadFiltersFolded() const = 0;
  virtual void setLeadFiltersFolded(bool folded) = 0;
  /// The columns that somebody chose for leads, in their order, by database; a database without is as it was made.
  virtual QMap<QString, QStringList> leadColumns() const = 0;
  virtual void setLeadColumns(const QMap<QString, QStringList>& columns) = 0;
  /// Who is signed in, to be greeted at the next start; empty when nobody is.
  virtual QString signedInName() const = 0;
  virtual void setSignedInName(const QString& name) = 0;
  /// The version whose changes the person was last told of; empty before the first start.
  virtual QString versionTold() const = 0;
  virtual void setVersionTold(const QString& version) = 0;
  /// Of the contact beside a thread, in pixels; 0 where nobody has chosen it.
  virtual int inboxLeadsWidth() const = 0;
  virtual void setInboxLeadsWidth(int width) = 0;
  /// Whether the desktop tells of good replies, and of accounts that failed.
  virtual bool positiveReplies() const = 0;
  virtual void setPositiveReplies(bool on) = 0;
  virtual bool accountErrors() const = 0;
  virtual void setAccountErrors(bool on) = 0;
  /// Up to when a workspace's replies have been told, as the service writes times; empty before the first look.
  virtual QString notifySince(const QString& workspace) const = 0;
  virtual void setNotifySince(const QString& workspace, const QString& time) = 0;
  /// Ids of a workspace's accounts whose failure has been told.
  virtual QStringList failedAccounts(const QString& workspace) const = 0;
  virtual void setFailedAccounts(const QString& workspace, const QStringList& ids) = 0;
  /// The window when not maximised; null before the first start.
  virtual QRect windowGeometry() const = 0;
  virtual void setWindowGeometry(const QRect& geometry) = 0;
  virtual bool windowMaximized() const = 0;
  virtual void setWindowMaximized(bool maximized) = 0;
};

}  // namespace orv
