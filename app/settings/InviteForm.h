#pragma once

#include <boost/describe/class.hpp>

#include "app/base/Choice.h"
#include "app/base/Draft.h"
#include "app/base/Form.h"
#include "app/base/Recovery.h"

namespace orv {

struct InviteFields {
  QString email;
  QString role;
  bool operator==(const InviteFields&) const = default;
};
BOOST_DESCRIBE_STRUCT(InviteFields, (), (email, role))

/// Invites a teammate.
class InviteForm final : public Form {
  Q_OBJECT
  Q_PROPERTY(QString email READ email NOTIFY changed)
  Q_PROPERTY(QString role READ role NOTIFY changed)
  Q_PROPERTY(QList<orv::Choice> roles READ roles CONSTANT)
  Q_PROPERTY(QString emailProblem READ emailProblem NOTIFY changed)
  Q_PROPERTY(bool canSubmit READ canSubmit NOTIFY changed)
  Q_PROPERTY(orv::Recovery* recovery READ recovery CONSTANT)

 public:
  explicit InviteForm(WorkspaceContext& context);

  /// Gets the trimmed address, which is one, and the role.
  std::function<void(const InviteFields&)> onSubmit;

  void show();
  QString email() const { return m_draft.typed().email; }
  QString role() const { return m_draft.typed().role; }
  QList<Choice> roles() const;
  QString emailProblem() const;
  bool canSubmit() const { return !busy(); }
  Recovery* recovery() { return &m_recovery; }

  Q_INVOKABLE void set(const QString& field, const QString& value);
  Q_INVOKABLE void submit();

 private:
  DraftOf<InviteFields> m_draft;
  Recovery m_recovery;
};

}  // namespace orv
