#pragma once

#include "app/base/Choice.h"
#include "app/base/Listed.h"
#include "app/base/PagedList.h"
#include "app/base/RecordModel.h"
#include "app/base/RowFields.h"
#include "app/base/Store.h"
#include "app/campaigns/CampaignContext.h"
#include "app/campaigns/SettingsDraft.h"
#include "kit/models/mailboxes/mailboxPage.h"

namespace orv {

/// A mailbox as the settings offer it to a campaign.
struct SenderRow {
  /// The mailbox's.
  QString id;
  QString name;
  QString address;
  bool ticked = false;
  bool viaTag = false;
  /// "3 of 30 today"; empty when nobody said how many it may send.
  QString today;
  /// Why it may not send.
  QString reason;
  bool operator==(const SenderRow&) const = default;
};
BOOST_DESCRIBE_STRUCT(SenderRow, (), (id, name, address, ticked, viaTag, today, reason))
ORV_DECLARE_ROW(SenderRow)

using SenderRows = RecordModel<SenderRow>;

/// What the picker says of a mailbox, whatever the campaign.
struct SenderFacts {
  explicit SenderFacts(const Mailbox& mailbox);
  QString today;
  QString reason;
  std::optional<qint64> cap;
};
using SenderMailbox = Listed<Mailbox, SenderFacts>;
ORV_DECLARE_ROW(SenderMailbox)

/// The workspace's mailboxes beside what a campaign's settings pick of them. The picks themselves are the form's.
class SenderPicker final : public Store {
  Q_OBJECT
  Q_PROPERTY(orv::PagedListBase* mailboxes READ mailboxes CONSTANT)
  Q_PROPERTY(orv::ListModel* rows READ rows CONSTANT)
  Q_PROPERTY(QString query READ query WRITE setQuery NOTIFY changed)
  Q_PROPERTY(int total READ total NOTIFY changed)
  Q_PROPERTY(QString summary READ summary NOTIFY changed)
  Q_PROPERTY(QString note READ note NOTIFY changed)
  Q_PROPERTY(QList<orv::Choice> tags READ tags NOTIFY changed)
  Q_PROPERTY(QString tagNote READ tagNote NOTIFY changed)

 public:
  SenderPicker(CampaignContext& context, SettingsDraft& draft);

  PagedListBase* mailboxes() { return &m_mailboxes; }
  SenderRows* rows() { return &m_rows; }
  QString query() const { return m_query; }
  void setQuery(const QString& query);
  /// Mailboxes to pick from, whatever the search.
  int total() const { return int(m_all.size()); }
  /// How many are ticked, and how much each may send today.
  QString summary() const;
  /// What stands in place of the list when there is none.
  QString note() const;
  /// Tags that mailboxes have, how many have them and whether the campaign sends from them.
  QList<Choice> tags() const;
  QString tagNote() const;

  /// Reads the mailboxes, anew where they are known.
  void refresh() override;
  Q_INVOKABLE void toggle(const QString& mailboxId);
  Q_INVOKABLE void toggleTag(const QString& tag);

  /// The campaign is another one.
  void show();

 Q_SIGNALS:
  void changed();

 private:
  void collect();
  void showRows();

  struct Entry {
    SenderRow row;
    QStringList tags;
    std::optional<qint64> cap;
  };

  CampaignContext& m_context;
  SettingsDraft& m_draft;
  PagedList<MailboxPage, RecordModel<SenderMailbox>> m_mailboxes;
  SenderRows m_rows;
  std::vector<Entry> m_all;
  QString m_query;
};

}  // namespace orv
