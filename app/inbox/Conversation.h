#pragma once

#include <QPointer>

#include "app/base/Choice.h"
#include "app/base/Poll.h"
#include "app/base/Resource.h"
#include "app/inbox/MessageRows.h"
#include "app/inbox/Writings.h"
#include "kit/models/leads/leadRecord.h"

namespace orv {

/// One thread with its messages, the draft that waits, and what the person writes there.
class Conversation final : public Store {
  Q_OBJECT
  Q_PROPERTY(QString threadId READ id CONSTANT)
  Q_PROPERTY(orv::ResourceBase* detail READ detail CONSTANT)
  Q_PROPERTY(orv::ListModel* messages READ messages CONSTANT)
  Q_PROPERTY(QString subject READ subject NOTIFY changed)
  Q_PROPERTY(QString contact READ contact NOTIFY changed)
  Q_PROPERTY(QString contactTitle READ contactTitle NOTIFY changed)
  Q_PROPERTY(QString contactAddress READ contactAddress NOTIFY changed)
  Q_PROPERTY(QString mailbox READ mailbox NOTIFY changed)
  Q_PROPERTY(QString origin READ origin NOTIFY changed)
  Q_PROPERTY(QString label READ label NOTIFY changed)
  Q_PROPERTY(QString labelTitle READ labelTitle NOTIFY changed)
  Q_PROPERTY(QString labelTone READ labelTone NOTIFY changed)
  Q_PROPERTY(bool archived READ archived NOTIFY changed)
  Q_PROPERTY(bool hasDraft READ hasDraft NOTIFY changed)
  Q_PROPERTY(QString draftText READ draftText NOTIFY writingChanged)
  Q_PROPERTY(QString draftTitle READ draftTitle NOTIFY changed)
  Q_PROPERTY(QString draftFacts READ draftFacts NOTIFY changed)
  Q_PROPERTY(QString draftFailures READ draftFailures NOTIFY changed)
  Q_PROPERTY(QStringList outgoing READ outgoing NOTIFY changed)
  Q_PROPERTY(orv::Writing* reply READ reply NOTIFY writingChanged)
  Q_PROPERTY(orv::Writing* edit READ edit NOTIFY writingChanged)
  Q_PROPERTY(bool replying READ replying WRITE setReplying NOTIFY writingChanged)
  Q_PROPERTY(bool editing READ editing WRITE setEditing NOTIFY writingChanged)
  Q_PROPERTY(QList<orv::Choice> facts READ facts NOTIFY changed)
  Q_PROPERTY(QList<orv::Choice> campaigns READ campaigns NOTIFY changed)
  Q_PROPERTY(QStringList lists READ lists NOTIFY changed)
  Q_PROPERTY(QString agentMode READ agentMode NOTIFY changed)

 public:
  /// How it is asked whether what was due has gone out.
  static constexpr PollPace sendingPace{std::chrono::seconds(5), 6};

  /// What the whole inbox knows beside the thread.
  struct Surroundings {
    Writings& writings;
    /// The thread as the list has it; nothing where it does not.
    std::function<std::optional<InboxThread>(const QString& id)> listed;
    std::function<ReplyLabel(const ThreadLabel& label)> label;
    /// Of a campaign; empty while it is not known.
    std::function<QString(const QString& id)> campaign;
  };

  Conversation(WorkspaceContext& context, QString id, Surroundings around);

  const QString& id() const { return m_id; }
  Resource<ThreadDetail>* detail() { return &m_detail; }
  Resource<LeadRecord>* lead() { return &m_lead; }
  MessageRowsModel* messages() { return &m_messages; }

  /// As it is known by now, by the list or by its own reading; null before either.
  const InboxThread* thread() const;
  /// The list has read it anew: what of it may be other than what is shown is read again.
  void follow(const InboxThread& listed);
  /// It has been read otherwise.
  void take(const ThreadDetail& detail);
  void addDraft(const Draft& draft);

  QString subject() const;
  QString contact() const;
  /// "Fleet manager".
  QString contactTitle() const;
  QString contactAddress() const;
  QString mailbox() const;
  /// "Fleet maintenance, Benelux · Email 2 · ellen@fleet.example.com"
  QString origin() const;
  QString label() const;
  QString labelTitle() const;
  QString labelTone() const;
  bool archived() const { return thread() && thread()->isArchived(); }

  /// The agent's draft that waits for a decision: the one that the person is changing, or the newest; null for none.
  const Draft* draft() const;
  bool hasDraft() const { return draft() != nullptr; }
  /// As it is sent when it is approved: in the style that was chosen, with what the person made of it.
  QString draftText() const;
  QString draftTitle() const;
  QString draftFacts() const;
  /// Why it was held back, a line each.
  QString draftFailures() const;
  /// What has been decided and not yet left, a sentence each.
  QStringList outgoing() const;

  Writing* reply() const { return m_reply; }
  /// Null where no draft waits.
  Writing* edit() const { return m_edit; }
  /// The person's own message is open.
  bool replying() const { return m_replying || (m_reply && m_reply->dirty()); }
  void setReplying(bool replying);
  /// The draft is open for changes.
  bool editing() const { return m_edit && (m_editing || m_edit->dirty()); }
  void setEditing(bool editing);
  /// Begins what is written here where that is not there, or no longer.
  void openWritings();

  /// Label and detail of what is known of the contact.
  QList<Choice> facts() const;
  /// Those that the lead is or was in: label, and detail with its state as key.
  QList<Choice> campaigns() const;
  QStringList lists() const;
  QString agentMode() const;

  /// Opens or closes what a message quotes.
  Q_INVOKABLE void fold(const QString& foldId) { m_messages.fold(foldId); }
  /// Loads what stands beside the thread.
  Q_INVOKABLE void ensureContact();
  void ensureLoaded() override;
  void refresh() override;

 Q_SIGNALS:
  void changed();
  void writingChanged();
  /// Its reading says something else of the thread than the list did.
  void threadRead(const orv::InboxThread& before, const orv::InboxThread& after);

 private:
  /// There is a lead behind it that can be asked for. It may have been removed since it was.
  bool hasContact() const { return thread() && thread()->lead; }
  Task<ThreadDetail> read();
  void arrived();
  void take(const Change<InboxThread>& change);
  void take(const Change<Draft>& change);
  /// What is decided goes out by itself, and nobody tells of it: it is looked for while the conversation is shown.
  void followSending();
  Task<void> followTask(QString draftId, std::optional<QDateTime> due);
  Task<bool> lookWhetherSent(QString draftId);

  QString m_id;
  Surroundings m_around;
  Resource<ThreadDetail> m_detail;
  Resource<LeadRecord> m_lead;
  MessageRowsModel m_messages;
  QPointer<Writing> m_reply;
  QPointer<Writing> m_edit;
  /// What was made of it is begun on these.
  QString m_editedDraft;
  QString m_editedBody;
  /// The same, while the person's text of it is there: a newer one does not take its place.
  QString m_heldDraft;
  bool m_replying = false;
  bool m_editing = false;
  std::optional<InboxThread> m_listed;
  /// Followed on their way out, or followed in vain.
  QSet<QString> m_followed;
};

}  // namespace orv
