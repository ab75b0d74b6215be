#pragma once

#include <QVariantList>

#include "app/base/Choice.h"
#include "app/base/Store.h"
#include "app/campaigns/CampaignContext.h"
#include "app/campaigns/SequenceDraft.h"
#include "kit/models/campaigns/campaignLead.h"
#include "kit/models/campaigns/emailPreview.h"

namespace orv {

/// How the emails being written read for one lead, unsaved text included.
///
/// Asks only while somebody looks, and not for every keystroke.
class SequencePreview final : public Store {
  Q_OBJECT
  Q_PROPERTY(orv::ResourceBase* answer READ answer CONSTANT)
  Q_PROPERTY(bool watched READ watched WRITE setWatched NOTIFY changed)
  Q_PROPERTY(QString title READ title NOTIFY changed)
  Q_PROPERTY(QList<orv::Choice> leads READ leads NOTIFY changed)
  Q_PROPERTY(QString lead READ lead WRITE setLead NOTIFY changed)
  Q_PROPERTY(QString leadsNote READ leadsNote NOTIFY changed)
  Q_PROPERTY(bool leadsFailed READ leadsFailed NOTIFY changed)
  Q_PROPERTY(QString from READ from NOTIFY changed)
  Q_PROPERTY(QString to READ to NOTIFY changed)
  Q_PROPERTY(QString subject READ subject NOTIFY changed)
  Q_PROPERTY(QString body READ body NOTIFY changed)
  Q_PROPERTY(QString letter READ letter NOTIFY changed)
  Q_PROPERTY(QString pickedText READ pickedText NOTIFY changed)
  Q_PROPERTY(QStringList warnings READ warnings NOTIFY changed)
  Q_PROPERTY(QString message READ message NOTIFY changed)

 public:
  static constexpr std::chrono::milliseconds wait{600};
  /// Nobody is typing on the first text there is, but the page that it came with is to be drawn before.
  static constexpr std::chrono::milliseconds firstWait{30};
  static constexpr qint64 leadsAtMost = 50;

  SequencePreview(CampaignContext& context, const SequenceDraft& draft);

  Resource<PreviewResponse>* answer() { return &m_answer; }
  /// The pane is on the screen.
  bool watched() const { return m_watched; }
  void setWatched(bool watched);
  /// Somebody writes, so one answer is wanted though nobody may look: the leads' own variables come with it.
  Q_INVOKABLE void wantVariables();
  /// "Preview · email 2 of 4".
  QString title() const;

  /// Key and label of each lead that can be chosen; empty while none is known, of which leadsNote() tells.
  QList<Choice> leads() const;
  QString leadsNote() const;
  bool leadsFailed() const;
  /// The chosen one, or the one that the service chose.
  QString lead() const;
  void setLead(const QString& id);
  /// How a text speaks of the lead: their name, or address; empty for the sample one.
  QString leadName() const;
  /// What is known of the lead; nothing for the sample one, or before the leads are read.
  const CampaignLead* leadRecord() const { return listed(lead()); }
  /// What a request names the lead by; none while nobody chose.
  std::optional<QString> leadId() const;

  QString from() const;
  QString to() const;
  QString subject() const;
  QString body() const;
  /// Of the variant shown.
  QString letter() const;
  QString pickedText() const;
  /// Of all variants of the email, each with its letter where there are more than one.
  QStringList warnings() const;
  /// Why the last rendering failed; empty when it did not.
  QString message() const;
  const PreviewResponse* response() const { return m_answer.value(); }

  /// The editor shows the email at `place`, and this variant of it.
  void follow(qsizetype place, const QString& letter);
  /// The draft is another one than a moment ago.
  void draftChanged();
  /// Asks at once for what failed.
  Q_INVOKABLE void retry();

  void close() override;

 Q_SIGNALS:
  void changed();

 private:
  Task<PreviewResponse> load();
  void ask();
  void askLater(std::chrono::milliseconds delay);
  /// Of the email at `place`; null where the answer has none.
  const PreviewResponse::Step* stepAt(qsizetype place) const;
  const PreviewResponse::Step* step() const { return stepAt(m_place); }
  const PreviewResponse::Variant* variant() const;
  QStringList linesOf(const PreviewResponse::Variant& rendered) const;
  QString threadSubject() const;
  const CampaignLead* listed(const QString& id) const;

  CampaignContext& m_context;
  const SequenceDraft& m_draft;
  Resource<PreviewResponse> m_answer;
  Resource<LeadPage> m_leads;
  QString m_chosenLead;
  QString m_refreshError;
  qsizetype m_place = 0;
  QString m_letter;
  /// Of the draft that was asked about last.
  std::optional<quint64> m_askedRevision;
  bool m_watched = false;
  bool m_wantsVariables = false;
  std::unique_ptr<Clock::Timer> m_wait;
};

}  // namespace orv
