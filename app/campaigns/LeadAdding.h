#pragma once

#include <QMap>
#include <QVariantList>

#include "app/base/Store.h"
#include "app/campaigns/CampaignContext.h"
#include "app/campaigns/LeadBatch.h"
#include "app/campaigns/LeadFile.h"
#include "kit/models/campaigns/addLeads.h"
#include "kit/models/leads.h"

namespace orv {

/// The dialog that adds leads to a campaign: one by hand, a list, a file or the workspace's own.
///
/// The adding itself is a job of the workspace, which the dialog shows while it is there and hands over when it goes.
class LeadAdding final : public Store {
  Q_OBJECT
  Q_PROPERTY(bool shown READ shown NOTIFY changed)
  Q_PROPERTY(QString way READ way NOTIFY changed)
  Q_PROPERTY(QString title READ title NOTIFY changed)
  Q_PROPERTY(QString submitLabel READ submitLabel NOTIFY changed)
  Q_PROPERTY(bool canSubmit READ canSubmit NOTIFY changed)
  Q_PROPERTY(QString error READ error NOTIFY changed)
  Q_PROPERTY(QString dedupe READ dedupe WRITE setDedupe NOTIFY changed)
  Q_PROPERTY(QString email READ email WRITE setEmail NOTIFY changed)
  Q_PROPERTY(QString emailError READ emailError NOTIFY changed)
  Q_PROPERTY(orv::ResourceBase* lists READ lists CONSTANT)
  Q_PROPERTY(QVariantList listOptions READ listOptions NOTIFY listsChanged)
  Q_PROPERTY(QString listId READ listId WRITE setListId NOTIFY changed)
  Q_PROPERTY(QString fileName READ fileName NOTIFY changed)
  Q_PROPERTY(QString fileFacts READ fileFacts NOTIFY changed)
  Q_PROPERTY(QString fileWarning READ fileWarning NOTIFY changed)
  Q_PROPERTY(bool fileLooking READ fileLooking NOTIFY changed)
  Q_PROPERTY(QStringList fileHeaders READ fileHeaders NOTIFY fileChanged)
  Q_PROPERTY(QVariantList fileSamples READ fileSamples NOTIFY fileChanged)
  Q_PROPERTY(QString ownLimit READ ownLimit WRITE setOwnLimit NOTIFY changed)
  Q_PROPERTY(QString ownLimitError READ ownLimitError NOTIFY changed)
  Q_PROPERTY(bool allowOtherCampaigns READ allowOtherCampaigns WRITE setAllowOtherCampaigns NOTIFY changed)
  Q_PROPERTY(bool busy READ busy NOTIFY changed)
  Q_PROPERTY(QString progressText READ progressText NOTIFY changed)
  Q_PROPERTY(double progress READ progress NOTIFY changed)

 public:
  /// `added` is called when leads may have come into the campaign.
  LeadAdding(CampaignContext& context, std::function<void()> added);

  bool shown() const { return m_shown; }
  /// "manual", "list", "csv" or "leads".
  const QString& way() const { return m_way; }
  QString title() const;
  QString submitLabel() const;
  bool canSubmit() const;
  /// Why the last attempt failed.
  const QString& error() const { return m_error; }

  /// Whom to leave out: who is in this "campaign", or anywhere in the "workspace".
  const QString& dedupe() const { return m_dedupe; }
  void setDedupe(const QString& rule);

  const QString& email() const { return m_email; }
  void setEmail(const QString& email);
  const QString& emailError() const { return m_emailError; }

  Resource<LeadListPage>* lists() { return &m_lists; }
  QVariantList listOptions() const;
  const QString& listId() const { return m_listId; }
  void setListId(const QString& id);

  /// Empty before a file is chosen.
  QString fileName() const;
  /// "2.4 MB · 5 columns".
  QString fileFacts() const;
  /// What is odd about the file, though it can be sent.
  QString fileWarning() const;
  /// The chosen file is being looked into.
  bool fileLooking() const { return m_looking; }
  const QStringList& fileHeaders() const { return m_preview.headers; }
  QVariantList fileSamples() const;

  /// How many of the workspace's own leads; empty for as many as go at a time.
  const QString& ownLimit() const { return m_ownLimit; }
  void setOwnLimit(const QString& limit);
  QString ownLimitError() const;
  bool allowOtherCampaigns() const { return m_allowOthers; }
  void setAllowOtherCampaigns(bool allowed);

  bool busy() const { return m_job && m_job->running(); }
  QString progressText() const { return busy() ? m_job->stage() : QString(); }
  /// From 0 to 1; below 0 while nobody can say.
  double progress() const { return busy() ? m_job->progress() : -1; }

  /// Opens the dialog, or shows the one whose work goes on.
  Q_INVOKABLE void show(const QString& way);
  /// The other fields of a lead added by hand.
  Q_INVOKABLE QString field(const QString& name) const { return m_fields.value(name); }
  Q_INVOKABLE void setField(const QString& name, const QString& text) { m_fields.insert(name, text); }
  Q_INVOKABLE void chooseFile() { m_tasks.start(chooseFileTask()); }
  /// Looks into a file that was chosen or dropped.
  void setFile(const QString& path);
  Q_INVOKABLE void dropFile(const QUrl& url) { setFile(url.toLocalFile()); }
  Q_INVOKABLE void submit();
  /// Stops what is under way; what the service has taken by then stays.
  Q_INVOKABLE void stop();
  /// Closes the dialog. Work under way goes on.
  Q_INVOKABLE void dismiss();
  Q_INVOKABLE void retryLists() { m_lists.load(); }

  /// The dialog's own requests end; the adding goes on.
  void close() override;

 Q_SIGNALS:
  void changed();
  void listsChanged();
  void fileChanged();

 private:
  Task<void> chooseFileTask();
  Task<void> look(QString path);
  LeadBatch batch() const;
  QString jobName() const;
  void jobEnded();
  void startAnew();
  std::optional<qint64> ownCount() const;

  CampaignContext& m_context;
  std::function<void()> m_added;
  Resource<LeadListPage> m_lists;
  TaskSlot m_look;
  QPointer<Job> m_job;
  QString m_way;
  QString m_error;
  QString m_dedupe;
  QString m_email;
  QString m_emailError;
  QMap<QString, QString> m_fields;
  QString m_listId;
  QString m_path;
  LeadFilePreview m_preview;
  QString m_ownLimit;
  bool m_allowOthers = false;
  bool m_shown = false;
  bool m_looking = false;
};

}  // namespace orv
