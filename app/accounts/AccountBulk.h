#pragma once

#include <functional>

#include "app/base/Actions.h"
#include "app/base/Choice.h"
#include "app/base/Form.h"
#include "app/base/KeptFields.h"
#include "app/base/Store.h"
#include "kit/models/mailboxes/mailboxBulk.h"

namespace orv {

class RowSelection;

/// What a person fills in for many accounts.
struct AccountBulkFields {
  QString text;
  QStringList tags;
};
BOOST_DESCRIBE_STRUCT(AccountBulkFields, (), (text, tags))

/// What is done with all ticked accounts in one request, one at a time, and the dialog of those actions that need to be
/// told something. The ids are those that were ticked when the person began.
class AccountBulk final : public Store {
  Q_OBJECT
  Q_PROPERTY(QString running READ running NOTIFY changed)
  Q_PROPERTY(bool shown READ shown NOTIFY changed)
  Q_PROPERTY(bool busy READ busy NOTIFY changed)
  Q_PROPERTY(QString error READ error NOTIFY changed)
  Q_PROPERTY(orv::Recovery* recovery READ recovery CONSTANT)
  Q_PROPERTY(QString input READ input NOTIFY changed)
  Q_PROPERTY(QString title READ title NOTIFY changed)
  Q_PROPERTY(QString intro READ intro NOTIFY changed)
  Q_PROPERTY(QString label READ label NOTIFY changed)
  Q_PROPERTY(QString help READ help NOTIFY changed)
  Q_PROPERTY(QString submitLabel READ submitLabel NOTIFY changed)
  Q_PROPERTY(int most READ most NOTIFY changed)
  Q_PROPERTY(QString text READ text WRITE setText NOTIFY changed)
  Q_PROPERTY(QString problem READ problem NOTIFY changed)
  Q_PROPERTY(QList<orv::Choice> tags READ tags NOTIFY changed)
  Q_PROPERTY(QList<orv::Choice> knownTags READ knownTags NOTIFY changed)
  Q_PROPERTY(bool canSubmit READ canSubmit NOTIFY changed)

 public:
  /// What came of an action, for the list.
  struct Ended {
    QString action;
    QStringList done;
  };
  using Tell = std::function<void(const Ended&)>;
  using KnownTags = std::function<QList<Choice>()>;

  AccountBulk(Store& whole, const RowSelection& selection, KnownTags knownTags, Tell ended);
  /// What is under way says here that it has ended, while there is a here.
  ~AccountBulk() override { m_tasks.cancel(); }

  /// The action under way; empty for none.
  const QString& running() const { return m_running; }

  bool shown() const { return m_form.shown(); }
  bool busy() const { return m_form.busy(); }
  QString error() const { return m_form.error(); }
  Recovery* recovery() { return m_kept.recovery(); }
  /// What the dialog asks for: "number", "tags" or "host".
  QString input() const;
  QString title() const;
  QString intro() const;
  QString label() const;
  QString help() const;
  QString submitLabel() const;
  int most() const;
  const QString& text() const { return m_text; }
  void setText(const QString& text);
  const QString& problem() const { return m_problem; }
  QList<Choice> tags() const;
  /// Tags to choose from: to take away, only those that somebody has.
  QList<Choice> knownTags() const { return m_knownTags(); }
  bool canSubmit() const;

  /// Pauses, resumes, tests or removes, by the service's word; where it has to be told something, asks for that first.
  Q_INVOKABLE void act(const QString& action);
  Q_INVOKABLE void addTags(const QStringList& texts);
  Q_INVOKABLE void removeTag(const QString& tag);
  Q_INVOKABLE void submit();
  Q_INVOKABLE void cancel() { m_form.cancel(); }

  Task<void> send(MailboxBulkBody body, bool fromForm);

 Q_SIGNALS:
  void changed();

 private:
  bool fill(MailboxBulkBody& body);
  void setTags(const QStringList& tags);
  void tell(const MailboxBulkBody& body, const MailboxBulkResult& result);

  const RowSelection& m_selection;
  KnownTags m_knownTags;
  Tell m_ended;
  BusySet m_busy;
  Actions m_actions;
  Form m_form;
  QString m_running;
  /// Of the dialog.
  QString m_action;
  QStringList m_ids;
  QString m_text;
  QStringList m_tags;
  QString m_problem;
  KeptFields<AccountBulkFields> m_kept;
};

}  // namespace orv
