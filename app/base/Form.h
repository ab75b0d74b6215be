#pragma once

#include <QObject>
#include <QPointer>
#include <QString>
#include <functional>

#include "app/base/Toasts.h"
#include "kit/api/APIError.h"

namespace orv {

/// Something that is filled in and sent: a dialog, a drawer. Whether it is shown, whether a submission of it is under
/// way, and why the last one failed.
///
/// It can be closed at any time: the request goes on, and its end is told by a toast.
class Form : public QObject {
  Q_OBJECT
  Q_PROPERTY(bool shown READ shown NOTIFY changed)
  Q_PROPERTY(bool busy READ busy NOTIFY changed)
  Q_PROPERTY(QString error READ error NOTIFY changed)

 public:
  /// One submission under way; the form is busy while it lives.
  class [[nodiscard]] Submission {
   public:
    explicit Submission(Form* form);
    Submission(const Submission&) = delete;
    Submission& operator=(const Submission&) = delete;
    ~Submission();
    /// The form shows what was submitted. Not so when the person has closed it, or opened it anew, meanwhile.
    bool isShown() const;
    /// Closes the form; false when it no longer shows this.
    bool succeed();
    /// Shows the sentence in the form; false when nobody would see it there.
    bool fail(const QString& sentence);
    /// Shows why in the form, or under the title in a toast when nobody would see it there.
    void fail(Toasts& toasts, const QString& title, const APIError& error);

   private:
    bool isCurrent() const { return m_form && m_form->m_showing == m_showing; }
    QPointer<Form> m_form;
    int m_showing;
  };

  using QObject::QObject;

  bool shown() const { return m_shown; }
  bool busy() const { return m_busy; }
  QString error() const { return m_error; }

  /// Opens the form, idle and without an error, whatever it showed before.
  void show();
  /// Opens it again as it was closed, with the submission that is under way.
  void reopen();
  Submission begin() { return Submission(this); }
  void clearError();
  /// Closes the form. A submission under way goes on.
  Q_INVOKABLE void cancel();

 Q_SIGNALS:
  void changed();

 private:
  bool m_shown = false;
  bool m_busy = false;
  /// Counts the times the form was shown, so that a submission of an earlier one leaves a later one alone.
  int m_showing = 0;
  QString m_error;
};

}  // namespace orv
