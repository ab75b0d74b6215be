#pragma once

#include <memory>

#include "app/base/Draft.h"
#include "app/base/Form.h"
#include "app/base/Recovery.h"

namespace orv {

/// A form with one text field: a new name, a rename. Keeps what was typed until the service has it.
class NameForm final : public Form {
  Q_OBJECT
  Q_PROPERTY(QString title READ title CONSTANT)
  Q_PROPERTY(QString hint READ hint CONSTANT)
  Q_PROPERTY(QString label READ label CONSTANT)
  Q_PROPERTY(QString submitLabel READ submitLabel CONSTANT)
  Q_PROPERTY(QString text READ text WRITE setText NOTIFY changed)
  Q_PROPERTY(bool canSubmit READ canSubmit NOTIFY changed)
  Q_PROPERTY(orv::Recovery* recovery READ recovery CONSTANT)

 public:
  struct Words {
    QString title;
    QString hint;
    QString label;
    QString submitLabel;
  };

  explicit NameForm(Words words, QObject* parent = nullptr);
  NameForm(Words words, WorkspaceContext& context);

  /// Gets the trimmed text, which is never empty.
  std::function<void(QString)> onSubmit;

  /// With a key, what is typed is kept in the journal; the version is that of the record which gets the name.
  void show(const QString& text = {}, const QString& key = {}, FieldDraft::Version version = {});

  QString title() const { return m_words.title; }
  QString hint() const { return m_words.hint; }
  QString label() const { return m_words.label; }
  QString submitLabel() const { return m_words.submitLabel; }
  QString text() const;
  void setText(const QString& text);
  bool canSubmit() const { return !busy() && !text().trimmed().isEmpty(); }
  /// None for a form that belongs to no workspace.
  Recovery* recovery() const { return m_recovery.get(); }

  Q_INVOKABLE void submit();

 private:
  Words m_words;
  FieldDraft m_draft;
  std::unique_ptr<Recovery> m_recovery;
};

}  // namespace orv
