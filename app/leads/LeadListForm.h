#pragma once

#include "app/base/Draft.h"
#include "app/base/Form.h"
#include "app/base/Recovery.h"
#include "kit/models/leads/leadList.h"

namespace orv {

/// What a person says of a list.
struct LeadListFields {
  QString name;
  QString description;
};
BOOST_DESCRIBE_STRUCT(LeadListFields, (), (name, description))

/// Names and describes a list, a new one or one that is there.
class LeadListForm final : public Form {
  Q_OBJECT
  Q_PROPERTY(QString title READ title NOTIFY changed)
  Q_PROPERTY(QString hint READ hint NOTIFY changed)
  Q_PROPERTY(QString submitLabel READ submitLabel NOTIFY changed)
  Q_PROPERTY(bool canSubmit READ canSubmit NOTIFY changed)
  Q_PROPERTY(orv::FieldDraft* draft READ draft CONSTANT)
  Q_PROPERTY(orv::Recovery* recovery READ recovery CONSTANT)

 public:
  explicit LeadListForm(WorkspaceContext& context);

  QString title() const;
  QString hint() const;
  QString submitLabel() const;
  bool canSubmit() const { return !busy() && !typed().name.isEmpty(); }
  FieldDraft* draft() { return &m_draft; }
  Recovery* recovery() { return &m_recovery; }

  void showNew();
  void showList(const LeadList& list);
  /// As it was when the form was filled; null for a new one.
  const LeadList* edited() const { return m_edited ? &*m_edited : nullptr; }
  /// Without the blanks around them.
  LeadListFields typed() const;
  Q_INVOKABLE void submit();

 Q_SIGNALS:
  void submitted();

 private:
  std::optional<LeadList> m_edited;
  DraftOf<LeadListFields> m_draft;
  Recovery m_recovery;
};

}  // namespace orv
