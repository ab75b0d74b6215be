#pragma once

#include <QVariantList>

#include "app/base/Choice.h"
#include "app/base/ReadAhead.h"
#include "app/base/Resource.h"
#include "kit/models/leads/leadRecord.h"
#include "kit/models/leads/unlocks.h"

namespace orv {

struct Campaign;
struct LeadList;

/// The card of one lead: at once what its row knows, then everything. It stays once it is opened, and comes and goes
/// with a pointer that rests on a row; a row that the keyboard rests on is read ahead.
class LeadCard final : public Store {
  Q_OBJECT
  Q_PROPERTY(bool shown READ shown NOTIFY changed)
  Q_PROPERTY(bool peeking READ peeking NOTIFY changed)
  Q_PROPERTY(QString leadId READ leadId NOTIFY changed)
  Q_PROPERTY(QString name READ name NOTIFY changed)
  Q_PROPERTY(QString about READ about NOTIFY changed)
  Q_PROPERTY(bool locked READ locked NOTIFY changed)
  Q_PROPERTY(bool complete READ complete NOTIFY changed)
  Q_PROPERTY(QString problem READ problem NOTIFY changed)
  Q_PROPERTY(QList<orv::Choice> person READ person NOTIFY changed)
  Q_PROPERTY(QList<orv::Choice> company READ company NOTIFY changed)
  Q_PROPERTY(QStringList keywords READ keywords NOTIFY changed)
  Q_PROPERTY(QStringList technologies READ technologies NOTIFY changed)
  Q_PROPERTY(QList<orv::Choice> lists READ lists NOTIFY changed)
  Q_PROPERTY(QVariantList campaigns READ campaigns NOTIFY changed)
  Q_PROPERTY(QList<orv::Choice> record READ record NOTIFY changed)

 public:
  using Find = std::function<const Lead*(const QString& id)>;

  /// `find` gives the lead as the list shows it, or null.
  LeadCard(WorkspaceContext& context, Store& whole, Find find);

  /// Opened, until it is dismissed.
  bool shown() const { return isOf() && !m_isPeek; }
  /// It is of the row under the pointer, while that stays there.
  bool peeking() const { return isOf() && m_isPeek; }
  const QString& leadId() const { return m_lead.id; }
  QString name() const;
  /// "Owner · Vogt & Partner".
  QString about() const;
  bool locked() const;
  /// Everything about the lead is known.
  bool complete() const { return detail() != nullptr; }
  /// Why it is not; empty while it is read.
  QString problem() const;
  /// Label and detail of what is known; the address and the phone are empty while they are hidden.
  QList<Choice> person() const;
  QList<Choice> company() const;
  QStringList keywords() const;
  QStringList technologies() const;
  /// The lists that the lead is in.
  QList<Choice> lists() const;
  /// Id, name, how far the lead came there, and how it fares.
  QVariantList campaigns() const;
  QList<Choice> record() const;

  /// Somebody looks at the row; none with an empty id.
  Q_INVOKABLE void look(const QString& id) { m_ahead.look(id); }
  /// The pointer is on the row; on none with an empty id.
  Q_INVOKABLE void peek(const QString& id);
  Q_INVOKABLE void open(const QString& id);
  Q_INVOKABLE void dismiss();
  Q_INVOKABLE void tryAgain() { m_detail.load(); }
  Q_INVOKABLE void copyEmail(const QString& id);
  Q_INVOKABLE void openCampaign(const QString& id);
  Q_INVOKABLE void openList(const QString& id);
  Q_INVOKABLE void openWebsite();

  /// What unlocking brought.
  void take(const QList<UnlockResult::Item>& leads);
  void close() override;
  void trim() override { m_ahead.forget(); }

 Q_SIGNALS:
  void changed();

 private:
  Task<void> peekTask(QString id);
  Task<LeadRecord> readTask(QString id);
  Task<LeadRecord> loadTask();
  void show(const QString& id, bool isPeek);
  bool isOf() const { return !m_lead.id.isEmpty(); }
  const LeadRecord* detail() const;
  /// As far as it is known.
  const Lead& lead() const;
  void follow(const Change<Lead>& change);
  void placesChanged(bool acted);

  Find m_find;
  ReadAhead<LeadRecord> m_ahead;
  Resource<LeadRecord> m_detail;
  /// As the list has it; what is shown until the detail is there.
  Lead m_lead;
  bool m_isPeek = false;
  TaskSlot m_rest;
};

}  // namespace orv
