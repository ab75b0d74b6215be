#pragma once

#include "app/base/Choice.h"
#include "app/base/Resource.h"
#include "app/figures/Figure.h"
#include "kit/models/mailboxes/mailbox.h"
#include "kit/models/mailboxes/mailboxHistory.h"

namespace orv {

/// What an account sent and got over some days, as its page shows it.
class AccountActivity final : public Store {
  Q_OBJECT
  Q_PROPERTY(orv::ResourceBase* history READ history CONSTANT)
  Q_PROPERTY(QString range READ rangeKey WRITE setRange NOTIFY changed)
  Q_PROPERTY(QList<orv::Choice> ranges READ ranges CONSTANT)
  Q_PROPERTY(QStringList days READ days NOTIFY changed)
  Q_PROPERTY(QVariantList series READ series NOTIFY changed)
  Q_PROPERTY(QStringList dayNotes READ dayNotes NOTIFY changed)
  Q_PROPERTY(QString emptyText READ emptyText NOTIFY changed)
  Q_PROPERTY(QList<orv::Figure> figures READ figures NOTIFY changed)
  Q_PROPERTY(QString view READ view WRITE setView NOTIFY changed)

 public:
  AccountActivity(WorkspaceContext& context, Store* whole, QString id, Resource<Mailbox>& account);

  Resource<MailboxHistory>* history() { return &m_history; }
  /// In days.
  int range() const { return m_range; }
  QString rangeKey() const { return QString::number(m_range); }
  /// Another number than those offered changes nothing.
  void setRange(const QString& days);
  QList<Choice> ranges() const;
  /// As a chart takes them.
  const QStringList& days() const { return m_days; }
  const QVariantList& series() const { return m_series; }
  const QStringList& dayNotes() const { return m_dayNotes; }
  QString emptyText() const;
  const QList<Figure>& figures() const { return m_figures; }
  /// "chart" or "table".
  const QString& view() const { return m_view; }
  void setView(const QString& view);

  Q_INVOKABLE void toggle(const QString& series);
  Q_INVOKABLE void retry() { m_history.load(); }

 Q_SIGNALS:
  void changed();

 private:
  void show();

  QString m_id;
  Resource<Mailbox>& m_account;
  Resource<MailboxHistory> m_history;
  int m_range = 30;
  QString m_view = QStringLiteral("chart");
  QSet<QString> m_hidden;
  QStringList m_days;
  QVariantList m_series;
  QStringList m_dayNotes;
  QList<Figure> m_figures;
};

}  // namespace orv
