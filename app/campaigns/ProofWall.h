#pragma once

#include <boost/describe/class.hpp>

#include "app/base/RecordModel.h"
#include "app/base/RowFields.h"
#include "app/base/Store.h"
#include "app/campaigns/CampaignContext.h"
#include "app/campaigns/SequenceAutosave.h"
#include "kit/models/campaigns/campaignLead.h"
#include "kit/models/campaigns/emailPreview.h"

namespace orv {

/// The first email as one lead gets it.
struct ProofEmail {
  /// The lead's.
  QString id;
  QString name;
  QString company;
  /// The variant's; empty where there is only one.
  QString letter;
  QString subject;
  QStringList body;
  /// Start and length of each stretch of the body that is wrong, its lines joined by line feeds.
  QList<int> wrong;
  bool subjectIsWrong = false;
  /// "waiting", "right" or "wrong".
  QString state;
  QStringList findings;
  /// It is the lead that has to be mended, and not the text.
  bool inLead = false;
  bool current = false;
  /// "3 of 12, Kadri Tamm, Tallinn Port Freight, variant A, looks right".
  QString words;
  bool operator==(const ProofEmail&) const = default;
};
BOOST_DESCRIBE_STRUCT(ProofEmail, (),
                      (id, name, company, letter, subject, body, wrong, subjectIsWrong, state, findings, inLead,
                       current, words))
ORV_DECLARE_ROW(ProofEmail)

class ProofEmails final : public RecordModel<ProofEmail> {
 public:
  using RecordModel::RecordModel;
};

/// The first email of a campaign for a dozen of its leads, as it is being written.
///
/// Asks for one at a time and only while somebody looks. What was rendered is kept: of what changes, a variant's text,
/// a lead, the senders, only what depends on it is rendered again.
class ProofWall final : public Store {
  Q_OBJECT
  Q_PROPERTY(bool watched READ watched WRITE setWatched NOTIFY changed)
  Q_PROPERTY(orv::ListModel* emails READ emails CONSTANT)
  Q_PROPERTY(QString current READ current WRITE setCurrent NOTIFY changed)
  Q_PROPERTY(QString note READ note NOTIFY changed)
  Q_PROPERTY(QString nothing READ nothing NOTIFY changed)
  Q_PROPERTY(QString lacking READ lacking NOTIFY changed)
  Q_PROPERTY(QString message READ message NOTIFY changed)
  Q_PROPERTY(QString verdict READ verdict NOTIFY changed)
  Q_PROPERTY(int wrongCount READ wrongCount NOTIFY changed)
  Q_PROPERTY(bool hasOthers READ hasOthers NOTIFY changed)

 public:
  static constexpr qsizetype most = 12;
  static constexpr qint64 leadsAtMost = 200;

  /// Where what is wrong is mended: the lead, or the first email's text for that lead and of that variant.
  struct Ways {
    std::function<void(const CampaignLead& lead)> openLead;
    std::function<void(const QString& lead, const QString& letter)> openText;
  };

  ProofWall(CampaignContext& context, const SequenceAutosave& autosave, Ways ways);

  bool watched() const { return m_watched; }
  void setWatched(bool watched);
  ProofEmails* emails() { return &m_emails; }
  /// The lead whose email the person is at.
  const QString& current() const { return m_current; }
  void setCurrent(const QString& lead);
  /// "For 12 of 420 leads, each with their own variant and spin text."
  QString note() const;
  /// Why there is nothing to render, in a sentence; empty when there is.
  QString nothing() const;
  /// The tab where that is mended; empty where it mends itself.
  QString lacking() const;
  /// Why rendering stopped; empty when it did not.
  QString message() const;
  /// "10 of 12 look right", of those that are there.
  QString verdict() const;
  int wrongCount() const;
  /// There are more leads than are shown.
  bool hasOthers() const { return m_waiting.size() > most; }

  /// The next dozen, after the last one the first.
  Q_INVOKABLE void showOthers();
  /// Goes on after a failure, and asks again for the leads that were refused.
  Q_INVOKABLE void retry();
  Q_INVOKABLE void openLead(const QString& lead);
  Q_INVOKABLE void openText(const QString& lead);
  /// To the one of both where what is wrong is mended.
  Q_INVOKABLE void open(const QString& lead);

  void refresh() override;
  void close() override;

 Q_SIGNALS:
  void changed();

 private:
  /// What an email's rendering depends on.
  struct Question {
    CampaignLead lead;
    StepIn email;
    QList<CampaignSender> senders;
  };
  struct Kept {
    Question asked;
    QList<QcPreview> variants;
    std::optional<QList<PreviewResponse::Variable>> variables;
    /// Why the service does not render it for this lead.
    QString refusal;
    const QcPreview* picked() const;
  };

  std::optional<Question> question(const QString& lead) const;
  bool isFresh(const Kept& kept, const Question& asked) const;
  QString nextLead() const;
  Task<void> renderTask();
  Task<void> renderOne(Question asked);
  void chooseLeads();
  void follow();
  void goOn();
  void run();
  void show();
  ProofEmail email(const QString& lead) const;
  void describe(ProofEmail& email, const Kept& kept) const;
  const CampaignLead* find(const QString& lead) const;
  bool replies() const;

  CampaignContext& m_context;
  const SequenceAutosave& m_autosave;
  Ways m_ways;
  Resource<LeadPage> m_leads;
  ProofEmails m_emails;
  /// Leads that the email can still reach; all of them where it has reached all.
  QStringList m_waiting;
  qsizetype m_from = 0;
  QStringList m_shown;
  QHash<QString, Kept> m_kept;
  QString m_current;
  QString m_failure;
  bool m_isOffline = false;
  bool m_watched = false;
  TaskSlot m_run;
};

}  // namespace orv
