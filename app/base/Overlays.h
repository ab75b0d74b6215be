#pragma once

#include <QList>
#include <QObject>
#include <QString>

#include "kit/async/OneShot.h"
#include "kit/async/Task.h"

namespace orv {

/// A question with two buttons.
struct ConfirmRequest {
  QString title;
  QString text;
  QString confirm;
  QString cancel = QStringLiteral("Cancel");
  /// The verb destroys something: the safe button has the focus.
  bool destructive = false;
  /// Word that must be typed before the verb works; empty for none.
  QString typedWord = {};
  bool operator==(const ConfirmRequest&) const = default;
};

/// Questions waiting for the person, the newest on top. Screens ask with `co_await confirm(…)`; the shell shows the
/// topmost and gives the answer back.
class Overlays : public QObject {
  Q_OBJECT
  Q_PROPERTY(bool asking READ asking NOTIFY changed)
  Q_PROPERTY(int token READ token NOTIFY changed)
  Q_PROPERTY(QString title READ title NOTIFY changed)
  Q_PROPERTY(QString text READ text NOTIFY changed)
  Q_PROPERTY(QString confirmLabel READ confirmLabel NOTIFY changed)
  Q_PROPERTY(QString cancelLabel READ cancelLabel NOTIFY changed)
  Q_PROPERTY(bool destructive READ destructive NOTIFY changed)
  Q_PROPERTY(QString typedWord READ typedWord NOTIFY changed)

 public:
  using QObject::QObject;

  /// True when the person chose the verb. A question whose asker is cancelled disappears.
  Task<bool> confirm(ConfirmRequest request);

  bool asking() const { return !m_questions.isEmpty(); }
  const ConfirmRequest& current() const;
  /// Names the question on top, so that an answer meant for one never reaches another.
  int token() const { return asking() ? m_questions.last().token : 0; }
  QString title() const { return current().title; }
  QString text() const { return current().text; }
  QString confirmLabel() const { return current().confirm; }
  QString cancelLabel() const { return current().cancel; }
  bool destructive() const { return current().destructive; }
  QString typedWord() const { return current().typedWord; }

  Q_INVOKABLE void answer(int token, bool confirmed);
  /// Answers every question with no.
  void dismissAll();

 Q_SIGNALS:
  void changed();

 private:
  struct Question {
    int token;
    ConfirmRequest request;
    OneShot<bool> answered;
  };
  class Asking;

  QList<Question> m_questions;
  int m_lastToken = 0;
};

}  // namespace orv
