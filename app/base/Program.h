#pragma once

#include <QObject>
#include <QString>
#include <QStringList>

namespace orv {

/// What concerns no single workspace, as a workspace's pages see and use it: who is signed in, how the program looks,
/// and what it can tell of itself.
class Program : public QObject {
  Q_OBJECT
  Q_PROPERTY(QString userName READ userName NOTIFY changed)
  Q_PROPERTY(QString userEmail READ userEmail NOTIFY changed)
  Q_PROPERTY(QString theme READ theme WRITE setTheme NOTIFY changed)
  Q_PROPERTY(QString version READ version CONSTANT)
  Q_PROPERTY(QString device READ device CONSTANT)
  Q_PROPERTY(QString newVersion READ newVersion NOTIFY changed)
  Q_PROPERTY(bool newVersionOpens READ newVersionOpens NOTIFY changed)
  Q_PROPERTY(QString notificationTrouble READ notificationTrouble NOTIFY changed)

 public:
  /// `unknown`: whether it came to that only the account can say.
  enum class Deletion { underWay, done, refused, unknown };

  using QObject::QObject;

  virtual QString userName() const = 0;
  virtual QString userEmail() const = 0;
  /// Empty when nobody is signed in.
  virtual QString userId() const = 0;
  /// "system", "light" or "dark".
  virtual QString theme() const = 0;
  virtual void setTheme(const QString& theme) = 0;
  virtual QString version() const = 0;
  /// This computer, in words.
  virtual QString device() const = 0;
  /// A newer version that is out; empty while none is known.
  virtual QString newVersion() const = 0;
  /// There is a page about it.
  virtual bool newVersionOpens() const = 0;
  /// Why the desktop shows nothing of what it is told, a sentence; empty as far as it does.
  virtual QString notificationTrouble() const = 0;
  /// Keys of what the open workspace has switched off.
  virtual QStringList featuresOff() const = 0;
  /// What the migration is to begin with.
  virtual QStringList migrationPick() const = 0;

  Q_INVOKABLE virtual void signOut() = 0;
  Q_INVOKABLE virtual void openNewVersion() = 0;
  /// What each version brought.
  Q_INVOKABLE virtual void showChangelog() = 0;
  /// What the program has written down of itself.
  Q_INVOKABLE virtual void showLog() = 0;

  /// Reads the person's name, workspaces and roles anew: something of them was changed here.
  virtual void rereadAccount() = 0;
  /// The person deletes a workspace. While that is under way it stays theirs, whatever the account says; once it is
  /// done the window goes on in another one, or says that there is none.
  virtual void deletesWorkspace(const QString& slug, Deletion deletion) = 0;

 Q_SIGNALS:
  void changed();
};

}  // namespace orv
