#pragma once

#include "app/base/Choice.h"
#include "app/base/Recovery.h"
#include "app/base/Store.h"
#include "app/campaigns/CampaignContext.h"
#include "app/campaigns/EmailVariable.h"
#include "app/campaigns/SequenceAutosave.h"
#include "app/campaigns/SequenceDays.h"
#include "app/campaigns/SequencePreview.h"
#include "app/campaigns/SequenceRows.h"
#include "app/campaigns/Spintax.h"
#include "app/campaigns/TestEmailForm.h"
#include "kit/models/campaigns/campaign.h"

namespace orv {

/// The sequence tab of a campaign: which email and which variant of it is being written, and what is done to them.
///
/// Texts go one way while the person types, from the field to the draft; the other way they go only with textShown(),
/// for a field that is given its own text again loses its cursor and its undo history.
class SequenceEditor final : public Store {
  Q_OBJECT
  Q_PROPERTY(orv::SequenceAutosave* autosave READ autosave CONSTANT)
  Q_PROPERTY(orv::SequencePreview* preview READ preview CONSTANT)
  Q_PROPERTY(orv::SequenceDays* days READ days CONSTANT)
  Q_PROPERTY(orv::TestEmailForm* testEmail READ testEmail CONSTANT)
  Q_PROPERTY(orv::Recovery* recovery READ recovery CONSTANT)
  Q_PROPERTY(orv::ListModel* steps READ steps CONSTANT)
  Q_PROPERTY(int stepCount READ stepCount NOTIFY changed)
  Q_PROPERTY(int place READ place NOTIFY changed)
  Q_PROPERTY(QString stepKey READ stepKey NOTIFY changed)
  Q_PROPERTY(QString title READ title NOTIFY changed)
  Q_PROPERTY(int waitDays READ waitDays NOTIFY changed)
  Q_PROPERTY(bool sameThread READ sameThread NOTIFY changed)
  Q_PROPERTY(bool repliesInThread READ repliesInThread NOTIFY changed)
  Q_PROPERTY(bool canAddVariant READ canAddVariant NOTIFY changed)
  Q_PROPERTY(QList<orv::Choice> variants READ variants NOTIFY changed)
  Q_PROPERTY(QString variantKey READ variantKey NOTIFY changed)
  Q_PROPERTY(int weight READ weight NOTIFY changed)
  Q_PROPERTY(bool enabled READ enabled NOTIFY changed)
  Q_PROPERTY(QString subject READ subject NOTIFY textShown)
  Q_PROPERTY(QString body READ body NOTIFY textShown)
  Q_PROPERTY(QString spinning READ spinning NOTIFY spinningChanged)
  Q_PROPERTY(QList<orv::EmailVariable> variables READ variables NOTIFY variablesChanged)

 public:
  explicit SequenceEditor(CampaignContext& context);

  SequenceAutosave* autosave() { return &m_autosave; }
  SequencePreview* preview() { return &m_preview; }
  SequenceDays* days() { return &m_days; }
  TestEmailForm* testEmail() { return &m_testEmail; }
  /// Of what an earlier run or session did not save.
  Recovery* recovery() { return &m_recovery; }
  SequenceRows* steps() { return &m_rows; }
  const SequenceDraft& draft() const { return m_autosave.draft(); }

  // Of the email shown; of no meaning while there is none.
  int stepCount() const { return int(draft().steps().size()); }
  /// -1 while there is none.
  int place() const { return int(draft().placeOf(m_step)); }
  QString stepKey() const { return m_shown.step; }
  QString title() const { return m_shown.title; }
  int waitDays() const { return m_shown.waitDays; }
  bool sameThread() const { return m_shown.sameThread; }
  /// Has no subject of its own; the first email always has one.
  bool repliesInThread() const { return m_shown.repliesInThread; }
  bool canAddVariant() const { return m_shown.canAddVariant; }
  /// The detail of each is its share, "50%" or "is off"; ticked are those that are sent.
  const QList<Choice>& variants() const { return m_shown.variants; }
  QString variantKey() const { return m_shown.variant; }
  int weight() const { return m_shown.weight; }
  bool enabled() const { return m_shown.enabled; }
  QString subject() const;
  QString body() const;
  /// The field that spintax is being made for: "subject", "body" or empty.
  QString spinning() const { return m_spintax.field(); }
  const QList<EmailVariable>& variables() const { return m_variables; }

