#pragma once

#include "app/base/Draft.h"
#include "app/base/Form.h"
#include "app/base/Recovery.h"
#include "app/inbox/DraftDecisions.h"

namespace orv {

struct DraftReasonFields {
  QString reason;
  bool operator==(const DraftReasonFields&) const = default;
};
BOOST_DESCRIBE_STRUCT(DraftReasonFields, (), (reason))

/// Asks why a draft was skipped, after it was.
class DraftReason final : public Store {
  Q_OBJECT
  Q_PROPERTY(orv::Form* form READ form CONSTANT)
  Q_PROPERTY(orv::FieldDraft* draft READ draft CONSTANT)
  Q_PROPERTY(orv::Recovery* recovery READ recovery CONSTANT)
  Q_PROPERTY(QString contact READ contact NOTIFY changed)

 public:
  DraftReason(WorkspaceContext& context, Store* whole, DraftDecisions& decisions);

  Form* form() { return &m_form; }
  FieldDraft* draft() { return &m_draft; }
  Recovery* recovery() { return &m_recovery; }
  /// Whose draft it was.
  QString contact() const;

  /// Nothing happens for one that was not skipped, or that waits again.
  Q_INVOKABLE void ask(const QString& draftId);
  Q_INVOKABLE void submit() { m_tasks.start(submitTask()); }
  Task<void> submitTask();

 Q_SIGNALS:
  void changed();
  /// The service knows why.
  void given(const QString& draftId);

 private:
  DraftDecisions& m_decisions;
  std::optional<ReviewDraft> m_item;
  Form m_form;
  DraftOf<DraftReasonFields> m_draft;
  Recovery m_recovery;
};

}  // namespace orv
