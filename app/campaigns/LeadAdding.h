#pragma once

#include "app/base/Choice.h"
#include "app/base/CsvColumns.h"
#include "app/base/CsvPick.h"
#include "app/base/Draft.h"
#include "app/base/JobForm.h"
#include "app/base/Recovery.h"
#include "app/base/Store.h"
#include "app/campaigns/CampaignContext.h"
#include "app/campaigns/LeadBatch.h"
#include "kit/models/campaigns/addLeads.h"
#include "kit/models/leads/leadList.h"

namespace orv {

/// What is filled in about one lead.
struct LeadByHand {
  QString email;
  QString firstName;
  QString lastName;
  QString company;
  QString title;
  QString website;
};
BOOST_DESCRIBE_STRUCT(LeadByHand, (), (email, firstName, lastName, company, title, website))

/// The dialog that adds leads to a campaign: one by hand, a list, a file or the workspace's own.
///
/// The adding itself is a job of the workspace, which the dialog shows while it is there and hands over when it goes.
class LeadAdding final : public Store {
  Q_OBJECT
  Q_PROPERTY(orv::JobForm* form READ form CONSTANT)
  Q_PROPERTY(QString way READ way NOTIFY changed)
  Q_PROPERTY(QString title READ title NOTIFY changed)
  Q_PROPERTY(QString submitLabel READ submitLabel NOTIFY changed)
  Q_PROPERTY(bool hasAdded READ hasAdded NOTIFY changed)
  Q_PROPERTY(bool canSubmit READ canSubmit NOTIFY changed)
  Q_PROPERTY(QString dedupe READ dedupe WRITE setDedupe NOTIFY changed)
  Q_PROPERTY(orv::FieldDraft* draft READ draft CONSTANT)
  Q_PROPERTY(orv::Recovery* recovery READ recovery CONSTANT)
  Q_PROPERTY(orv::ResourceBase* lists READ lists CONSTANT)
  Q_PROPERTY(QList<orv::Choice> listOptions READ listOptions NOTIFY listsChanged)
  Q_PROPERTY(QString listId READ listId WRITE setListId NOTIFY changed)
  Q_PROPERTY(QString fileName READ fileName NOTIFY changed)
  Q_PROPERTY(QString fileFacts READ fileFacts NOTIFY changed)
  Q_PROPERTY(QString fileWarning READ fileWarning NOTIFY changed)
  Q_PROPERTY(bool fileLooking READ fileLooking NOTIFY changed)
  Q_PROPERTY(orv::ListModel* fileColumns READ fileColumns CONSTANT)
  Q_PROPERTY(QString ownLimit READ ownLimit WRITE setOwnLimit NOTIFY changed)
  Q_PROPERTY(QString ownLimitError READ ownLimitError NOTIFY changed)
  Q_PROPERTY(bool allowOtherCampaigns READ allowOtherCampaigns WRITE setAllowOtherCampaigns NOTIFY changed)

 public:
  /// `added` is called when leads may have come into the campaign.
  LeadAdding(CampaignContext& context, std::function<void()> added);

  /// Busy until the leads are added, shown or not.
  JobForm* form() { return &m_form; }
  /// "manual", "list", "csv" or "leads".
  const QString& way() const { return m_way; }
  QString title() const;
  QString submitLabel() const;
  bool canSubmit() const;
  /// Somebody was added since the dialog was opened, which is there for the next.
  bool hasAdded() const { return m_hasAdded; }

  /// Whom to leave out: who is in this "campaign", or anywhere in the "workspace".
  const QString& dedupe() const { return m_dedupe; }
  void setDedupe(const QString& rule);

  /// The lead that is filled in by hand. One that was not taken is there again the next time.
  DraftOf<LeadByHand>* draft() { return &m_draft; }
  Recovery* recovery() { return &m_recovery; }

  Resource<LeadListPage>* lists() { return &m_lists; }
  QList<Choice> listOptions() const;
  const QString& listId() const { return m_listId; }
  void setListId(const QString& id);

  /// Empty before a file is chosen.
  QString fileName() const { return m_file.name(); }
  /// "2.4 MB · 5 columns".
  QString fileFacts() const { return m_file.facts(); }
  /// What is odd about the file, though it can be sent.
  QString fileWarning() const;
  /// The chosen file is being looked into.
  bool fileLooking() const { return m_file.looking(); }
  CsvColumns* fileColumns() { return &m_columns; }

  /// How many of the workspace's own leads; empty for as many as go at a time.
  const QString& ownLimit() const { return m_ownLimit; }
  void setOwnLimit(const QString& limit);
  QString ownLimitError() const;
  bool allowOtherCampaigns() const { return m_allowOthers; }
  void setAllowOtherCampaigns(bool allowed);

  /// Opens the dialog, or shows the one whose work goes on.
  Q_INVOKABLE void show(const QString& way);
  Q_INVOKABLE void chooseFile() { m_file.choose(); }
  /// Looks into a file that was chosen or dropped.
  void setFile(const QString& path);
  Q_INVOKABLE void dropFile(const QUrl& url) { setFile(url.toLocalFile()); }
  Q_INVOKABLE void submit();
  /// Closes the dialog. Work under way goes on; what was only filled in is given up.
  Q_INVOKABLE void dismiss();
  Q_INVOKABLE void retryLists() { m_lists.load(); }

  /// The dialog's own requests end; the adding goes on.
  void close() override;

 Q_SIGNALS:
  void changed();
  void listsChanged();
  /// The fields are empty for the next lead.
  void cleared();

 private:
  void looked();
  LeadBatch batch() const;
  QString jobName() const;
  bool ended(Job& job, bool isShown);
  void startAnew();
  void formChanged();
  std::optional<qint64> ownCount() const;

  CampaignContext& m_context;
  std::function<void()> m_added;
  Resource<LeadListPage> m_lists;
  JobForm m_form;
  QString m_way;
  QString m_dedupe;
  DraftOf<LeadByHand> m_draft;
  Recovery m_recovery;
  QString m_listId;
  CsvPick m_file;
  CsvColumns m_columns;
  QString m_ownLimit;
  bool m_allowOthers = false;
  bool m_hasAdded = false;
};

}  // namespace orv