  Q_INVOKABLE void select(const QString& step);
  /// By place; one outside the sequence changes nothing.
  Q_INVOKABLE void selectPlace(int place);
  Q_INVOKABLE void insertStep(int place);
  /// An email after the others, and the keyboard in it.
  Q_INVOKABLE void writeNew();
  Q_INVOKABLE void removeStep(const QString& step);
  Q_INVOKABLE void setWaitDays(int days);
  Q_INVOKABLE void setSameThread(bool sameThread);
  Q_INVOKABLE void showVariant(const QString& variant);
  Q_INVOKABLE void addVariant();
  Q_INVOKABLE void removeVariant(const QString& variant);
  Q_INVOKABLE void setWeight(int weight);
  Q_INVOKABLE void setEnabled(bool enabled);
  /// Of the variant shown, unless another is named: a field may have to say something of the one that it has just left.
  Q_INVOKABLE void setSubject(const QString& subject, const QString& variant = {});
  Q_INVOKABLE void setBody(const QString& body, const QString& variant = {});
  /// Has the service vary "subject" or "body".
  Q_INVOKABLE void spin(const QString& field) { m_tasks.start(spinTask(field)); }
  Task<void> spinTask(QString field);
  /// What the field's text was before it was varied; empty when that is not what stands in it.
  Q_INVOKABLE QString unspun(const QString& field) const;

  /// Saves what is unsaved; true when the service then has the very text. This object may go while the task waits.
  Task<bool> flush() override { return m_autosave.flush(); }
  /// There is text that the service does not have.
  bool isUnsaved() const { return m_autosave.state() != SequenceAutosave::SaveState::saved; }

  void close() override;

 Q_SIGNALS:
  void changed();
  void variablesChanged();
  void spinningChanged();
  /// The fields must show subject() and body() anew.
  void textShown();
  /// The person wants to write in the email shown.
  void writingAsked();
  /// The field takes the text over as one edit that can be undone.
  void textSpun(const QString& field, const QString& text);

 private:
  struct Shown {
    QString step, title, variant, letter;
    int waitDays = 0, weight = 1;
    qsizetype place = -1;
    bool sameThread = false, repliesInThread = false, canAddVariant = false, enabled = false;
    QList<Choice> variants;
    qsizetype steps = 0;
    bool operator==(const Shown&) const = default;
  };

  template <class Change>
  auto edit(Change&& change);
  void takeLoaded();
  /// Runs what may change the text that the fields show, and has them show it.
  template <class Change>
  void showing(Change&& change);
  Recovery::Restored restore(const Recovery::Kept& kept);
  Task<Campaign> saveSteps(StepsBody body);
  void takeSaved(const Campaign& campaign);
  void tellFailure();
  void follow();
  void keepSelection();
  Shown shownNow() const;
  void collectVariables();
  const DraftStep* step() const;
  const DraftVariant* variant() const;
  std::optional<TestEmailForm::Email> emailShown() const;

  CampaignContext& m_context;
  /// When the save under way went out.
  Stamp m_saveAsked{};
  SequenceAutosave m_autosave;
  Recovery m_recovery;
  SequencePreview m_preview;
  SequenceDays m_days;
  TestEmailForm m_testEmail;
  SequenceRows m_rows;
  QUuid m_step;
  /// Where it stood, for when it goes.
  qsizetype m_place = 0;
  Shown m_shown;
  Spintax m_spintax;
  QList<EmailVariable> m_variables;
  /// Of the campaign that the last save returned.
  std::optional<qint64> m_savedVersion;
};

}  // namespace orv
