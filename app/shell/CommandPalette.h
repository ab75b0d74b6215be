#pragma once

#include <functional>

#include "app/base/ListModel.h"
#include "app/base/desktop/Preferences.h"

namespace orv {

/// One thing the palette can do. Choosing it is remembered by `id`, so ids stay the same between starts.
struct Command {
  QString id;
  QString group;
  QString title;
  QString subtitle;
  QString icon;
  /// Keys as shown, "G C" for a chord; empty for none.
  QString keys;
  std::function<void()> run;
  /// What can be done with it; asked only once somebody wants to know.
  std::function<QList<Command>()> more = {};
  /// Of what can be done with something: its title where that something is not said, "Pause Fleet maintenance".
  QString whole = {};
};

/// The command palette: what matches the query, or the recently chosen for an empty one; or what can be done with one
/// of them. "pause fleet" finds what can be done with the fleet's campaign at once.
class CommandPalette final : public ListModel {
  Q_OBJECT
  Q_PROPERTY(QString query READ query WRITE setQuery NOTIFY queryChanged)
  Q_PROPERTY(QString subject READ subject NOTIFY queryChanged)

 public:
  static constexpr qsizetype recentsAtMost = 8;
  enum Role { IdRole = Qt::UserRole, GroupRole, TitleRole, SubtitleRole, IconRole, KeysRole, HasMoreRole };

  /// `commands` is asked anew whenever the palette opens, and when renew() says that there are others.
  CommandPalette(Preferences& preferences, std::function<QList<Command>()> commands, QObject* parent = nullptr);

  QString query() const { return m_query; }
  void setQuery(const QString& query);
  /// What the palette shows the actions of; empty while it shows everything.
  const QString& subject() const { return m_subject; }

  /// Gathers the commands and starts with an empty query.
  Q_INVOKABLE void prepare();
  /// More is found than when it was opened; what was typed stays.
  void renew();
  /// Runs the row's command and remembers it. False when the row is gone.
  Q_INVOKABLE bool choose(int row);
  /// Shows what can be done with the row's; false when that is nothing.
  Q_INVOKABLE bool ask(int row);
  /// From there back to everything, and to the query that led there; false when it is shown already.
  Q_INVOKABLE bool back();

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QHash<int, QByteArray> roleNames() const override;

 Q_SIGNALS:
  /// Somebody begins to search: what is found by name may have to be loaded.
  void searching();
  void queryChanged();

 private:
  QList<Command> recents() const;
  QList<Command> suggestions() const;
  QList<Command> matches() const;
  QList<Command> deeds(const QStringList& words) const;
  void follow(QList<Command> now);
  void remember(const QString& id);
  void show();

  Preferences& m_preferences;
  std::function<QList<Command>()> m_source;
  QList<Command> m_commands;
  QList<Command> m_shown;
  QString m_query;
  QString m_subject;
  /// What can be done with it.
  QList<Command> m_about;
  QString m_queryBefore;
};

}  // namespace orv
