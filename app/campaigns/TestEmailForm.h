#pragma once

#include <QStringList>

#include "app/base/Draft.h"
#include "app/base/EnumName.h"
#include "app/base/Form.h"
#include "app/base/Recovery.h"
#include "app/base/Store.h"
#include "app/campaigns/CampaignContext.h"
#include "app/campaigns/SequenceAutosave.h"
#include "app/campaigns/TestEmailJob.h"

namespace orv {

/// Asks where a test email of the sequence goes, and shows how it fares. The job that sends it tells its end where the
/// dialog does not.
class TestEmailForm final : public Store {
  Q_OBJECT
  Q_PROPERTY(bool shown READ shown NOTIFY changed)
  Q_PROPERTY(QString stage READ stageName NOTIFY changed)
  Q_PROPERTY(QString to READ to WRITE setTo NOTIFY changed)
  Q_PROPERTY(QString error READ error NOTIFY changed)
  Q_PROPERTY(QString note READ note NOTIFY changed)
  Q_PROPERTY(bool waiting READ waiting NOTIFY changed)
  Q_PROPERTY(bool hasSender READ hasSender NOTIFY changed)
  Q_PROPERTY(QString headline READ headline NOTIFY changed)
  Q_PROPERTY(QString detail READ detail NOTIFY changed)
  Q_PROPERTY(QStringList warnings READ warnings NOTIFY changed)
  Q_PROPERTY(orv::Recovery* recovery READ recovery CONSTANT)

 public:
  /// `overdue`: nothing was heard of it for so long that nobody asks any more.
  enum class Stage { form, sending, following, sent, failed, overdue };
  Q_ENUM(Stage)

  /// Which email it is to be.
  struct Email {
    /// The draft's key of the variant.
    QUuid variant;
    qint64 position = 1;
    QString letter;
    QString subject;
    QString body;
    std::optional<QString> leadId;
    /// Empty for the sample lead.
    QString leadName;
  };

  /// `email` tells what is shown now; nothing when there is nothing to send.
  TestEmailForm(CampaignContext& context, SequenceAutosave& autosave, std::function<std::optional<Email>()> email);

  bool shown() const { return m_form.shown(); }
  Stage stage() const { return m_stage; }
  QString stageName() const { return enumName(m_stage); }
  QString to() const;
  void setTo(const QString& to);
  QString error() const { return m_form.error(); }
  QString note() const;
  /// A test is on its way, shown or not.
  bool waiting() const { return m_submission.has_value(); }
  /// Somebody sends for the campaign.
  bool hasSender() const;
  /// Once it is no longer a form.
  QString headline() const { return m_headline; }
  QString detail() const { return m_detail; }
  QStringList warnings() const { return m_warnings; }
  Recovery* recovery() { return &m_recovery; }

  Q_INVOKABLE void show();
  Q_INVOKABLE void submit();
  /// Closes the dialog. A test on its way goes on.
  Q_INVOKABLE void cancel();

  void close() override;

 Q_SIGNALS:
  void changed();

 private:
  class Writing;

  Task<void> writeTask(std::shared_ptr<Writing> writing);
  void take(TestEmailBody& body, const Email& email) const;
  void follow();
  void ended();
  void letGo();
  void set(Stage stage, const QString& headline = {}, const QString& detail = {});

  CampaignContext& m_context;
  SequenceAutosave& m_autosave;
  std::function<std::optional<Email>()> m_emailShown;
  /// As it was when the form was opened, or sent.
  Email m_email;
  Form m_form;
  FieldDraft m_draft;
  Recovery m_recovery;
  /// Where the last one went; the next is offered to go there as well.
  QString m_lastTo;
  Stage m_stage = Stage::form;
  QString m_headline;
  QString m_detail;
  QStringList m_warnings;
  QPointer<Job> m_job;
  std::shared_ptr<TestEmailCourse> m_course;
  std::optional<Form::Submission> m_submission;
};

}  // namespace orv
