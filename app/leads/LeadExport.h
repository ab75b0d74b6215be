#pragma once

#include "app/base/JobForm.h"
#include "app/base/Store.h"
#include "kit/models/leads/leadList.h"

namespace orv {

/// The form that exports a list: all of it, its newest leads, or those that were ticked when it was opened. The export
/// is a job of the workspace.
class LeadExport final : public Store {
  Q_OBJECT
  Q_PROPERTY(orv::JobForm* form READ form CONSTANT)
  Q_PROPERTY(QString about READ about NOTIFY changed)
  Q_PROPERTY(QString howMany READ howMany WRITE setHowMany NOTIFY changed)
  Q_PROPERTY(QString howManyLabel READ howManyLabel CONSTANT)
  Q_PROPERTY(QString problem READ problem NOTIFY changed)
  Q_PROPERTY(QString tickedText READ tickedText NOTIFY changed)
  Q_PROPERTY(bool onlyTicked READ onlyTicked WRITE setOnlyTicked NOTIFY changed)
  Q_PROPERTY(bool canSubmit READ canSubmit NOTIFY changed)

 public:
  LeadExport(WorkspaceContext& context, Store& whole);

  JobForm* form() { return &m_form; }
  /// "Insurance owners, DACH · 2,600 leads".
  QString about() const;
  /// As typed; empty for all.
  const QString& howMany() const { return m_howMany; }
  void setHowMany(const QString& text);
  static QString howManyLabel();
  QString problem() const;
  /// "Only the 3 ticked leads"; empty when none was ticked.
  QString tickedText() const;
  bool onlyTicked() const { return m_onlyTicked; }
  void setOnlyTicked(bool only);
  bool canSubmit() const { return !m_form.busy() && (m_onlyTicked || problem().isEmpty()); }

  void open(const LeadList& list, const QStringList& ticked);
  Q_INVOKABLE void submit();

  void close() override;

 Q_SIGNALS:
  void changed();

 private:
  std::optional<int> number() const;

  JobForm m_form;
  LeadList m_list;
  QStringList m_ticked;
  QString m_howMany;
  bool m_onlyTicked = false;
};

}  // namespace orv
