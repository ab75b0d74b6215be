#pragma once

#include <QSet>
#include <boost/describe/class.hpp>

#include "app/base/Draft.h"
#include "app/base/Recovery.h"

namespace orv {

/// What a person writes to a lead.
struct WrittenFields {
  QString body;
  /// Addresses, as typed.
  QString cc;
  QString bcc;
  bool operator==(const WrittenFields&) const = default;
};
BOOST_DESCRIBE_STRUCT(WrittenFields, (), (body, cc, bcc))

/// One message that a person is writing: a reply of their own, or what they make of a draft. It is theirs until it is
/// sent or thrown away, through every switch of threads, failed sending and restart.
class Writing final : public QObject {
  Q_OBJECT
  Q_PROPERTY(QString body READ body WRITE setBody NOTIFY changed)
  Q_PROPERTY(QString cc READ cc WRITE setCc NOTIFY changed)
  Q_PROPERTY(QString bcc READ bcc WRITE setBcc NOTIFY changed)
  Q_PROPERTY(QString ccProblem READ ccProblem NOTIFY changed)
  Q_PROPERTY(QString bccProblem READ bccProblem NOTIFY changed)
  Q_PROPERTY(bool dirty READ dirty NOTIFY changed)
  Q_PROPERTY(bool canSend READ canSend NOTIFY changed)
  Q_PROPERTY(bool sending READ sending NOTIFY changed)
  Q_PROPERTY(bool uncertain READ uncertain NOTIFY changed)
  Q_PROPERTY(QString rival READ rival NOTIFY changed)
  Q_PROPERTY(orv::Recovery* recovery READ recovery CONSTANT)

 public:
  /// `key` names it in the journal; `about` says whom it is for, in sentences.
  Writing(WorkspaceContext& context, const QString& key, QString about, QObject* parent = nullptr);

  QString body() const { return m_draft.values().value(QStringLiteral("body")).toString(); }
  QString cc() const { return m_draft.values().value(QStringLiteral("cc")).toString(); }
  QString bcc() const { return m_draft.values().value(QStringLiteral("bcc")).toString(); }
  void setBody(const QString& text) { type(QStringLiteral("body"), text); }
  void setCc(const QString& text) { type(QStringLiteral("cc"), text); }
  void setBcc(const QString& text) { type(QStringLiteral("bcc"), text); }
  WrittenFields typed() const { return m_draft.typed(); }
  const QString& about() const { return m_about; }

  /// Why it cannot be sent to these; empty while nothing is wrong.
  QString ccProblem() const;
  QString bccProblem() const;
  /// It says something else than what it was begun on.
  bool dirty() const { return m_draft.dirty(); }
  /// It says anything, to addresses that can be, and is not on its way.
  bool canSend() const;

  /// It is on its way; one at a time.
  bool sending() const { return m_sending; }
  /// It was on its way, and nobody knows whether it arrived.
  bool uncertain() const { return m_uncertain; }
  /// In what the journal keeps of it: it may have been sent.
  static constexpr QLatin1String mayBeSentKey{"mayBeSent"};
  void setState(bool sending, bool uncertain);
  /// By what it is found in its thread: what was sent of it, and what had left the thread before that.
  struct Trace {
    WrittenFields sent;
    QSet<QString> leftBefore;
  };
  /// Of what is to be sent now; none of what is found otherwise. Kept with the text while nobody knows of its end: the
  /// next run must not send it twice either.
  void setTrace(const Trace& trace);
  Trace trace() const { return m_trace.value_or(Trace{typed(), {}}); }
  /// Waits until it is not on its way any more.
  Task<void> settled();

  /// The draft says something else by now than when it was edited; what it says, else empty.
  QString rival() const;
  Recovery* recovery() { return &m_recovery; }

  /// What it is begun on: the draft as the agent wrote it. What was typed stays.
  /// `draft` is the agent's own text where it is another version of that.
  void begin(const QString& body, const std::optional<QString>& draft = {});
  /// The agent's own text that it was begun for; nothing before.
  const std::optional<QString>& begunFor() const { return m_begunFor; }
  /// It has been sent as `sent`. What was typed since stays.
  void sent(const WrittenFields& sent);
  /// A field shows it from now on, and no longer.
  Q_INVOKABLE void appear() { ++m_views; }
  Q_INVOKABLE void disappear() { --m_views; }
  bool isShown() const { return m_views > 0; }
  /// Back to what it was begun on.
  Q_INVOKABLE void discard();

 Q_SIGNALS:
  void changed();
  /// The texts are others than what was typed: fields are to show them.
  void given();

 private:
  Recovery::Hooks hooks();
  void type(const QString& field, const QString& text);
  void keepWhileSending();

  WorkspaceContext& m_context;
  QString m_about;
  DraftOf<WrittenFields> m_draft;
  bool m_sending = false;
  bool m_uncertain = false;
  std::optional<Trace> m_trace;
  Recovery m_recovery;
  std::optional<QString> m_begunFor;
  bool m_typing = false;
  int m_views = 0;
  QList<OneShot<bool>> m_waiting;
};

}  // namespace orv
