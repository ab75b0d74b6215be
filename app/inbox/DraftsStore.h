#pragma once

#include <memory>

#include "app/base/EnumName.h"
#include "app/inbox/Conversation.h"
#include "app/inbox/DraftDesk.h"
#include "app/inbox/DraftHistory.h"
#include "app/inbox/DraftLeftovers.h"
#include "app/inbox/DraftQueue.h"
#include "app/inbox/DraftReason.h"
#include "app/inbox/DraftStyles.h"
#include "app/inbox/TrainingFeedback.h"
#include "app/inbox/Writings.h"

namespace orv {

/// The review of the agent's drafts: one draft at a time, beside its conversation, with what was decided last.
class DraftsStore final : public Store, public DraftDesk {
  Q_OBJECT
  Q_PROPERTY(orv::DraftQueue* queue READ queue CONSTANT)
  Q_PROPERTY(orv::DraftDecisions* decisions READ decisions CONSTANT)
  Q_PROPERTY(orv::DraftReason* reason READ reason CONSTANT)
  Q_PROPERTY(orv::TrainingFeedback* feedback READ feedback CONSTANT)
  Q_PROPERTY(orv::DraftHistory* history READ history CONSTANT)
  Q_PROPERTY(orv::DraftLeftovers* leftovers READ leftovers CONSTANT)
  Q_PROPERTY(orv::Conversation* conversation READ conversation NOTIFY shownChanged)
  Q_PROPERTY(orv::Writing* writing READ writing NOTIFY shownChanged)
  Q_PROPERTY(bool historyShown READ historyShown WRITE setHistoryShown NOTIFY changed)
  Q_PROPERTY(QString headline READ headline NOTIFY changed)
  Q_PROPERTY(QString facts READ facts NOTIFY changed)
  Q_PROPERTY(QStringList failures READ failures NOTIFY changed)
  Q_PROPERTY(QString address READ address NOTIFY changed)
  Q_PROPERTY(QString mailbox READ mailbox NOTIFY changed)
  Q_PROPERTY(QString subject READ subject NOTIFY changed)
  Q_PROPERTY(QString why READ why NOTIFY changed)
  Q_PROPERTY(QList<orv::Choice> styles READ styles NOTIFY changed)
  Q_PROPERTY(QString style READ style NOTIFY changed)
  Q_PROPERTY(bool styling READ styling NOTIFY changed)
  Q_PROPERTY(bool edited READ edited NOTIFY changed)
  Q_PROPERTY(bool canApprove READ canApprove NOTIFY changed)
  Q_PROPERTY(QString approveText READ approveText NOTIFY changed)

 public:
  DraftsStore(WorkspaceContext& context, Writings& writings);
  ~DraftsStore() override;

  /// How labels read and campaigns are called in this workspace: whoever knows says so, here and when it knows more.
  struct Words {
    std::function<ReplyLabel(const ThreadLabel& label)> label;
    std::function<QString(const QString& id)> campaign;
  };
  void setWords(Words words);

  DraftQueue* queue() { return &m_queue; }
  DraftDecisions* decisions() { return &m_decisions; }
  DraftReason* reason() { return &m_reason; }
  TrainingFeedback* feedback() { return &m_feedback; }
  DraftHistory* history() { return &m_history; }
  DraftLeftovers* leftovers() { return &m_leftovers; }
  /// Of the draft that is shown; null for none.
  Conversation* conversation() const { return m_conversation.get(); }
  Writing* writing() const { return m_writing; }
  bool historyShown() const { return m_historyShown; }
  void setHistoryShown(bool shown);
  /// The decision that came last was taken back.
  bool undone() const { return m_undone; }

  // Of the draft that is shown.
  QString headline() const;
  QString facts() const;
  QStringList failures() const;
  QString address() const;
  QString mailbox() const;
  QString subject() const;
  /// Why the agent answers so.
  QString why() const;
  QList<Choice> styles() const { return m_styles.choices(shownDraft()); }
  QString style() const { return m_styles.styleOf(shownDraft()); }
  bool styling() const { return m_styles.isAsking(m_queue.picked()); }
  /// It says something else than what the agent wrote.
  bool edited() const { return m_writing && m_writing->dirty(); }
  bool canApprove() const;
  QString approveText() const;

  Q_INVOKABLE void chooseStyle(const QString& style) { m_tasks.start(chooseStyleTask(style)); }
  Q_INVOKABLE void openChat();

  void approve(const ReviewDraft& item) override;
  void skip(const ReviewDraft& item) override;
  bool isDeciding(const QString& draftId) const override;

  void ensureLoaded() override;
  void refresh() override;
  void close() override;
  PagePlace where() const override;
  void goTo(const PagePlace& place) override;

 Q_SIGNALS:
  void changed();
  void shownChanged();
  /// The person wants to write in the draft.
  void editRequested();
  /// Another draft came under the hands of whoever types: the field for its text is to give up the focus.
  void replaced();

 protected:
  QList<PageAction> offered(const QString& record) override;

 private:
  /// By key or button; one that follows at once is a key that is held, and would decide what nobody has seen.
  void decideShown(bool approves);
  Task<void> chooseStyleTask(QString style);
  void showPicked();
  void showText();
  void decided(const DraftDecisions::Undoable& decision);
  void returned(const ReviewDraft& item, DraftDecisions::Return how);
  void giveTexts();
  /// It can no longer come back.
  void letGo(const Draft& draft);
  Task<void> lostTask(ReviewDraft item);
  void late(const DraftDecisions::Undoable& decision, const Draft& now);
  /// It is decided, and is this now, if anybody knows: the person's text goes where it is what went out.
  void settle(const Draft& draft, const std::optional<Draft>& now);
  const Draft& shownDraft() const;
  std::unique_ptr<Conversation> open(const ReviewDraft& item);

  Writings& m_writings;
  Words m_words{.label = [](const ThreadLabel& label) { return replyLabel(label, {}); },
                .campaign = [](const QString&) { return QString(); }};
  DraftDecisions m_decisions;
  DraftQueue m_queue;
  DraftStyles m_styles;
  DraftReason m_reason;
  TrainingFeedback m_feedback;
  DraftHistory m_history;
  DraftLeftovers m_leftovers;
  std::unique_ptr<Conversation> m_conversation;
  /// Read ahead, so that going on shows it at once.
  std::unique_ptr<Conversation> m_next;
  QPointer<Writing> m_writing;
  /// As the list had them when it was last heard of.
  std::optional<InboxThread> m_listed;
  std::optional<InboxThread> m_nextListed;
  /// Of decisions that can be taken back: what the person had made of the draft, or that they had left it as it was.
  QHash<QString, std::optional<WrittenFields>> m_sent;
  QSet<QString> m_styled;
  /// The person has been told that they wait no more.
  QSet<QString> m_lost;
  QDateTime m_decidedAt;
  QString m_decidedId;
  bool m_historyShown = false;
  bool m_undone = false;
};

}  // namespace orv
