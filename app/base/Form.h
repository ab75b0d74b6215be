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

/// A form with one text field: a new name, a rename. Keeps what was typed until the service has it.
class NameForm final : public Form {
  Q_OBJECT
  Q_PROPERTY(QString title READ title CONSTANT)
  Q_PROPERTY(QString hint READ hint CONSTANT)
  Q_PROPERTY(QString label READ label CONSTANT)
  Q_PROPERTY(QString submitLabel READ submitLabel CONSTANT)
  Q_PROPERTY(QString text READ text WRITE setText NOTIFY changed)
  Q_PROPERTY(bool canSubmit READ canSubmit NOTIFY changed)

 public:
  struct Words {
    QString title;
    QString hint;
    QString label;
    QString submitLabel;
  };

  explicit NameForm(Words words, QObject* parent = nullptr) : Form(parent), m_words(std::move(words)) {}

  /// Gets the trimmed text, which is never empty.
  std::function<void(QString)> onSubmit;

  void show(const QString& text = {});

  QString title() const { return m_words.title; }
  QString hint() const { return m_words.hint; }
  QString label() const { return m_words.label; }
  QString submitLabel() const { return m_words.submitLabel; }
  QString text() const { return m_text; }
  void setText(const QString& text);
  bool canSubmit() const { return !busy() && !m_text.trimmed().isEmpty(); }

  Q_INVOKABLE void submit();

 private:
  Words m_words;
  QString m_text;
};

}  // namespace orv
