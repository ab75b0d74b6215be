#include <QSignalSpy>
#include <QTest>

#include "app/inbox/DraftsStore.h"
#include "kit/models/inbox/draftRequests.h"
#include "kit/models/inbox/draftReview.h"
#include "kit/models/inbox/inboxRequests.h"
#include "kit/models/inbox/inboxWords.h"
#include "kit/models/inbox/setterRequests.h"
#include "kit/models/inbox/setterSettings.h"
#include "kit/models/inbox/setterTraining.h"
#include "kit/models/inbox/threadDetail.h"
#include "kit/models/inbox/threadFilter.h"
#include "tests/service/Client.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;

/// A reply's way over HTTP: it arrives, the desktop tells of it, its draft is approved and goes out.
class InboxJourneyTest : public QObject {
  Q_OBJECT

  std::unique_ptr<ServiceProcess> service;
  std::unique_ptr<Desk> desk;
  std::unique_ptr<Client> client;

  Notifier& notifier() { return *client->app().notifier(); }
  template <class R>
  R send(Request<R> request) {
    return client->sendElsewhere(std::move(request));
  }
  QString stateOf(const QString& threadId, const QString& draftId) {
    for (const Draft& draft : send(Requests::getThread(threadId)).drafts)
      if (draft.id == draftId) return draft.status;
    return {};
  }
  /// The person comes back to the window until something was told; the next minute would do the same.
  bool isTold() {
    notifier().setActive(false);
    notifier().setActive(true);
    return QTest::qWaitFor([this] { return toldOf(u"repl"_s); }, 300);
  }
  /// The first notice of the kind: accounts of the sample have failed before anybody looked.
  const Notifications::Notice* toldOf(const QString& kind) const {
    const auto& shown = desk->notifications.shown;
    const auto found = std::ranges::find_if(shown, [&](const auto& notice) { return notice.id.startsWith(kind); });
    return found == shown.end() ? nullptr : &*found;
  }

 private Q_SLOTS:
  void init() {
    service = std::make_unique<ServiceProcess>(QStringList{u"--replies-per-minute"_s, u"240"_s});
    desk = std::make_unique<Desk>();
    client = std::make_unique<Client>(*desk, service->url());
    client->signInWithPassword();
  }
  void cleanup() {
    client.reset();
    desk.reset();
    service.reset();
  }

  void fromArrivalToApproval() {
    notifier().begin();
    QTRY_VERIFY(!desk->preferences.notifySince(u"northgate"_s).isEmpty());
    QVERIFY(!toldOf(u"repl"_s));
    QTRY_VERIFY(toldOf(u"account"_s));
    const qint64 before = *client->app().session()->context().unread();
    QSignalSpy came(&client->app().session()->context(), &WorkspaceContext::mailCame);
    QTRY_VERIFY_WITH_TIMEOUT(isTold(), 20'000);
    QVERIFY(came.size() > 0 && *client->app().session()->context().unread() > before);
    const auto told = *toldOf(u"repl"_s);
    QVERIFY(!told.title.isEmpty());

    Q_EMIT desk->notifications.followed(told.id, {});
    QCOMPARE(client->app().router()->page(), Page::inbox);
    const auto single = client->app().router()->openedItem(Page::inbox);
    const QString id =
        single.isEmpty() ? send(Requests::listThreads({.label = u"interested"_s})).items.first().id : single;
    const ThreadDetail detail = send(Requests::getThread(id));
    QVERIFY(detail.thread.unread && detail.thread.label->isPositive());
    // Where the agent is off, it has to be asked.
    const Draft waiting = detail.drafts.isEmpty() ? send(Requests::draftReply(id)) : detail.drafts.first();

    // In the review it can be taken back; then it goes out as somebody else approves it.
    auto& review = *client->app().session()->store<DraftsStore>();
    review.queue()->list()->appear();
    review.ensureLoaded();
    QTRY_VERIFY(review.queue()->find(waiting.id));
    review.approve(*review.queue()->find(waiting.id));
    QTRY_COMPARE(stateOf(id, waiting.id), u"approved"_s);
    QTRY_VERIFY(review.decisions()->find(waiting.id)->taken);
    review.decisions()->undo(waiting.id);
    QTRY_COMPARE(stateOf(id, waiting.id), waiting.status);

    const Draft approved = send(Requests::approveDraft(waiting.id, {.body = u"Hi,\n\nyes."_s}));
    QCOMPARE(approved.aiBody, waiting.body);
    QTRY_COMPARE_WITH_TIMEOUT(send(Requests::getThread(id)).messages.last().draftId, std::optional(approved.id),
                              15'000);
    QTRY_VERIFY_WITH_TIMEOUT(send(Requests::draftTraining(approved.id)).done, 15'000);
    QCOMPARE(send(Requests::listDrafts(words::draftEdited)).items.first().draft.id, approved.id);
  }
};

QTEST_GUILESS_MAIN(InboxJourneyTest)
#include "inbox_test.moc"
