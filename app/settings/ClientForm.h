#pragma once

#include <boost/describe/class.hpp>

#include "app/base/Draft.h"
#include "app/base/Form.h"
#include "app/base/Recovery.h"
#include "kit/models/workspace/workspaceDetail.h"

namespace orv {

/// Makes a workspace for a client, and invites them into it.
class ClientForm final : public Form {
  Q_OBJECT
  Q_PROPERTY(orv::FieldDraft* draft READ draft CONSTANT)
  Q_PROPERTY(orv::Recovery* recovery READ recovery CONSTANT)

 public:
  explicit ClientForm(WorkspaceContext& context);

  /// Gets the trimmed fields, of which none is empty.
  std::function<void(const ClientWorkspaceBody&)> onSubmit;

  FieldDraft* draft() { return &m_draft; }
  Recovery* recovery() { return &m_recovery; }

  void show();
  Q_INVOKABLE void set(const QString& field, const QString& value);
  Q_INVOKABLE void submit();

 private:
  DraftOf<ClientWorkspaceBody> m_draft;
  Recovery m_recovery;
};

}  // namespace orv
