#pragma once

#include <QObject>
#include <QPointer>
#include <QString>
#include <functional>

namespace orv {

/// A dialog with one text field: a new name, a rename. Keeps what was typed until the service has it.
class NameForm final : public QObject {
  Q_OBJECT
  Q_PROPERTY(bool shown READ shown NOTIFY changed)
  Q_PROPERTY(QString title READ title CONSTANT)
  Q_PROPERTY(QString hint READ hint CONSTANT)
  Q_PROPERTY(QString label READ label CONSTANT)
  Q_PROPERTY(QString submitLabel READ submitLabel CONSTANT)
  Q_PROPERTY(QString text READ text WRITE setText NOTIFY changed)
  Q_PROPERTY(bool busy READ busy NOTIFY changed)
  Q_PROPERTY(bool canSubmit READ canSubmit NOTIFY changed)
  Q_PROPERTY(QString error READ error NOTIFY changed)

 public:
  struct Words {
    QString title;
    QString hint;
    QString label;
    QString submitLabel;
  };

  /// One submission under way; the form is busy while it lives.
  class [[nodiscard]] Submission {
   public:
    Submission(NameForm* form, int showing);
    Submission(const Submission&) = delete;
    Submission& operator=(const Submission&) = delete;
    ~Submission();
    /// Closes the form. False when the person has closed it, or opened it anew, meanwhile.
    bool succeed();
    /// Shows the sentence in the form; false when nobody would see it there.
    bool fail(const QString& error);

   private:
    bool isShown() const;
    QPointer<NameForm> m_form;
    int m_showing;
  };

  NameForm(Words words, QObject* parent = nullptr);

  /// Gets the trimmed text, which is never empty.
  std::function<void(QString)> onSubmit;

  void show(const QString& text = {});
  Submission begin();

  bool shown() const { return m_shown; }
  QString title() const { return m_words.title; }
  QString hint() const { return m_words.hint; }
  QString label() const { return m_words.label; }
  QString submitLabel() const { return m_words.submitLabel; }
  QString text() const { return m_text; }
  void setText(const QString& text);
  bool busy() const { return m_busy; }
  bool canSubmit() const { return !m_busy && !m_text.trimmed().isEmpty(); }
  QString error() const { return m_error; }

  Q_INVOKABLE void submit();
  /// Closes the form. A submission under way goes on.
  Q_INVOKABLE void cancel();

 Q_SIGNALS:
  void changed();

 private:
  Words m_words;
  bool m_shown = false;
  bool m_busy = false;
  /// Counts the times the form was shown, so that a submission of an earlier one leaves a later one alone.
  int m_showing = 0;
  QString m_text;
  QString m_error;
};

}  // namespace orv
