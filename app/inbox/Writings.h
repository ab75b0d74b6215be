#pragma once

#include <map>
#include <memory>

#include "app/base/Store.h"
#include "app/inbox/Writing.h"
#include "kit/models/inbox/draftReview.h"

namespace orv {

/// Everything that the person is writing in the inbox: their own reply to a thread, their edit of a draft. One for the
/// workspace, so that a text is the same wherever it is shown.
class Writings final : public Store {
  Q_OBJECT

 public:
  explicit Writings(WorkspaceContext& context) : Store(context) {}

  /// The person's own message to the thread. `contact` says whom it is for.
  Writing* reply(const QString& threadId, const QString& contact);
  /// What they make of the draft, which is as the agent wrote it for now.
  Writing* edit(const Draft& draft, const QString& contact);
  /// The same, where they have begun.
  Writing* findReply(const QString& threadId) const;
  Writing* findEdit(const Draft& draft) const;
  /// The draft's text as it is to be sent; nothing where it is the agent's own.
  std::optional<QString> editOf(const Draft& draft) const;

  QStringList unsavedWork() const override;
  /// Waits for what is on its way; only its writer sends the rest.
  Task<bool> flush() override;
  /// Lets go of texts that say nothing.
  void trim() override;

 Q_SIGNALS:
  /// Something was begun, sent or thrown away.
  void changed(const QString& threadId);
  /// Another draft has taken the place of the one that the person was changing.
  void lost(const orv::ReviewDraft& item);

 private:
  Writing* open(const QString& key, const QString& threadId, const QString& about);
  Writing* find(const QString& key) const;

  std::map<QString, std::unique_ptr<Writing>> m_all;
};

}  // namespace orv
