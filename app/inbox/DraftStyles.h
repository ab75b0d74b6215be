#pragma once

#include <map>

#include "app/base/Actions.h"
#include "app/base/Choice.h"
#include "app/base/Store.h"
#include "kit/models/inbox/draftReview.h"

namespace orv {

/// The same drafts in other styles: asked for once for each draft, and which of them the person chose. A draft that the
/// agent wrote anew has none yet.
class DraftStyles final : public Store {
  Q_OBJECT

 public:
  DraftStyles(WorkspaceContext& context, Store* whole);

  /// What a draft can be shown in, the agent's own text first.
  QList<Choice> choices(const Draft& draft) const;
  /// As chosen, or as it will be once it is written; the agent's own text otherwise.
  QString styleOf(const Draft& draft) const;
  /// The chosen style's text.
  const DraftVersion* versionOf(const Draft& draft) const;
  /// The styles are being written.
  bool isAsking(const QString& draftId) const { return m_busy.contains(draftId); }

  /// Has the styles written, unless they are. False when there is no text in this one.
  Task<bool> writeTask(Draft draft, QString style);
  /// One that has been written.
  void choose(const Draft& draft, const QString& style);
  /// It is decided for good.
  void forget(const QString& draftId);

 Q_SIGNALS:
  void changed(const QString& draftId);

 private:
  struct Written {
    /// The agent's own text, as it was when the others were written.
    QString body;
    QList<DraftVersion> versions;
    QString chosen;
  };

  const Written* find(const Draft& draft) const;
  static const DraftVersion* in(const Written& written, const QString& style);

  BusySet m_busy;
  Actions m_actions;
  std::map<QString, Written> m_written;
  /// Of drafts whose styles are being written.
  QHash<QString, QString> m_wanted;
};

}  // namespace orv
