#pragma once

#include <QHash>
#include <QObject>
#include <QSet>
#include <QVariantMap>
#include <functional>
#include <memory>

#include "app/base/Navigator.h"
#include "app/base/PageAction.h"
#include "app/base/desktop/Notifications.h"
#include "app/base/desktop/Preferences.h"
#include "kit/async/Clock.h"
#include "kit/async/TaskScope.h"
#include "kit/session/records.h"

namespace orv {

struct InboxThread;
struct Mailbox;
class WorkspaceContext;

/// Looks every minute for what is new, as long as somebody is signed in and whether the window is seen or not: unread
/// mail for the badges, and of the open workspace good replies and failed accounts for the desktop to tell of.
class Notifier final : public QObject {
  Q_OBJECT
  /// Unread conversations by workspace.
  Q_PROPERTY(QVariantMap unread READ unread NOTIFY changed)
  /// Accounts of the open workspace that need attention.
  Q_PROPERTY(int attention READ attention NOTIFY changed)

 public:
  static constexpr std::chrono::seconds interval{60};
  /// More news than that at a time are told as one.
  static constexpr qsizetype toldSingly = 4;

  /// `notifications` may be null. `counts` asks for the unread mail of whoever is signed in.
  Notifier(Clock& clock, Preferences& preferences, Navigator& navigator, Notifications* notifications,
           std::function<Task<UnreadCounts>()> counts, QObject* parent = nullptr);
  ~Notifier() override;

  /// From now on it looks; before, it only knows where it would.
  void begin();
  /// The workspace is the open one.
  void enter(std::shared_ptr<WorkspaceContext> context);
  /// Nobody is signed in any more.
  void leave();

  /// The window has the keys, or no longer. Who comes back to it is told at once.
  Q_INVOKABLE void setActive(bool active);

  /// Opens a page of the open workspace where the place says; without it a page is opened as it begins.
  std::function<void(Page page, const PagePlace& place)> onPlaceAsked;

  QVariantMap unread() const;
  int attention() const;

 Q_SIGNALS:
  void changed();
  /// The person followed a notification: the window comes forward, by the desktop's leave if there is one.
  void followed(const QString& activationToken);

 private:
  using Context = std::shared_ptr<WorkspaceContext>;
  /// Where a notification leads.
  struct Target {
    QString slug;
    Page page = Page::inbox;
    /// Empty for the page itself.
    QString item;
    /// Where in the page those are that are told of as one.
    PagePlace place = {};
    /// Those that are told of as one: it goes with the last of them.
    QSet<QString> items = {};
  };
  /// One thing to tell, and how it is named among others.
  struct News {
    Notifications::Notice notice;
    Target target;
    QString name;
  };

  void look();
  Task<void> beat();
  Task<bool> lookOnce(Context context);
  Task<void> lookForReplies(Context context, QString latestAt);
  Task<void> lookForFailures(Context context);
  Task<QList<Mailbox>> failedAccounts(Context context);
  void take(const UnreadCounts& counts, WorkspaceContext& context);
  QList<News> newsOf(const QList<InboxThread>& replies, const QString& slug);
  /// How many are told of as one: `title` has their number in it, and the page shows them at `place`.
  struct Summary {
    QString id;
    QString title;
    PagePlace place;
  };
  void tell(QList<News> news, const Summary& summary);
  void show(const News& news);
  bool isOnScreen(const Target& target) const;
  void withdraw(const QString& id);
  void replySeen(const QString& slug, const QString& threadId);
  void follow(const QString& id, const QString& token);

  Clock& m_clock;
  Preferences& m_preferences;
  Navigator& m_navigator;
  Notifications* m_notifications;
  std::function<Task<UnreadCounts>()> m_counts;
  Context m_context;
  /// Of what is watched in it.
  std::unique_ptr<QObject> m_watcher;
  bool m_begun = false;
  bool m_active = false;
  /// What the workspace is told of that: a window that never said so is looked at.
  bool m_watched = true;
  bool m_looking = false;
  /// Somebody changed the unread mail here while the service was being asked.
  bool m_overtaken = false;
  /// By workspace.
  QHash<QString, qint64> m_unread;
  QHash<QString, QString> m_latest;
  QHash<QString, qint64> m_failed;
  /// By the notification's id.
  QHash<QString, Target> m_shown;
  /// Messages that were told, so that an answer which comes twice tells them once.
  QSet<QString> m_told;
  TaskSlot m_beat;
};

}  // namespace orv
