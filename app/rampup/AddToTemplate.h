#pragma once

#include "app/base/RecordModel.h"
#include "app/base/RowFields.h"
#include "app/rampup/RampupBulk.h"
#include "kit/models/rampup/roadmapTemplate.h"

namespace orv {

/// An account that may be put on the template.
struct AddableRow {
  QString id;
  QString address;
  QString detail;
  bool ticked = false;
  bool operator==(const AddableRow&) const = default;
};
BOOST_DESCRIBE_STRUCT(AddableRow, (), (id, address, detail, ticked))
ORV_DECLARE_ROW(AddableRow)

class AddableRows final : public RecordModel<AddableRow> {
 public:
  using RecordModel::RecordModel;
};

/// Puts accounts on a template: each begins on day 1 today.
class AddToTemplate final : public Store {
  Q_OBJECT
  Q_PROPERTY(orv::Form* form READ form CONSTANT)
  Q_PROPERTY(orv::ListModel* rows READ rows CONSTANT)
  Q_PROPERTY(QString title READ title NOTIFY changed)
  Q_PROPERTY(QString query READ query WRITE setQuery NOTIFY changed)
  Q_PROPERTY(QString submitLabel READ submitLabel NOTIFY changed)
  Q_PROPERTY(QString note READ note NOTIFY changed)
  Q_PROPERTY(bool canSubmit READ canSubmit NOTIFY changed)

 public:
  AddToTemplate(WorkspaceContext& context, Store& whole, RampupAccounts& accounts, RampupBulk& bulk);

  Form* form() { return &m_form; }
  AddableRows* rows() { return &m_rows; }
  QString title() const { return QStringLiteral("Add accounts to ") + m_templateName; }
  const QString& query() const { return m_query; }
  void setQuery(const QString& query);
  QString submitLabel() const;
  /// What there is to know where nothing can be ticked.
  QString note() const;
  bool canSubmit() const { return !m_form.busy() && !m_ticked.isEmpty(); }

  void open(const RoadmapTemplate& into);
  Q_INVOKABLE void toggle(const QString& id);
  Q_INVOKABLE void submit() { m_tasks.start(submitTask()); }
  Task<void> submitTask();

 Q_SIGNALS:
  void changed();

 private:
  void show();

  RampupAccounts& m_accounts;
  RampupBulk& m_bulk;
  Form m_form;
  AddableRows m_rows;
  QString m_templateId;
  QString m_templateName;
  QString m_query;
  QSet<QString> m_ticked;
};

}  // namespace orv
