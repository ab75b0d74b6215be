#pragma once

#include "app/base/BusySet.h"
#include "app/base/Choice.h"
#include "app/base/Store.h"
#include "kit/models/setup/setupRun.h"

namespace orv {

/// What the checks say of one inbox: "yes", "no" or "unknown" each.
struct InboxCheck {
  Q_GADGET
  Q_PROPERTY(QString address MEMBER address)
  Q_PROPERTY(QString imap MEMBER imap)
  Q_PROPERTY(QString photo MEMBER photo)
  Q_PROPERTY(QString connected MEMBER connected)

 public:
  QString address;
  QString imap;
  QString photo;
  QString connected;
};

/// What Google and the mail servers say about the domains of a project. The last answer of each is kept with its time.
class SetupChecks final : public Store {
  Q_OBJECT
  Q_PROPERTY(QString domain READ domain NOTIFY changed)
  Q_PROPERTY(QString note READ note NOTIFY changed)
  Q_PROPERTY(QString timeText READ timeText NOTIFY changed)
  Q_PROPERTY(bool checking READ checking NOTIFY changed)
  Q_PROPERTY(QList<orv::Choice> lines READ lines NOTIFY changed)
  Q_PROPERTY(QVariantList inboxes READ inboxes NOTIFY changed)

 public:
  /// Until the answer to what a check has only begun is there.
  static constexpr std::chrono::seconds settling{4};

  explicit SetupChecks(Store& whole);

  /// The one that is shown; empty for none.
  const QString& domain() const { return m_domain; }
  /// Shows the domain and checks it.
  void open(const QString& runId, const QString& domain);
  Q_INVOKABLE void closeDomain();
  /// Once more.
  Q_INVOKABLE void check();

  /// What keeps the lines from being the newest; empty when nothing does.
  QString note() const;
  QString timeText() const;
  bool checking() const { return m_busy.contains(m_domain); }
  /// Of the domain: key "yes", "no" or "unknown", what is checked and what it means.
  QList<Choice> lines() const;
  QVariantList inboxes() const;

  Task<void> checkTask(QString runId, QString domain);

 Q_SIGNALS:
  void changed();

 private:
  struct Answer {
    DomainChecks checks;
    QDateTime at;
  };
  const Answer* answer() const;

  QString m_runId;
  QString m_domain;
  BusySet m_busy;
  QHash<QString, Answer> m_answers;
  QSet<QString> m_failed;
};

}  // namespace orv
