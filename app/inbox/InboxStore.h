#pragma once

#include "app/base/StoreCache.h"
#include "app/inbox/Conversation.h"
#include "app/inbox/DraftDesk.h"
#include "app/inbox/ThreadActions.h"
#include "kit/models/campaigns/campaignSummary.h"

namespace orv {

/// The inbox of one workspace: its conversations, the one that is open, and which of its three sections is shown. The
/// drafts' review and the agent have stores of their own.
///
/// The next conversation is read ahead, and the last few are kept, so that moving on shows one at once.
class InboxStore final : public Store {
  Q_OBJECT
  Q_PROPERTY(QString section READ sectionName WRITE setSection NOTIFY changed)
  Q_PROPERTY(QList<orv::Choice> sections READ sections NOTIFY sectionsChanged)
  Q_PROPERTY(orv::Store* drafts READ drafts CONSTANT)
  Q_PROPERTY(orv::Store* agent READ agent CONSTANT)
  Q_PROPERTY(orv::ThreadList* threads READ threads CONSTANT)
  Q_PROPERTY(QString openId READ openId NOTIFY openChanged)
  Q_PROPERTY(orv::Conversation* conversation READ conversation NOTIFY openChanged)
  Q_PROPERTY(QStringList busyIds READ busyIds NOTIFY busyChanged)
  Q_PROPERTY(bool generating READ generating NOTIFY busyChanged)
  Q_PROPERTY(bool deciding READ deciding NOTIFY busyChanged)
  Q_PROPERTY(int leadsWidth READ leadsWidth WRITE setLeadsWidth NOTIFY leadsWidthChanged)
  Q_PROPERTY(int leastLeadsWidth READ leastWidth CONSTANT)
  Q_PROPERTY(int mostLeadsWidth READ mostWidth CONSTANT)

 public:
  enum class Section { conversations, drafts, agent };
  Q_ENUM(Section)

  static constexpr int leastLeadsWidth = 220;
  static constexpr int mostLeadsWidth = 420;

  /// `drafts` is a DraftDesk; it and `agent` may be missing.
  InboxStore(WorkspaceContext& context, Writings& writings, Store* drafts, Store* agent);

  Section section() const { return m_section; }
  QString sectionName() const;
  void setSection(const QString& name);
  QList<Choice> sections() const;
  Store* drafts() const { return m_drafts; }
  Store* agent() const { return m_agent; }
  ThreadList* threads() { return &m_threads; }
  ThreadActions& actions() { return m_actions; }
  using Store::actions;

  /// Empty while none is open.
  const QString& openId() const { return m_openId; }
  Conversation* conversation() const { return m_kept.find(m_openId); }
  QStringList busyIds() const { return m_actions.busyIds(); }
  /// The agent writes for the open conversation.
  bool generating() const { return m_actions.isGenerating(m_openId); }
  /// Its draft has been decided on, and the service has not answered.
  bool deciding() const;
  /// Of the contact beside the conversation, in pixels; 0 while nobody has chosen it.
  int leadsWidth() const;
  void setLeadsWidth(int width);
  int leastWidth() const { return leastLeadsWidth; }
  int mostWidth() const { return mostLeadsWidth; }

  void ensureLoaded() override;
  void refresh() override;
  PagePlace where() const override;
  void goTo(const PagePlace& place) override;
  void begin() override;
  void showRecord(const QString& id) override;
  QList<FoundRecord> found() const override;
  void ensureFound() override { m_threads.list()->ensureLoaded(); }
  void trim() override;
  void close() override;

  /// Shows the conversation, which counts as read from then on.
  Q_INVOKABLE void open(const QString& id);
  /// The next one in the list, or the one before.
  Q_INVOKABLE void step(int by);
  /// An empty key clears the label.
  Q_INVOKABLE void setLabel(const QString& key);
  Q_INVOKABLE void send();
  /// Opens an address of a message.
  Q_INVOKABLE void openLink(const QString& url);
  Q_INVOKABLE void copyAddress();

 Q_SIGNALS:
  void changed();
  void sectionsChanged();
  void openChanged();
  void busyChanged();
  void leadsWidthChanged();
  /// The field for the person's own message is to have the focus, or that for the draft's text.
  void replyWanted();
  void editWanted();
  /// The labels are to be offered.
  void labelsWanted();
  /// A reply is under way; whoever wrote it goes on.
  void replySent();

 protected:
  QList<PageAction> offered(const QString& record) override;

 private:
  /// Of the section that is shown; null for the conversations, which are this store's own.
  Store* shownPart() const;
  DraftDesk* desk() const { return dynamic_cast<DraftDesk*>(m_drafts); }
  QList<PageAction> offeredHere();
  QList<PageAction> offeredOpen();
  QList<PageAction> offeredDraft();
  QList<PageAction> offeredFor(const InboxThread& thread);
  Conversation* kept(const QString& id);
  QString campaignName(const QString& id) const;
  /// The one to go on to from the open one.
  QString next(int by) const;
  void leave(const InboxThread& thread, bool archives);
  void startReply();
  void decide(bool approves);
  void countDraft(const ReviewDraft& item, bool waits);
  void arrived();
  void conversationRead(const QString& id);
  void lookAtOpen();
  void readAhead();
  void tellWords();
  /// Another one is open.
  void letGo(Conversation& left);
  /// None is open.
  void shut();

  Writings& m_writings;
  Store* m_drafts;
  Store* m_agent;
  ThreadList m_threads;
  ThreadActions m_actions;
  Resource<CampaignList> m_campaigns;
  StoreCache<Conversation> m_kept{8, StoreCache<Conversation>::Order::lastOpening};
  Section m_section = Section::conversations;
  QString m_openId;
  /// The same, where what came into it came while nobody looked at the window.
  QString m_unseen;
  /// The one that was shut because it was to leave the list.
  QString m_shut;
  int m_direction = 1;
};

}  // namespace orv
