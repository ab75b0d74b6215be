#pragma once

#include "app/base/Actions.h"
#include "app/base/Choice.h"
#include "app/base/Store.h"
#include "kit/models/inbox/draftReview.h"

namespace orv {

/// The same drafts in other styles: asked for once for each draft, and which of them the person chose.
class DraftStyles final : public Store {
  Q_OBJECT

 public:
  DraftStyles(WorkspaceContext& context, Store* whole);

  /// What a draft can be shown in, the agent's own text first.
  QList<Choice> choices(const QString& draftId) const;
  /// As chosen; the agent's own text otherwise.
  QString styleOf(const QString& draftId) const;
  /// The chosen style's text, once it is there.
  const DraftVersion* versionOf(const QString& draftId) const;
  /// The styles are being written.
  bool isAsking(const QString& draftId) const { return m_busy.contains(draftId); }

  void choose(const QString& draftId, const QString& style);
  /// The agent wrote it anew, or it is decided for good.
  void forget(const QString& draftId);

 Q_SIGNALS:
  void changed(const QString& draftId);

 private:
  Task<void> askTask(QString draftId);

  BusySet m_busy;
  Actions m_actions;
  QHash<QString, QList<DraftVersion>> m_versions;
  QHash<QString, QString> m_styles;
};

}  // namespace orv
