#pragma once

#include "app/base/CsvPick.h"
#include "app/base/JobForm.h"
#include "app/base/KeptFields.h"
#include "app/leads/ImportColumns.h"
#include "app/leads/LeadListPicker.h"

namespace orv {

/// What a person fills in to import a file of leads.
struct CsvImportFields {
  QString path;
  /// A target for each of its columns.
  QStringList mapping;
  QString listName;
};
BOOST_DESCRIBE_STRUCT(CsvImportFields, (), (path, mapping, listName))

/// The form that imports a file of leads: which file, what its columns become, and the list that the leads go into.
///
/// Reading and sending the file is a job of the workspace. What the service then does with it, the import history
/// tells.
class CsvImportForm final : public Store {
  Q_OBJECT
  Q_PROPERTY(orv::JobForm* form READ form CONSTANT)
  Q_PROPERTY(orv::Recovery* recovery READ recovery CONSTANT)
  Q_PROPERTY(orv::LeadListPicker* list READ list CONSTANT)
  Q_PROPERTY(QString fileName READ fileName NOTIFY changed)
  Q_PROPERTY(QString fileFacts READ fileFacts NOTIFY changed)
  Q_PROPERTY(bool looking READ looking NOTIFY changed)
  Q_PROPERTY(orv::ListModel* columns READ columns CONSTANT)
  Q_PROPERTY(QList<orv::Choice> targets READ targets CONSTANT)
  Q_PROPERTY(QString matchedText READ matchedText NOTIFY changed)
  Q_PROPERTY(QString sampledText READ sampledText NOTIFY changed)
  Q_PROPERTY(QString need READ need NOTIFY changed)
  Q_PROPERTY(QString nameError READ nameError NOTIFY changed)
  Q_PROPERTY(bool canSubmit READ canSubmit NOTIFY changed)

 public:
  CsvImportForm(WorkspaceContext& context, Store& whole);

  JobForm* form() { return &m_form; }
  Recovery* recovery() { return m_kept.recovery(); }
  LeadListPicker* list() { return &m_list; }
  QString fileName() const { return m_file.name(); }
  /// "1.4 MB · 11 columns".
  QString fileFacts() const { return m_file.facts(); }
  /// The chosen file is being looked into.
  bool looking() const { return m_file.looking(); }
  ImportColumns* columns() { return &m_columns; }
  static QList<Choice> targets();
  /// "9 of 11 matched".
  QString matchedText() const;
  /// "From the first 5 rows".
  QString sampledText() const;
  /// What is missing before it can start; empty for nothing.
  QString need() const;
  QString nameError() const;
  bool canSubmit() const;

  /// Opens the form, or shows the one whose work goes on.
  Q_INVOKABLE void show() { showFor({}); }
  /// The same, for a list.
  void showFor(const QString& listId);
  Q_INVOKABLE void chooseFile() { m_file.choose(); }
  /// A file was dropped, on the form or on the page, which then opens the form.
  Q_INVOKABLE void dropFile(const QUrl& url) { setFile(url.toLocalFile()); }
  void setFile(const QString& path);
  Q_INVOKABLE void setTarget(int column, const QString& target);
  Q_INVOKABLE void submit();
  Q_INVOKABLE void dismiss() { m_form.cancel(); }

  void close() override;

 Q_SIGNALS:
  void changed();
  /// While somebody saw it; the history has it now.
  void started();

 private:
  void looked();
  CsvImportFields fields() const;
  void fill(const CsvImportFields& fields);

  CsvPick m_file;
  ImportColumns m_columns;
  LeadListPicker m_list;
  JobForm m_form;
  KeptFields<CsvImportFields> m_kept;
  /// Of a file that is being looked into, what its columns were to become.
  QStringList m_wanted;
};

}  // namespace orv
