#pragma once

#include <QMap>
#include <QObject>

#include "app/base/Choice.h"
#include "app/base/desktop/Preferences.h"

namespace orv {

/// Which columns the table of leads shows, for each database as the person chose it.
class LeadColumns final : public QObject {
  Q_OBJECT
  Q_PROPERTY(QString database READ database NOTIFY changed)
  Q_PROPERTY(QStringList shown READ shown NOTIFY changed)
  Q_PROPERTY(QList<orv::Choice> choices READ choices NOTIFY changed)
  Q_PROPERTY(QString industryTitle READ industryTitle NOTIFY changed)
  Q_PROPERTY(bool chosen READ chosen NOTIFY changed)

 public:
  explicit LeadColumns(Preferences& preferences, QObject* parent = nullptr);

  const QString& database() const { return m_database; }
  void setDatabase(const QString& database);
  /// Somebody may have chosen elsewhere: on the page of a list, or in another workspace.
  void readAgain();
  /// Keys, in their order.
  QStringList shown() const;
  /// Those that the database has, beside the name, and whether each shows.
  QList<Choice> choices() const;
  QString industryTitle() const;
  /// The person has chosen some; otherwise they are as the program has them.
  bool chosen() const { return m_chosen.contains(m_database); }

  Q_INVOKABLE void toggle(const QString& key);
  Q_INVOKABLE void reset();

 Q_SIGNALS:
  void changed();

 private:
  Preferences& m_preferences;
  QString m_database = QStringLiteral("all");
  QMap<QString, QStringList> m_chosen;
};

}  // namespace orv
