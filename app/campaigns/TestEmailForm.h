#pragma once

#include <QStringList>

#include "app/base/EnumName.h"
#include "app/base/Store.h"
#include "app/campaigns/CampaignContext.h"
#include "app/campaigns/SequenceAutosave.h"
#include "kit/models/campaigns/testEmail.h"

namespace orv {

/// Sends one email of the sequence to somebody who wants to see it, and follows it until it has gone out: in its
/// dialog, and with a message at the end once that is closed.
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
  static constexpr std::chrono::seconds interval{2};
  static constexpr std::chrono::seconds limit{60};

  /// `email` tells what is shown now; nothing when there is nothing to send.
  TestEmailForm(CampaignContext& context, SequenceAutosave& autosave, std::function<std::optional<Email>()> email);

  bool shown() const { return m_shown; }
  Stage stage() const { return m_stage; }
  QString stageName() const { return enumName(m_stage); }
  QString to() const { return m_to; }
  void setTo(const QString& to);
  QString error() const { return m_error; }
  QString note() const;
  /// A test is on its way, shown or not.
  bool waiting() const { return m_stage == Stage::sending || m_stage == Stage::following; }
  /// Somebody sends for the campaign.
  bool hasSender() const;
  /// Once it is no longer a form.
  QString headline() const { return m_headline; }
  QString detail() const { return m_detail; }
  QStringList warnings() const { return m_warnings; }

  Q_INVOKABLE void show();
  Q_INVOKABLE void submit();
  /// Closes the dialog. A test on its way goes on.
  Q_INVOKABLE void cancel();

  void close() override;

 Q_SIGNALS:
  void changed();

 private:
  Task<void> sendTask(QString to, Email email);
  Task<void> followTask(TestEmail test);
  bool tell(const TestEmail& test);
  void set(Stage stage, const QString& headline = {}, const QString& detail = {});
  void end(Stage stage, const QString& headline, const QString& detail);
  void fail(const QString& error);
  void fail(const APIError& error);

  CampaignContext& m_context;
  SequenceAutosave& m_autosave;
  std::function<std::optional<Email>()> m_emailShown;
  /// As it was when the form was opened, or sent.
  Email m_email;
  bool m_shown = false;
  Stage m_stage = Stage::form;
  QString m_to;
  QString m_error;
  QString m_headline;
  QString m_detail;
  QStringList m_warnings;
  TaskSlot m_task;
};

}  // namespace orv
